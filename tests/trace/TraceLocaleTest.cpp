// A trace that goes on after faults ends, whatever the locale calls white
// space.
#include <algorithm>
#include <locale>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "trace/Corpus.h"

namespace ZelDebugDialog::test {

namespace {

/// Some characters that separate words, and are no white space.
class FewerSpaces : public std::ctype<char> {
public:
  explicit FewerSpaces(const std::string &separators)
      : std::ctype<char>(tableWithout(separators), true) {}

private:
  static const mask *tableWithout(const std::string &separators) {
    mask *const table = new mask[table_size];
    std::copy(classic_table(), classic_table() + table_size, table);
    for (const char separator : separators)
      table[static_cast<unsigned char>(separator)] = punct;
    return table;
  }
};

class TraceLocale : public testing::TestWithParam<std::string> {
protected:
  TraceLocale()
      : before(std::locale::global(std::locale(std::locale::classic(),
                                               new FewerSpaces(GetParam())))) {}
  ~TraceLocale() override { std::locale::global(before); }

  static void trace(const std::string &command) {
    for (const AfterFault afterFault : {AfterFault::stop, AfterFault::goOn}) {
      Engine engine;
      EngineImp &imp = *engine.GetProcessorList(nullptr);
      ProcessorInfoImp record;
      imp.currentProcessor = &record;
      CommandTrace trace;
      try {
        const int result = TraceKvoCommand(command, imp, trace, afterFault);
        EXPECT_TRUE(result == 0 || result == 3) << command;
      } catch (const std::out_of_range &) {
        EXPECT_EQ(afterFault, AfterFault::stop) << command;
      }
      ReleaseChainRecords(imp.jtagChain);
      imp.currentProcessor = nullptr;
    }
  }

private:
  const std::locale before;
};

TEST_P(TraceLocale, Ends) {
  for (const auto &commands : {acceptedCommands, refusedCommands})
    for (const std::string &command : commands) {
      trace(command);
      std::string other = command;
      std::replace(other.begin(), other.end(), ' ', '\t');
      trace(other);
      // A separator behind each word, and words that stand alone.
      for (std::size_t at = 0; (at = other.find('\t', at)) < other.size();
           ++at) {
        trace(command.substr(0, at) + " \t" + command.substr(at));
        trace(command.substr(0, at) + '\t');
      }
    }
}

INSTANTIATE_TEST_SUITE_P(OfSeparators, TraceLocale,
                         testing::Values("", " ", "\t", " \t"));

} // namespace

} // namespace ZelDebugDialog::test
