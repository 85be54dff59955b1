#include "language/Bench.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "HHSMHwManager.h"
#include "support/Fields.h"

namespace LanguageTest {
namespace {

using ZelDebugDialog::CableOption;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

class SilentDesign : public HHSMHwManager {
  void getProcessorInstances(std::vector<std::string> & /*names*/,
                             bool /*flag*/) override {
    ADD_FAILURE() << "asked for the processors";
  }
  void getIpInstances(std::vector<std::string> & /*names*/,
                      HwIpType /*kind*/) override {
    ADD_FAILURE() << "asked for the instances of a kind";
  }
  void getIpInstances(std::vector<std::string> & /*names*/,
                      const std::string & /*typeName*/) override {
    ADD_FAILURE() << "asked for the instances of a type";
  }
  std::string getIpName(const std::string & /*instance*/) override {
    ADD_FAILURE() << "asked for a type name";
    return "";
  }
  void getHduConnectedProcessorList(std::vector<std::string> & /*names*/,
                                    const std::string & /*instance*/) override {
    ADD_FAILURE() << "asked for the processors of a debug module";
  }
  void getPeripherals(std::vector<std::string> & /*names*/,
                      const std::string & /*processor*/) override {
    ADD_FAILURE() << "asked for the peripherals";
  }
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    ADD_FAILURE() << "asked for a parameter";
    return "";
  }
};

void makeOdd(std::string &text, int /*number*/) { text = "was"; }
/// A flag has no odd value.
void makeOdd(bool & /*flag*/, int /*number*/) {}
template <class Number> void makeOdd(Number &field, int number) {
  field = static_cast<Number>(number);
}

void fillOddly(ProcessorInfoImp &record) {
  int number = 77;
  support::eachField(record, [&number](const char * /*name*/, auto &field) {
    makeOdd(field, number);
    ++number;
  });
  // What rows name.
  record.connectionMask = 0x1000;
  record.cpuNr = 79;
  record.connectionType = 0x700;
  record.connectCommand = "was";
}

void fillOddly(CableOption &cable) {
  cable.frequency = 77;
  cable.port = "was";
  cable.esn = "was";
  cable.url = "was";
}

std::string toText(const std::string &value) { return printable(value); }
std::string toText(ZelDebugDialog::Engine::CableType value) {
  return std::to_string(static_cast<std::uint32_t>(value));
}
template <class Number> std::string toText(Number value) {
  return std::to_string(value);
}

std::string deviceText(const JtagOption &device) {
  std::string text;
  const char *separator = "";
  support::eachField(device, [&](const char * /*name*/, const auto &value) {
    text += separator + toText(value);
    separator = ",";
  });
  return text;
}

template <class Record>
void addAll(Settings &settings, const std::string &prefix,
            const Record &record) {
  support::eachField(record, [&](const char *name, const auto &value) {
    settings[prefix + name] = toText(value);
  });
}

std::string sorted(const std::string &changes) {
  std::istringstream words(changes);
  std::vector<std::string> all;
  for (std::string word; words >> word;)
    all.push_back(word);
  std::sort(all.begin(), all.end());
  std::string text;
  for (const std::string &word : all)
    text += (text.empty() ? "" : " ") + word;
  return text;
}

void expectRow(const Reader &reader, const Row &row, const Prepare &setup) {
  Bench bench;
  if (setup)
    setup(bench.imp);
  bench.engine.SetErrorStr(kQuiet);
  KvoOption_Parser::current_option = kUntouched;
  const Settings before = settingsOf(bench.imp);
  std::string text = row.text;

  int code = kThrows;
  try {
    code = reader(text, bench.imp);
  } catch (const std::out_of_range &error) {
    EXPECT_EQ(error.what(), kLoneMinus);
  }

  EXPECT_EQ(code, row.code);
  EXPECT_EQ(printable(bench.error()), printable(row.message));
  EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), sorted(row.changes));
  EXPECT_EQ(printable(text), printable(row.rest)) << "(what is left)";
  EXPECT_EQ(printable(KvoOption_Parser::current_option), printable(row.option))
      << "(current_option)";
}

} // namespace

std::string printable(const std::string &text) {
  std::string out;
  for (const char character : text) {
    if (character >= ' ' && character <= '~') {
      out += character;
      continue;
    }
    std::array<char, 5> code{};
    std::snprintf(code.data(), code.size(), "\\x%02x",
                  static_cast<unsigned char>(character));
    out += code.data();
  }
  return out;
}

std::string upper(std::string text) {
  for (char &character : text)
    character =
        static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  return text;
}

Settings settingsOf(const EngineImp &imp) {
  Settings settings;
  if (imp.currentProcessor != nullptr)
    addAll(settings, "", *imp.currentProcessor);
  addAll(settings, "cable.", *imp.cableOption);
  settings["cpuJtag"] = std::to_string(imp.cpuJtag);
  for (std::size_t i = 0; i < imp.jtagChain.size(); ++i)
    settings["chain[" + std::to_string(i) + "]"] =
        deviceText(*imp.jtagChain[i]);
  return settings;
}

std::string changesBetween(const Settings &before, const Settings &after) {
  std::string text;
  const auto add = [&text](const std::string &item) {
    text += (text.empty() ? "" : " ") + item;
  };
  for (const auto &[name, value] : after) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != value)
      add(name + "=" + value);
  }
  for (const auto &[name, value] : before)
    if (after.count(name) == 0)
      add(name + " gone");
  return text;
}

Bench::Bench() : imp(*engine.GetProcessorList(nullptr)) {
  imp.currentProcessor = &record;
  fillOddly(record);
  fillOddly(*imp.cableOption);
  imp.cpuJtag = 5;
}

Bench::~Bench() { ZelDebugDialog::ReleaseChainRecords(imp.jtagChain); }

std::string Bench::error() {
  std::string text;
  engine.GetErrorStr(text);
  return text;
}

HHSMHwManager *silentDesign() {
  static SilentDesign design;
  return &design;
}

void expectRows(const Reader &reader, const std::vector<Row> &rows,
                const Prepare &setup) {
  for (const Row &row : rows) {
    SCOPED_TRACE("text: \"" + printable(row.text) + "\"");
    expectRow(reader, row, setup);
  }
}

std::vector<std::string> nearMisses(const std::string &word,
                                    const std::vector<std::string> &valid) {
  const std::string lead = word[0] == '-' ? "-" : "";
  const std::string body = word.substr(lead.size());
  const std::size_t middle = body.size() / 2;
  std::string other = body;
  other[middle] = other[middle] == 'x' ? 'y' : 'x';
  std::vector<std::string> misses;
  for (const std::string &miss :
       {body.substr(0, body.size() - 1), body.substr(1), body + body.back(),
        "x" + body, body + "=", other}) {
    const std::string text = lead + miss;
    const auto same = [&text](const std::string &known) {
      return upper(known) == upper(text);
    };
    if (!miss.empty() && std::none_of(valid.begin(), valid.end(), same))
      misses.push_back(text);
  }
  return misses;
}

} // namespace LanguageTest
