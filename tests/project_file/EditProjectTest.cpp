// Changes of the files, from what was asked for to what stands there.
#include <filesystem>

#include "ZelDebugDialog/ProjectFile/Edit.h"
#include "project_file/ProjectTest.h"
#include "support/FileSizeLimit.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

// Names a connection for the one that has only a simulator.
constexpr const char *allowed =
    "[processor.lc_sim]\nconnection = \"sim\" # only\n";

class Editing : public ProjectTest {
protected:
  std::string projectFile() const {
    return (work.path() / "zeldebug.toml").string();
  }
  void given(const std::string &project, const std::string &local = "") const {
    work.write("zeldebug.toml", std::string(head) + allowed + project);
    if (!local.empty())
      work.write("zeldebug.local.toml", local);
  }
  EditedProject plan(const ProjectEdit &edit) const {
    return EditProject(projectFile(), edit, board, {});
  }
  /// What is behind `head` and `allowed` afterwards; or the local file.
  std::string edited(const ProjectEdit &edit) const {
    const EditedProject planned = plan(edit);
    WriteProject(planned);
    EXPECT_EQ(work.read(std::filesystem::path(planned.file).filename()),
              planned.after);
    const std::string front = std::string(head) + allowed;
    return planned.after.compare(0, front.size(), front) == 0
               ? planned.after.substr(front.size())
               : planned.after;
  }
  static ProjectEdit edit(const std::string &processor,
                          const SettingValues &values,
                          const std::vector<std::string> &unset = {}) {
    ProjectEdit wanted;
    wanted.processor = processor;
    wanted.values = values;
    wanted.unset = unset;
    return wanted;
  }
  static ProjectEdit local(ProjectEdit wanted) {
    wanted.target = ProjectTarget::local;
    return wanted;
  }
  static ProjectEdit profile(ProjectEdit wanted, const std::string &name) {
    wanted.target = ProjectTarget::profile;
    wanted.profile = name;
    return wanted;
  }
};

TEST_F(Editing, WritesToTheTableOfTheProcessor) {
  given("[processor.lc]\ndebugDevice = 0x3 # third\n");
  EXPECT_EQ(edited(edit("lc", {{"debugDevice", 26}})),
            "[processor.lc]\ndebugDevice = 0x1a # third\n");
  EXPECT_EQ(edited(edit("lc", {{"cable.cableType", "quorla_podusb"}})),
            "[processor.lc]\ndebugDevice = 0x1a # third\ncable.cableType = "
            "\"quorla_podusb\"\n");
  EXPECT_EQ(edited(edit("", {{"debugDevice", 5}})),
            "[processor.lc]\ndebugDevice = 0x1a # third\ncable.cableType = "
            "\"quorla_podusb\"\n\n"
            "[settings]\ndebugDevice = 5\n");
}

TEST_F(Editing, ANumberInQuotesKeepsThemAndItsBase) {
  given("[processor.lc]\ndebugDevice = '0x2' # second\n"
        "cable.cableType = \"none\"\n");
  EXPECT_EQ(edited(edit("lc", {{"debugDevice", 26}})),
            "[processor.lc]\ndebugDevice = '0x1a' # second\n"
            "cable.cableType = \"none\"\n");
}

TEST_F(Editing, LeavesAValueThatSaysTheSameAlready) {
  given("[processor.lc]\ncable.cableType = 'quorla_podusb'\n"
        "cable.frequency = \"3MHz\"\n");
  const EditedProject same =
      plan(edit("lc", {{"cable.frequency", 3000000}, {"cable.cableType", 3}}));
  EXPECT_EQ(same.before, same.after);
}

TEST_F(Editing, LeavesAChainThatSaysTheSameAlready) {
  const Value::Chain devices{
      {{"devicenr", 1}, {"partname", "xc"}, {"irlength", 6}, {"idcode", 0x93}}};
  for (const char *const chain :
       {"[[processor.lc.chain]] # the board's\nidcode = 147\ndevicenr = 1\n"
        "# six\nirlength = 6\npartname = 'xc'\n",
        "[[processor.lc.chain]] # the board's\nidcode = \"0x93\"\n"
        "devicenr = 1\nirlength = 6\npartname = 'xc'\nisfpga = false\n",
        "[processor.lc]\nchain = [ # the board's\n  { idcode = '147', devicenr "
        "= 1, irlength = 6, partname = 'xc', isfpga = false }\n]\n"}) {
    given(chain);
    EXPECT_EQ(edited(edit("lc", {{"chain", devices}})), chain);
  }
}

TEST_F(Editing, MakesALocalFileThatIsMissing) {
  given("[settings]\ncable.cableType = \"quorla_podusb\"\n");
  EXPECT_EQ(edited(local(edit("lc", {{"cable.esn", "0042"}}))),
            "[processor.lc]\ncable.esn = \"0042\"\n");
  EXPECT_EQ(edited(local(edit("lc", {{"cable.esn", "0043"}}))),
            "[processor.lc]\ncable.esn = \"0043\"\n");
}

TEST_F(Editing, MakesNoLocalFileThatWouldSayNothing) {
  given("");
  const std::string file = LocalFileOf(projectFile());
  const EditedProject nothing = plan(local(edit("lc", {}, {"debugDevice"})));
  EXPECT_EQ(nothing.file, file);
  EXPECT_EQ(nothing.before, std::nullopt);
  EXPECT_EQ(nothing.after, "");
  EXPECT_FALSE(nothing.IsChanged());
  EXPECT_FALSE(nothing.project.local.exists);
  WriteProject(nothing);
  EXPECT_FALSE(std::filesystem::exists(file));
  // An empty one that is there stays.
  work.write("zeldebug.local.toml", "");
  const EditedProject empty = plan(local(edit("lc", {}, {"debugDevice"})));
  EXPECT_FALSE(empty.IsChanged());
  EXPECT_TRUE(empty.project.local.exists);
  WriteProject(empty);
  EXPECT_TRUE(std::filesystem::exists(file));
  std::filesystem::remove(file);
  // What a lower source says is taken away there.
  given("[processor.lc]\ndebugDevice = 4\n");
  const EditedProject away = plan(local(edit("lc", {}, {"debugDevice"})));
  EXPECT_TRUE(away.IsChanged());
  WriteProject(away);
  EXPECT_EQ(work.read("zeldebug.local.toml"),
            "[processor.lc]\nunset = [\"debugDevice\"]\n");
}

TEST_F(Editing, WritesToAProfileWhereItIs) {
  given("[profile.slow.settings]\ndebugDevice = 1\n",
        "[profile.mine.processor.lc]\ndebugDevice = 2\n");
  EXPECT_EQ(
      edited(
          profile(edit("lc", {{"cable.cableType", "quorla_podusb"}}), "slow")),
      "[profile.slow.settings]\ndebugDevice = 1\n\n"
      "[profile.slow.processor.lc]\ncable.cableType = \"quorla_podusb\"\n");
  EXPECT_EQ(edited(profile(
                edit("lc", {{"cable.cableType", "quorla_parallel3"}}), "mine")),
            "[profile.mine.processor.lc]\ndebugDevice = 2\ncable.cableType = "
            "\"quorla_parallel3\"\n");
  EXPECT_THAT(model_test::refusalOf([&] {
                plan(
                    profile(edit("", {{"cable.cableType", "quorla_parallel3"}}),
                            "slov"));
              }),
              testing::StartsWith("bad-value: 'slov' is no profile"));
  EXPECT_THAT(model_test::refusalOf([&] {
                plan(profile(edit("", {{"debugDevice", 3}}), "none"));
              }),
              testing::StartsWith("bad-value: 'none' is no name of a profile"));
}

TEST_F(Editing, UnsetRemovesTheLineAndSaysSoWhereALowerSourceHasOne) {
  given("[settings]\ncable.cableType = "
        "\"quorla_podusb\"\n[processor.lc]\ncable.cableType = "
        "\"quorla_parallel3\"\ndebugDevice = 4\n");
  EXPECT_EQ(edited(edit("lc", {}, {"debugDevice"})),
            "[settings]\ncable.cableType = "
            "\"quorla_podusb\"\n[processor.lc]\ncable.cableType = "
            "\"quorla_parallel3\"\n");
  EXPECT_EQ(
      edited(edit("lc", {}, {"cable.cableType"})),
      "[settings]\ncable.cableType = \"quorla_podusb\"\n[processor.lc]\nunset "
      "= [\"cable.cableType\"]\n");
  EXPECT_EQ(edited(edit("lc", {{"cable.cableType", "none"}})),
            "[settings]\ncable.cableType = "
            "\"quorla_podusb\"\n[processor.lc]\ncable.cableType = \"none\"\n");
}

TEST_F(Editing, UnsetSaysSoWhateverAHigherSourceSays) {
  const std::string below = "[settings]\ndebugDevice = 1\n";
  const std::string changed = "[processor.lc]\ndebugDevice = 2\n";
  const std::string taken = "[processor.lc]\nunset = [\"debugDevice\"]\n";
  const std::string above = "[processor.lc]\ndebugDevice = 3\n";
  const ProjectEdit away = edit("lc", {}, {"debugDevice"});
  given(below + changed, above);
  const std::vector<ProjectFault> warnings = plan(away).warnings;
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "overridden");
  EXPECT_EQ(edited(away), below + taken);
  EXPECT_EQ(edited(away), below + taken);
  given(below + changed, "[settings]\nunset = [\"debugDevice\"]\n");
  EXPECT_EQ(edited(away), below + taken);
  given(changed, above);
  EXPECT_EQ(edited(away), "[processor.lc]\n");
  given("[processor.ppc405]\ndebugDevice = 1\n" + changed, above);
  EXPECT_EQ(edited(away),
            "[processor.ppc405]\ndebugDevice = 1\n[processor.lc]\n");
  // What a source in between takes away is not below any longer.
  const std::string between = "[processor.\"l*\"]\nunset = [\"debugDevice\"]\n";
  given(below + between + changed, above);
  EXPECT_EQ(edited(away), below + between + "[processor.lc]\n");
  const std::string again = "[processor.\"l*\"]\ndebugDevice = 1\n";
  given(below + again + changed, above);
  EXPECT_EQ(edited(away), below + again + taken);
}

TEST_F(Editing, UnsetTakesADottedKeyOutOfBraces) {
  const std::string braces =
      "processor.lc = { cable.frequency = \"3 MHz\", debugDevice = 1 }\n";
  const ProjectEdit away = local(edit("lc", {}, {"cable.frequency"}));
  given("", braces);
  EXPECT_EQ(edited(away), "processor.lc = { debugDevice = 1 }\n");
  given("[settings]\ncable.cableType = \"quorla_podusb\"\n"
        "cable.frequency = 6000000\n",
        braces);
  EXPECT_EQ(edited(away), "processor.lc = { debugDevice = 1, unset = "
                          "[\"cable.frequency\"] }\n");
}

TEST_F(Editing, UnsetKeepsWhatStandsBesideAnItem) {
  const std::string below =
      "[settings]\ndebugDevice = 1\ncable.cableType = \"quorla_podusb\"\n";
  const std::string front =
      below +
      "[processor.lc]\nunset = [ # not here\n  'cable.cableType', # one\n";
  given(front + "] # end\n");
  EXPECT_EQ(edited(edit("lc", {}, {"cable.cableType"})), front + "] # end\n");
  EXPECT_EQ(edited(edit("lc", {}, {"debugDevice"})),
            front + "  'debugDevice',\n] # end\n");
  EXPECT_EQ(edited(edit("lc", {{"debugDevice", 3}})),
            front + "] # end\ndebugDevice = 3\n");
  EXPECT_EQ(edited(edit("lc", {{"cable.cableType", "quorla_podusb"}})),
            below + "[processor.lc]\ndebugDevice = 3\ncable.cableType = "
                    "\"quorla_podusb\"\n");
}

TEST_F(Editing, UnsetOfAllProcessorsSaysSoForAnyOfThem) {
  const std::string ofOne = "[processor.ppc405]\ndebugDevice = 3\n";
  const std::string ofAll = "[settings]\ndebugDevice = 2\n";
  const ProjectEdit away = edit("", {}, {"debugDevice"});
  given(ofOne + ofAll);
  EXPECT_EQ(edited(away), ofOne + "[settings]\n");
  given(ofOne, ofAll + ofOne);
  EXPECT_EQ(edited(local(away)),
            "[settings]\nunset = [\"debugDevice\"]\n" + ofOne);
  given("", ofAll + ofOne);
  EXPECT_EQ(edited(local(away)), "[settings]\n" + ofOne);
}

TEST_F(Editing, UnsetInAProfileSaysSoForWhatIsBelowTheProfile) {
  const std::string below = "[settings]\ndebugDevice = 1\n";
  const std::string changed = "[profile.slow.processor.lc]\ndebugDevice = 2\n";
  const std::string emptied = "[profile.slow.processor.lc]\n";
  const std::string taken = emptied + "unset = [\"debugDevice\"]\n";
  const std::string above = "[profile.slow.settings]\ndebugDevice = 3\n"
                            "[processor.lc]\ndebugDevice = 4\n";
  const ProjectEdit away = profile(edit("lc", {}, {"debugDevice"}), "slow");
  given(below + changed, above);
  EXPECT_EQ(edited(away), below + taken);
  given(changed, above);
  EXPECT_EQ(edited(away), emptied);
  const std::string ofOther = "[profile.fast.settings]\ndebugDevice = 1\n";
  given(ofOther + changed, above);
  EXPECT_EQ(edited(away), ofOther + emptied);
  const std::string ofProfile = "[profile.slow.settings]\ndebugDevice = 1\n";
  given(ofProfile + changed);
  EXPECT_EQ(edited(away), ofProfile + taken);
}

TEST_F(Editing, UnsetKnowsWhatACableBelowHasDropped) {
  const std::string below = "[settings]\ncable.cableType = \"quorla_podusb\"\n"
                            "cable.frequency = 3000000\n";
  const std::string other =
      "[processor.\"l*\"]\ncable.cableType = \"quorla_parallel3\"\n";
  const std::string changed = "[processor.lc]\ncable.frequency = 200000\n";
  const ProjectEdit away = edit("lc", {}, {"cable.frequency"});
  given(below + changed);
  EXPECT_EQ(edited(away),
            below + "[processor.lc]\nunset = [\"cable.frequency\"]\n");
  given(below + other + changed);
  EXPECT_EQ(edited(away), below + other + "[processor.lc]\n");
}

TEST_F(Editing, WarnsOfAValueThatAHigherSourceHides) {
  given("", "[settings]\ndebugDevice = 9\n");
  const EditedProject hidden = plan(edit("lc", {{"debugDevice", 3}}));
  ASSERT_EQ(hidden.warnings.size(), 1U);
  EXPECT_EQ(hidden.warnings[0].code, "overridden");
  EXPECT_EQ(hidden.warnings[0].place.line, 2);
  EXPECT_EQ(hidden.warnings[0].place.column, 15);
  EXPECT_THAT(
      plan(edit("lc", {{"cable.cableType", "quorla_parallel3"}})).warnings,
      IsEmpty());
}

TEST_F(Editing, WarnsWhereAHigherSourceStandsOverWhatIsTakenAway) {
  given("[processor.lc]\ndebugDevice = 3\n",
        "[settings]\ndebugDevice = 9\nunset = [\"cable.cableType\"]\n");
  const EditedProject still = plan(edit("lc", {}, {"debugDevice"}));
  ASSERT_EQ(still.warnings.size(), 1U);
  EXPECT_EQ(still.warnings[0].code, "overridden");
  EXPECT_EQ(still.warnings[0].place.line, 2);
  const EditedProject away =
      plan(edit("lc", {{"cable.cableType", "quorla_parallel3"}}));
  ASSERT_EQ(away.warnings.size(), 1U);
  EXPECT_EQ(away.warnings[0].code, "overridden");
  EXPECT_EQ(away.warnings[0].setting, "cable.cableType");
  EXPECT_EQ(away.warnings[0].place.line, 3);
  EXPECT_EQ(away.warnings[0].place.column, 10);
  EXPECT_THAT(plan(local(edit("lc", {}, {"debugDevice"}))).warnings, IsEmpty());
}

TEST_F(Editing, WarnsOfWhatIsToldOfTheFilesOnlyNow) {
  given("[settings]\ncable.cableType = \"quorla_podusb\"\n"
        "[processor.lc]\ncable.esn = \"0042\"\n");
  // The old warning has moved by a line.
  EXPECT_THAT(plan(edit("", {{"debugDevice", 0}})).warnings, IsEmpty());
  const EditedProject desk = plan(edit("lc", {{"cable.esn", "0043"}}));
  ASSERT_EQ(desk.warnings.size(), 1U);
  EXPECT_EQ(desk.warnings[0].code, "desk-setting");
  EXPECT_EQ(desk.warnings[0].place.line, 7);
  EXPECT_THAT(plan(local(edit("lc", {{"cable.esn", "0043"}}))).warnings,
              IsEmpty());
}

TEST_F(Editing, ASettingIsAskedForOnce) {
  given("");
  const auto refusal = [&](const ProjectEdit &wanted) {
    return model_test::refusalOf([&] { plan(wanted); });
  };
  EXPECT_EQ(refusal(edit("lc", {{"debugDevice", 3}, {"debugDevice", 4}})),
            "excluded: debugDevice: it is given twice, with different values");
  EXPECT_EQ(refusal(edit("lc", {{"debugDevice", 3}}, {"debugDevice"})),
            "excluded: debugDevice: it is given a value and unset");
  EXPECT_EQ(edited(edit("lc", {{"debugDevice", 3}, {"debugDevice", "0x3"}})),
            "\n[processor.lc]\ndebugDevice = 3\n");
}

TEST_F(Editing, TheBaseOfTheAddressMapFollowsFromAllRegions) {
  given("");
  const auto regions = [](const SettingValues &more) {
    SettingValues values{{"icacheStartAdr", 0x70000000},
                         {"itagStartAdr", 0x70010000},
                         {"dcacheStartAdr", 0x70020000},
                         {"dtagStartAdr", 0x70030000},
                         {"dcrStartAdr", 0x70040000}};
    values.insert(values.end(), more.begin(), more.end());
    return values;
  };
  const auto refusal = [&](const SettingValues &values) {
    return model_test::refusalOf([&] { plan(edit("lc", values)); });
  };
  EXPECT_THAT(refusal(regions({{"debugAddressMap", 0x70000000}})),
              testing::StartsWith("not-settable: debugAddressMap"));
  EXPECT_THAT(refusal({{"debugAddressMap", 0x70000000}}),
              testing::StartsWith("not-settable: debugAddressMap"));
  EXPECT_EQ(edited(edit("ppc405", regions({{"tlbStartAdr", 0x70050000},
                                           {"debugAddressMap", 0x70000000}}))),
            "\n[processor.ppc405]\nicacheStartAdr = 0x70000000\n"
            "itagStartAdr = 0x70010000\ndcacheStartAdr = 0x70020000\n"
            "dtagStartAdr = 0x70030000\ndcrStartAdr = 0x70040000\n"
            "tlbStartAdr = 0x70050000\n");
}

TEST_F(Editing, RefusesWhatAProcessorCannotHaveAndChangesNothing) {
  given("[processor.lc]\ncable.cableType = \"quorla_podusb\"\n"
        "cable.frequency = \"3MHz\"\n");
  const std::string before = work.read("zeldebug.toml");
  const auto refusal = [&](const ProjectEdit &wanted) {
    return model_test::refusalOf([&] { plan(wanted); });
  };
  EXPECT_THAT(refusal(edit("lc", {{"cable.esn", "7"}})),
              testing::StartsWith("would-be-lost: cable.frequency"));
  EXPECT_THAT(refusal(edit("lc", {{"icacheStartAdr", 0x70000000}})),
              testing::StartsWith("would-be-lost: icacheStartAdr"));
  EXPECT_THAT(refusal(edit("lc_sim", {{"connection", "vp"}})),
              testing::StartsWith("not-allowed: connection"));
  EXPECT_THAT(refusal(edit("lc", {{"debugDevice", 128}})),
              testing::StartsWith("bad-value: debugDevice"));
  EXPECT_THAT(refusal(edit("lc", {{"debugDevce", 1}})),
              testing::StartsWith("unknown-setting: debugDevce"));
  EXPECT_THAT(refusal(edit("lc", {{"stubType", 1}})),
              testing::StartsWith("not-settable: stubType"));
  EXPECT_THAT(refusal(edit("lx", {{"nCpu", 1}})),
              testing::StartsWith("unknown-processor"));
  EXPECT_EQ(work.read("zeldebug.toml"), before);
  given("[settings]\nnCpu = -1\n");
  EXPECT_THAT(refusal(edit("lc", {{"nCpu", 1}})),
              testing::StartsWith("unreadable: "));
}

TEST_F(Editing, DoesNotWriteOverWhatSomebodyElseWrote) {
  given("");
  const EditedProject mine = plan(edit("lc", {{"debugDevice", 3}}));
  given("# theirs\n");
  EXPECT_THAT(model_test::refusalOf([&] { WriteProject(mine); }),
              testing::StartsWith("changed-on-disk: "));
  EXPECT_THAT(work.read("zeldebug.toml"), testing::EndsWith("# theirs\n"));
  for (const auto &entry : std::filesystem::directory_iterator(work.path()))
    EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
}

TEST_F(Editing, NeitherFileStaysChangedWhenTheOtherCannotBeWritten) {
  work.write("zeldebug.toml", head);
  const auto planned = [&](const std::string &name,
                           const std::optional<std::string> &before,
                           const std::string &after) {
    EditedProject edited;
    edited.file = (work.path() / name).string();
    edited.before = before;
    edited.after = after;
    return edited;
  };
  const EditedProject large = planned(
      "zeldebug.toml", head, std::string(head) + std::string(1'000, '#'));
  const auto refusal = [&](const EditedProject &local) {
    const support::FileSizeLimit limit(500);
    return model_test::refusalOf([&] { WriteProjectFiles({large, local}); });
  };
  const std::string noRoom =
      "file-system: " + large.file +
      ": it could not be written whole: no space left, or a limit on the size "
      "of files";
  EXPECT_EQ(refusal(planned("zeldebug.local.toml", {}, "# new\n")), noRoom);
  EXPECT_EQ(work.read("zeldebug.toml"), head);
  EXPECT_FALSE(std::filesystem::exists(work.path() / "zeldebug.local.toml"));

  work.write("zeldebug.local.toml", "# old\n");
  EXPECT_EQ(refusal(planned("zeldebug.local.toml", "# old\n", "# new\n")),
            noRoom);
  EXPECT_EQ(work.read("zeldebug.toml"), head);
  EXPECT_EQ(work.read("zeldebug.local.toml"), "# old\n");
}

TEST_F(Editing, TwoChangesOfOneFileAreNotWrittenTogether) {
  given("");
  const std::string before = work.read("zeldebug.toml");
  const EditedProject one = plan(edit("lc", {{"debugDevice", 3}}));
  const EditedProject other = plan(edit("lc", {{"debugDevice", 4}}));
  EXPECT_EQ(model_test::refusalOf([&] {
              WriteProjectFiles({one, other});
            }),
            "changed-on-disk: " + one.file +
                ": two changes of it, planned apart, cannot be written "
                "together");
  EXPECT_EQ(work.read("zeldebug.toml"), before);
}

} // namespace
