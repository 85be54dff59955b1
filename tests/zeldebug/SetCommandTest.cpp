#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class SetCommandTest : public ToolTest {
protected:
  Result set(const std::string &processor,
             const std::vector<std::string> &settings,
             const Surroundings &surroundings = {}) {
    std::vector<std::string> line{"set", board, processor};
    line.insert(line.end(), settings.begin(), settings.end());
    return run(line, surroundings);
  }
};

/// What choosing the USB cable brings to a processor without one.
const std::string usbNotes =
    "zeldebug: note: lumacore_0: cable.frequency 0 becomes 6000000: choosing a "
    "cable brings its port and frequency\n"
    "zeldebug: note: lumacore_0: cable.port \"\" becomes \"USB21\": choosing a "
    "cable brings its port and frequency\n";

constexpr const char *usbCommand =
    "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
    "-debugdevice cpunr 1";

TEST_F(SetCommandTest, SavesTheCommandAndPrintsIt) {
  fs::create_directory("etc");
  const Result run = set("lumacore_0", {"--cable", "quorla_podusb"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, std::string(usbCommand) + "\n");
  EXPECT_EQ(
      run.err,
      usbNotes +
          "zeldebug: note: lumacore_0: saved in etc/kvo_lumacore_0.opt\n");
  EXPECT_EQ(saved("lumacore_0"), usbCommand);
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

TEST_F(SetCommandTest, LoadsWhatIsSavedFirst) {
  save("lumacore_0", usbCommand);
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "3"}).status, 0);
  EXPECT_EQ(
      saved("lumacore_0"),
      "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
      "-debugdevice deviceNr 3 cpunr 1");
}

TEST_F(SetCommandTest, DoesNotWriteWithoutAChange) {
  // Other blanks than the writer's show that the file stays as it is.
  const std::string text =
      "\nconnect  lc hdu -debugdevice devicenr 3 cpunr 1 \n";
  save("lumacore_0", text);
  const fs::path file = folder.path() / "etc/kvo_lumacore_0.opt";
  const auto before = fs::last_write_time(file);
  const Result run = set("lumacore_0", {"--debug-device", "3"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      "zeldebug: note: lumacore_0: already saved in etc/kvo_lumacore_0.opt\n");
  EXPECT_EQ(run.out, "connect  lc hdu -debugdevice devicenr 3 cpunr 1 \n");
  EXPECT_EQ(saved("lumacore_0"), text);
  EXPECT_EQ(fs::last_write_time(file), before);
}

TEST_F(SetCommandTest, LeavesACommandAloneThatCouldNotBeWrittenAgain) {
  const std::string text =
      "connect lc hdu -cable type quorla_tcf frequency 2000000";
  save("lumacore_0", text);
  EXPECT_EQ(set("lumacore_0", {}).status, 0);
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "3"}).status, 1);
  EXPECT_EQ(saved("lumacore_0"), text);
}

TEST_F(SetCommandTest, ADryRunSavesNothing) {
  fs::create_directory("etc");
  Result run = set("lumacore_0", {"--cable", "quorla_podusb", "--dry-run"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, std::string(usbCommand) + "\n");
  EXPECT_EQ(run.err, usbNotes + "zeldebug: note: lumacore_0: would be saved in "
                                "etc/kvo_lumacore_0.opt\n");
  EXPECT_TRUE(etc().empty());
  fs::remove("etc");
  EXPECT_EQ(set("lumacore_0", {"--dry-run", "--mkdir"}).err,
            "zeldebug: note: lumacore_0: would be saved in "
            "etc/kvo_lumacore_0.opt\n");
  EXPECT_FALSE(fs::exists("etc"));
  run = set("lumacore_0", {"--dry-run"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zeldebug: note: lumacore_0: would be saved in "
            "etc/kvo_lumacore_0.opt, but there is no such folder (--mkdir "
            "makes it)\n");
}

TEST_F(SetCommandTest, ADryRunIsRefusedWhereTheRunWouldBe) {
  Surroundings surroundings;
  surroundings.obeysPermissions = true;
  const auto lock = [](const char *path) {
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_exec);
  };
  const struct {
    std::function<void()> prepare;
    std::vector<std::string> settings;
    std::string problem;
  } rows[] = {
      {[&] { lock("."); }, {"--mkdir"}, "etc: Permission denied"},
      {[&] {
         fs::create_directory("etc");
         lock("etc");
       },
       {},
       "etc: cannot write there: Permission denied"},
      {[] { fs::create_directories("etc/kvo_lumacore_0.opt"); },
       {"--force"},
       "etc/kvo_lumacore_0.opt: is a folder, no file"},
  };
  for (const auto &row : rows) {
    row.prepare();
    std::vector<std::string> dry = row.settings;
    dry.emplace_back("--dry-run");
    for (const auto &settings : {dry, row.settings}) {
      const Result run = set("lumacore_0", settings, surroundings);
      EXPECT_EQ(run.status, 1) << row.problem;
      EXPECT_EQ(run.out, "");
      EXPECT_EQ(run.err, "zeldebug: error: lumacore_0: " + row.problem + "\n");
    }
    fs::permissions(".", fs::perms::owner_all);
    fs::remove_all("etc");
  }
}

TEST_F(SetCommandTest, NeedsTheFolder) {
  const Result run = set("lumacore_0", {});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zeldebug: error: lumacore_0: etc: there is no such folder "
            "(--mkdir makes it)\n");
  EXPECT_FALSE(fs::exists("etc"));
  EXPECT_EQ(set("lumacore_0", {"--mkdir"}).status, 0);
  EXPECT_EQ(saved("lumacore_0"), "connect lc hdu -debugdevice cpunr 1");
}

TEST_F(SetCommandTest, SaysWhatStandsInThePlaceOfTheFolder) {
  const struct {
    std::function<void()> prepare;
    std::string problem;
  } rows[] = {
      {[&] { folder.write("etc", "a file"); }, "is a file, no folder"},
      {[&] {
         folder.write("elsewhere", "a file");
         fs::create_symlink("elsewhere", "etc");
       },
       "is a file, no folder"},
      {[] { fs::create_symlink("nowhere", "etc"); }, "is a link to nothing"},
      {[] { ASSERT_EQ(mkfifo("etc", 0600), 0); }, "is no folder"},
  };
  for (const auto &row : rows) {
    row.prepare();
    for (const std::vector<std::string> &settings :
         {std::vector<std::string>{}, {"--mkdir"}, {"--mkdir", "--dry-run"}}) {
      const Result run = set("lumacore_0", settings);
      EXPECT_EQ(run.status, 1);
      EXPECT_EQ(run.out, "");
      EXPECT_EQ(run.err,
                "zeldebug: error: lumacore_0: etc: " + row.problem + "\n");
    }
    EXPECT_TRUE(fs::exists(fs::symlink_status("etc")));
    fs::remove("etc");
  }
}

TEST_F(SetCommandTest, TakesALinkToAFolderForTheFolder) {
  fs::create_directory("elsewhere");
  fs::create_symlink("elsewhere", "etc");
  EXPECT_EQ(set("lumacore_0", {"--mkdir"}).status, 0);
  EXPECT_TRUE(fs::is_symlink("etc"));
  EXPECT_EQ(folder.read("elsewhere/kvo_lumacore_0.opt"),
            "connect lc hdu -debugdevice cpunr 1");
}

TEST_F(SetCommandTest, LeavesNoFolderThatNothingIsSavedIn) {
  const auto expectNoFolder = [this](const Surroundings &surroundings,
                                     const std::string &problem,
                                     std::vector<std::string> settings) {
    settings.emplace_back("--mkdir");
    const Result run = set("lumacore_0", settings, surroundings);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr(problem));
    EXPECT_FALSE(fs::exists("etc")) << problem;
  };
  expectNoFolder({}, "nothing is saved, because it would not survive",
                 {"--cpu-jtag"});
  Surroundings full;
  full.fileSizeLimit = 10;
  expectNoFolder(full, "the option file could not be written whole", {});
  Surroundings locked;
  locked.obeysPermissions = true;
  const mode_t before = umask(0777);
  expectNoFolder(locked, "etc: cannot write there: Permission denied", {});
  umask(before);
  // One that was there stays.
  fs::create_directory("etc");
  EXPECT_EQ(set("lumacore_0", {"--cpu-jtag", "--mkdir"}).status, 1);
  EXPECT_TRUE(fs::is_directory("etc"));
}

TEST_F(SetCommandTest, LeavesAFolderThatOneOfAllIsSavedIn) {
  EXPECT_EQ(this->run({"set", board, "--all", "--mkdir", "--cpu-jtag"}).status,
            1);
  EXPECT_FALSE(fs::exists("etc"));
  EXPECT_EQ(
      this->run({"set", board, "--all", "--mkdir", "--connection", "stub-jtag"})
          .status,
      1);
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

TEST_F(SetCommandTest, TakesTheWorkingFolderFromTheLine) {
  fs::create_directories("work/etc");
  EXPECT_EQ(set("lumacore_0", {"-C", "work"}).status, 0);
  EXPECT_EQ(folder.read("work/etc/kvo_lumacore_0.opt"),
            "connect lc hdu -debugdevice cpunr 1");
  const Result run = set("lumacore_0", {"-C", "nowhere"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zeldebug: error: -C 'nowhere': No such file or directory\n");
}

TEST_F(SetCommandTest, KeepsLinksAndPermissions) {
  folder.write("elsewhere/options", usbCommand);
  fs::permissions("elsewhere/options",
                  fs::perms::owner_read | fs::perms::owner_write);
  fs::create_directory("etc");
  fs::create_symlink("../elsewhere/options", "etc/kvo_lumacore_0.opt");
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "3"}).status, 0);
  EXPECT_TRUE(fs::is_symlink("etc/kvo_lumacore_0.opt"));
  EXPECT_THAT(folder.read("elsewhere/options"), HasSubstr("deviceNr 3"));
  EXPECT_EQ(fs::status("elsewhere/options").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SetCommandTest, GivesEachProcessorOfAllItsOwnResult) {
  fs::create_directory("etc");
  save("ppc405_0", "connect nothing");
  save("lumacore_1", "connect lc hdu -debugdevice deviceNr 3 cpunr 2");
  const Result run = this->run({"set", board, "--all", "--debug-device", "3"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(
      run.out,
      "PROCESSOR   RESULT      COMMAND\n"
      "lumacore_0  saved       connect lc hdu -debugdevice deviceNr 3 cpunr 1\n"
      "lumacore_1  unchanged   connect lc hdu -debugdevice deviceNr 3 cpunr 2\n"
      "ppc405_0    unreadable  -\n"
      "ppc440_0    saved       connect ppc hw -debugdevice deviceNr 3 cpunr 2 "
      "fpuType dp\n"
      "lumacore_2  refused     -\n"
      "a9_0        saved       connect ppc hw -debugdevice deviceNr 3 cpunr 1\n"
      "a9_1        saved       connect ppc hw -debugdevice deviceNr 3 cpunr "
      "2\n");
  EXPECT_THAT(etc(), ElementsAre("kvo_a9_0.opt", "kvo_a9_1.opt",
                                 "kvo_lumacore_0.opt", "kvo_lumacore_1.opt",
                                 "kvo_ppc405_0.opt", "kvo_ppc440_0.opt"));
  EXPECT_EQ(saved("ppc405_0"), "connect nothing");
}

TEST_F(SetCommandTest, WantsEitherAProcessorOrAll) {
  for (const std::vector<std::string> &line :
       {std::vector<std::string>{"set", board, "--no-project"},
        std::vector<std::string>{"set", board, "lumacore_0", "--all"}}) {
    const Result run = this->run(line);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "zeldebug: error: set: give either a PROCESSOR or --all\n");
  }
  // One word is the processor of a project.
  const Result run = this->run({"set", board});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zeldebug: error: there is no zeldebug.toml in '.' nor "
                     "above it: give DESIGN, or make one with 'zeldebug init "
                     "DESIGN'\n");
}

TEST_F(SetCommandTest, TellsTheSameInJson) {
  fs::create_directory("etc");
  const json document =
      runJson({"set", board, "--all", "--connection", "sim"}, 1);
  ASSERT_EQ(document["results"].size(), 7U);
  EXPECT_EQ(document["results"][0], json({{"instanceName", "lumacore_0"},
                                          {"outcome", "saved"},
                                          {"file", "etc/kvo_lumacore_0.opt"},
                                          {"connectCommand", "connect lc sim"},
                                          {"effects", json::array()},
                                          {"lost", json::array()},
                                          {"dropped", json::array()},
                                          {"message", nullptr},
                                          {"failure", nullptr}}));
  EXPECT_EQ(document["results"][5]["outcome"], "refused");
  EXPECT_EQ(document["results"][5]["connectCommand"], nullptr);
  EXPECT_EQ(document["results"][5]["message"],
            "--connection sim: 'a9_0' does not allow it; it allows 'hw'");
  const json failure = document["results"][5]["failure"];
  EXPECT_EQ(failure["status"], 1);
  EXPECT_EQ(failure["code"], "not-allowed");
  EXPECT_EQ(failure["option"], "--connection");
  EXPECT_EQ(failure["value"], "sim");
  EXPECT_EQ(failure["accepted"], json({"hw"}));
  EXPECT_FALSE(document.contains("failure"));
}

TEST_F(SetCommandTest, AFailureOfOneProcessorIsThatOfTheRun) {
  fs::create_directory("etc");
  const json one = runJson({"set", board, "a9_0", "--connection", "sim"}, 1);
  EXPECT_EQ(one["failure"]["option"], "--connection");
  EXPECT_EQ(one["failure"]["message"],
            "a9_0: --connection sim: 'a9_0' does not allow it; it allows "
            "'hw'");
  EXPECT_EQ(one["results"][0]["outcome"], "refused");
  save("lumacore_0", "\nconnect lc foo");
  const json unreadable =
      runJson({"set", board, "lumacore_0", "--debug-device", "1"}, 3);
  EXPECT_EQ(unreadable["failure"]["file"], "etc/kvo_lumacore_0.opt");
  EXPECT_EQ(unreadable["failure"]["line"], 2);
  EXPECT_EQ(unreadable["failure"]["code"], "unreadable");
}

TEST_F(SetCommandTest, TellsOfNumbersInTheFileThatWereCut) {
  save("lumacore_0", "connect lc hdu -debugdevice devicenr 300");
  const Result run = set("lumacore_0", {"--cable", "quorla_podusb"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err,
              HasSubstr("zeldebug: warning: lumacore_0: "
                        "etc/kvo_lumacore_0.opt:1: '300' does not fit: "
                        "debugDevice becomes 44 [value-cut]\n"));
  // The number that is asked for takes the place of the one that was cut.
  save("lumacore_0", "connect lc hdu -debugdevice devicenr 300");
  EXPECT_THAT(set("lumacore_0", {"--debug-device", "1", "--dry-run"}).err,
              testing::Not(HasSubstr("warning")));
  save("lumacore_0", "connect lc hdu -debugdevice devicenr 100");
  EXPECT_THAT(set("lumacore_0", {"--cable", "quorla_podusb"}).err,
              testing::Not(HasSubstr("warning")));
  // What takes its place does not have it.
  save("lumacore_0", "connect lc hdu -debugdevice devicenr 300");
  EXPECT_THAT(set("lumacore_0", {"--from", "connect lc sim"}).err,
              testing::Not(HasSubstr("warning")));
}

TEST_F(SetCommandTest, TellsOfACommandThatReadsAsAnother) {
  fs::create_directory("etc");
  EXPECT_THAT(
      set("lumacore_0", {"--from", "connect lc hdu -debugdevice devicenr 010"})
          .err,
      HasSubstr("[octal-number]"));
  EXPECT_THAT(set("lumacore_0", {"--from", "connect ppc hw"}).err,
              HasSubstr("--from: column 9: "));
  EXPECT_THAT(
      set("lumacore_0", {"--from", "connect lc hdu -debugdevice devicenr 10"})
          .err,
      testing::Not(HasSubstr("warning")));
}

TEST_F(SetCommandTest, RunsAtOnceLeaveTheWholeFileOfOneOfThem) {
  const std::string before = "connect lc hdu -debugdevice cpunr 1";
  const std::string one =
      "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
      "-debugdevice deviceNr 1 cpunr 1";
  const std::string other =
      "connect lc hdu -cable type quorla_parallel3 port LPT1 frequency 200000 "
      "-debugdevice deviceNr 2 cpunr 1";
  save("lumacore_0", before);
  std::vector<std::vector<std::string>> lines;
  for (int i = 0; i < 10; ++i) {
    lines.push_back({"set", board, "lumacore_0", "--cable", "quorla_podusb",
                     "--debug-device", "1"});
    lines.push_back({"set", board, "lumacore_0", "--cable", "quorla_parallel3",
                     "--debug-device", "2"});
  }
  std::set<std::string> seen;
  const std::vector<Result> results =
      runAtOnce(lines, [&] { seen.insert(saved("lumacore_0")); });
  for (const Result &result : results)
    EXPECT_EQ(result.status, 0) << result.err;
  // Whoever looked in between saw one of the three, and never a part of one.
  EXPECT_THAT(seen, testing::Each(testing::AnyOf(before, one, other)));
  EXPECT_THAT(saved("lumacore_0"), testing::AnyOf(one, other));
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

/// One of two settings at once was lost before there was a lock.
TEST_F(SetCommandTest, TwoRunsAtOnceBothCount) {
  for (int round = 1; round <= 10; ++round) {
    const std::string device = std::to_string(round);
    const std::string frequency = round % 2 == 0 ? "3000000" : "1500000";
    if (round == 1)
      save("lumacore_0", usbCommand);
    const std::vector<Result> results =
        runAtOnce({{"set", board, "lumacore_0", "--debug-device", device},
                   {"set", board, "lumacore_0", "--frequency", frequency}},
                  [] {});
    for (const Result &result : results)
      EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(saved("lumacore_0"),
              "connect lc hdu -cable type quorla_podusb port USB21 frequency " +
                  frequency + " -debugdevice deviceNr " + device + " cpunr 1");
  }
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

/// Neither has a folder to wait in.
TEST_F(SetCommandTest, TwoRunsThatMakeTheFolderBothCount) {
  for (int round = 0; round < 5; ++round) {
    fs::remove_all("etc");
    const std::vector<Result> results = runAtOnce(
        {{"set", board, "lumacore_0", "--mkdir", "--debug-device", "3"},
         {"set", board, "lumacore_0", "--mkdir", "--cable", "quorla_podusb"}},
        [] {});
    for (const Result &result : results)
      EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(
        saved("lumacore_0"),
        "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
        "-debugdevice deviceNr 3 cpunr 1");
  }
}

TEST_F(SetCommandTest, LeavesOtherHiddenNamesAlone) {
  fs::create_directories("etc/.zeldebug-abcdef");
  folder.write("etc/.kvo_lumacore_1.opt.new", "of another processor");
  EXPECT_EQ(set("lumacore_0", {}).status, 0);
  EXPECT_THAT(etc(), ElementsAre(".kvo_lumacore_1.opt.new", ".zeldebug-abcdef",
                                 "kvo_lumacore_0.opt"));
}

TEST_F(SetCommandTest, NamesWhatACableOnASavedFileResets) {
  save("lumacore_0", "connect lc hdu -cable type quorla_parallel3 port LPT2 "
                     "frequency 200000 -debugdevice cpunr 1");
  const Result run = set("lumacore_0", {"--cable", "quorla_podusb"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zeldebug: note: lumacore_0: cable.frequency 200000 becomes "
            "6000000: choosing a cable brings its port and frequency\n"
            "zeldebug: note: lumacore_0: cable.port \"LPT2\" becomes "
            "\"USB21\": choosing a cable brings its port and frequency\n"
            "zeldebug: note: lumacore_0: saved in etc/kvo_lumacore_0.opt\n");
  EXPECT_EQ(saved("lumacore_0"), usbCommand);
  // The cable that is there is not started anew.
  EXPECT_EQ(
      set("lumacore_0", {"--port", "USB22", "--frequency", "3MHz"}).status, 0);
  EXPECT_EQ(set("lumacore_0", {"--cable", "quorla_podusb"}).err,
            "zeldebug: note: lumacore_0: already saved in "
            "etc/kvo_lumacore_0.opt\n");
  EXPECT_THAT(saved("lumacore_0"), HasSubstr("port USB22 frequency 3000000"));
}

TEST_F(SetCommandTest, ReplacesNothingButARegularFile) {
  fs::create_directory("etc");
  const fs::path file = "etc/kvo_lumacore_0.opt";
  const auto expectRefusal = [&](const std::string &problem) {
    const Result run = set("lumacore_0", {"--force"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr(": " + problem + "\n"));
  };
  ASSERT_EQ(mkfifo("fifo", 0600), 0);
  fs::create_symlink("../fifo", file);
  expectRefusal("is no regular file");
  EXPECT_TRUE(fs::is_fifo(fs::status(file)));
  fs::remove(file);
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  expectRefusal("is no regular file");
  EXPECT_TRUE(fs::is_fifo(file));
  fs::remove(file);
  fs::create_symlink("nowhere", file);
  expectRefusal("is a link to nothing");
  EXPECT_TRUE(fs::is_symlink(file));
  fs::remove(file);
  // The same device as /dev/null, where this test may make one.
  if (mknod("device", S_IFCHR | 0600, makedev(1, 3)) != 0)
    GTEST_SKIP() << "no device can be made here";
  fs::create_symlink("../device", file);
  expectRefusal("is no regular file");
  EXPECT_TRUE(fs::is_character_file(fs::status(file)));
}

TEST_F(SetCommandTest, WarnsOfASerialLineWithoutARate) {
  fs::create_directory("etc");
  const Result run = set("lumacore_0", {"--connection", "stub-serial"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "zeldebug: warning: lumacore_0: stubBaudRate: '0' is no "
                     "rate of a serial line [baud-zero]\n"
                     "zeldebug: note: lumacore_0: saved in "
                     "etc/kvo_lumacore_0.opt\n");
}

TEST_F(SetCommandTest, StrictRunsSaveNothingThatIsWarnedOf) {
  fs::create_directory("etc");
  const std::vector<std::string> doubtful{"--connection", "stub-serial",
                                          "--strict"};
  const Result run = set("lumacore_0", doubtful);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zeldebug: warning: lumacore_0: stubBaudRate: '0' is no rate of a "
            "serial line [baud-zero]\n"
            "zeldebug: error: lumacore_0: nothing is saved, because a warning "
            "is a failure with --strict\n");
  EXPECT_EQ(set("lumacore_0", {"--cpu-jtag", "--force", "--strict"}).status, 1);
  EXPECT_TRUE(etc().empty());
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "1", "--strict"}).status, 0);
  // A command that is printed with a warning fails as well.
  EXPECT_EQ(this->run({"command", board, "lumacore_0", "--connection",
                       "stub-serial", "--strict"})
                .status,
            1);
}

TEST_F(SetCommandTest, QuietRunsLeaveNotesOut) {
  fs::create_directory("etc");
  const Result run = set("lumacore_0", {"--cable", "quorla_podusb", "-q"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, std::string(usbCommand) + "\n");
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(set("lumacore_0", {"--connection", "stub-serial", "--quiet"}).err,
              testing::StartsWith("zeldebug: warning: "));
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "200", "-q"}).status, 2);
}

TEST_F(SetCommandTest, EverythingThatIsSaidIsInTheDocument) {
  fs::create_directory("etc");
  const json document = runJson({"set", board, "lumacore_0", "--cable",
                                 "quorla_podusb", "--frequency", "625kHz"});
  const json result = document["results"][0];
  EXPECT_EQ(
      result["effects"],
      json({{{"setting", "cable.port"},
             {"before", ""},
             {"after", "USB21"},
             {"why", "choosing a cable brings its port and frequency"}}}));
  ASSERT_EQ(document["warnings"].size(), 3U);
  EXPECT_EQ(document["warnings"][0]["severity"], "note");
  EXPECT_EQ(document["warnings"][0]["setting"], "cable.port");
  EXPECT_EQ(document["warnings"][0]["code"], nullptr);
  EXPECT_EQ(document["warnings"][1]["severity"], "warning");
  EXPECT_EQ(document["warnings"][1]["code"], "frequency");
  EXPECT_EQ(document["warnings"][1]["setting"], "cable.frequency");
  EXPECT_EQ(document["warnings"][2]["message"],
            "lumacore_0: saved in etc/kvo_lumacore_0.opt");
  EXPECT_EQ(document["diagnostics"], json::array());
}

TEST_F(SetCommandTest, WarnsOfAFrequencyThatTheCableDoesNotHave) {
  fs::create_directory("etc");
  const std::string doubt =
      "cable.frequency 625000: 'quorla_podusb' has only 750000, 1500000, "
      "3000000, 6000000, 12000000, 24000000, and it is read unseen "
      "[frequency]\n";
  const std::vector<std::string> settings{"--cable", "quorla_podusb",
                                          "--frequency", "625kHz"};
  const Result run = set("lumacore_0", settings);
  EXPECT_EQ(run.status, 0);
  const std::string brought =
      "cable.port \"\" becomes \"USB21\": choosing a cable brings its port and "
      "frequency\n";
  EXPECT_EQ(run.err, "zeldebug: note: lumacore_0: " + brought +
                         "zeldebug: warning: lumacore_0: " + doubt +
                         "zeldebug: note: lumacore_0: saved in "
                         "etc/kvo_lumacore_0.opt\n");
  EXPECT_THAT(saved("lumacore_0"), HasSubstr("frequency 625000"));
  fs::remove("etc/kvo_lumacore_0.opt");
  std::vector<std::string> line{"command", board, "lumacore_0"};
  line.insert(line.end(), settings.begin(), settings.end());
  EXPECT_EQ(this->run(line).err,
            "zeldebug: note: " + brought + "zeldebug: warning: " + doubt);
  EXPECT_EQ(set("lumacore_0", settings).status, 0);
  // It is not said again of what was saved before, nor of a cable that has any.
  EXPECT_THAT(set("lumacore_0", {"--debug-device", "1"}).err,
              testing::Not(HasSubstr("warning")));
  EXPECT_THAT(set("lumacore_0", {"--frequency", "750kHz"}).err,
              testing::Not(HasSubstr("warning")));
}

} // namespace
} // namespace tool
