// What the merged values make of a configuration.
#include "ZelDebugDialog/ProjectFile/Codes.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

class Applying : public ProjectTest {
protected:
  AppliedProject apply(const std::string &project,
                       const std::string &local = "",
                       const std::string &name = "lc") {
    const Project files = read(project, local);
    EXPECT_FALSE(files.HasErrors());
    Session session(board, name);
    return ApplyProject(
        files, MergeProject(files, ChooseProject(files, {}), processor(name)),
        board, session);
  }
  static std::vector<std::string> shown(const std::vector<ProjectLoss> &list) {
    std::vector<std::string> lines;
    for (const ProjectLoss &one : list)
      lines.push_back(one.loss.field + " at " + project_test::shown(one.place) +
                      (one.displacer.empty() ? "" : " by " + one.displacer));
    return lines;
  }
};

constexpr const char *byDefault = "connect lc hdu -debugdevice cpunr 1";

TEST_F(Applying, StartsFromTheDefaultsWhateverIsSaved) {
  EXPECT_EQ(apply("").command, byDefault);
  save("connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  EXPECT_EQ(apply("").command, byDefault);
  EXPECT_EQ(apply("[settings]\ndebugDevice = 4\n").command,
            "connect lc hdu -debugdevice deviceNr 4 cpunr 1");
}

constexpr const char *fast = "[settings]\n"
                             "cable.cableType = \"quorla_podusb\"\n"
                             "cable.frequency = \"3MHz\"\n";

TEST_F(Applying, AHigherSourceDisplaces) {
  const AppliedProject serial = apply(fast, "[settings]\ncable.esn = \"7\"\n");
  EXPECT_THAT(shown(serial.displaced),
              ElementsAre("cable.frequency at zeldebug.toml:4:19 by "
                          "cable.esn"));
  EXPECT_THAT(shown(serial.lost), IsEmpty());
  ASSERT_TRUE(serial.command);
  const AppliedProject simulated =
      apply(fast, "[settings]\nconnection = \"sim\"\n");
  EXPECT_THAT(shown(simulated.lost), IsEmpty());
  EXPECT_THAT(shown(simulated.displaced),
              ElementsAre("cable.cableType at zeldebug.toml:3:19 by connection",
                          "cable.frequency at zeldebug.toml:4:19 by "
                          "connection"));
}

TEST_F(Applying, ExamplesOfNotesHaveThem) {
  const std::string dropped = FindProjectCode("cable-dropped")->example;
  const MergedProcessor merged = merge(dropped);
  ASSERT_EQ(merged.dropped.size(), 1U);
  EXPECT_EQ(
      shownDropped(merged).front(),
      "cable.frequency = 3 MHz (zeldebug.toml:4:13) by zeldebug.toml:6:13");
  EXPECT_THAT(shown(apply(FindProjectCode("displaced")->example).displaced),
              ElementsAre("cable.frequency at zeldebug.toml:4:13 by "
                          "cable.esn"));
}

TEST_F(Applying, TheSameOrALowerSourceLoses) {
  EXPECT_THAT(shown(apply(std::string(fast) + "cable.esn = \"7\"\n").lost),
              ElementsAre("cable.frequency at zeldebug.toml:4:19"));
  EXPECT_THAT(shown(apply("[settings]\nconnection = \"sim\"\n",
                          "[settings]\ncable.cableType = \"quorla_podusb\"\n")
                        .lost),
              ElementsAre("cable.cableType at zeldebug.local.toml:2:19"));
}

TEST_F(Applying, WhatAValueBringsIsLostAtItsPlaceAndBehindIt) {
  const std::string region = "[settings]\nicacheStartAdr = 0x70000000\n";
  EXPECT_THAT(shown(apply(region).lost),
              ElementsAre("icacheStartAdr at zeldebug.toml:3:18",
                          "debugAddressMap at zeldebug.toml:3:18"));
  EXPECT_THAT(shown(apply("", "[settings]\nicacheStartAdr = 0x70000000\n"
                              "dcacheStartAdr = 0x70020000\n")
                        .lost),
              ElementsAre("icacheStartAdr at zeldebug.local.toml:2:18",
                          "dcacheStartAdr at zeldebug.local.toml:3:18",
                          "debugAddressMap at zeldebug.local.toml:2:18"));
  // A region that is not the base brings nothing.
  EXPECT_THAT(shown(apply("[settings]\ndcacheStartAdr = 0x70020000\n").lost),
              ElementsAre("dcacheStartAdr at zeldebug.toml:3:18"));
  EXPECT_THAT(shown(apply(region, "", "ppc405").lost), IsEmpty());
}

TEST_F(Applying, NoValueAloneBringsTheWholeCommand) {
  const std::string serial(5000, '7');
  EXPECT_THAT(shown(apply("[settings]\nconnection = \"hw\"\n"
                          "cable.cableType = \"quorla_podusb\"\n"
                          "cable.esn = \"" +
                          serial + "\"\n")
                        .lost),
              ElementsAre("cable.esn at zeldebug.toml:5:13",
                          "connectCommand at zeldebug.toml:1:10"));
}

TEST_F(Applying, WhatAValueBringsGoesAlongWithOneThatIsDisplaced) {
  const AppliedProject simulated =
      apply("[settings]\nicacheStartAdr = 0x70000000\n",
            "[settings]\nconnection = \"sim\"\n", "ppc405");
  EXPECT_THAT(shown(simulated.lost), IsEmpty());
  EXPECT_THAT(shown(simulated.displaced),
              ElementsAre("icacheStartAdr at zeldebug.toml:3:18 by "
                          "connection"));
  EXPECT_EQ(simulated.command, "connect ppc sim");
  // A source that says both has nothing above it.
  EXPECT_THAT(shown(apply("[settings]\nconnection = \"sim\"\n"
                          "icacheStartAdr = 0x70000000\n",
                          "", "ppc405")
                        .lost),
              ElementsAre("icacheStartAdr at zeldebug.toml:4:18",
                          "debugAddressMap at zeldebug.toml:4:18"));
}

TEST_F(Applying, AConnectionThatIsNotAllowedIsRefusedAtItsPlace) {
  const AppliedProject named =
      apply("[settings]\nconnection = \"hw\"\n", "", "lc_sim");
  ASSERT_TRUE(named.refusal);
  EXPECT_EQ(named.refusal->kind, RefusalKind::notAllowed);
  EXPECT_EQ(project_test::shown(named.place), "zeldebug.toml:3:14");
  EXPECT_FALSE(named.command);
  ASSERT_EQ(named.lost.size(), 1U);
  EXPECT_EQ(named.lost[0].loss.code, "connection-mask");
  EXPECT_EQ(named.lost[0].loss.value, Value("hw"));
  EXPECT_EQ(shown(named.lost),
            std::vector<std::string>{"connection at zeldebug.toml:3:14"});
}

TEST_F(Applying, WhereNobodyNamesAConnectionTheMessageSaysWhichToWrite) {
  const AppliedProject unnamed = apply("", "", "lc_sim");
  ASSERT_TRUE(unnamed.refusal);
  EXPECT_EQ(project_test::shown(unnamed.place), "zeldebug.toml:1:10");
  ASSERT_EQ(unnamed.lost.size(), 1U);
  EXPECT_EQ(unnamed.lost[0].loss.code, "connection-mask");
  EXPECT_EQ(unnamed.lost[0].loss.value, Value("hw"));
  EXPECT_THAT(unnamed.refusal->problem,
              testing::HasSubstr("[processor.lc_sim] connection = \"sim\""));
  EXPECT_FALSE(apply("[processor.lc_sim]\nconnection = \"sim\"\n", "", "lc_sim")
                   .refusal);
}

} // namespace
