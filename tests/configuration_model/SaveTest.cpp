// Saving: whole or not at all, and nothing that is lost in silence.
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"
#include "support/FileSizeLimit.h"
#include "support/Targets.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

constexpr const char *command3 =
    "connect lc hdu -debugdevice deviceNr 3 cpunr 1";
constexpr const char *byDefault = "connect lc hdu -debugdevice cpunr 1";

class SaveTest : public ModelTest {
protected:
  fs::path file() const { return work.path() / fileOf(); }
  /// A session that would save `command3`.
  Session changed() const {
    Session session = open();
    session.Change({{"debugDevice", 3}});
    return session;
  }
  /// Of one processor, under any name.
  Board boardOf(const std::string &name) {
    fillDesign(design);
    design.processors = {name};
    design.typeOf[name] = "lumacore";
    design.instancesOfType["lumacore"] = {name};
    return {design, (work.path() / "etc").string()};
  }
  Session simulated(const std::string &name) {
    Session session(boardOf(name), name);
    session.Change({{"connection", "sim"}});
    return session;
  }
  SaveOptions force() const {
    SaveOptions options;
    options.force = true;
    return options;
  }
  SaveOptions dryRun() const {
    SaveOptions options;
    options.dryRun = true;
    return options;
  }
};

TEST_F(SaveTest, WritesTheCommandAndNothingElse) {
  Session session = changed();
  const SaveOutcome outcome = session.Save();
  EXPECT_TRUE(outcome.written);
  EXPECT_EQ(outcome.command, command3);
  EXPECT_EQ(outcome.file, session.File());
  EXPECT_EQ(saved(), command3);
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
  EXPECT_FALSE(session.State().dirty);
  EXPECT_FALSE(session.ChangedOnDisk());
  EXPECT_EQ(open().Get("debugDevice"), Value(3));
}

TEST_F(SaveTest, LeavesNoFileOpen) {
  const auto openFiles = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = openFiles();
  {
    Session session = changed();
    Session other = open("a9");
    EXPECT_TRUE(SaveSessions({&session, &other})[1].written);
    session.Change({{"debugDevice", 4}});
    session.Save();
    EXPECT_THAT(refusalOf([&] { openWith("nonsense").Save(); }),
                testing::StartsWith("unreadable"));
  }
  EXPECT_EQ(openFiles(), before);
}

TEST_F(SaveTest, SavesTheDefaultsWhereNothingIsSaved) {
  Session session = open();
  EXPECT_TRUE(session.Save().written);
  EXPECT_EQ(saved(), byDefault);
  EXPECT_FALSE(session.Save().written);
}

TEST_F(SaveTest, AFileThatReadsAsWantedStaysAsItIs) {
  const std::string content =
      "\nCONNECT lc hdu   -debugdevice devicenr 3\nnotes\n";
  Session session = openWith(content);
  const auto written = fs::last_write_time(file());
  const SaveOutcome outcome = session.Save();
  EXPECT_FALSE(outcome.written);
  EXPECT_EQ(outcome.command, "CONNECT lc hdu   -debugdevice devicenr 3");
  EXPECT_EQ(saved(), content);
  session.Change({{"debugDevice", 4}});
  session.Undo();
  EXPECT_FALSE(session.Save().written);
  EXPECT_EQ(fs::last_write_time(file()), written);
  struct stat before = {};
  struct stat after = {};
  ASSERT_EQ(stat(file().c_str(), &before), 0);
  session.Save(force());
  ASSERT_EQ(stat(file().c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(SaveTest, AFileThatReadsAsWantedIsRewordedOnRequest) {
  SaveOptions reword;
  reword.reword = true;
  for (const std::string &content :
       {std::string(command3) + "\n",
        std::string("connect lc hdu -debugdevice cpunr 1 deviceNr 3")}) {
    Session session = openWith(content);
    EXPECT_TRUE(session.Save().unchanged) << content;
    EXPECT_EQ(saved(), content);
    EXPECT_TRUE(session.Save(reword).written) << content;
    EXPECT_EQ(saved(), command3);
    EXPECT_TRUE(session.Save(reword).unchanged) << content;
  }
}

TEST_F(SaveTest, ALossIsToldAlsoWhereTheCommandIsTheFilesAlready) {
  Session session = openWith(command3);
  session.Change({{"cpu_version", "2"}});
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "would-be-lost: " + session.File() +
                ": nothing is saved, because it would not survive: "
                "cpu_version");
  const SaveOutcome outcome = session.Save(force());
  EXPECT_FALSE(outcome.written);
  EXPECT_THAT(shown(outcome.losses),
              ElementsAre("cpu_version: 2 ->  [never-written], blocking"));
  EXPECT_TRUE(session.State().dirty);
}

TEST_F(SaveTest, WhatIsDisplacedIsSavedWithoutIt) {
  Session session = open();
  session.Change({{"cable.cableType", 3}});
  session.Save();
  session.Change({{"connection", "sim"}});
  const SaveOutcome outcome = session.Save();
  EXPECT_TRUE(outcome.written);
  EXPECT_EQ(outcome.losses.size(), 3U);
  EXPECT_EQ(saved(), "connect lc sim");
  // What is saved is what the file gives.
  EXPECT_TRUE(session.State().dirty);
  EXPECT_THAT(shown(session.Differences()),
              ElementsAre("cable.cableType: none -> quorla_podusb",
                          "cable.frequency: 0 Hz -> 6 MHz",
                          "cable.port:  -> USB21"));
  session.Revert();
  EXPECT_EQ(session.Get("cable.cableType"), Value(0));
}

TEST_F(SaveTest, ABlockingLossIsRefusedUnlessForced) {
  Session session = openWith(byDefault);
  session.Change({{"simMemSize", 32}, {"debugDevice", 3}});
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "would-be-lost: " + session.File() +
                ": nothing is saved, because it would not survive: simMemSize");
  EXPECT_EQ(saved(), byDefault);
  EXPECT_TRUE(session.Save(force()).written);
  EXPECT_EQ(saved(), command3);
}

TEST_F(SaveTest, ACommandThatIsRefusedAgainIsSavedByForceAlone) {
  Session session = open();
  session.Change({{"cpuJtag", 1}});
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::StartsWith("would-be-lost: "));
  EXPECT_EQ(saved(), "none");
  EXPECT_TRUE(session.Save(force()).written);
  EXPECT_THAT(session.Problem(), testing::StartsWith("the command is refused"));
  EXPECT_TRUE(session.State().dirty);
}

TEST_F(SaveTest, AFileThatHasChangedIsRefusedUnlessForced) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  save("connect lc sim");
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "changed-on-disk: " + session.File() +
                ": it has changed on disk since it was loaded");
  EXPECT_EQ(saved(), "connect lc sim");
  EXPECT_TRUE(session.Save(force()).written);
  EXPECT_EQ(saved(), command3);

  // Also where it would be left as it was loaded, has come, or is gone.
  save("connect lc sim");
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::StartsWith("changed-on-disk"));
  fs::remove(file());
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::StartsWith("changed-on-disk"));
  Session fresh = changed();
  save(byDefault);
  EXPECT_THAT(refusalOf([&] { fresh.Save(); }),
              testing::StartsWith("changed-on-disk"));
}

TEST_F(SaveTest, AFileThatCannotBeReadIsRefusedUnlessForced) {
  struct Row {
    std::string content;
    std::string problem;
  } const rows[] = {
      {"connect lc nothing",
       "the command is refused: column 12: 'nothing' is no way to connect to "
       "this target"},
      {"connect ppc hw -foo",
       "the command is refused: column 16: '-foo' is no option here (UNKNOWN "
       "Option '-foo')"},
      {"connect lc hdu -",
       "the command is refused: column 16: '-' is a lone '-'"},
      {std::string("connect lc\0 hdu", 15),
       "the command holds bytes that are no text"},
      {"connect lc hdu -debugdevice cpu_version " + std::string(1000, 'v'),
       "the command has 1040 characters, but only 1023 of a line are read"},
      {"vpconnect lc",
       "the command is refused: column 11: 'lc' is a connection that the "
       "processor does not allow"},
      {"kconnect lc hdu",
       "the command is refused: column 1: 'kconnect' is not taken in an option "
       "file; accepted are 'connect', 'vpconnect'"},
      {"connect hdu",
       "the command is refused: column 9: 'hdu' is not taken in an option "
       "file; accepted are " +
           support::listed(support::targetsInFiles)},
      {"\xFF\xFE\n",
       "the command is refused: column 1: '\\xff\\xfe' is no head word"},
  };
  for (const Row &row : rows) {
    Session session = openWith(row.content);
    EXPECT_EQ(session.Problem(), row.problem);
    EXPECT_EQ(session.State().problem, row.problem);
    EXPECT_TRUE(session.State().dirty);
    EXPECT_EQ(session.Command(), byDefault);
    EXPECT_EQ(refusalOf([&] { session.Save(); }),
              "unreadable: " + session.File() + ": " + row.problem +
                  "; it stays as it is");
    EXPECT_EQ(saved(), row.content);
    EXPECT_TRUE(session.Save(force()).written);
    EXPECT_EQ(saved(), byDefault);
    EXPECT_EQ(session.Problem(), "");
    EXPECT_FALSE(session.State().dirty);
  }
}

TEST_F(SaveTest, LinesOfTheLimitAreRead) {
  const std::string front = "connect lc hdu -debugdevice cpu_version ";
  const std::string whole = front + std::string(1023 - front.size(), 'v');
  EXPECT_EQ(openWith(whole).Problem(), "");
  EXPECT_NE(openWith(whole + "v").Problem(), "");
  EXPECT_EQ(openWith(std::string(3000, '\n') + whole + "\n" + whole + whole)
                .Problem(),
            "");
}

TEST_F(SaveTest, FilesWithoutACommandGiveTheDefaults) {
  for (const char *content : {"", "\n", "\n\n\n", " ", "\t \n"}) {
    Session session = openWith(content);
    if (session.Problem().empty()) {
      EXPECT_EQ(session.Command(), byDefault);
      EXPECT_FALSE(session.State().dirty);
    }
  }
  EXPECT_EQ(openWith("").Problem(), "");
}

TEST_F(SaveTest, BytesOfNoEncodingComeThrough) {
  const std::string content =
      "connect lc hdu -cable type quorla_podusb port \xC3\x28\xFF frequency "
      "6000000 -debugdevice cpunr 1";
  Session session = openWith(content);
  EXPECT_EQ(session.Get("cable.port"), Value("\xC3\x28\xFF"));
  session.Change({{"debugDevice", 1}});
  session.Save();
  EXPECT_EQ(open().Get("cable.port"), Value("\xC3\x28\xFF"));
}

TEST_F(SaveTest, ADraftIsRefusedAlsoByForce) {
  Session session = changed();
  session.Draft("stubTimeout", "soon");
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "draft: stubTimeout: a text that is no value stands there");
  EXPECT_THAT(refusalOf([&] { session.Save(force()); }),
              testing::StartsWith("draft"));
  session.DropDraft("stubTimeout");
  session.Edit("nonsense");
  EXPECT_THAT(refusalOf([&] { session.Save(force()); }),
              testing::StartsWith("draft: command"));
  EXPECT_EQ(saved(), "none");
}

TEST_F(SaveTest, WithoutACommandNothingIsSaved) {
  Session session = openWith(byDefault);
  session.Change({{"cable.cableType", "quorla_tcf"}});
  for (const SaveOptions &options : {SaveOptions(), force(), dryRun()})
    EXPECT_EQ(refusalOf([&] { session.Save(options); }),
              "no-command: no command can be written: Invalid Cable Type");
  EXPECT_EQ(saved(), byDefault);
}

TEST_F(SaveTest, AReadOnlyFileIsRefusedUnlessForcedAndKeepsItsPermissions) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  fs::permissions(file(), fs::perms::owner_read | fs::perms::group_read);
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "read-only: " + session.File() + ": it may not be written");
  EXPECT_EQ(saved(), byDefault);
  EXPECT_TRUE(session.Save(force()).written);
  EXPECT_EQ(fs::status(file()).permissions(),
            fs::perms::owner_read | fs::perms::group_read);
}

TEST_F(SaveTest, PermissionsAreKept) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  const fs::perms odd = fs::perms::owner_read | fs::perms::owner_write |
                        fs::perms::others_read | fs::perms::owner_exec;
  fs::permissions(file(), odd);
  session.Save();
  EXPECT_EQ(fs::status(file()).permissions(), odd);
}

TEST_F(SaveTest, OnlyARegularFileIsReplaced) {
  struct Row {
    const char *problem;
    void (*make)(const fs::path &);
  } const rows[] = {
      {"is a folder, no file",
       [](const fs::path &path) { fs::create_directory(path); }},
      {"is no regular file",
       [](const fs::path &path) { mkfifo(path.c_str(), 0600); }},
      {"is no regular file",
       [](const fs::path &path) { fs::create_symlink("/dev/null", path); }},
      {"is no regular file",
       [](const fs::path &path) {
         mkfifo((path.parent_path() / "pipe").c_str(), 0600);
         fs::create_symlink("pipe", path);
       }},
      {"is a link to nothing",
       [](const fs::path &path) { fs::create_symlink("nowhere", path); }},
      {"Too many levels of symbolic links",
       [](const fs::path &path) { fs::create_symlink(path, path); }},
  };
  for (const Row &row : rows) {
    row.make(file());
    Session session = changed();
    EXPECT_EQ(session.Problem(), row.problem);
    EXPECT_TRUE(session.State().exists);
    for (const SaveOptions &options : {SaveOptions(), force(), dryRun()})
      EXPECT_THAT(refusalOf([&] { session.Save(options); }),
                  testing::AllOf(testing::StartsWith("no-regular-file: "),
                                 testing::EndsWith(row.problem)));
    EXPECT_EQ(fs::symlink_status(file()).type() == fs::file_type::regular,
              false);
    fs::remove_all(file());
    fs::remove(work.path() / "etc" / "pipe");
  }
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SaveTest, AMissingFolderIsRefusedOrMade) {
  fs::remove(work.path() / "etc");
  Session session = changed();
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::EndsWith("etc: there is no such folder"));
  EXPECT_THAT(refusalOf([&] { session.Save(force()); }),
              testing::StartsWith("no-folder: "));
  SaveOptions options;
  options.makeFolder = true;
  options.dryRun = true;
  session.Save(options);
  EXPECT_FALSE(work.exists("etc"));

  // Made for nothing, it is gone again.
  options.dryRun = false;
  session.Change({{"simMemSize", 5}});
  EXPECT_THAT(refusalOf([&] { session.Save(options); }),
              testing::StartsWith("would-be-lost"));
  EXPECT_FALSE(work.exists("etc"));
  session.Undo();
  EXPECT_TRUE(session.Save(options).written);
  EXPECT_EQ(saved(), command3);
}

TEST_F(SaveTest, OnlyTheLastFolderIsMade) {
  Session session(boardIn("no/etc"), "lc");
  session.Change({{"debugDevice", 3}});
  SaveOptions options;
  options.makeFolder = true;
  EXPECT_THAT(
      refusalOf([&] { session.Save(options); }),
      testing::AllOf(testing::StartsWith("file-system: "),
                     testing::EndsWith("no/etc: No such file or directory")));
  EXPECT_FALSE(work.exists("no"));
}

TEST_F(SaveTest, AFolderThatIsAFileIsRefused) {
  fs::remove(work.path() / "etc");
  work.write("etc", "file");
  Session session = changed();
  SaveOptions options;
  for (const bool makeFolder : {false, true}) {
    options.makeFolder = makeFolder;
    EXPECT_THAT(refusalOf([&] { session.Save(options); }),
                testing::AllOf(testing::StartsWith("no-folder: "),
                               testing::EndsWith("is a file, no folder")));
  }
}

TEST_F(SaveTest, AFolderThatIsAPipeIsRefused) {
  fs::remove(work.path() / "etc");
  ASSERT_EQ(mkfifo((work.path() / "etc").c_str(), 0600), 0);
  Session session = changed();
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::AllOf(testing::StartsWith("no-folder: "),
                             testing::EndsWith("etc: is no folder")));
}

TEST_F(SaveTest, LinksAreFollowed) {
  work.write("elsewhere/real.opt", byDefault);
  fs::create_symlink("../elsewhere/real.opt", file());
  Session session = changed();
  session.Save();
  EXPECT_TRUE(fs::is_symlink(file()));
  EXPECT_EQ(work.read("elsewhere/real.opt"), command3);
  EXPECT_EQ(std::distance(fs::directory_iterator(work.path() / "elsewhere"),
                          fs::directory_iterator()),
            1);
}

TEST_F(SaveTest, ADryRunTouchesNothing) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  const auto written = fs::last_write_time(work.path() / "etc");
  const SaveOutcome outcome = session.Save(dryRun());
  EXPECT_FALSE(outcome.written);
  EXPECT_EQ(outcome.command, command3);
  EXPECT_EQ(saved(), byDefault);
  EXPECT_EQ(fs::last_write_time(work.path() / "etc"), written);
  EXPECT_TRUE(session.State().dirty);
  session.Change({{"simMemSize", 5}});
  EXPECT_THAT(refusalOf([&] { session.Save(dryRun()); }),
              testing::StartsWith("would-be-lost"));
  save("connect lc sim");
  session.Undo();
  EXPECT_THAT(refusalOf([&] { session.Save(dryRun()); }),
              testing::StartsWith("changed-on-disk"));
}

/// Where the file has it already, saving makes it the place of a setting.
TEST_F(SaveTest, ADryRunNotesNoPlaces) {
  Session session = openWith(command3);
  const std::string place = "file:38";
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, place);
  session.Change({{"debugDevice", 4}});
  session.Change({{"debugDevice", 3}});
  EXPECT_TRUE(session.Save(dryRun()).unchanged);
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, "changed");
  EXPECT_TRUE(session.Save().unchanged);
  EXPECT_EQ(settingIn(session.State(), "debugDevice").origin, place);
}

/// Root may write everywhere: while it is there, root is somebody else.
class WithoutRoot {
public:
  WithoutRoot() { become(self == 0 ? nobody : self); }
  ~WithoutRoot() { become(self); }
  WithoutRoot(const WithoutRoot &) = delete;
  WithoutRoot &operator=(const WithoutRoot &) = delete;

private:
  static void become(uid_t user) {
    if (seteuid(user) != 0)
      throw std::system_error(errno, std::generic_category(), "seteuid");
  }

  static constexpr uid_t nobody = 65534;
  uid_t self = geteuid();
};

TEST_F(SaveTest, ADryRunSaysThatAFolderMayNotBeWrittenIn) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  const fs::path folder = file().parent_path();
  fs::permissions(work.path(), fs::perms::all);
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec |
                              fs::perms::others_read | fs::perms::others_exec);
  const std::string refusal = refusalOf([&] {
    const WithoutRoot here;
    session.Save(dryRun());
  });
  fs::permissions(folder, fs::perms::owner_all);
  EXPECT_EQ(refusal, "file-system: " + folder.string() +
                         ": cannot write there: Permission denied");
  session.Save(dryRun());
}

TEST_F(SaveTest, AFullDiskLeavesTheFileAsItWas) {
  Session session = openWith(byDefault);
  session.Change({{"debugDevice", 3}});
  const std::string refusal = refusalOf([&] {
    const support::FileSizeLimit limit(10);
    session.Save();
  });
  EXPECT_THAT(
      refusal,
      testing::AllOf(
          testing::StartsWith("file-system: "),
          testing::EndsWith(": the option file could not be written whole: no "
                            "space left, or a limit on the size of files")));
  EXPECT_EQ(saved(), byDefault);
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
  EXPECT_TRUE(session.Save().written);
}

TEST_F(SaveTest, WhatEndedProgramsLeftBehindIsInNobodysWay) {
  save(byDefault);
  work.write("etc/.kvo_lc.opt.lock", "");
  work.write("etc/.kvo_lc.opt.new", "half");
  Session session = changed();
  session.Save();
  EXPECT_EQ(saved(), command3);
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
}

TEST_F(SaveTest, SeveralAreSavedEachWholeOrNotAtAll) {
  Session good = changed();
  Session lossy = open("ppc405");
  lossy.Change({{"simMemSize", 5}});
  Session other = open("a9");
  Session same = open("lc_sim");
  same.Change({{"connection", "sim"}});
  same.Save();
  const auto outcomes = SaveSessions({&lossy, &good, &same, &other, &good});
  ASSERT_EQ(outcomes.size(), 5U);
  ASSERT_TRUE(outcomes[0].refusal);
  EXPECT_EQ(outcomes[0].refusal->kind, RefusalKind::wouldBeLost);
  EXPECT_TRUE(outcomes[1].written);
  EXPECT_FALSE(outcomes[2].written);
  EXPECT_FALSE(outcomes[2].refusal);
  EXPECT_TRUE(outcomes[3].written);
  EXPECT_TRUE(outcomes[4].written); // the same session, told twice
  EXPECT_THAT(names(),
              ElementsAre("kvo_a9.opt", "kvo_lc.opt", "kvo_lc_sim.opt"));
  EXPECT_THAT(SaveSessions({}), IsEmpty());
}

TEST_F(SaveTest, TwoSessionsOfOneFileDoNotOverwriteEachOther) {
  Session first = changed();
  Session second = open();
  second.Change({{"debugDevice", 4}});
  const auto outcomes = SaveSessions({&first, &second});
  ASSERT_EQ(outcomes.size(), 2U);
  EXPECT_NE(outcomes[0].written, outcomes[1].written);
  const SaveOutcome &refused = outcomes[0].written ? outcomes[1] : outcomes[0];
  ASSERT_TRUE(refused.refusal);
  EXPECT_EQ(refused.refusal->kind, RefusalKind::changedOnDisk);
  EXPECT_THAT(refusalOf([&] { (outcomes[0].written ? second : first).Save(); }),
              testing::StartsWith("changed-on-disk"));
}

TEST_F(SaveTest, OfSessionsOfOneFileTheFirstIsSavedAlsoByForce) {
  constexpr std::size_t many = 8;
  SaveOptions force;
  force.force = true;
  for (const std::size_t first : {7U, 0U, 3U}) {
    fs::remove(file());
    std::vector<Session> sessions;
    for (std::size_t value = 0; value < many; ++value) {
      sessions.push_back(open());
      sessions.back().Change({{"debugDevice", static_cast<int>(10 + value)}});
    }
    std::vector<Session *> order;
    for (std::size_t at = 0; at < many; ++at)
      order.push_back(&sessions[(first + at) % many]);
    const auto outcomes = SaveSessions(order, force);
    EXPECT_TRUE(outcomes[0].written) << first;
    for (std::size_t at = 1; at < many; ++at) {
      ASSERT_TRUE(outcomes[at].refusal) << first;
      EXPECT_EQ(outcomes[at].refusal->kind, RefusalKind::changedOnDisk);
    }
    EXPECT_EQ(open().Get("debugDevice"), Value(static_cast<int>(10 + first)));
  }
}

TEST_F(SaveTest, TheWorkingDirectoryIsNeitherUsedNorChanged) {
  fillDesign(design);
  const Board relative(design, "etc");
  Session session(relative, "lc");
  const fs::path elsewhere = work.path() / "elsewhere";
  fs::create_directory(elsewhere);
  fs::current_path(elsewhere);
  session.Change({{"debugDevice", 3}});
  session.Save();
  EXPECT_EQ(fs::current_path(), elsewhere);
  EXPECT_TRUE(fs::is_empty(elsewhere));
  EXPECT_EQ(saved(), command3);
  EXPECT_EQ(session.File(), "etc/kvo_lc.opt");
}

TEST_F(SaveTest, AProcessorsNameThatLeadsElsewhereLeadsToNoFile) {
  const std::string content = "connect lc sim";
  work.write("etc/kvo_lc", content);
  work.write("escaped.opt", content);
  fs::create_directory(work.path() / "etc" / "kvo_x");
  struct Row {
    std::string name;
    std::string problem;
  } const rows[] = {
      {std::string("lc\0.opt", 7),
       "a null byte in a processor's name leads to no file"},
      {"x/../../escaped", "a '/' in a processor's name leads to no file"},
      {"/", "a '/' in a processor's name leads to no file"},
  };
  for (const Row &row : rows) {
    const Board odd = boardOf(row.name);
    for (const auto hold :
         {Session::Hold::whileSaving, Session::Hold::untilSaved}) {
      Session session(odd, row.name, hold);
      EXPECT_EQ(session.Problem(), row.problem);
      EXPECT_FALSE(session.State().exists);
      EXPECT_FALSE(session.ChangedOnDisk());
      session.Change({{"connection", "sim"}});
      SaveOptions makeFolder = force();
      makeFolder.makeFolder = true;
      for (const SaveOptions &options :
           {SaveOptions(), force(), dryRun(), makeFolder})
        EXPECT_THAT(refusalOf([&] { session.Save(options); }),
                    testing::AllOf(testing::StartsWith("no-regular-file: "),
                                   testing::EndsWith(row.problem)));
    }
  }
  EXPECT_THAT(names(), ElementsAre("kvo_lc", "kvo_x"));
  EXPECT_EQ(work.read("etc/kvo_lc"), content);
  EXPECT_EQ(work.read("escaped.opt"), content);
}

TEST_F(SaveTest, ANameThatIsTooLongLeadsToNoFile) {
  for (const std::size_t size : {247U, 248U}) { // with "kvo_" and ".opt", 255
    const std::string name(size, 'n');
    Session session = simulated(name);
    if (size == 247) {
      EXPECT_EQ(session.Problem(), "");
      EXPECT_TRUE(session.Save().written);
      EXPECT_EQ(saved(name), "connect lc sim");
    } else {
      EXPECT_EQ(session.Problem(), "File name too long");
      EXPECT_NE(refusalOf([&] { session.Save(); }), "accepted");
    }
  }
}

TEST_F(SaveTest, NamesOfOtherBytesLeadToAFile) {
  for (const char *name : {"..", "a b", "a\\b", "a\n", "\xFF"}) {
    Session session = simulated(name);
    EXPECT_TRUE(session.Save().written) << name;
    EXPECT_EQ(saved(name), "connect lc sim") << name;
  }
}

TEST_F(SaveTest, RefusalsSayWhereInFields) {
  const auto refused = [](Session &session) {
    try {
      session.Save();
    } catch (const Refusal &refusal) {
      return refusal;
    }
    throw std::logic_error("it is saved");
  };
  fillDesign(design);
  const Board relative(design, "etc");
  save("\n\nconnect lc nothing");
  Session unreadable(relative, "lc");
  Refusal refusal = refused(unreadable);
  EXPECT_EQ(refusal.kind, RefusalKind::unreadable);
  EXPECT_EQ(refusal.file, "etc/kvo_lc.opt");
  EXPECT_EQ(refusal.line, 3);

  fs::remove(file());
  Session lossy(relative, "lc");
  lossy.Change({{"debugDevice", 3}, {"simMemSize", 5}});
  refusal = refused(lossy);
  EXPECT_EQ(refusal.kind, RefusalKind::wouldBeLost);
  EXPECT_EQ(refusal.setting, "simMemSize");
  EXPECT_EQ(refusal.line, 0);

  lossy.Change({{"cable.cableType", "quorla_tcf"}});
  refusal = refused(lossy);
  EXPECT_EQ(refusal.kind, RefusalKind::noCommand);
  EXPECT_EQ(refusal.setting, "cable.cableType");
  EXPECT_EQ(refusal.problem, "no command can be written: Invalid Cable Type");
}

TEST_F(SaveTest, RefusalsNameTheFileAsTheBoardWasGivenIt) {
  const auto refused = [](const Board &asked) {
    try {
      Session session(asked, "lc");
      session.Change({{"debugDevice", 5}});
      session.Save();
    } catch (const Refusal &refusal) {
      return refusal;
    }
    throw std::logic_error("it is saved");
  };
  fillDesign(design);
  const Board relative(design, "etc");
  save(command3);
  fs::permissions(file(), fs::perms::owner_read);
  Refusal refusal = refused(relative);
  EXPECT_EQ(refusal.kind, RefusalKind::readOnly);
  EXPECT_EQ(refusal.file, "etc/kvo_lc.opt");
  EXPECT_STREQ(refusal.what(), "etc/kvo_lc.opt: it may not be written");

  fs::remove_all(work.path() / "etc");
  refusal = refused(relative);
  EXPECT_EQ(refusal.kind, RefusalKind::noFolder);
  EXPECT_EQ(refusal.file, "etc");
  EXPECT_STREQ(refusal.what(), "etc: there is no such folder");
  try {
    const Session held(relative, "lc", Session::Hold::untilSaved);
    ADD_FAILURE() << "it is held";
  } catch (const Refusal &held) {
    EXPECT_EQ(held.file, "etc");
  }
}

TEST_F(SaveTest, WhatTheFileHoldsAlreadyIsUnchangedAlsoWithLosses) {
  Session session = openWith(byDefault);
  session.Change({{"simMemSize", 5}, {"debugDevice", 3}});
  SaveOutcome outcome = session.Save(force());
  EXPECT_TRUE(outcome.written);
  EXPECT_FALSE(outcome.unchanged);
  SaveOptions dryForce = dryRun();
  dryForce.force = true;
  for (const SaveOptions &options : {force(), dryForce}) {
    outcome = session.Save(options);
    EXPECT_FALSE(outcome.written);
    EXPECT_TRUE(outcome.unchanged);
    EXPECT_THAT(shown(outcome.losses),
                testing::Contains(testing::StartsWith("simMemSize")));
  }
  session.Change({{"debugDevice", 4}});
  outcome = session.Save(force());
  EXPECT_TRUE(outcome.written);
  EXPECT_FALSE(outcome.unchanged);
}

} // namespace
