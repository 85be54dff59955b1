// Everything that is known of a configuration at once.
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;
using testing::IsEmpty;

class StateTest : public ModelTest {};

TEST_F(StateTest, HasEverySettingInTheOrderOfTheTable) {
  const SessionState state = open().State();
  std::vector<std::string> expected;
  std::vector<std::string> found;
  for (const SettingInfo &setting : GetSettings())
    if (setting.id.find("[]") == std::string::npos)
      expected.push_back(setting.id);
  for (const SettingState &setting : state.settings) {
    found.push_back(setting.id);
    EXPECT_EQ(setting.applicable, setting.reason.empty()) << setting.id;
  }
  EXPECT_EQ(found, expected);
}

TEST_F(StateTest, SaysWhereItIsSaved) {
  Session session = open();
  SessionState state = session.State();
  EXPECT_EQ(state.processor, "lc");
  EXPECT_EQ(state.file, (work.path() / fileOf()).string());
  EXPECT_EQ(session.File(), state.file);
  EXPECT_FALSE(state.exists);
  EXPECT_FALSE(state.changedOnDisk);
  EXPECT_FALSE(state.dirty);

  save("connect lc sim");
  state = session.State();
  EXPECT_TRUE(state.exists);
  EXPECT_TRUE(state.changedOnDisk);
  EXPECT_TRUE(session.ChangedOnDisk());
}

TEST_F(StateTest, WordsSayWhichSettingStandsInThem) {
  Session session = open();
  session.Change({{"debugDevice", 3}, {"connection", "hw"}});
  const SessionState state = session.State();
  ASSERT_EQ(state.command, "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  struct Word {
    const char *text;
    const char *role;
    const char *setting;
  } const words[] = {
      {"connect", "head", ""},        {"lc", "target", "procFamily"},
      {"lc", "target", "procType"},   {"hdu", "connection", "connection"},
      {"-debugdevice", "option", ""}, {"deviceNr", "name", ""},
      {"3", "value", "debugDevice"},  {"cpunr", "name", ""},
      {"1", "value", "cpuNr"},
  };
  ASSERT_EQ(state.words.size(), std::size(words));
  for (std::size_t i = 0; i < std::size(words); ++i) {
    const StateWord &word = state.words[i];
    EXPECT_EQ(state.command->substr(word.offset, word.length), words[i].text);
    EXPECT_EQ(word.role, words[i].role) << words[i].text;
    EXPECT_EQ(word.setting, words[i].setting) << words[i].text;
  }
}

struct Row {
  const char *processor;
  SettingValues values;
  const char *setting;
  const char *reason; ///< empty: applicable
};

TEST_F(StateTest, SettingsThatDoNotApplySayWhy) {
  constexpr const char *otherKind =
      "a command for this kind of connection does not carry it";
  constexpr const char *otherCable =
      "a command does not carry it for this cable";
  const Row rows[] = {
      {"lc", {}, "debugDevice", ""},
      {"lc", {}, "connection", ""},
      {"lc", {}, "cable.cableType", ""},
      {"lc", {}, "chain", ""},
      {"lc", {}, "cpuJtag", ""},
      {"lc", {}, "bscanUserReg", ""},
      {"lc", {}, "romemSize", ""}, // with a start
      {"lc", {}, "romemStartAdr", ""},
      {"lc", {}, "cable.port", otherCable},
      {"lc", {{"cable.cableType", 3}}, "cable.port", ""},
      {"lc",
       {{"cable.cableType", 3}, {"cable.esn", "E"}},
       "cable.port",
       "the serial number takes the place of port and frequency"},
      {"lc", {{"cable.cableType", 3}, {"cable.esn", "E"}}, "cable.esn", ""},
      {"lc", {{"cable.cableType", 5}}, "cable.moduleName", ""},
      {"lc", {{"cable.cableType", 5}}, "cable.esn", otherCable},
      {"lc", {}, "simMemSize", "no command can be written that carries it"},
      {"lc", {}, "stubBaudRate", otherKind},
      {"lc", {{"connection", "stub-serial"}}, "stubBaudRate", ""},
      {"lc", {{"connection", "stub-jtag"}}, "stubBaudRate", otherKind},
      {"lc", {{"connection", "stub-jtag"}}, "debugDevice", ""},
      {"lc", {{"connection", "stub-jtag"}}, "romemSize", otherKind},
      {"lc", {{"connection", "sim"}}, "cable.cableType", otherKind},
      {"lc", {{"connection", "sim"}}, "simIpcHost", otherKind},
      {"lc", {}, "icacheStartAdr", "a command carries it for a PowerPC only"},
      {"lc", {}, "isocmSize", "a command carries it for a ppc405 only"},
      {"lc", {}, "procType", "it says which processor this is"},
      {"lc", {}, "stubType", "it follows from other settings"},
      {"lc", {}, "connectCommand", "it follows from other settings"},
      {"lc_sim", {}, "connection", ""},
      {"a9", {}, "connection", "the processor leaves no other choice"},
      {"a9", {}, "debugDevice", ""},
      {"ppc405", {}, "isocmSize", ""}, // with a start
      {"ppc405", {}, "isocmDcrStartAdr", ""},
      {"ppc440", {}, "isocmSize", "a command carries it for a ppc405 only"},
      {"ppc440", {}, "icacheStartAdr", ""},
      {"ppc440",
       {},
       "debugAddressMap",
       "what is written does not depend on it"},
      {"ppc440", {{"connection", "sim"}}, "simIpcPort", ""}, // with a host
      {"ppc440", {{"connection", "sim"}}, "ppcSimConfigFile", ""},
      {"ppc440",
       {{"connection", "sim"}, {"ppcSimConfigFile", "f"}},
       "simIpcPort",
       "the simulator file takes its place"},
      // Without a command only what makes one again applies.
      {"lc", {{"cable.cableType", 7}}, "cable.cableType", ""},
      {"lc", {{"cable.cableType", 7}}, "connection", ""},
      {"lc",
       {{"cable.cableType", 7}},
       "debugDevice",
       "no command can be written: Invalid Cable Type"},
  };
  for (const Row &row : rows) {
    Session session = open(row.processor);
    session.Change(row.values);
    EXPECT_EQ(settingIn(session.State(), row.setting).reason, row.reason)
        << row.processor << " " << row.setting;
  }
}

TEST_F(StateTest, SettingsThatDoNotApplyKeepTheirValue) {
  Session session = open();
  session.Change({{"cable.cableType", 3}, {"cable.port", "USB9"}});
  session.Change({{"cable.esn", "E"}});
  EXPECT_EQ(session.Get("cable.port"), Value("USB9"));
  session.Change({{"cable.esn", ""}});
  EXPECT_THAT(session.Command(), testing::HasSubstr("port USB9"));
  EXPECT_TRUE(settingIn(session.State(), "cable.port").applicable);
}

TEST_F(StateTest, WithoutACommandItSaysWhy) {
  Session session = open();
  session.Change({{"cable.cableType", "1"}});
  const SessionState state = session.State();
  EXPECT_FALSE(state.command);
  EXPECT_EQ(state.commandError, "Invalid Cable Type");
  EXPECT_THAT(state.words, IsEmpty());
  EXPECT_THAT(state.losses, IsEmpty());
  EXPECT_EQ(refusalOf([&] { session.Command(); }),
            "no-command: no command can be written: Invalid Cable Type");
}

TEST_F(StateTest, ChoicesThatAreNotAllowedSayWhy) {
  const SessionState state = open("ppc405").State();
  std::vector<std::string> lines;
  for (const ChoiceState &choice : settingIn(state, "connection").choices)
    lines.push_back(choice.choice.text + ": " + choice.reason);
  const std::string why = "'ppc405' does not allow it; it allows 'sim', 'hw'";
  EXPECT_THAT(lines, ElementsAre("sim: ", "hw: ", "stub-serial: " + why,
                                 "stub-jtag: " + why, "vp: " + why));
}

TEST_F(StateTest, TheChainHasADevicesFieldsEach) {
  Session session = open();
  session.Change({{"chain", Value::Chain{{{"partname", "p"}}, {}}}});
  const SessionState state = session.State();
  ASSERT_EQ(state.chain.size(), 2U);
  ASSERT_EQ(state.chain[1].size(), 7U);
  EXPECT_EQ(state.chain[0][0].id, "chain[0].partname");
  EXPECT_EQ(state.chain[0][0].value, Value("p"));
  EXPECT_EQ(state.chain[0][0].defaultValue, Value("UNKNOWN"));
  EXPECT_EQ(state.chain[1][0].value, Value("UNKNOWN"));
  EXPECT_EQ(settingIn(state, "chain").text, "p, UNKNOWN");
}

TEST_F(StateTest, DiagnosticsAreThoseOfTheCommandThatWouldBeWritten) {
  Session session = open();
  EXPECT_THAT(session.State().diagnostics, IsEmpty());
  session.Change({{"cable.cableType", 3}, {"cable.frequency", 625000}});
  const SessionState state = session.State();
  ASSERT_EQ(state.diagnostics.size(), 1U);
  EXPECT_EQ(state.diagnostics[0].code, "frequency-not-checked");
  EXPECT_EQ(state.command->substr(state.diagnostics[0].offset,
                                  state.diagnostics[0].length),
            "625000");
  EXPECT_THAT(open("a9").State().diagnostics, IsEmpty());
}

TEST_F(StateTest, ValuesAreShownForPeople) {
  Session session = open("ppc440");
  session.Change({{"cable.cableType", 3}, {"icacheStartAdr", 0x10000}});
  const SessionState state = session.State();
  EXPECT_EQ(settingIn(state, "cable.cableType").text, "quorla_podusb");
  EXPECT_EQ(settingIn(state, "cable.frequency").text, "6 MHz");
  EXPECT_EQ(settingIn(state, "icacheStartAdr").text, "0x10000");
  EXPECT_EQ(settingIn(state, "dcacheStartAdr").text, "not set");
  EXPECT_EQ(settingIn(state, "uartOverHdu").text, "no");
  EXPECT_EQ(settingIn(state, "uartOverHdu").value, Value(false));
  EXPECT_EQ(settingIn(state, "cpuJtag").value, Value(0));
}

TEST_F(StateTest, ADesignThatIsAskedAnswersForTheFpu) {
  EXPECT_EQ(settingIn(open("ppc440").State(), "fpuType").value, Value(1));
  EXPECT_EQ(settingIn(open("ppc405").State(), "fpuType").value, Value(0));
  Session session = open("ppc440");
  session.Edit("connect ppc hw -debugdevice fpuType dp");
  EXPECT_EQ(session.Get("fpuType"), Value(1));
}

std::vector<std::string> warningsOf(const Session &session) {
  const SessionState state = session.State();
  std::vector<std::string> lines;
  for (const CommandDiagnostic &diagnostic : state.diagnostics)
    lines.push_back(diagnostic.code + " '" +
                    state.command.value_or("").substr(diagnostic.offset,
                                                      diagnostic.length) +
                    "'");
  return lines;
}

TEST_F(StateTest, ANumberThatWasCutIsToldOfTheCommandThatWasTyped) {
  struct CutRow {
    const char *command;
    int device;
    std::vector<std::string> warnings;
  } const rows[] = {
      {"connect lc hdu -debugdevice devicenr 200", -56, {"value-cut '-56'"}},
      {"connect lc hdu -debugdevice devicenr abc", 0, {"not-a-number ''"}},
      {"connect lc hdu -debugdevice devicenr 127", 127, {}},
      {"connect lc hdu -debugdevice devicenr -128", -128, {}},
      {"connect lc hdu -debugdevice devicenr 128", -128, {"value-cut '-128'"}},
  };
  for (const CutRow &row : rows) {
    Session typed = open();
    typed.Edit(row.command);
    EXPECT_EQ(typed.Get("debugDevice"), Value(row.device)) << row.command;
    EXPECT_EQ(warningsOf(typed), row.warnings) << row.command;
    const Session loaded = openWith(row.command);
    EXPECT_EQ(loaded.Get("debugDevice"), Value(row.device)) << row.command;
    EXPECT_EQ(warningsOf(loaded), row.warnings) << row.command;
    std::filesystem::remove(work.path() / fileOf());
  }
}

TEST_F(StateTest, WhatWasCutIsToldAsLongAsItsDeviceIsThere) {
  Session session = open();
  session.Edit("connect lc hdu -configdevice devicenr 1 -configdevice "
               "devicenr 300 -configdevice devicenr 2");
  const std::vector<std::string> cut{"value-cut '44'"};
  EXPECT_EQ(warningsOf(session), cut);
  const Value::Chain all = session.Get("chain").Devices();
  ASSERT_EQ(all.size(), 3U);
  session.Change({{"chain", Value::Chain{all[0], all[1]}}});
  EXPECT_EQ(warningsOf(session), cut);
  session.Change({{"chain", Value::Chain{all[0]}}});
  EXPECT_THAT(warningsOf(session), testing::IsEmpty());
}

TEST_F(StateTest, WhatWasCutIsToldAsLongAsItStands) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 200");
  const std::vector<std::string> cut{"value-cut '-56'"};
  session.Change({{"cable.cableType", 3}});
  EXPECT_EQ(warningsOf(session), cut);
  session.Change({{"debugDevice", 5}});
  EXPECT_THAT(warningsOf(session), IsEmpty());
  session.Undo();
  EXPECT_EQ(warningsOf(session), cut);
  session.Edit("connect lc hdu -debugdevice devicenr 6");
  EXPECT_THAT(warningsOf(session), IsEmpty());
  session.Revert();
  EXPECT_EQ(warningsOf(session), cut);
  session.Change({{"cable.cableType", 3}});
  session.Save(); // the file says -56 now
  EXPECT_THAT(warningsOf(session), IsEmpty());
}

TEST_F(StateTest, AWordWithTwoSettingsNamesBoth) {
  Session session = open("ppc405");
  session.Change(
      {{"connection", "sim"}, {"simIpcHost", "h"}, {"simIpcPort", 77}});
  const SessionState state = session.State();
  std::vector<std::string> settings;
  for (const StateWord &word : state.words)
    if (state.command->substr(word.offset, word.length) == "h:77")
      settings.push_back(word.setting);
  EXPECT_THAT(settings, ElementsAre("simIpcHost", "simIpcPort"));
  // The connection is one setting, of two fields.
  settings.clear();
  for (const StateWord &word : state.words)
    if (word.role == "connection")
      settings.push_back(word.setting);
  EXPECT_THAT(settings, ElementsAre("connection"));
}

/// The line of a stub is a part of how to connect.
TEST_F(StateTest, AConnectionStandsInEachOfItsWords) {
  Session session = open();
  session.Change({{"connection", "stub-serial"}, {"stubBaudRate", 9600}});
  const SessionState state = session.State();
  std::vector<std::string> words;
  for (const StateWord &word : state.words)
    if (word.setting == "connection")
      words.push_back(state.command->substr(word.offset, word.length));
  EXPECT_THAT(words, ElementsAre("stub", "serial"));
}

TEST_F(StateTest, ADevicesFieldsAreAsApplicableAsTheChain) {
  Session session = open();
  session.Change({{"chain", Value::Chain{{}}}});
  for (const char *const kind : {"hw", "sim"}) {
    session.Change({{"connection", kind}});
    const SessionState state = session.State();
    const SettingState chain = settingIn(state, "chain");
    EXPECT_EQ(chain.applicable, std::string(kind) == "hw");
    for (const SettingState &field : state.chain[0]) {
      EXPECT_EQ(field.applicable, chain.applicable) << field.id;
      EXPECT_EQ(field.reason, chain.reason) << field.id;
      const std::string row = "chain[]" + field.id.substr(field.id.find('.'));
      EXPECT_EQ(field.choices.size(), FindSetting(row)->choices.size());
    }
  }
}

TEST_F(StateTest, AFieldOfADeviceIsAskedForByItsPlace) {
  Session session = open();
  session.Change({{"chain", Value::Chain{{{"partname", "a"}}, {}}}});
  EXPECT_EQ(session.Get("chain[0].partname"), Value("a"));
  EXPECT_EQ(session.Get("chain[1].partname"), Value("UNKNOWN"));
  for (const char *name :
       {"chain[].partname", "chain[2].partname", "chain[7].partname",
        "chain[99999999999999999999]."
        "partname"}) {
    EXPECT_EQ(refusalOf([&] { session.Get(name); }),
              std::string("unknown-setting: '") + name +
                  "' is no setting: the chain has 2 devices");
  }
  EXPECT_THAT(refusalOf([&] { session.Get("chain[0].part"); }),
              testing::StartsWith("unknown-setting"));
}

} // namespace
