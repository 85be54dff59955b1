// What each word of a command changed, from what to what.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "support/StateText.h"
#include "trace/Corpus.h"

namespace ZelDebugDialog::test {

namespace {

std::string shown(const FieldValue &value) {
  return std::holds_alternative<std::string>(value)
             ? '"' + std::get<std::string>(value) + '"'
             : std::to_string(std::get<std::int64_t>(value));
}

using Settings = std::map<std::string, std::string>;

struct Traced {
  bool hasThrown = false;
  CommandTrace trace;
  Settings before;
  Settings after;
};

Traced trace(const std::string &command, AfterFault afterFault,
             HHSMHwManager *design = nullptr) {
  Engine engine;
  EngineImp &imp = *engine.GetProcessorList(nullptr);
  ProcessorInfoImp record;
  record.connectionMask = 0xF;
  imp.currentProcessor = &record;
  imp.hwManager = design;
  Traced traced;
  traced.before = settingsOf(imp);
  try {
    TraceKvoCommand(command, imp, traced.trace, afterFault);
  } catch (const std::out_of_range &) {
    traced.hasThrown = true;
  }
  traced.after = settingsOf(imp);
  ReleaseChainRecords(imp.jtagChain);
  imp.currentProcessor = nullptr;
  return traced;
}

/// "word: field before>after ..., ..." for each word that changed something; a
/// field that the word does not decide in the end is in brackets.
std::string picture(const std::string &command,
                    AfterFault afterFault = AfterFault::stop,
                    HHSMHwManager *design = nullptr) {
  std::string text;
  for (const CommandWord &word :
       trace(command, afterFault, design).trace.words) {
    if (word.changes.empty())
      continue;
    text += text.empty() ? "" : ", ";
    text += command.substr(word.offset, word.length) + ":";
    const std::set<std::string> decided(word.fields.begin(), word.fields.end());
    for (const FieldChange &change : word.changes) {
      const std::string one =
          change.field + " " + shown(change.before) + ">" + shown(change.after);
      text += decided.count(change.field) != 0 ? " " + one : " [" + one + "]";
    }
  }
  return text;
}

/// A design that is only looked for.
class Design : public HHSMHwManager {
public:
  void getProcessorInstances(std::vector<std::string> &, bool) override {}
  void getIpInstances(std::vector<std::string> &, HwIpType) override {}
  void getIpInstances(std::vector<std::string> &,
                      const std::string &) override {}
  std::string getIpName(const std::string &) override { return {}; }
  void getHduConnectedProcessorList(std::vector<std::string> &,
                                    const std::string &) override {}
  void getPeripherals(std::vector<std::string> &,
                      const std::string &) override {}
  std::string getParameterValue(const std::string &,
                                const std::string &) override {
    return {};
  }
};

constexpr const char *lumacoreOnHardware =
    "lc: procFamily 0>0 procType 0>0, "
    "hdu: connectionType 2>2 connectionMask 15>15";

} // namespace

TEST(CommandChanges, TellWhatEachWordStored) {
  struct Row {
    const char *options; ///< behind "connect lc hdu "
    const char *changes;
  };
  const std::vector<Row> rows{
      {"-quiet", ""},
      {"-debugdevice devicenr 200 devicenr 0",
       "200: debugDevice 0>-56, 0: debugDevice -56>0"},
      {"-debugdevice icacheStartAdr 0x10000",
       "0x10000: icacheStartAdr 4294967295>65536 debugAddressMap "
       "4294967295>65536"},
      {"-debugdevice cpunr 1", "1: cpuNr 1>1"},
      {"-debugdevice cpu_version 1.0 nCpu -1 fpuType DP",
       "1.0: cpu_version \"\">\"1.0\", -1: nCpu 8>-1, DP: fpuType 0>2"},
      {"-bscan USER3 -quiet", "USER3: bscanUserReg 3>34"},
      {"-baud 0 -comm serial -port p",
       "0: stubBaudRate 0>0, serial: stubType 0>1, "
       "p: stubSerialPort \"/dev/ttyS0\">\"p\""},
      {"-configdevice devicenr 5 -configdevice partname p jtagport cpu",
       "5: chain[0].devicenr 0>5, p: chain[1].partname \"UNKNOWN\">\"p\", "
       "cpu: cpuJtag 0>1"},
      {"-configdevice hardppc x isfpga 257",
       "x: chain[0].hardppc 0>2, 257: chain[0].isfpga 0>1"},
      {"-pfsl type m port 3", ""},
      {"-sim -ipcport :7",
       "-sim: modelSimMode 0>1, "
       ":7: modelSimHost \"localhost\">\"localhost\" modelSimPort 9998>7"},
      {"-sim -ipcport host", "-sim: modelSimMode 0>1"},
      {"-cable modulearg a modulearg b modulename m type quorla_plugin -quiet",
       "a: cable.moduleArgs \"\">\"a\", b: cable.moduleArgs \"a\">\"a;b\", "
       "m: cable.moduleName \"\">\"m\", quorla_plugin: cable.cableType 0>5"},
      {"-cable fname f -quiet", "f: cable.svfFile \"\">\"f\" svfFileFlag 0>1"},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.options);
    std::string expected = lumacoreOnHardware;
    if (*row.changes != '\0')
      expected += std::string(", ") + row.changes;
    EXPECT_EQ(picture(std::string("connect lc hdu ") + row.options), expected);
  }
}

TEST(CommandChanges, TellWhatACableBrings) {
  struct Row {
    const char *options;
    const char *changes;
  };
  const std::vector<Row> rows{
      // Type and port in front of another clause, the frequency at the end.
      {"-cable type quorla_podusb -quiet",
       "quorla_podusb: cable.cableType 0>3 cable.port \"\">\"USB21\""},
      {"-cable type quorla_podusb",
       "quorla_podusb: cable.cableType 0>3 cable.port \"\">\"USB21\" "
       "[cable.frequency 0>6000000]"},
      {"-cable type quorla_podusb frequency 3000000",
       "quorla_podusb: cable.cableType 0>3 cable.port \"\">\"USB21\", "
       "3000000: cable.frequency 0>3000000"},
      {"-cable type digilent_plugin",
       "digilent_plugin: cable.cableType 0>6 [cable.frequency 0>0]"},
      // An earlier clause has the type; its frequency is replaced.
      {"-cable type quorla_podusb frequency 1 -cable port p",
       "quorla_podusb: cable.cableType 0>3 cable.port \"\">\"USB21\" "
       "[cable.frequency 1>6000000], 1: [cable.frequency 0>1], "
       "p: cable.port \"USB21\">\"p\""},
      // No word brings a type.
      {"-cable port p", "-cable: [cable.frequency 0>0], "
                        "p: cable.port \"\">\"p\""},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.options);
    EXPECT_EQ(picture(std::string("connect lc hdu ") + row.options),
              std::string(lumacoreOnHardware) + ", " + row.changes);
  }
}

TEST(CommandChanges, TellWhatTargetsAndConnectionsStored) {
  struct Row {
    const char *command;
    const char *changes;
  };
  const std::vector<Row> rows{
      {"connect ppc sim", "ppc: procFamily 0>1 procType 0>6, "
                          "sim: connectionType 2>1 connectionMask 15>15"},
      {"connect hdu -uart",
       "hdu: connectionMask 15>16, -uart: uartOverHdu 0>1"},
      {"connect kmtc", "kmtc: connectionMask 15>32"},
      {"connect dcc", "dcc: connectionMask 15>256 procFamily 0>2 procType 0>4"},
      {"connect dap hw",
       "dap: connectionMask 15>512 procFamily 0>2 procType 0>4, "
       "hw: connectionType 2>2"},
      {"connect lc sim -memsize 32",
       "lc: procFamily 0>0 procType 0>0, "
       "sim: connectionType 2>1 connectionMask 15>15, 32: simMemSize 16>32"},
      {"vpconnect lc -config cycle_approximate",
       "lc: connectionType 2>8 connectionMask 15>15 procType 0>0, "
       "cycle_approximate: vpConfigMode 0>1 cycleApproximate 0>1"},
      // What a target replaces.
      {"connect lc hdu -debugdevice proctype ppc440",
       "lc: procFamily 0>0 procType 2>0, "
       "hdu: connectionType 2>2 connectionMask 15>15, "
       "ppc440: [procType 0>2]"},
      {"connect ppc hw -debugdevice proctype ppc440",
       "ppc: procFamily 0>1 procType 0>6, "
       "hw: connectionType 2>2 connectionMask 15>15, "
       "ppc440: procType 6>2"},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(picture(row.command), row.changes);
  }
}

TEST(CommandChanges, TellWhatAnEarlierValueBecomesOnceMore) {
  EXPECT_EQ(picture("vpconnect lc -ipcport host"),
            "lc: connectionType 2>8 connectionMask 15>15 procType 0>0, "
            "host: simIpcPort 0>2340");
  // The value is missing, so the earlier one is taken; at first it is empty.
  EXPECT_EQ(picture("connect ppc sim -ipcport :5 -ipcport"),
            "ppc: procFamily 0>1 procType 0>6, "
            "sim: connectionType 2>1 connectionMask 15>15, "
            ":5: simIpcHost \"\">\"localhost\" simIpcPort 0>5, "
            "-ipcport: simIpcHost \"localhost\">\"localhost\" simIpcPort 5>5");
  EXPECT_EQ(picture("connect ppc sim -ipcport"),
            "ppc: procFamily 0>1 procType 0>6, "
            "sim: connectionType 2>1 connectionMask 15>15, "
            "-ipcport: simIpcPort 0>6470");
  EXPECT_EQ(picture("connect ppc sim -icf"),
            "ppc: procFamily 0>1 procType 0>6, "
            "sim: connectionType 2>1 connectionMask 15>15");
}

TEST(CommandChanges, TellWhatStaysOfWordsAtFault) {
  struct Row {
    const char *command;
    const char *changes;
  };
  const std::vector<Row> rows{
      // Stored, and refused.
      {"connect lc hdu -debugdevice icacheStartAdr 1",
       "1: icacheStartAdr 4294967295>1"},
      {"connect lc hdu -debugdevice proctype x", "x: procType 0>6"},
      {"connect lc hdu -configdevice devicenr 3 jtagport x",
       "3: chain[0].devicenr 0>3, x: cpuJtag 0>0"},
      {"connect lc hdu -cable type quorla_podusb frequency 5",
       "quorla_podusb: cable.cableType 0>3 cable.port \"\">\"USB21\", "
       "5: cable.frequency 0>5"},
      {"connect ppc hw -debugdevice nCpu 1 -foo",
       "ppc: procFamily 0>1 procType 0>6, 1: nCpu 8>1"},
      // Refused, and not stored.
      {"connect lc hdu -debugdevice fpuType x", ""},
      {"connect lc stub -comm x", ""},
      {"connect lc hdu -bscan x", ""},
      {"connect lc hdu -cable type x", ""},
      {"connect lc hdu -cable type quorla_svffile", ""},
      {"connect lc hdu -foo", ""},
      {"connect lc xx", ""},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(picture(row.command), row.changes);
  }
  // A number that must be the design's is only compared.
  Design design;
  EXPECT_EQ(
      picture("connect lc hdu -debugdevice cpunr 1", AfterFault::stop, &design),
      "hdu: connectionType 2>2");
}

/// A device that is refused is none of the chain; the next takes its place.
TEST(CommandChanges, TellOfADeviceThatIsDropped) {
  const std::string command = "connect lc hdu -configdevice idcode 9 foo 1 "
                              "-configdevice irlength 4";
  EXPECT_EQ(picture(command, AfterFault::goOn),
            std::string(lumacoreOnHardware) +
                ", 9: chain[0].idcode 0>9, 4: chain[0].irlength 0>4");
}

/// Each holds the arguments before it, but not without end.
TEST(CommandChanges, OfVeryManyArgumentsTakeNoMoreThanTheirBound) {
  std::string command = "connect lc hdu -cable type quorla_plugin modulename m";
  constexpr std::size_t arguments = 5000;
  for (std::size_t i = 0; i < arguments; ++i)
    command += " modulearg argument";
  const CommandTrace traced = trace(command, AfterFault::stop).trace;
  std::size_t characters = 0;
  for (const CommandWord &word : traced.words)
    for (const FieldChange &change : word.changes)
      if (change.field == "cable.moduleArgs")
        characters += std::get<std::string>(change.before).size() +
                      std::get<std::string>(change.after).size();
  EXPECT_GT(characters, 1900000U);
  EXPECT_LT(characters, 2100000U + arguments * 10);
  const CommandWord &third =
      traced.words[traced.words.size() - 2 * arguments + 5];
  EXPECT_TRUE(third.changes.at(0).before == FieldValue("argument;argument"));
  EXPECT_TRUE(third.changes.at(0).after ==
              FieldValue("argument;argument;argument"));
  const FieldChange &last = traced.words.back().changes.at(0);
  EXPECT_TRUE(last.before == FieldValue(""));
  EXPECT_TRUE(last.after == FieldValue("argument"));
  EXPECT_EQ(traced.words.back().fields,
            std::vector<std::string>{"cable.moduleArgs"});
}

/// For each setting the changes are steps from what it was to what it is.
TEST(CommandChanges, LeadFromTheStateBeforeToTheStateAfter) {
  std::vector<std::string> commands = acceptedCommands;
  commands.insert(commands.end(), refusedCommands.begin(),
                  refusedCommands.end());
  int changed = 0;
  for (const std::string &command : commands)
    for (const AfterFault afterFault : {AfterFault::stop, AfterFault::goOn}) {
      SCOPED_TRACE(command);
      const Traced traced = trace(command, afterFault);
      ASSERT_FALSE(traced.hasThrown);
      // How often a value was left, less how often it was reached.
      std::map<std::string, std::map<std::string, int>> left;
      for (const CommandWord &word : traced.trace.words)
        for (const FieldChange &change : word.changes) {
          ++left[change.field][shown(change.before)];
          --left[change.field][shown(change.after)];
        }
      for (const auto &[name, value] : traced.after) {
        if (name.compare(0, 5, "chain") == 0)
          continue; // a device begins with what it is made with
        --left[name][traced.before.at(name)];
        ++left[name][value];
        changed += value == traced.before.at(name) ? 0 : 1;
        for (const auto &[step, count] : left[name])
          EXPECT_EQ(count, 0) << name << " " << step;
      }
    }
  EXPECT_GT(changed, 100);
}

/// What a word decides is among its changes, and what nothing replaced is
/// decided by the word that changed it.
TEST(CommandChanges, HoldWhatAWordDecides) {
  for (const std::string &command : acceptedCommands) {
    SCOPED_TRACE(command);
    const Traced traced = trace(command, AfterFault::stop);
    std::map<std::string, FieldValue> last;
    for (const CommandWord &word : traced.trace.words)
      for (const std::string &field : word.fields) {
        const FieldChange *found = nullptr;
        for (const FieldChange &change : word.changes)
          if (change.field == field)
            found = &change;
        ASSERT_NE(found, nullptr) << field;
        last[field] = found->after;
      }
    for (const auto &[field, value] : last)
      EXPECT_EQ(traced.after.at(field), shown(value)) << field;
  }
}

} // namespace ZelDebugDialog::test
