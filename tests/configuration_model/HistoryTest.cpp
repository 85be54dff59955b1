// Undoing, reverting, resetting, and where each value comes from.
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;
using testing::IsEmpty;

class HistoryTest : public ModelTest {};

TEST_F(HistoryTest, UndoAndRedoGoThroughEveryStepExactly) {
  Session session =
      openWith("connect lc hdu -cable type quorla_podusb -debugdevice devicenr "
               "2");
  std::vector<std::vector<std::string>> states{shown(session.State())};
  const auto note = [&] { states.push_back(shown(session.State())); };
  session.Change({{"debugDevice", 3}});
  note();
  session.Draft("cable.frequency", "x");
  note();
  session.Edit("connect lc sim");
  note();
  session.Edit("connect lc nothing");
  note();
  session.Reset({});
  note();
  session.Change({{"chain", Value::Chain{{}, {}}}});
  note();
  session.Revert();
  note();
  for (std::size_t i = states.size() - 1; i > 0; --i) {
    EXPECT_EQ(shown(session.State()), states[i]) << i;
    session.Undo();
  }
  EXPECT_EQ(shown(session.State()), states[0]);
  EXPECT_EQ(refusalOf([&] { session.Undo(); }),
            "nothing-to-undo: there is nothing to undo");
  for (std::size_t i = 1; i < states.size(); ++i) {
    session.Redo();
    EXPECT_EQ(shown(session.State()), states[i]) << i;
  }
  EXPECT_EQ(refusalOf([&] { session.Redo(); }),
            "nothing-to-redo: there is nothing to redo");
}

TEST_F(HistoryTest, TheirEffectsAreEverySettingThatChanged) {
  Session session = open();
  session.Change({{"cable.cableType", 3}});
  EXPECT_THAT(shown(session.Undo()),
              ElementsAre("cable.cableType: quorla_podusb -> none (undone)",
                          "cable.frequency: 6 MHz -> 0 Hz (undone)",
                          "cable.port: USB21 ->  (undone)"));
  EXPECT_THAT(shown(session.Redo()),
              ElementsAre("cable.cableType: none -> quorla_podusb (done again)",
                          "cable.frequency: 0 Hz -> 6 MHz (done again)",
                          "cable.port:  -> USB21 (done again)"));
}

TEST_F(HistoryTest, AChangeEndsWhatCouldBeDoneAgain) {
  Session session = open();
  session.Change({{"debugDevice", 1}});
  session.Undo();
  EXPECT_TRUE(session.State().canRedo);
  session.Change({{"debugDevice", 0}}); // none
  EXPECT_TRUE(session.State().canRedo);
  session.Change({{"debugDevice", 2}});
  EXPECT_FALSE(session.State().canRedo);
}

TEST_F(HistoryTest, SavingIsNoStepAndKeepsThem) {
  Session session = open();
  session.Change({{"debugDevice", 1}});
  session.Save();
  EXPECT_FALSE(session.State().dirty);
  session.Undo();
  EXPECT_TRUE(session.State().dirty);
  EXPECT_THAT(shown(session.Differences()), ElementsAre("debugDevice: 1 -> 0"));
  session.Redo();
  EXPECT_FALSE(session.State().dirty);
  session.Undo();
  session.Save();
  EXPECT_EQ(saved(), "connect lc hdu -debugdevice cpunr 1");
}

TEST_F(HistoryTest, RevertGoesBackToWhatIsSavedDraftsAndAll) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Change({{"debugDevice", 3}, {"cable.cableType", 3}});
  session.Draft("stubTimeout", "x");
  session.Edit("nonsense");
  EXPECT_THAT(shown(session.Revert()),
              ElementsAre("debugDevice: 3 -> 2 (it is saved so)",
                          "cable.cableType: quorla_podusb -> none (it is saved "
                          "so)",
                          "cable.frequency: 6 MHz -> 0 Hz (it is saved so)",
                          "cable.port: USB21 ->  (it is saved so)"));
  EXPECT_FALSE(session.State().draft);
  EXPECT_FALSE(settingIn(session.State(), "stubTimeout").draft);
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, "file:38");
  EXPECT_THAT(session.Revert(), IsEmpty());
}

TEST_F(HistoryTest, RevertTakesTheFileAsItIsNow) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  save("connect lc hdu -debugdevice devicenr 4");
  EXPECT_TRUE(session.ChangedOnDisk());
  EXPECT_THAT(shown(session.Revert()),
              testing::Contains("debugDevice: 2 -> 4 (it is saved so)"));
  EXPECT_FALSE(session.ChangedOnDisk());
  EXPECT_FALSE(session.State().dirty);
}

TEST_F(HistoryTest, ResetGivesTheDefaultOfThePresentCable) {
  Session session = open();
  session.Change({{"cable.cableType", 3},
                  {"cable.frequency", 5},
                  {"cable.port", "x"},
                  {"debugDevice", 3}});
  EXPECT_THAT(
      shown(session.Reset({"cable.frequency"})),
      ElementsAre("cable.frequency: 5 Hz -> 6 MHz (it is the default)"));
  EXPECT_EQ(settingIn(session.State(), "cable.frequency").origin, "default");
  EXPECT_EQ(settingIn(session.State(), "cable.frequency").defaultValue,
            Value(6000000));
  EXPECT_EQ(settingIn(session.State(), "cable.cableType").defaultValue,
            Value(0));
  session.Reset({"cable.cableType"});
  EXPECT_EQ(session.Get("cable.port"), Value(""));
  EXPECT_EQ(session.Get("debugDevice"), Value(3));
  session.Reset({});
  EXPECT_EQ(session.Get("debugDevice"), Value(0));
  EXPECT_THAT(session.Reset({}), IsEmpty());
}

TEST_F(HistoryTest, ResetRefusesWhatCannotBeSet) {
  Session session = open();
  EXPECT_THAT(refusalOf([&] {
                session.Reset({"debugDevice", "x"});
              }),
              testing::StartsWith("unknown-setting"));
  EXPECT_THAT(refusalOf([&] { session.Reset({"procType"}); }),
              testing::StartsWith("not-settable"));
}

// --- Origins -----------------------------------------------------------------

std::string originOf(const Session &session, const std::string &id) {
  const SessionState state = session.State();
  for (const auto &device : state.chain)
    for (const SettingState &field : device)
      if (field.id == id)
        return field.origin;
  return settingIn(state, id).origin;
}

TEST_F(HistoryTest, OriginsNameTheColumnOfTheWord) {
  const Session session =
      openWith("\nconnect lc hdu -debugdevice devicenr 2 devicenr 3 -cable "
               "type quorla_podusb -configdevice partname p -configdevice "
               "irlength 4");
  EXPECT_EQ(session.Get("debugDevice"), Value(3));
  EXPECT_EQ(originOf(session, "debugDevice"), "file:49"); // the last counts
  EXPECT_EQ(originOf(session, "cable.cableType"), "file:63");
  EXPECT_EQ(originOf(session, "connection"), "file:12");
  EXPECT_EQ(originOf(session, "connectionType"), "file:12");
  EXPECT_EQ(originOf(session, "chain"), "file:100");
  EXPECT_EQ(originOf(session, "chain[0].partname"), "file:100");
  EXPECT_EQ(originOf(session, "chain[0].irlength"), "default");
  EXPECT_EQ(originOf(session, "chain[1].irlength"), "file:125");
  EXPECT_EQ(originOf(session, "connectCommand"), "file:1");
  EXPECT_EQ(originOf(session, "stubTimeout"), "default");
  for (const char *identity :
       {"instanceName", "procFamily", "procType", "connectionMask", "cpuNr"})
    EXPECT_EQ(originOf(session, identity), "design");
  // A design is asked for it only where the processor is a hard one.
  EXPECT_EQ(originOf(session, "fpuType"), "default");
  EXPECT_EQ(originOf(open("ppc405"), "fpuType"), "design");
}

TEST_F(HistoryTest, OriginsFollowEditsChangesAndResets) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Change({{"cable.cableType", 3}});
  EXPECT_EQ(originOf(session, "cable.cableType"), "changed");
  EXPECT_EQ(originOf(session, "debugDevice"), "file:38");
  session.Edit("connect lc hdu -debugdevice devicenr 5");
  EXPECT_EQ(originOf(session, "debugDevice"), "command:38");
  EXPECT_EQ(originOf(session, "cable.cableType"), "default");
  session.Change({{"debugDevice", 6}, {"connection", "sim"}});
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  EXPECT_EQ(originOf(session, "connection"), "changed");
  EXPECT_EQ(originOf(session, "connectionType"), "changed");
  session.Reset({"debugDevice"});
  EXPECT_EQ(originOf(session, "debugDevice"), "default");
}

TEST_F(HistoryTest, OriginsOfTheChainFollowItsDevices) {
  Session session = openWith("connect lc hdu -configdevice partname p irlength "
                             "4 -configdevice partname q");
  session.Change({{"chain", Value::Chain{{{"partname", "p"}, {"irlength", 5}},
                                         {{"partname", "q"}},
                                         {{"partname", "r"}}}}});
  EXPECT_EQ(originOf(session, "chain"), "changed");
  EXPECT_EQ(originOf(session, "chain[0].partname"), "file:39");
  EXPECT_EQ(originOf(session, "chain[0].irlength"), "changed");
  EXPECT_EQ(originOf(session, "chain[1].partname"), "file:75");
  EXPECT_EQ(originOf(session, "chain[2].partname"), "changed");
  session.Change({{"chain", Value::Chain{{{"partname", "p"}}}}});
  session.Change({{"chain", Value::Chain{{{"partname", "p"}}, {}}}});
  EXPECT_EQ(originOf(session, "chain[1].partname"), "changed");
  session.Reset({"chain"});
  EXPECT_EQ(originOf(session, "chain"), "default");
}

TEST_F(HistoryTest, OriginsOfDevicesAreTheFilesOnceTheyAreSaved) {
  Session session = open();
  session.Change({{"chain", Value::Chain{{{"partname", "p"}}}}});
  EXPECT_EQ(originOf(session, "chain[0].partname"), "changed");
  session.Save();
  EXPECT_EQ(saved(), "connect lc hdu -configdevice devicenr 0 partname p "
                     "irlength 0 idcode 0x0 -debugdevice cpunr 1");
  EXPECT_EQ(originOf(session, "chain[0].partname"), "file:50");
  EXPECT_EQ(originOf(session, "chain[0].irlength"), "file:61");
}

TEST_F(HistoryTest, WhatTheSavedFileDoesNotSayIsByDefault) {
  Session session = open();
  session.Change({{"debugDevice", 5}});
  session.Change({{"debugDevice", 0}});
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  session.Save();
  EXPECT_EQ(saved(), "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(originOf(session, "debugDevice"), "default");
}

TEST_F(HistoryTest, WhatGoesBackWithAChangeIsByDefault) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  ChangeRequest request;
  request.values = {{"cable.cableType", 3}};
  request.reset = {"debugDevice"};
  session.Change(request);
  EXPECT_EQ(originOf(session, "debugDevice"), "default");
  EXPECT_EQ(originOf(session, "cable.cableType"), "changed");
}

TEST_F(HistoryTest, SavingMakesWhatStandsWhatTheFileGives) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Change({{"debugDevice", 3}, {"cable.cableType", 3}});
  session.Change({{"connection", "sim"}});
  session.Undo();
  session.Save();
  const std::string written = saved();
  EXPECT_EQ(session.Get("connectCommand"), Value(written));
  const SessionState state = session.State();
  EXPECT_TRUE(state.canRedo);
  const SessionState anew = open().State();
  for (std::size_t i = 0; i < state.settings.size(); ++i)
    EXPECT_EQ(state.settings[i].origin, anew.settings[i].origin)
        << state.settings[i].id;
  EXPECT_EQ(originOf(session, "debugDevice").substr(0, 5), "file:");
  // There is nothing to go back to.
  EXPECT_THAT(shown(session.Revert()), IsEmpty());
  EXPECT_TRUE(session.State().canRedo);
  session.Undo();
  EXPECT_EQ(session.Get("debugDevice"), Value(2));
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  session.Redo();
  EXPECT_EQ(session.Get("connectCommand"), Value(written));
}

/// The settings that are said to be of the file, and are otherwise in it.
std::vector<std::string> misplaced(const SessionState &state,
                                   const SessionState &anew) {
  std::vector<std::string> found;
  const auto look = [&found](const SettingState &is, const SettingState &was) {
    const bool isOfFile = is.origin.substr(0, 5) == "file:";
    const bool isAsThere = is.value == was.value && is.origin == was.origin;
    if (isOfFile && !isAsThere)
      found.push_back(is.id + " " + is.text + " " + is.origin);
  };
  for (const SettingState &setting : state.settings)
    look(setting, settingIn(anew, setting.id));
  for (std::size_t i = 0; i < state.chain.size(); ++i)
    for (std::size_t k = 0; k < state.chain[i].size(); ++k)
      look(state.chain[i][k],
           i < anew.chain.size() ? anew.chain[i][k] : SettingState());
  return found;
}

TEST_F(HistoryTest, OnlyWhatTheFileSaysComesFromItWhereverOneGoes) {
  Session session =
      openWith("connect lc hdu -cable type quorla_podusb port USB22 frequency "
               "3000000 -configdevice partname p irlength 4 -debugdevice "
               "devicenr 2");
  session.Change({{"debugDevice", 3}});
  session.Change({{"cable.cableType", 3}, {"cable.port", "USB23"}});
  session.Change({{"chain", Value::Chain{{{"partname", "p"}, {"irlength", 5}},
                                         {{"partname", "q"}}}}});
  session.Save();
  session.Change({{"cable.cableType", "none"}, {"stubTimeout", 7}});
  session.Reset({});
  session.Edit("connect lc sim");
  const auto walk = [&] {
    const SessionState anew = open().State();
    while (session.State().canUndo) {
      session.Undo();
      EXPECT_THAT(misplaced(session.State(), anew), IsEmpty());
    }
    while (session.State().canRedo) {
      session.Redo();
      EXPECT_THAT(misplaced(session.State(), anew), IsEmpty());
    }
  };
  walk();
  for (int step = 0; step < 3; ++step) {
    session.Undo();
    SaveOptions options;
    options.force = true;
    session.Save(options);
    walk();
  }
}

TEST_F(HistoryTest, WhatIsSavedComesFromTheFileBeforeAndAfter) {
  Session session = open();
  session.Change({{"debugDevice", 3}});
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  session.Change({{"chain", Value::Chain{{{"partname", "p"}}}}});
  session.Save();
  EXPECT_EQ(originOf(session, "debugDevice").substr(0, 5), "file:");
  const std::string place = originOf(session, "debugDevice");
  session.Undo(); // of the chain
  EXPECT_EQ(originOf(session, "debugDevice"), place);
  EXPECT_EQ(originOf(session, "chain"), "default");
  session.Undo();
  EXPECT_EQ(session.Get("debugDevice"), Value(0));
  EXPECT_EQ(originOf(session, "debugDevice"), "default");
  session.Redo();
  EXPECT_EQ(originOf(session, "debugDevice"), place);
  session.Redo();
  EXPECT_EQ(originOf(session, "chain").substr(0, 5), "file:");
  // And so the other way: what is undone and saved is not what is done again.
  session.Undo();
  session.Undo();
  session.Save();
  EXPECT_EQ(saved(), "connect lc hdu -debugdevice cpunr 1");
  session.Redo();
  EXPECT_EQ(session.Get("debugDevice"), Value(3));
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  session.Redo();
  EXPECT_EQ(originOf(session, "chain"), "changed");
  EXPECT_EQ(originOf(session, "chain[0].partname"), "changed");
  session.Save();
  EXPECT_EQ(originOf(session, "debugDevice"), place);
}

TEST_F(HistoryTest, WhatATypedCommandGaveIsItsOwnUnlessTheFileSaysIt) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Edit("connect lc hdu -debugdevice devicenr 3");
  session.Change({{"debugDevice", 4}});
  session.Save();
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "command:38");
  EXPECT_EQ(originOf(session, "connection"), "file:12");
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
}

TEST_F(HistoryTest, ANumberThatAnEarlierFileHadCutIsToldWhereItStands) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 200");
  const auto codes = [&session] {
    std::vector<std::string> found;
    for (const CommandDiagnostic &diagnostic : session.State().diagnostics)
      found.push_back(diagnostic.code);
    return found;
  };
  const std::vector<std::string> told = codes();
  ASSERT_THAT(told, testing::Not(IsEmpty()));
  session.Change({{"debugDevice", 3}});
  EXPECT_THAT(codes(), IsEmpty());
  session.Save();
  EXPECT_THAT(codes(), IsEmpty());
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  EXPECT_EQ(codes(), told);
  session.Change({{"stubTimeout", 7}});
  EXPECT_EQ(codes(), told);
  session.Change({{"debugDevice", 4}});
  EXPECT_THAT(codes(), IsEmpty());
}

TEST_F(HistoryTest, NothingComesFromAFileThatIsRefused) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Change({{"cpuJtag", 1}});
  SaveOptions options;
  options.force = true;
  session.Save(options);
  ASSERT_NE(session.Problem(), "");
  EXPECT_EQ(session.Get("debugDevice"), Value(2));
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  EXPECT_EQ(session.Get("connectCommand"), Value(saved()));
  EXPECT_EQ(originOf(session, "connectCommand"), "file:1");
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
}

TEST_F(HistoryTest, WhatSavingLosesDoesNotComeFromTheFile) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  session.Change({{"connection", "sim"}, {"cable.cableType", 3}});
  SaveOptions options;
  options.force = true;
  session.Save(options);
  EXPECT_EQ(saved(), "connect lc sim");
  EXPECT_EQ(originOf(session, "connection"), "file:12");
  EXPECT_EQ(originOf(session, "cable.cableType"), "changed");
  EXPECT_EQ(originOf(session, "debugDevice"), "changed"); // it is still 2
}

TEST_F(HistoryTest, SavingTheDefaultsIsNoStep) {
  Session session = open();
  session.Save();
  EXPECT_THAT(shown(session.Revert()), IsEmpty());
  EXPECT_FALSE(session.State().canUndo);
  EXPECT_EQ(originOf(session, "connection"), "file:12");
}

TEST_F(HistoryTest, RevertingAndResettingBringOriginsBack) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 0");
  EXPECT_EQ(originOf(session, "debugDevice"), "file:38");
  EXPECT_THAT(session.Reset({"debugDevice"}), IsEmpty());
  EXPECT_EQ(originOf(session, "debugDevice"), "default");
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "file:38");
  session.Change({{"debugDevice", 1}});
  session.Change({{"debugDevice", 0}});
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  EXPECT_THAT(session.Revert(), IsEmpty());
  EXPECT_EQ(originOf(session, "debugDevice"), "file:38");
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
  session.Redo();
  // Once more is nothing.
  session.Undo();
  session.Redo();
  session.Revert();
  EXPECT_FALSE(session.State().canRedo);
  session.Undo();
  EXPECT_EQ(originOf(session, "debugDevice"), "changed");
}

/// A design that has enough of questions.
class TiredDesign : public support::FakeDesign {
public:
  void getPeripherals(Names &found, const std::string &processor) override {
    if (isTired)
      throw std::runtime_error("enough");
    FakeDesign::getPeripherals(found, processor);
  }
  bool isTired = false;
};

TEST_F(HistoryTest, ADesignThatThrowsLeavesASessionAsItWas) {
  TiredDesign tired;
  fillDesign(tired);
  const Board asked(tired, (work.path() / "etc").string());
  save("connect ppc hw -debugdevice devicenr 2", "ppc440");
  Session session(asked, "ppc440");
  session.Change({{"debugDevice", 3}});
  const auto before = shown(session.State());
  save("connect ppc hw -debugdevice devicenr 4", "ppc440");
  tired.isTired = true;
  EXPECT_THROW(session.Revert(), std::runtime_error);
  tired.isTired = false;
  EXPECT_EQ(shown(session.State()), before);
  EXPECT_TRUE(session.ChangedOnDisk());
  EXPECT_THAT(shown(session.Differences()), ElementsAre("debugDevice: 2 -> 3"));
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::StartsWith("changed-on-disk"));
  EXPECT_EQ(saved("ppc440"), "connect ppc hw -debugdevice devicenr 4");
  EXPECT_THAT(shown(session.Revert()),
              testing::Contains("debugDevice: 3 -> 4 (it is saved so)"));
}

TEST_F(HistoryTest, WhatIsLoadedIsOfOneFile) {
  Session session = openWith("connect lc hdu -debugdevice devicenr 2");
  const auto deviceOf = [](const CommandSettings &read) {
    for (const auto &setting : read.settings)
      if (setting.id == "debugDevice")
        return setting.value;
    return Value();
  };
  EXPECT_EQ(deviceOf(session.Loaded()), Value(2));
  save("connect lc hdu -debugdevice devicenr 4");
  EXPECT_EQ(session.Loaded().text, "connect lc hdu -debugdevice devicenr 2");
  EXPECT_EQ(deviceOf(session.Loaded()), Value(2));
  session.Revert();
  EXPECT_EQ(deviceOf(session.Loaded()), Value(4));
  save("");
  EXPECT_EQ(deviceOf(session.Loaded()), Value(4));
  session.Revert();
  EXPECT_EQ(deviceOf(session.Loaded()), Value(0));
  EXPECT_EQ(session.Loaded().result, 4);
}

// --- A start that is not the defaults ----------------------------------------

class StartTest : public ModelTest {
protected:
  Session firstOne() const {
    Session first = open();
    first.Change({{"debugDevice", 3}, {"cable.cableType", "quorla_podusb"}});
    return first;
  }
  Session started() const {
    Session session = open();
    session.StartAs(firstOne(), "project");
    return session;
  }
};

TEST_F(StartTest, IsThereFromTheBeginning) {
  Session session = started();
  const SessionState state = session.State();
  EXPECT_EQ(state.command,
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "6000000 -debugdevice deviceNr 3 cpunr 1");
  EXPECT_FALSE(state.canUndo);
  EXPECT_FALSE(state.canRedo);
  EXPECT_TRUE(state.dirty);
  EXPECT_EQ(settingIn(state, "debugDevice").origin, "project");
  EXPECT_EQ(settingIn(state, "cable.port").origin, "project");
  EXPECT_EQ(settingIn(state, "cable.esn").origin, "default");
  EXPECT_THAT(shown(state.differences),
              testing::Contains("debugDevice: 0 -> 3"));
}

TEST_F(StartTest, IsWhereRevertComesBackToUntilSomethingIsSaved) {
  Session session = started();
  session.Change({{"debugDevice", 5}});
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, "changed");
  EXPECT_THAT(shown(session.Revert()),
              ElementsAre("debugDevice: 5 -> 3 (it started so)"));
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, "project");
  session.Undo();
  EXPECT_EQ(shown("debugDevice", session.Get("debugDevice")), "5");
  session.Save();
  session.Change({{"debugDevice", 6}});
  EXPECT_THAT(shown(session.Revert()),
              ElementsAre("debugDevice: 6 -> 5 (it is saved so)"));
}

TEST_F(StartTest, TakesThePlaceOfAnEarlierOneOnlyBeforeTheFirstChange) {
  Session other = firstOne();
  other.Change({{"debugDevice", 4}});
  Session session = started();
  session.StartAs(other, "project");
  EXPECT_EQ(shown("debugDevice", session.Get("debugDevice")), "4");
  session.Change({{"debugDevice", 7}});
  session.StartAs(firstOne(), "project");
  EXPECT_EQ(shown("debugDevice", session.Get("debugDevice")), "7");
  session.Undo();
  session.Revert();
  EXPECT_EQ(shown("debugDevice", session.Get("debugDevice")), "3");
}

TEST_F(StartTest, IsNothingToOneThatHasAFile) {
  const Session first = firstOne();
  Session session = openWith("connect lc sim");
  const auto before = shown(session.State());
  session.StartAs(first, "project");
  EXPECT_EQ(shown(session.State()), before);
  session.Change({{"debugDevice", 7}});
  session.Revert();
  EXPECT_EQ(session.Command(), "connect lc sim");
}

} // namespace
