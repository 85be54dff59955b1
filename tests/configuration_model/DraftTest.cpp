// Texts as they are typed, settings and whole commands.
#include <functional>
#include <string>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::Contains;
using testing::IsEmpty;

class DraftTest : public ModelTest {};

TEST_F(DraftTest, AValueActsAsAChange) {
  Session session = open();
  EXPECT_THAT(session.Draft("cable.cableType", "quorla_podusb"),
              testing::SizeIs(2));
  EXPECT_THAT(session.Draft("cable.frequency", "3 MHz"), IsEmpty());
  EXPECT_EQ(session.Get("cable.frequency"), Value(3000000));
  EXPECT_FALSE(settingIn(session.State(), "cable.frequency").draft);
}

TEST_F(DraftTest, AnotherTextIsKeptWithItsErrorAndTouchesNothing) {
  Session session = open();
  EXPECT_THAT(session.Draft("cable.frequency", "3 MHx"), IsEmpty());
  SettingState state = settingIn(session.State(), "cable.frequency");
  EXPECT_EQ(state.draft, "3 MHx");
  EXPECT_EQ(state.error,
            "'3 MHx' is no whole number of hertz (decimal or 0x, with Hz, kHz, "
            "MHz or nothing behind it), up to 4294967295 Hz");
  EXPECT_EQ(state.value, Value(0));
  EXPECT_EQ(state.origin, "default");
  EXPECT_FALSE(session.State().dirty);
  EXPECT_EQ(session.Command(), "connect lc hdu -debugdevice cpunr 1");

  // Nor does it stop another one from being changed.
  session.Change({{"debugDevice", 3}});
  EXPECT_EQ(settingIn(session.State(), "cable.frequency").draft, "3 MHx");
  EXPECT_EQ(session.Get("debugDevice"), Value(3));

  session.DropDraft("cable.frequency");
  state = settingIn(session.State(), "cable.frequency");
  EXPECT_FALSE(state.draft);
  EXPECT_EQ(state.error, "");
}

TEST_F(DraftTest, WhatTheProcessorDoesNotAllowIsADraft) {
  Session session = open();
  session.Draft("connection", "vp");
  EXPECT_EQ(settingIn(session.State(), "connection").draft, "vp");
  EXPECT_EQ(settingIn(session.State(), "connection").error,
            "'vp': 'lc' does not allow it; it allows 'sim', 'hw', "
            "'stub-serial', 'stub-jtag'");
  EXPECT_EQ(session.Get("connection"), Value("hw"));
}

TEST_F(DraftTest, AValueEndsADraftAlsoIfNothingElseChanges) {
  Session session = open();
  session.Draft("debugDevice", "x");
  session.Change({{"debugDevice", 0}});
  EXPECT_FALSE(settingIn(session.State(), "debugDevice").draft);
  session.Undo();
  EXPECT_EQ(settingIn(session.State(), "debugDevice").draft, "x");
  session.Draft("debugDevice", "0");
  EXPECT_FALSE(settingIn(session.State(), "debugDevice").draft);
}

TEST_F(DraftTest, MakingAndDroppingAreSteps) {
  Session session = open();
  session.Draft("debugDevice", "x");
  session.Draft("debugDevice", "x"); // none: nothing differs
  session.Draft("debugDevice", "xy");
  session.DropDraft("debugDevice");
  session.DropDraft("debugDevice"); // none
  session.Undo();
  EXPECT_EQ(settingIn(session.State(), "debugDevice").draft, "xy");
  session.Undo();
  EXPECT_EQ(settingIn(session.State(), "debugDevice").draft, "x");
  session.Undo();
  EXPECT_FALSE(session.State().canUndo);
}

TEST_F(DraftTest, TheChainHasDraftsOnly) {
  Session session = open();
  session.Draft("chain", "p1, p2");
  EXPECT_EQ(settingIn(session.State(), "chain").draft, "p1, p2");
  EXPECT_EQ(settingIn(session.State(), "chain").error,
            "'p1, p2' is no list of devices");
}

TEST_F(DraftTest, SettingsThatCannotBeSetAreRefused) {
  Session session = open();
  for (const char *id : {"debugDevic", ""})
    EXPECT_THAT(refusalOf([&] { session.Draft(id, "1"); }),
                testing::StartsWith("unknown-setting"));
  for (const char *id : {"procType", "connectCommand", "chain[0].idcode"})
    EXPECT_THAT(refusalOf([&] { session.Draft(id, "1"); }),
                testing::StartsWith("not-settable"));
  EXPECT_THAT(refusalOf([&] { session.DropDraft("nothing"); }),
              testing::StartsWith("unknown-setting"));
  EXPECT_FALSE(session.State().canUndo);
}

// --- Commands ----------------------------------------------------------------

/// Texts that stand in settings, and one for the command.
int draftsOf(const Session &session) {
  const SessionState state = session.State();
  int count = state.draft ? 1 : 0;
  for (const SettingState &setting : state.settings)
    count += setting.draft ? 1 : 0;
  return count;
}

TEST_F(DraftTest, WhatIsDoneToTheWholeDropsTexts) {
  const Session other = open();
  const std::string command = "connect lc hdu -debugdevice devicenr 3";
  ChangeRequest given;
  given.command = command;
  ChangeRequest copied;
  copied.copyFrom = &other;
  const std::function<void(Session &)> operations[] = {
      [](Session &session) { session.Reset({}); },
      [](Session &session) { session.Revert(); },
      [&](Session &session) { session.CopyFrom(other); },
      [&](Session &session) { session.Change(given); },
      [&](Session &session) { session.Change(copied); },
      [&](Session &session) { session.Edit(command); },
  };
  for (const auto &operation : operations) {
    Session typed = open();
    typed.Draft("cable.frequency", "3 MHx");
    typed.Draft("debugDevice", "many");
    EXPECT_EQ(draftsOf(typed), 2);
    operation(typed);
    EXPECT_EQ(draftsOf(typed), 0) << &operation - operations;
    Session edited = open();
    edited.Edit("connect lc nowhere");
    EXPECT_EQ(draftsOf(edited), 1);
    operation(edited);
    EXPECT_EQ(draftsOf(edited), 0) << &operation - operations;
  }
}

TEST_F(DraftTest, ACommandThatReadsWellMakesItsSettingsItsOwn) {
  Session session = open();
  EXPECT_THAT(shown(session.Edit("connect lc hdu -debugdevice devicenr 3")),
              Contains("debugDevice: 0 -> 3 (the command says so)"));
  EXPECT_EQ(session.Command(),
            "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  EXPECT_EQ(session.State().editedCommand,
            "connect lc hdu -debugdevice devicenr 3");
  EXPECT_FALSE(session.State().draft);
}

TEST_F(DraftTest, AnAcceptedTextStaysUntilTheNextChange) {
  Session session = open();
  const std::string edited = "connect lc hdu -debugdevice devicenr 3";
  session.Edit(edited);
  session.Change({{"debugDevice", 3}}); // none
  EXPECT_EQ(session.State().editedCommand, edited);
  session.Draft("stubTimeout", "x");
  EXPECT_EQ(session.State().editedCommand, edited);
  session.Change({{"debugDevice", 4}});
  EXPECT_FALSE(session.State().editedCommand);
  session.Undo();
  EXPECT_EQ(session.State().editedCommand, edited);
}

TEST_F(DraftTest, TheCommandThatWouldBeWrittenIsNotShownTwice) {
  Session session = open();
  session.Edit("connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  EXPECT_FALSE(session.State().editedCommand);
  EXPECT_THAT(session.Edit("connect lc hdu -debugdevice deviceNr 3 cpunr 1"),
              IsEmpty());
  session.Undo();
  EXPECT_FALSE(session.State().canUndo);
}

TEST_F(DraftTest, ACommandWithFaultsStaysAsADraftWithItsDiagnosis) {
  Session session = open();
  session.Change({{"debugDevice", 3}});
  const std::string faulty = "connect lc hdu -cabel type quorla_podusb";
  EXPECT_THAT(session.Edit(faulty), IsEmpty());
  const SessionState state = session.State();
  EXPECT_EQ(state.draft, faulty);
  EXPECT_EQ(state.command, "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  ASSERT_THAT(state.diagnostics, testing::Not(IsEmpty()));
  EXPECT_EQ(state.diagnostics[0].offset, 15U);
  EXPECT_EQ(state.diagnostics[0].suggestion, "-cable");

  session.Change({{"debugDevice", 4}});
  EXPECT_EQ(session.State().draft, faulty);
  session.Draft("command", "connect lc sim");
  EXPECT_FALSE(session.State().draft);
  EXPECT_EQ(session.Get("connection"), Value("sim"));
  session.Undo();
  EXPECT_EQ(session.State().draft, faulty);
  session.DropDraft("command");
  EXPECT_FALSE(session.State().draft);
}

TEST_F(DraftTest, ACommandThatTheProcessorDoesNotAllowSaysSo) {
  Session session = open();
  session.Edit("vpconnect lc");
  EXPECT_EQ(session.State().draft, "vpconnect lc");
  EXPECT_THAT(session.State().diagnostics, testing::Not(IsEmpty()));
  session.Edit("connect lc hdu -debugdevice cpunr 2");
  EXPECT_EQ(session.State().draft, "connect lc hdu -debugdevice cpunr 2");
  EXPECT_EQ(session.Get("cpuNr"), Value(1));
  for (const char *command : {"", " ", "-", "connect lc hdu -", "connect"}) {
    session.Edit(command);
    EXPECT_EQ(session.State().draft, command);
  }
}

TEST_F(DraftTest, ACommandOfAnotherTargetIsABlockingLossOfIdentity) {
  struct Row {
    const char *command;
    const char *loss;
  } const rows[] = {
      {"connect hdu", "connectionMask: 0x10 -> 0x87 [other-targets], blocking"},
      {"connect dap hw",
       "connectionMask: 0x200 -> 0x87 [other-targets], blocking"},
      {"connect kmtc",
       "connectionMask: 0x20 -> 0x87 [other-targets], blocking"},
      {"connect lc hdu -debugdevice proctype ppc440",
       "procType: 2 -> 0 [processor-kind], blocking"},
  };
  for (const Row &row : rows) {
    Session session = open();
    session.Edit(row.command);
    EXPECT_FALSE(session.State().draft) << row.command;
    EXPECT_THAT(shown(session.Losses()), Contains(row.loss)) << row.command;
    // The choices follow the mask that discovery gave.
    for (const ChoiceState &choice :
         settingIn(session.State(), "connection").choices)
      EXPECT_EQ(choice.reason.empty(), choice.choice.text != "vp")
          << choice.choice.text;
    EXPECT_EQ(refusalOf([&] { session.Save(); }).substr(0, 13),
              "would-be-lost");
  }
}

TEST_F(DraftTest, UndoingRevertingAndResettingBringIdentityBack) {
  const auto expectIdentity = [](const Session &session) {
    EXPECT_EQ(session.Get("connectionMask"), Value(0x87));
    EXPECT_EQ(session.Get("procFamily"), Value(0));
    EXPECT_EQ(session.Get("procType"), Value(0));
  };
  for (int way = 0; way < 4; ++way) {
    Session session = open();
    session.Edit("connect dap hw");
    EXPECT_EQ(session.Get("procFamily"), Value(2));
    if (way == 0)
      session.Undo();
    else if (way == 1)
      session.Revert();
    else
      session.Reset(way == 2 ? std::vector<std::string>{}
                             : std::vector<std::string>{"debugDevice"});
    expectIdentity(session);
  }
}

TEST_F(DraftTest, ATextThatHasBecomeTheValueIsNoDraft) {
  Session session = open();
  session.Change({{"cable.cableType", "quorla_podusb"}});
  session.Draft("cable.port", "");
  session.Draft("cable.frequency", "soon");
  EXPECT_EQ(settingIn(session.State(), "cable.port").draft, "");
  session.Change({{"cable.cableType", "none"}});
  EXPECT_FALSE(settingIn(session.State(), "cable.port").draft);
  EXPECT_EQ(settingIn(session.State(), "cable.port").error, "");
  // Still no value.
  EXPECT_EQ(settingIn(session.State(), "cable.frequency").draft, "soon");
  session.Undo();
  EXPECT_EQ(settingIn(session.State(), "cable.port").draft, "");
  session.Redo();
  session.DropDraft("cable.frequency");
  EXPECT_TRUE(session.Save().written);
}

TEST_F(DraftTest, ATextThatIsAnotherValueStaysADraft) {
  Session session = open();
  session.Change({{"cable.cableType", "quorla_podusb"}});
  session.Draft("cable.port", "");
  session.Change({{"cable.cableType", "quorla_parallel"}}); // port LPT1
  EXPECT_EQ(settingIn(session.State(), "cable.port").draft, "");
}

} // namespace
