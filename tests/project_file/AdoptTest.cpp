// New files: of a design, and of the option files that are there.
#include <random>

#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "ZelDebugDialog/ProjectFile/Sync.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Adopting : public ProjectTest {
protected:
  void set(const std::string &name, const SettingValues &values) {
    Session session(board, name);
    session.Change(values);
    SaveOptions options;
    options.force = true;
    session.Save(options);
  }
  AdoptedProject adopt() { return AdoptProject(board, {"board.xml"}); }
  SyncRun check(const AdoptedProject &adopted) {
    const Project files =
        ReadProjectTexts(projectFileName, adopted.project, adopted.local);
    EXPECT_THAT(shown(files.faults), IsEmpty())
        << adopted.project << adopted.local.value_or("");
    EXPECT_THAT(shown(CheckProject(files, board)), IsEmpty());
    SyncOptions options;
    options.check = true;
    return SyncProject(files, {}, board, options);
  }
};

const Value podusb = "quorla_podusb";

TEST_F(Adopting, InitNamesTheConnectionsThatAreNeeded) {
  const AdoptedProject made = InitProject(board, {"a b.xml", "v", "k", {"l"}});
  EXPECT_THAT(made.project,
              HasSubstr("design = \"a b.xml\"\nview = \"v\"\nkinds = \"k\"\n"
                        "library = [\"l\"]\n"));
  EXPECT_THAT(made.project,
              HasSubstr("\n[processor.lc_sim]\nconnection = \"sim\"\n"));
  EXPECT_THAT(made.project, Not(HasSubstr("[processor.lc]")));
  const Project files = ReadProjectTexts(projectFileName, made.project, {});
  EXPECT_THAT(shown(files.faults), IsEmpty());
  EXPECT_FALSE(SyncProject(files, {}, board, {}).isRefused);
}

TEST_F(Adopting, WhatATypeHasGoesToTheType) {
  for (const char *name : {"lc", "lc_sim"})
    set(name, {{"connection", "sim"}});
  set("ppc405", {{"cable.cableType", podusb}, {"debugDevice", 2}});
  EXPECT_THAT(adopt().project,
              testing::EndsWith("design = \"board.xml\"\n"
                                "\n[type.lumacore]\nconnection = \"sim\"\n"
                                "\n[processor.ppc405]\ndebugDevice = 2\n"
                                "cable.cableType = \"quorla_podusb\"\n"));
}

TEST_F(Adopting, WhatAllHaveGoesToAll) {
  support::FakeDesign small;
  small.processors = {"ppc405", "ppc440"};
  small.typeOf = {{"ppc405", "ppc405_core"}, {"ppc440", "ppc440_core"}};
  small.addDebugModule("link0", "ppc_jtag_link", small.processors);
  board = Board(small, (work.path() / "etc").string());
  set("ppc405", {{"cable.cableType", podusb}, {"debugDevice", 2}});
  set("ppc440", {{"cable.cableType", podusb}, {"debugDevice", 3}});
  EXPECT_THAT(adopt().project,
              testing::EndsWith("\n[settings]\n"
                                "cable.cableType = \"quorla_podusb\"\n"
                                "\n[processor.ppc405]\ndebugDevice = 2\n"
                                "\n[processor.ppc440]\ndebugDevice = 3\n"));
  std::filesystem::remove(board.FileOf("ppc440"));
  EXPECT_THAT(adopt().project,
              testing::EndsWith("\n[processor.ppc405]\ndebugDevice = 2\n"
                                "cable.cableType = \"quorla_podusb\"\n"));
  board = boardIn("etc");
}

TEST_F(Adopting, SettingsOfADeskGoToTheLocalFile) {
  set("lc", {{"cable.cableType", podusb}, {"cable.esn", "0042"}});
  const AdoptedProject made = adopt();
  EXPECT_THAT(made.project, Not(HasSubstr("esn")));
  // In its place port and frequency say nothing.
  EXPECT_THAT(made.project, Not(HasSubstr("frequency")));
  ASSERT_TRUE(made.local);
  EXPECT_THAT(*made.local,
              testing::EndsWith("\n[processor.lc]\ncable.esn = \"0042\"\n"));
  EXPECT_THAT(made.changes, IsEmpty());
  set("lc", {{"cable.esn", ""}});
  EXPECT_FALSE(adopt().local);
}

TEST_F(Adopting, NamesFilesThatWouldBeWrittenOtherwise) {
  save("connect lc hdu -debugdevice cpunr 1 deviceNr 3\n");
  const AdoptedProject made = adopt();
  ASSERT_EQ(made.changes.size(), 1U);
  EXPECT_EQ(made.changes[0].processor, "lc");
  EXPECT_EQ(made.changes[0].command,
            "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  save("connect");
  EXPECT_THAT(model_test::refusalOf([&] { adopt(); }),
              testing::StartsWith("unreadable: "));
}

TEST_F(Adopting, WritesNothingOverWhatIsThere) {
  const std::string file = (work.path() / "zeldebug.toml").string();
  work.write(".gitignore", "build/\n/etc/");
  WriteNewProject(
      file, {"design = \"a\"\n", "use.probe = \"none\"\n", "table\n", {}});
  EXPECT_EQ(work.read("zeldebug.kinds"), "table\n");
  EXPECT_EQ(work.read("zeldebug.toml"), "design = \"a\"\n");
  EXPECT_EQ(work.read("zeldebug.local.toml"), "use.probe = \"none\"\n");
  EXPECT_EQ(work.read(".gitignore"), "build/\n/etc/\nzeldebug.local.toml\n");
  EXPECT_THAT(model_test::refusalOf([&] { WriteNewProject(file, {}); }),
              testing::StartsWith("file-exists: "));
  EXPECT_EQ(work.read("zeldebug.toml"), "design = \"a\"\n");
  std::filesystem::remove(file);
  // A local file that is there would stand over the new one.
  for (const AdoptedProject &made :
       {AdoptedProject{"x", "y", {}, {}}, AdoptedProject{"x", {}, {}, {}}})
    EXPECT_THAT(model_test::refusalOf([&] { WriteNewProject(file, made); }),
                testing::AllOf(testing::StartsWith("file-exists: "),
                               HasSubstr("zeldebug.local.toml")));
  EXPECT_FALSE(work.exists("zeldebug.toml"));
}

TEST_F(Adopting, ATableOfKindsLiesBeside) {
  ProjectSources sources{"board.xml"};
  sources.kindsTable = "table\n";
  const AdoptedProject made = InitProject(board, sources);
  EXPECT_EQ(made.kinds, "table\n");
  EXPECT_THAT(made.project, HasSubstr("\nkinds = \"zeldebug.kinds\"\n"));
}

TEST_F(Adopting, APathIsOfTheFolderOfItsFile) {
  const std::string folder = work.path().string();
  EXPECT_EQ(PathFor(folder + "/zeldebug.toml", folder + "/hw/a.xml"),
            "hw/a.xml");
  EXPECT_EQ(PathFor(folder + "/a/zeldebug.toml", folder + "/hw/a.xml"),
            "../hw/a.xml");
  EXPECT_EQ(PathFor(folder + "/zeldebug.toml", folder + "/hw/../a.xml"),
            "a.xml");
}

// --- Into a project that is there
// ---------------------------------------------

class AdoptingFiles : public Adopting {
protected:
  std::vector<ProjectEdit> edits(const std::string &project,
                                 const ProjectEdit *into = nullptr) {
    return AdoptOptionFiles(read(project), {}, board, {"lc"}, into);
  }
};

TEST_F(AdoptingFiles, WhatDiffersGoesWhereItBelongs) {
  set("lc",
      {{"cable.cableType", podusb}, {"cable.esn", "0042"}, {"debugDevice", 3}});
  const std::string project =
      "[settings]\ncable.cableType = \"quorla_podusb\"\n";
  const std::vector<ProjectEdit> both = edits(project);
  ASSERT_EQ(both.size(), 2U);
  EXPECT_EQ(both[0].target, ProjectTarget::project);
  EXPECT_EQ(both[0].processor, "lc");
  EXPECT_EQ(both[0].values, (SettingValues{{"debugDevice", 3}}));
  EXPECT_EQ(both[1].target, ProjectTarget::local);
  EXPECT_EQ(both[1].values, (SettingValues{{"cable.esn", "0042"}}));
  ProjectEdit into;
  into.target = ProjectTarget::local;
  ASSERT_EQ(edits(project, &into).size(), 1U);
  EXPECT_EQ(edits(project, &into)[0].values.size(), 2U);
}

TEST_F(AdoptingFiles, WhatTakesADesksValueAwayBelongsToTheDesk) {
  const std::string cable = "[settings]\ncable.cableType = \"quorla_podusb\"\n";
  set("lc", {{"cable.cableType", podusb}});
  const auto taken = [&](const std::string &local) {
    SettingValues ofDesk;
    for (const ProjectEdit &one :
         AdoptOptionFiles(read(cable, local), {}, board, {"lc"}))
      if (one.target == ProjectTarget::local)
        ofDesk = one.values;
    return ofDesk;
  };
  EXPECT_EQ(taken("[processor.lc]\ncable.port = \"USB22\"\n"),
            (SettingValues{{"cable.port", "USB21"}}));
  EXPECT_EQ(taken("[settings]\ncable.esn = \"0042\"\n"),
            (SettingValues{{"cable.esn", ""}}));
  // What belongs to nobody's desk goes where it always does.
  EXPECT_THAT(taken("[processor.lc]\ndebugDevice = 2\n"), IsEmpty());
}

TEST_F(AdoptingFiles, WhatWouldNotSurviveIsTakenAwayWhereItStands) {
  set("lc", {{"cable.cableType", podusb}});
  const std::string file = (work.path() / "zeldebug.toml").string();
  const std::string sim = "[processor.lc_sim]\nconnection = \"sim\"\n";
  const auto expectAdopted = [&](const std::string &project,
                                 const std::string &local,
                                 const std::string &projectAfter,
                                 const std::string &localAfter) {
    work.write("zeldebug.toml", head + sim + project);
    work.write("zeldebug.local.toml", local);
    WriteProjectFiles(EditProjectFiles(
        file, AdoptOptionFiles(ReadProject(file), {}, board, {"lc"}), board,
        {}));
    EXPECT_EQ(work.read("zeldebug.toml"), head + sim + projectAfter) << project;
    EXPECT_EQ(work.read("zeldebug.local.toml"), localAfter) << project;
    SyncOptions options;
    options.processors = {"lc"};
    options.check = true;
    const SyncRun run = SyncProject(ReadProject(file), {}, board, options);
    ASSERT_EQ(run.results.size(), 1U);
    EXPECT_EQ(run.results.front().outcome, SyncOutcome::same) << project;
  };
  const std::string serial =
      "[processor.lc]\nconnection = \"stub-serial\"\nstubBaudRate = 9600\n";
  const std::string usb = "[processor.lc]\nconnection = \"hw\"\n"
                          "cable.cableType = \"quorla_podusb\"\n"
                          "cable.frequency = \"6 MHz\"\n"
                          "cable.port = \"USB21\"\n";
  expectAdopted(serial, "", usb, "");
  // What the connection displaces from below stands in nobody's way.
  expectAdopted("[settings]\nstubTimeout = 7\n" + serial, "",
                "[settings]\nstubTimeout = 7\n" + usb, "");
  // Of a desk, or of its file.
  const std::string port = "[settings]\nstubSerialPort = \"COM4\"\n";
  expectAdopted(serial, port, usb,
                port + "\n[processor.lc]\nunset = [\"stubSerialPort\"]\n");
  expectAdopted(serial, "[processor.lc]\nstubTimeout = 7\n# mine\n", usb,
                "[processor.lc]\n# mine\n");
  // Of another cable.
  const std::string module = "cable.cableType = \"quorla_plugin\"\n"
                             "cable.moduleName = \"m\"\n";
  expectAdopted("[processor.lc]\n" + module, "",
                usb.substr(0, 15) + usb.substr(usb.find("cable")), "");
}

TEST_F(AdoptingFiles, WhatIsTakenTogetherIsCheckedTogether) {
  set("lc", {{"cable.cableType", podusb}, {"cable.esn", "0042"}});
  const std::string file = (work.path() / "zeldebug.toml").string();
  work.write("zeldebug.toml",
             std::string(head) + "[processor.lc_sim]\nconnection = \"sim\"\n");
  const std::vector<EditedProject> files = EditProjectFiles(
      file, AdoptOptionFiles(ReadProject(file), {}, board, {"lc"}), board, {});
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].file, file);
  EXPECT_FALSE(files[1].before);
  WriteProjectFiles(files);
  EXPECT_THAT(AdoptOptionFiles(ReadProject(file), {}, board, {"lc"}),
              IsEmpty());
  RememberOptionFiles(board, {"lc", "lc_sim"});
  EXPECT_EQ(work.read("etc/.zeldebug-sync"), "lc\t" + saved("lc") + "\n");
  // Neither file is written where one has changed.
  work.write("zeldebug.local.toml", "# mine\n");
  EXPECT_THAT(model_test::refusalOf([&] { WriteProjectFiles(files); }),
              testing::StartsWith("changed-on-disk: "));
}

TEST_F(AdoptingFiles, RefusesWhatCannotBeTaken) {
  EXPECT_THAT(model_test::refusalOf([&] { edits(""); }),
              testing::StartsWith("unreadable: "));
  save("connect");
  EXPECT_THAT(model_test::refusalOf([&] { edits(""); }),
              testing::StartsWith("unreadable: "));
  EXPECT_THAT(model_test::refusalOf(
                  [&] { AdoptOptionFiles(read(""), {}, board, {"lcc"}); }),
              testing::StartsWith("unknown-processor: "));
}

TEST_F(AdoptingFiles, ATargetHasToBeThereAlsoWithNothingToTake) {
  save("connect lc hdu -debugdevice cpunr 1");
  ProjectEdit into;
  into.target = ProjectTarget::profile;
  into.profile = "slow";
  EXPECT_THAT(edits("[profile.slow.settings]\n", &into), testing::IsEmpty());
  into.profile = "slwo";
  EXPECT_EQ(
      model_test::refusalOf([&] { edits("[profile.slow.settings]\n", &into); }),
      "bad-value: 'slwo' is no profile of the project; write "
      "[profile.slwo.settings]");
}

// --- Round trip
// ---------------------------------------------------------------

class RandomBoards : public Adopting {
protected:
  unsigned upTo(unsigned most) {
    return static_cast<unsigned>(random()) % (most + 1);
  }
  /// Values of a processor, some of them shared with the others by chance.
  SettingValues values(const BoardProcessor &processor) {
    SettingValues chosen;
    const auto maybe = [&](const char *setting,
                           const std::vector<Value> &choices) {
      if (upTo(1) == 0)
        chosen.emplace_back(
            setting, choices[upTo(static_cast<unsigned>(choices.size() - 1))]);
    };
    chosen.emplace_back("connection",
                        processor.connections[upTo(static_cast<unsigned>(
                            processor.connections.size() - 1))]);
    maybe("debugDevice", {1, 2, 127});
    maybe("simMemSize", {64, 128});
    maybe("simIpcHost", {"host"});
    maybe("simIpcPort", {5000});
    maybe("stubSerialPort", {"/dev/ttyS1"});
    maybe("stubBaudRate", {9600, 115200});
    maybe("cable.cableType", {podusb, "quorla_parallel3", "none"});
    maybe("cable.frequency", {"3MHz", "5MHz"});
    maybe("cable.port", {"USB22", "LPT2"});
    maybe("cable.esn", {"0042", "0x1F", "1e5"});
    maybe("icacheStartAdr", {0x70000000});
    maybe("romemStartAdr", {0x1000});
    maybe("romemSize", {0x100});
    maybe("chain", {Value(Value::Chain{{{"devicenr", 1},
                                        {"partname", "p"},
                                        {"irlength", 6},
                                        {"idcode", 0x93}}})});
    return chosen;
  }

  std::mt19937 random{20261122};
};

TEST_F(RandomBoards, WhatWasAdoptedIsSynchronizedToTheSame) {
  int kept = 0;
  for (int round = 0; round < rounds(60); ++round) {
    for (const BoardProcessor &processor : board.Processors()) {
      std::filesystem::remove(board.FileOf(processor.name));
      if (upTo(4) == 0)
        continue;
      Session session(board, processor.name);
      try {
        session.Change(values(processor));
        SaveOptions options;
        options.force = true;
        session.Save(options);
        // By force, also what no reader takes: that is no board's file.
        if (Session(board, processor.name).Problem().empty())
          ++kept;
        else
          std::filesystem::remove(board.FileOf(processor.name));
      } catch (const Refusal &) {
        continue; // no such configuration: the processor has no file
      }
    }
    const AdoptedProject made = adopt();
    const SyncRun run = check(made);
    for (const SyncResult &result : run.results) {
      const bool isThere = work.exists(fileOf(result.processor));
      EXPECT_EQ(result.outcome,
                isThere ? SyncOutcome::same : SyncOutcome::created)
          << made.project << made.local.value_or("") << "\n"
          << (isThere ? saved(result.processor) : "") << "\n"
          << result.command.value_or(result.message) << "\n"
          << result.message;
    }
    EXPECT_THAT(made.changes, IsEmpty());
    if (HasFailure())
      return;
  }
  EXPECT_GT(kept, rounds(60));
}

} // namespace
