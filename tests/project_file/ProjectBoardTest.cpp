// A board of a project: sessions that start as the files say, the place of each
// value, and changes that go to the files.
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"
#include "ZelDebugDialog/ProjectFile/Sync.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char *base = "[processor.lc_sim]\nconnection = \"sim\"\n";

class OnABoard : public ProjectTest {
protected:
  std::string projectFile() const {
    return (work.path() / "zeldebug.toml").string();
  }
  void given(const std::string &project, const std::string &local = "") const {
    work.write("zeldebug.toml", std::string(head) + base + project);
    if (!local.empty())
      work.write("zeldebug.local.toml", local);
  }
  ProjectBoard opened(const ProjectWishes &wishes = {}) const {
    return {ReadProject(projectFile()), board, wishes};
  }
  static ProjectEdit into(const std::string &target,
                          const SettingValues &values,
                          const std::vector<std::string> &unset = {}) {
    ProjectEdit edit;
    ReadTarget(target, edit);
    edit.values = values;
    edit.unset = unset;
    return edit;
  }
  /// "debugDevice 3 project zeldebug.toml:5:15"
  std::vector<std::string> said(const ProjectBoard &project,
                                const std::string &processor = "lc") const {
    std::vector<std::string> lines;
    for (const SaidSetting &one : project.Said(processor).settings) {
      ProjectPlace place = one.value.place;
      place.file = place.file.substr(place.file.rfind('/') + 1);
      lines.push_back(one.value.setting + " " +
                      model_test::shown(one.value.setting, one.value.value) +
                      " " + one.layer + " " + project_test::shown(place));
    }
    return lines;
  }
  static std::vector<std::string>
  codes(const std::vector<ProjectFault> &faults) {
    std::vector<std::string> list;
    for (const ProjectFault &one : faults)
      list.push_back(one.code + " " + one.setting);
    return list;
  }
};

TEST_F(OnABoard, SaysOfEachValueWhichLayerItIsOf) {
  given("[settings]\ndebugDevice = 3\n"
        "[probe.lab]\nesn = \"42\"\n"
        "[profile.slow.settings]\nicacheStartAdr = 0x10000\n",
        "use.probe = \"lab\"\nuse.profile = \"slow\"\n"
        "[processor.lc]\nstubSerialPort = \"COM1\"\n");
  const ProjectBoard project = opened();
  EXPECT_THAT(said(project),
              Contains("debugDevice 3 project zeldebug.toml:5:15"));
  EXPECT_THAT(said(project),
              Contains("cable.esn 42 probe:lab zeldebug.toml:7:7"));
  EXPECT_THAT(said(project), Contains(HasSubstr("icacheStartAdr")));
  EXPECT_THAT(said(project),
              Contains(HasSubstr(" profile:slow zeldebug.toml:9:18")));
  EXPECT_THAT(said(project), Contains("stubSerialPort COM1 local "
                                      "zeldebug.local.toml:4:18"));
  EXPECT_THAT(said(project, "lc_sim"),
              Contains("connection sim project zeldebug.toml:3:14"));
  EXPECT_THAT(project.Probes(), ElementsAre("lab"));
  EXPECT_THAT(project.Profiles(), ElementsAre("slow"));
  // What is shown of the connection comes from there.
  const SaidProcessor simulated = project.Said("lc_sim");
  ASSERT_NE(simulated.Find("connectionType"), nullptr);
  EXPECT_EQ(simulated.Find("stubType"), simulated.Find("connection"));
  EXPECT_EQ(simulated.Find("debugDevice")->layer, "project");
  EXPECT_EQ(simulated.Find("cable.port"), nullptr);
}

TEST_F(OnABoard, SessionsStartAsTheFilesSayWhereNothingIsSaved) {
  given("[settings]\ndebugDevice = 3\n");
  const ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  EXPECT_EQ(session.Command(),
            "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  EXPECT_EQ(session.Command(), project.Said("lc").command);
  save("connect lc sim");
  Session ofFile(board, "lc");
  project.Start(ofFile);
  EXPECT_EQ(ofFile.Command(), "connect lc sim");
}

TEST_F(OnABoard, ARefusedProcessorStartsFromTheDefaults) {
  given("[processor.ppc405]\nconnection = \"stub-serial\"\n");
  const ProjectBoard project = opened();
  const SaidProcessor refused = project.Said("ppc405");
  ASSERT_TRUE(refused.refusal);
  EXPECT_EQ(refused.place.line, 5);
  EXPECT_FALSE(refused.command);
  Session session(board, "ppc405");
  project.Start(session);
  EXPECT_FALSE(session.State().canUndo);
  EXPECT_FALSE(session.State().dirty);
}

TEST_F(OnABoard, AChangeIsWrittenAndTheSessionHasIt) {
  given("[settings]\ndebugDevice = 3\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  const unsigned before = project.Version();
  const WrittenProject written =
      project.Write(session, into("local", {{"debugDevice", "5"}}));
  EXPECT_TRUE(written.isChanged);
  EXPECT_THAT(written.file, HasSubstr("zeldebug.local.toml"));
  EXPECT_EQ(work.read("zeldebug.local.toml"),
            "[processor.lc]\ndebugDevice = 5\n");
  EXPECT_EQ(session.Command(),
            "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  EXPECT_NE(project.Version(), before);
  EXPECT_THAT(said(project),
              Contains("debugDevice 5 local zeldebug.local.toml:2:15"));
  // Nothing is saved by that, and reverting comes to what the files say now.
  EXPECT_EQ(saved(), "none");
  session.Change({{"debugDevice", 9}});
  session.Revert();
  EXPECT_EQ(session.Command(), project.Said("lc").command);

  const WrittenProject again =
      project.Write(session, into("local", {{"debugDevice", 5}}));
  EXPECT_FALSE(again.isChanged);

  project.Write(session, into("local", {}, {"debugDevice"}));
  EXPECT_EQ(session.Command(), project.Said("lc").command);
}

TEST_F(OnABoard, AHiddenChangeIsToldAndTheSessionKeepsItsOwn) {
  given("[settings]\ndebugDevice = 3\n", "[processor.lc]\ndebugDevice = 4\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  const WrittenProject written =
      project.Write(session, into("project", {{"debugDevice", 5}}));
  EXPECT_THAT(codes(written.remarks), Contains("overridden debugDevice"));
  EXPECT_EQ(session.Command(),
            "connect lc hdu -debugdevice deviceNr 4 cpunr 1");
  EXPECT_THAT(work.read("zeldebug.toml"), HasSubstr("[processor.lc]\n"
                                                    "debugDevice = 5\n"));
}

TEST_F(OnABoard, AProfileThatIsNotInUseChangesNoSession) {
  given("[profile.slow.settings]\ndebugDevice = 3\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  project.Write(session, into("profile:slow", {{"debugDevice", 5}}));
  EXPECT_EQ(session.Command(), "connect lc hdu -debugdevice cpunr 1");
  ProjectWishes slow;
  slow.profile = "slow";
  EXPECT_THAT(said(opened(slow)),
              Contains(HasSubstr("debugDevice 5 profile:slow")));
}

TEST_F(OnABoard, DeskSettingsAndDroppedValuesAreTold) {
  given("[settings]\ncable.cableType = \"quorla_podusb\"\n"
        "cable.port = \"USB23\"\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  EXPECT_THAT(
      codes(project.Write(session, into("project", {{"cable.esn", "0042"}}))
                .remarks),
      Contains("desk-setting cable.esn"));
  const WrittenProject other = project.Write(
      session, into("local", {{"cable.cableType", "digilent_plugin"}}));
  EXPECT_THAT(codes(other.remarks), Contains("cable-dropped cable.port"));
}

TEST_F(OnABoard, WhatIsRefusedChangesNothing) {
  given("[settings]\ndebugDevice = 3\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  const std::string text = work.read("zeldebug.toml");
  const auto state = model_test::shown(session.State());
  const auto refused = [&](const ProjectEdit &edit) {
    return model_test::refusalOf([&] { project.Write(session, edit); });
  };
  EXPECT_THAT(refused(into("project", {{"debugDevice", "many"}})),
              HasSubstr("bad-value: debugDevice"));
  EXPECT_THAT(refused(into("project", {{"cable.esn", "\xff"}})),
              HasSubstr("bad-value: cable.esn: the files of a project hold "
                        "UTF-8 only"));
  EXPECT_THAT(refused(into("project", {{"nonsuch", 1}})),
              HasSubstr("unknown-setting"));
  EXPECT_THAT(refused(into("profile:slow", {{"debugDevice", 1}})),
              HasSubstr("bad-value: 'slow' is no profile"));
  EXPECT_THAT(refused(into("project", {{"connection", "vp"}})),
              HasSubstr("not-allowed"));
  EXPECT_EQ(work.read("zeldebug.toml"), text);
  EXPECT_EQ(model_test::shown(session.State()), state);
  EXPECT_EQ(project.Version(), 0U);
}

TEST_F(OnABoard, EveryFaultOfBothFilesIsTold) {
  given("[settings]\ndebugDevise = 3\n[processor.nobody]\n",
        "[settings]\ncable.esn = 42\n");
  try {
    opened();
    FAIL();
  } catch (const FaultyProject &faulty) {
    EXPECT_EQ(faulty.kind, RefusalKind::unreadable);
    EXPECT_EQ(faulty.line, 5);
    EXPECT_THAT(faulty.what(), HasSubstr("zeldebug.toml:5:1: 'debugDevise'"));
    std::vector<std::string> lines;
    for (const ProjectFault &one : faulty.faults)
      lines.push_back(one.code + " " + std::to_string(one.place.line));
    EXPECT_THAT(lines, ElementsAre("unknown-key 5", "unknown-processor 6",
                                   "number-for-text 2"));
  }
}

TEST_F(OnABoard, ProbesAndProfilesComeAndGoWithTheFiles) {
  given("[probe.lab]\n[profile.slow]\n");
  ProjectBoard project = opened();
  EXPECT_FALSE(project.ReadAgain());
  given("[probe.desk]\n[profile.slow]\n");
  EXPECT_TRUE(project.ReadAgain());
  EXPECT_THAT(project.Probes(), ElementsAre("desk"));
  given("[probe.desk]\n[profile.fast]\n");
  EXPECT_TRUE(project.ReadAgain());
  EXPECT_THAT(project.Profiles(), ElementsAre("fast"));
}

TEST_F(OnABoard, AnotherBoardIsOpenedAnew) {
  given("");
  ProjectBoard project = opened();
  Session session(board, "lc");
  const std::string same = std::string(head) + base;
  for (const char *const key : {"directory = \"build\"", "library = [\"lib\"]",
                                "view = \"flat\"", "kinds = \"more.kinds\""}) {
    work.write("zeldebug.toml", key + ("\n" + same));
    const auto refused = [&](const auto &operation) -> std::string {
      try {
        operation();
      } catch (const Refusal &refusal) {
        return ShowKind(refusal.kind) + std::string(" ") + refusal.problem;
      }
      return "nothing is refused";
    };
    const std::string name(key, std::string(key).find(' '));
    const auto isTold =
        testing::StartsWith("changed-on-disk '" + name + "' is no longer");
    EXPECT_THAT(refused([&] { project.ReadAgain(); }), isTold);
    EXPECT_THAT(refused([&] {
                  project.Write(session, into("project", {{"debugDevice", 5}}));
                }),
                isTold);
    EXPECT_THAT(refused([&] { project.Adopt({"lc"}); }), isTold);
  }
  work.write("zeldebug.toml", same);
  EXPECT_FALSE(project.ReadAgain());
}

TEST_F(OnABoard, FaultsThatCameLaterStopAChangeAndReading) {
  given("[settings]\ndebugDevice = 3\n");
  ProjectBoard project = opened();
  Session session(board, "lc");
  project.Start(session);
  EXPECT_FALSE(project.ReadAgain());
  given("[settings]\ndebugDevice = 4\n");
  EXPECT_TRUE(project.ReadAgain());
  EXPECT_THAT(said(project), Contains(HasSubstr("debugDevice 4")));
  given("[settings]\na = 1\nb = 2\n");
  const auto faultsOf = [](const auto &operation) -> std::size_t {
    try {
      operation();
    } catch (const FaultyProject &faulty) {
      return faulty.faults.size();
    }
    return 0;
  };
  EXPECT_EQ(faultsOf([&] { project.ReadAgain(); }), 2U);
  EXPECT_EQ(faultsOf([&] {
              project.Write(session, into("local", {{"debugDevice", 5}}));
            }),
            2U);
  EXPECT_THAT(said(project), Contains(HasSubstr("debugDevice 4")));
}

TEST_F(OnABoard, WhatIsSavedIsTakenIntoTheFiles) {
  given("[settings]\ncable.cableType = \"quorla_podusb\"\n");
  ProjectBoard project = opened();
  const char *const text = "connect lc hdu -cable type quorla_podusb esn 0042 "
                           "-debugdevice deviceNr 4 cpunr 1";
  save(text);
  const std::vector<WrittenProject> files = project.Adopt({"lc"});
  ASSERT_EQ(files.size(), 2U);
  EXPECT_THAT(work.read("zeldebug.toml"), HasSubstr("debugDevice = 4"));
  EXPECT_EQ(work.read("zeldebug.local.toml"),
            "[processor.lc]\ncable.esn = \"0042\"\n");
  EXPECT_EQ(project.Said("lc").command, text);
  EXPECT_EQ(saved(), text);
  EXPECT_THAT(project.Adopt({"lc"}), IsEmpty());

  // What was taken is nobody's change any more.
  given("[settings]\ncable.cableType = \"quorla_podusb\"\ndebugDevice = 5\n");
  const Project files2 = ReadProject(projectFile());
  SyncOptions options;
  options.processors = {"lc"};
  const SyncRun run =
      SyncProject(files2, ChooseProject(files2, {}), board, options);
  EXPECT_EQ(run.results.front().outcome, SyncOutcome::updated);
}

TEST_F(OnABoard, TheTargetIsOneOfThree) {
  ProjectEdit edit;
  ReadTarget("profile:slow", edit);
  EXPECT_EQ(edit.target, ProjectTarget::profile);
  EXPECT_EQ(edit.profile, "slow");
  ReadTarget("local", edit);
  EXPECT_EQ(edit.target, ProjectTarget::local);
  ReadTarget("project", edit);
  EXPECT_EQ(edit.target, ProjectTarget::project);
  for (const char *const bad : {"", "Local", "profile", "Profile:a", "projekt"})
    EXPECT_THAT(model_test::refusalOf([&] { ReadTarget(bad, edit); }),
                HasSubstr("is no part of a project; accepted are 'local', "
                          "'project', 'profile:NAME'"));
}

TEST_F(OnABoard, AProfileIsATargetByANameThatItCanHave) {
  ProjectEdit edit;
  for (const char *const good : {"None", "nonea", "a-b_9", "-"}) {
    ReadTarget(std::string("profile:") + good, edit);
    EXPECT_EQ(edit.profile, good);
  }
  edit = {};
  for (const char *const bad :
       {"none", "", " ", "a b", "a.b", "slow ", "\xC3\xA4", "a:b", "a*"}) {
    EXPECT_EQ(model_test::refusalOf(
                  [&] { ReadTarget(std::string("profile:") + bad, edit); }),
              std::string("bad-value: '") + bad +
                  "' is no name of a profile: it has letters, digits, '_' and "
                  "'-', and is not 'none'");
    EXPECT_EQ(edit.target, ProjectTarget::project) << bad;
    EXPECT_EQ(edit.profile, "") << bad;
  }
}

TEST_F(OnABoard, OptionFilesLieInTheFolderThatTheFilesName) {
  EXPECT_EQ(OptionFolderOf(ReadProjectTexts("a/zeldebug.toml", head, {})),
            "a/etc");
  EXPECT_EQ(
      OptionFolderOf(ReadProjectTexts(
          "zeldebug.toml", std::string(head) + "directory = \"out\"\n", {})),
      "out/etc");
}

} // namespace
