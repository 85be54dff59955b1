// Every command that the round trips write, explained word by word: no word is
// without a role, and another value in the place of one changes the settings
// that the trace names for that word, and no others.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "language/Bench.h"
#include "language/RoundTripMaker.h"
#include "support/ManyOrFew.h"
#include "support/StateText.h"

namespace {

using namespace LanguageTest;
using support::Losses;
using support::Prediction;
using ZelDebugDialog::AfterFault;
using ZelDebugDialog::CommandFaultKind;
using ZelDebugDialog::CommandTrace;
using ZelDebugDialog::CommandWord;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;
using ZelDebugDialog::ValueConversion;
using ZelDebugDialog::WordRole;

constexpr std::uint64_t kSeed = 20261121;
const int kCases = support::manyOrFew(1000, 100);

/// What reading a command gave.
struct Explained {
  int result = 0;
  CommandTrace trace;
  std::map<std::string, std::string> settings;
};

/// One engine for many commands.
class Desk {
public:
  Desk() : imp(*engine.GetProcessorList(nullptr)) {
    imp.currentProcessor = &record;
  }
  ~Desk() { clear(); }
  Desk(const Desk &) = delete;
  Desk &operator=(const Desk &) = delete;

  /// @return false where there is no command.
  bool write(const Configuration &configuration, std::string &command) {
    clear();
    record = configuration.record;
    *imp.cableOption = configuration.cable;
    imp.cpuJtag = configuration.cpuJtag;
    for (const JtagOption &device : configuration.chain)
      imp.jtagChain.push_back(new JtagOption(device));
    return KvoOption_Parser::WriteKvoCmdString(imp, command) == 0;
  }

  Explained explain(const std::string &command) {
    clear();
    Explained read;
    try {
      read.result = TraceKvoCommand(command, imp, read.trace, AfterFault::stop);
    } catch (const std::out_of_range &) {
      read.result = kThrows;
    }
    read.settings = ZelDebugDialog::test::settingsOf(imp);
    return read;
  }

private:
  void clear() {
    ReleaseChainRecords(imp.jtagChain);
    record = ProcessorInfoImp();
    imp.EngineImpInit();
  }

  Engine engine;
  EngineImp &imp;
  ProcessorInfoImp record;
};

std::string textOf(const std::string &command, const CommandWord &word) {
  return command.substr(word.offset, word.length);
}

/// The words that name a value of this setting, wherever it may stand.
std::vector<std::string> namedValuesOf(const std::string &field) {
  std::vector<std::string> words;
  const auto add = [&](const ZelDebugDialog::CommandValue &value) {
    if (!value.fields.empty() && value.fields.front() == field)
      words.insert(words.end(), value.words.begin(), value.words.end());
  };
  static const auto tables = ZelDebugDialog::GetCommandTables();
  for (const auto &set : tables.optionSets)
    for (const auto &option : set.options) {
      add(option.value);
      for (const auto &parameter : option.parameters)
        add(parameter.value);
    }
  return words;
}

/// A number that differs in one bit, which neither leaves its field nor its
/// 64 KiB boundary.
std::string withBitFlipped(const std::string &number, unsigned long bit) {
  const unsigned long value = std::strtoul(number.c_str(), nullptr, 0);
  return std::to_string((value ^ bit) & 0xFFFFFFFFUL);
}

/// What else might stand in the place of a word.
std::vector<std::string> othersFor(const CommandWord &word,
                                   const std::string &old) {
  switch (word.conversion) {
  case ValueConversion::text:
    return {old + "x"};
  case ValueConversion::hostAndPort:
    return {"otherhost:4711"};
  case ValueConversion::number:
  case ValueConversion::signedNumber:
    return {withBitFlipped(old, 0x10000)};
  case ValueConversion::lowByte:
    return {withBitFlipped(old, 1)};
  case ValueConversion::namedValue: {
    std::vector<std::string> others = namedValuesOf(word.fields.front());
    others.erase(std::remove(others.begin(), others.end(), old), others.end());
    return others;
  }
  case ValueConversion::none:
    break;
  }
  // Connections with the same options behind them.
  static const std::map<std::string, std::string> alike{{"hdu", "stub"},
                                                        {"stub", "hdu"}};
  const auto found = alike.find(old);
  return found == alike.end() ? std::vector<std::string>()
                              : std::vector<std::string>{found->second};
}

std::set<std::string> differing(const Explained &before,
                                const Explained &after) {
  std::set<std::string> names;
  for (const auto &[name, value] : before.settings) {
    const auto found = after.settings.find(name);
    if (found == after.settings.end() || found->second != value)
      names.insert(name);
  }
  return names;
}

class ExplainedWords : public testing::Test {
protected:
  /// The commands that come back, one after the other.
  template <class Look> void forEachCommand(const Look &look) {
    CaseMaker maker(kSeed);
    Losses ignored;
    for (int i = 0; i < kCases; ++i) {
      RoundTripCase roundTrip = maker.next();
      roundTrip.underDesign = false;
      const bool comesBack =
          predict(roundTrip, ignored).kind == Prediction::Kind::Read;
      std::string command;
      if (!comesBack || !desk.write(roundTrip.written, command))
        continue;
      SCOPED_TRACE(printable(command));
      look(command);
      if (HasFailure())
        return;
    }
  }

  /// Puts another word in the place of one.
  void replace(const std::string &command, const Explained &before,
               const CommandWord &word, const std::string &other) {
    std::string changed = command;
    changed.replace(word.offset, word.length, other);
    const Explained after = desk.explain(changed);
    SCOPED_TRACE(printable(changed));
    if (after.result != 0) {
      expectRefusedAsAWhole(after);
      ++refused;
      return;
    }
    std::set<std::string> allowed(word.fields.begin(), word.fields.end());
    // Another cable may bring a port where this one has none.
    for (const CommandWord &there : after.trace.words)
      if (there.offset == word.offset)
        allowed.insert(there.fields.begin(), there.fields.end());
    const bool endsInType =
        word.fields.front() == "cable.cableType" && isCableLast(before);
    // The type of a cable that ends the command brings its frequency along.
    if (endsInType)
      allowed.insert("cable.frequency");
    const std::set<std::string> names = differing(before, after);
    EXPECT_TRUE(std::includes(allowed.begin(), allowed.end(), names.begin(),
                              names.end()))
        << testing::PrintToString(names);
    if (!names.empty())
      changedFields.insert(word.fields.begin(), word.fields.end());
    hasChanged = hasChanged || !names.empty();
  }

  static bool isCableLast(const Explained &read) {
    const auto &words = read.trace.words;
    const auto last =
        std::find_if(words.rbegin(), words.rend(), [](const CommandWord &word) {
          return word.role == WordRole::value;
        });
    return last != words.rend() && !last->fields.empty() &&
           last->fields.front().compare(0, 6, "cable.") == 0;
  }

  /// Another value can make a cable that ends the command incomplete, which is
  /// no fault of the value.
  static void expectRefusedAsAWhole(const Explained &read) {
    ASSERT_EQ(read.trace.faults.size(), 1U);
    const CommandFaultKind kind = read.trace.faults.front().kind;
    EXPECT_TRUE(kind == CommandFaultKind::missingModule ||
                kind == CommandFaultKind::refusedFrequency)
        << static_cast<int>(kind);
  }

  Desk desk;
  int refused = 0;
  bool hasChanged = false;
  std::set<std::string> changedFields;
};

TEST_F(ExplainedWords, LeaveNothingOut) {
  int commands = 0;
  forEachCommand([&](const std::string &command) {
    const Explained read = desk.explain(command);
    ASSERT_EQ(read.result, 0);
    EXPECT_TRUE(read.trace.faults.empty());
    std::string joined;
    for (const CommandWord &word : read.trace.words) {
      joined += textOf(command, word);
      EXPECT_NE(word.role, WordRole::ignored) << textOf(command, word);
      EXPECT_NE(word.role, WordRole::lost) << textOf(command, word);
      EXPECT_TRUE(word.role != WordRole::value || !word.fields.empty())
          << textOf(command, word);
    }
    std::string expected = command;
    expected.erase(std::remove(expected.begin(), expected.end(), ' '),
                   expected.end());
    EXPECT_EQ(joined, expected);
    ++commands;
  });
  EXPECT_GT(commands, kCases / 2);
}

TEST_F(ExplainedWords, NameWhatTheyChange) {
  int values = 0;
  forEachCommand([&](const std::string &command) {
    const Explained before = desk.explain(command);
    for (const CommandWord &word : before.trace.words) {
      if (word.fields.empty())
        continue;
      const std::string old = textOf(command, word);
      const std::vector<std::string> others = othersFor(word, old);
      hasChanged = false;
      refused = 0;
      for (const std::string &other : others)
        replace(command, before, word, other);
      EXPECT_TRUE(hasChanged || refused > 0 || others.empty())
          << printable(old);
      ++values;
    }
  });
  EXPECT_GT(values, 3 * kCases);
  // Every setting that a written command can carry was changed at least once.
  for (const char *field : {"bscanUserReg",      "cable.cableType",
                            "cable.esn",         "cable.frequency",
                            "cable.moduleArgs",  "cable.moduleName",
                            "cable.port",        "chain[0].devicenr",
                            "chain[0].idcode",   "chain[0].irlength",
                            "chain[0].partname", "connectionMask",
                            "connectionType",    "cpuNr",
                            "dcacheStartAdr",    "dcrStartAdr",
                            "debugAddressMap",   "debugDevice",
                            "dtagStartAdr",      "fpuType",
                            "icacheStartAdr",    "isocmDcrStartAdr",
                            "isocmSize",         "isocmStartAdr",
                            "itagStartAdr",      "ppcSimConfigFile",

                            "romemSize",         "romemStartAdr",
                            "simIpcHost",        "simIpcPort",
                            "stubBaudRate",      "stubSerialPort",
                            "stubTimeout",       "stubType",
                            "tlbStartAdr"})
    EXPECT_EQ(changedFields.count(field), 1U) << field;
}

} // namespace
