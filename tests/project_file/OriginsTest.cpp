// Where each value of a configuration comes from, and what an option file has
// otherwise.
#include "ZelDebugDialog/ProjectFile/Origins.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

class Origins : public ProjectTest {
protected:
  /// "debugDevice = 3 (zeldebug.toml:3:15)" of what is neither default nor the
  /// design's.
  std::vector<std::string> said(const std::string &project,
                                const std::string &local = "",
                                const SettingValues &line = {}) {
    const Project files = read(project, local);
    EXPECT_FALSE(files.HasErrors());
    const MergedProcessor merged =
        MergeProject(files, ChooseProject(files, {}), processor("lc"), line);
    Session session(board, "lc");
    const AppliedProject applied = ApplyProject(files, merged, board, session);
    EXPECT_FALSE(applied.refusal);
    const CommandSettings shown = ShowProject(merged, session);
    EXPECT_EQ(shown.text, session.Command());
    std::vector<std::string> lines;
    const auto add = [&lines](const CommandSetting &one) {
      if (one.origin != "default" && one.origin != "design")
        lines.push_back(one.id + " " + one.origin);
    };
    for (const CommandSetting &one : shown.settings)
      add(one);
    for (const std::vector<CommandSetting> &device : shown.chain)
      for (const CommandSetting &one : device)
        add(one);
    differences.clear();
    for (const Difference &one :
         CompareWithOptionFile(board, session, applied.displaced))
      differences.push_back(one.setting);
    return lines;
  }

  std::vector<std::string> differences;
};

TEST_F(Origins, OfAPlaceTheNameOfTheFileAlone) {
  EXPECT_EQ(ShowOrigin({"a/b/zeldebug.toml", 3, 14}), "zeldebug.toml:3:14");
  EXPECT_EQ(ShowOrigin({"zeldebug.local.toml", 1, 1}),
            "zeldebug.local.toml:1:1");
  EXPECT_EQ(ShowOrigin({}), "option");
}

TEST_F(Origins, NothingIsSaid) {
  EXPECT_THAT(said(""), IsEmpty());
  // Neither by what is saved.
  save("connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  EXPECT_THAT(said(""), IsEmpty());
  EXPECT_THAT(differences, ElementsAre("debugDevice"));
}

TEST_F(Origins, TheHighestSourceIsTheOrigin) {
  EXPECT_THAT(said("[settings]\ndebugDevice = 3\n"),
              ElementsAre("debugDevice zeldebug.toml:3:15"));
  EXPECT_THAT(
      said("[settings]\ndebugDevice = 3\n", "[settings]\ndebugDevice = 3\n"),
      ElementsAre("debugDevice zeldebug.local.toml:2:15"));
  EXPECT_THAT(
      said("[settings]\ndebugDevice = 3\n", "", {{"debugDevice", Value(4)}}),
      ElementsAre("debugDevice option"));
  // A default that is written is a value like any other.
  EXPECT_THAT(said("[settings]\ndebugDevice = 0\n"),
              ElementsAre("debugDevice zeldebug.toml:3:15"));
}

TEST_F(Origins, TheBaseOfTheAddressMapMovesWithARegion) {
  EXPECT_THAT(said("[settings]\nicacheStartAdr = 0x70000000\n"),
              ElementsAre("debugAddressMap zeldebug.toml:3:18",
                          "icacheStartAdr zeldebug.toml:3:18"));
  EXPECT_THAT(said("[settings]\ndcacheStartAdr = 0x70000000\n"),
              ElementsAre("dcacheStartAdr zeldebug.toml:3:18"));
}

TEST_F(Origins, WhatFollowsHasThePlaceOfWhatItFollowsFrom) {
  EXPECT_THAT(said("[settings]\nconnection = \"sim\"\n"),
              ElementsAre("connection zeldebug.toml:3:14",
                          "connectionType zeldebug.toml:3:14",
                          "stubType zeldebug.toml:3:14"));
  // A cable brings its port and frequency: those are its defaults.
  EXPECT_THAT(said("[settings]\ncable.cableType = \"quorla_podusb\"\n"),
              ElementsAre("cable.cableType zeldebug.toml:3:19"));
}

TEST_F(Origins, OfAChainEachValueHasItsOwn) {
  const std::string chain = "chain = [{devicenr = 1, partname = \"a\", "
                            "irlength = 6, idcode = 1}]\n";
  EXPECT_THAT(
      said("[settings]\n" + chain),
      testing::UnorderedElementsAre("chain[0].devicenr zeldebug.toml:3:22",
                                    "chain[0].partname zeldebug.toml:3:36",
                                    "chain[0].irlength zeldebug.toml:3:52",
                                    "chain[0].idcode zeldebug.toml:3:64"));
}

TEST_F(Origins, WhatIsDisplacedIsNoOrigin) {
  EXPECT_THAT(said("[settings]\ncable.cableType = \"quorla_podusb\"\n"
                   "cable.frequency = \"3MHz\"\n",
                   "[settings]\ncable.esn = \"7\"\n"),
              ElementsAre("cable.cableType zeldebug.toml:3:19",
                          "cable.esn zeldebug.local.toml:2:13"));
}

TEST_F(Origins, WhatNeitherCommandCarriesIsNoDifference) {
  const char *const simulated = "[settings]\nconnection = \"sim\"\n";
  save("connect lc sim");
  said(simulated);
  EXPECT_THAT(differences, IsEmpty());
}

TEST_F(Origins, WhatOnlyTheFileSaysIsADifference) {
  // The port is the cable's own.
  save("connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000");
  said("[settings]\nconnection = \"sim\"\n");
  EXPECT_THAT(differences,
              ElementsAre("connection", "cable.cableType", "cable.frequency"));
  // What the project displaces is told of.
  save("connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  said("[settings]\ndebugDevice = 2\n",
       "[processor.lc]\nconnection = \"sim\"\n");
  EXPECT_THAT(differences, ElementsAre("connection"));
}

} // namespace
