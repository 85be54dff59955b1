// set with a project: what goes into its files, and what a processor without an
// option file starts from.
#include <gmock/gmock.h>

#include "ProjectTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class SettingIntoTest : public ProjectTest {
protected:
  /// What stands in the project file behind its three lines.
  std::string own() const {
    const std::string whole = text("zeldebug.toml");
    std::size_t at = 0;
    for (int line = 0; line < 3; ++line)
      at = whole.find('\n', at) + 1;
    return whole.substr(at);
  }
  Result set(std::vector<std::string> line) {
    line.insert(line.begin(), "set");
    return run(line);
  }
  json setJson(std::vector<std::string> line, int status = 0) {
    line.insert(line.begin(), "set");
    return runJson(line, status);
  }
};

const std::string lumacore0 = "[processor.lumacore_0]\ndebugDevice = ";

constexpr const char *written =
    "zeldebug: note: written to zeldebug.local.toml; 'zeldebug sync' brings it "
    "into the option files\n";

TEST_F(SettingIntoTest, OneValueGoesToTheLocalFileAndNoOptionFileChanges) {
  folder.write("zeldebug.toml", "design = \"hw/board.xml\"\n"
                                "[processor.lumacore_0]\n"
                                "cable.cableType = \"quorla_podusb\" # lab\n");
  const std::string before = text("zeldebug.toml");
  const Result run = set({"lumacore_0", "--esn", "0042", "--into", "local"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "connect lc hdu -cable type quorla_podusb esn 0042 "
                     "-debugdevice cpunr 1\n");
  EXPECT_THAT(run.err, testing::EndsWith(written));
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[processor.lumacore_0]\ncable.esn = \"0042\"\n");
  EXPECT_EQ(text("zeldebug.toml"), before);
  EXPECT_FALSE(fs::exists("etc"));
  EXPECT_EQ(syncOne()["connectCommand"],
            "connect lc hdu -cable type quorla_podusb esn 0042 "
            "-debugdevice cpunr 1");
}

TEST_F(SettingIntoTest, OnlyTheBytesOfTheValueChange) {
  project("\n  [processor.lumacore_0] # mine\n  debugDevice = 0x3 # third\n"
          "\n# the end\n");
  EXPECT_EQ(
      set({"lumacore_0", "--debug-device", "26", "--into", "project"}).status,
      0);
  EXPECT_EQ(own(), "\n  [processor.lumacore_0] # mine\n"
                   "  debugDevice = 0x1a # third\n\n# the end\n");
  EXPECT_EQ(set({"lumacore_0", "--cable", "quorla_podusb", "--into", "project"})
                .status,
            0);
  EXPECT_EQ(own(), "\n  [processor.lumacore_0] # mine\n"
                   "  debugDevice = 0x1a # third\n"
                   "  cable.cableType = \"quorla_podusb\"\n\n# the end\n");
}

TEST_F(SettingIntoTest, WhatElseChangesIsNamed) {
  project("");
  const json document =
      setJson({"lumacore_0", "--cable", "quorla_podusb", "--into", "project"});
  EXPECT_EQ(document["project"], "zeldebug.toml");
  EXPECT_EQ(document["local"], nullptr);
  EXPECT_EQ(document["probe"], nullptr);
  EXPECT_EQ(document["profile"], nullptr);
  EXPECT_EQ(document["into"], "project");
  const json &result = document["results"][0];
  EXPECT_EQ(result["instanceName"], "lumacore_0");
  EXPECT_EQ(result["outcome"], "saved");
  EXPECT_EQ(result["file"], "zeldebug.toml");
  EXPECT_EQ(result["connectCommand"],
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "6000000 -debugdevice cpunr 1");
  ASSERT_EQ(result["effects"].size(), 2U);
  EXPECT_EQ(result["effects"][0]["setting"], "cable.frequency");
  EXPECT_EQ(result["effects"][1]["setting"], "cable.port");
}

TEST_F(SettingIntoTest, WhatIsThereAlreadyIsNotWritten) {
  project(lumacore0 + "3\n");
  fs::permissions("zeldebug.toml", fs::perms::owner_read);
  const auto when = fs::last_write_time("zeldebug.toml");
  const json document =
      setJson({"lumacore_0", "--debug-device", "3", "--into", "project"});
  EXPECT_EQ(document["results"][0]["outcome"], "unchanged");
  EXPECT_EQ(fs::last_write_time("zeldebug.toml"), when);
}

TEST_F(SettingIntoTest, ADryRunWritesNothing) {
  project("");
  const Result run = set(
      {"lumacore_0", "--debug-device", "3", "--into", "local", "--dry-run"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "connect lc hdu -debugdevice deviceNr 3 cpunr 1\n");
  EXPECT_EQ(run.err,
            "zeldebug: note: it would be written to zeldebug.local.toml\n");
  EXPECT_FALSE(fs::exists("zeldebug.local.toml"));
  EXPECT_EQ(setJson({"lumacore_0", "--debug-device", "3", "--into", "local",
                     "--dry-run"})["results"][0]["outcome"],
            "dry-run");
}

TEST_F(SettingIntoTest, OfRunsAtOnceAllCount) {
  project("");
  std::vector<std::vector<std::string>> lines;
  const std::vector<std::string> names{"lumacore_0", "lumacore_1", "ppc405_0",
                                       "ppc440_0"};
  for (const std::string &name : names)
    lines.push_back({"set", name, "--debug-device", "3", "--into", "local"});
  for (const Result &result : runAtOnce(lines, [] {}))
    EXPECT_EQ(result.status, 0) << result.err;
  for (const std::string &name : names)
    EXPECT_THAT(text("zeldebug.local.toml"),
                HasSubstr("[processor." + name + "]\ndebugDevice = 3\n"));
}

TEST_F(SettingIntoTest, AllGoToTheTableOfAll) {
  project("");
  const Result run = set({"--all", "--cable", "none", "--into", "local"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, StartsWith("PROCESSOR   RESULT  COMMAND\n"
                                  "lumacore_0  saved   connect lc hdu "));
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[settings]\ncable.cableType = \"none\"\n");
  // What one of them cannot have is refused for all.
  const Result refused =
      set({"--all", "--debug-device", "3", "--into", "local"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("--debug-device: 'debugDevice' of "
                                     "'lumacore_2' would not survive: "));
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[settings]\ncable.cableType = \"none\"\n");
}

TEST_F(SettingIntoTest, AProfileIsWrittenWhereItIs) {
  project("[profile.slow.settings]\ncable.frequency = \"750 kHz\"\n");
  local("[profile.mine.processor.lumacore_1]\ndebugDevice = 2\n");
  Result run =
      set({"lumacore_0", "--cable", "quorla_podusb", "--into", "profile:slow"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(own(), "[profile.slow.settings]\ncable.frequency = \"750 kHz\"\n\n"
                   "[profile.slow.processor.lumacore_0]\n"
                   "cable.cableType = \"quorla_podusb\"\n");
  EXPECT_EQ(run.out, "connect lc hdu -cable type quorla_podusb port USB21 "
                     "frequency 750000 -debugdevice cpunr 1\n");
  EXPECT_THAT(run.err, HasSubstr("note: profile 'slow' is not in use"));
  run = set({"lumacore_1", "--debug-device", "4", "--into", "profile:mine",
             "--profile", "mine"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[profile.mine.processor.lumacore_1]\ndebugDevice = 4\n");
  EXPECT_THAT(run.err, Not(HasSubstr("not in use")));
  const json failure =
      setJson({"lumacore_0", "--debug-device", "1", "--into", "profile:slov"},
              2)["failure"];
  EXPECT_EQ(failure["option"], "--into");
  EXPECT_EQ(failure["suggestion"], "slow");
}

TEST_F(SettingIntoTest, WhatAHigherSourceHidesIsToldWithItsPlace) {
  project("");
  local("[settings]\ncable.cableType = \"none\"\n"
        "[processor.lumacore_0]\ndebugDevice = 9\n");
  const json document =
      setJson({"lumacore_0", "--debug-device", "3", "--into", "project"});
  const json &warning = document["warnings"][0];
  EXPECT_EQ(warning["code"], "overridden");
  EXPECT_EQ(warning["setting"], "debugDevice");
  EXPECT_EQ(warning["file"], "zeldebug.local.toml");
  EXPECT_EQ(warning["line"], 4);
  EXPECT_EQ(warning["column"], 15);
  EXPECT_EQ(document["results"][0]["connectCommand"],
            "connect lc hdu -debugdevice deviceNr 9 cpunr 1");
  EXPECT_EQ(own(), "\n[processor.lumacore_0]\ndebugDevice = 3\n");
  // A warning is a failure where one wants it so.
  const std::string before = text("zeldebug.toml");
  EXPECT_EQ(set({"lumacore_0", "--debug-device", "4", "--into", "project",
                 "--strict"})
                .status,
            1);
  EXPECT_EQ(text("zeldebug.toml"), before);
}

TEST_F(SettingIntoTest, UnsetTakesAwayWhatLowerSourcesSay) {
  project(lumacore0 + "3\n");
  local(lumacore0 + "4\n");
  EXPECT_EQ(
      set({"lumacore_0", "--unset", "debugDevice", "--into", "local"}).out,
      "connect lc hdu -debugdevice cpunr 1\n");
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[processor.lumacore_0]\nunset = [\"debugDevice\"]\n");
  EXPECT_EQ(
      set({"lumacore_0", "--unset", "debugDevice", "--into", "project"}).status,
      0);
  EXPECT_EQ(own(), "[processor.lumacore_0]\n");
}

TEST_F(SettingIntoTest, UnsetOfWhatNobodySaysMakesNoLocalFile) {
  project("");
  const std::vector<std::string> line{"lumacore_0", "--unset", "debugDevice",
                                      "--into", "local"};
  const Result run = set(line);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "connect lc hdu -debugdevice cpunr 1\n");
  EXPECT_EQ(run.err, "zeldebug: note: there is no zeldebug.local.toml, and "
                     "none is needed\n");
  EXPECT_EQ(setJson(line)["results"][0]["outcome"], "unchanged");
  EXPECT_FALSE(fs::exists("zeldebug.local.toml"));
  local("");
  EXPECT_EQ(set(line).err,
            "zeldebug: note: zeldebug.local.toml says so already\n");
  EXPECT_EQ(text("zeldebug.local.toml"), "");
}

TEST_F(SettingIntoTest, AWholeChainAndASettingsFileAreTaken) {
  project("");
  EXPECT_EQ(
      set({"lumacore_0", "--device",
           "devicenr=1,partname=p,irlength=6,idcode=0x10", "--into", "project"})
          .status,
      0);
  EXPECT_THAT(own(), HasSubstr("\n[processor.lumacore_0]\nchain = ["));
  folder.write("more.json", R"({"record": {"debugDevice": 5}})");
  EXPECT_EQ(
      set({"lumacore_0", "--settings", "more.json", "--into", "local"}).status,
      0);
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[processor.lumacore_0]\ndebugDevice = 5\n");
}

TEST_F(SettingIntoTest, ASerialNumberInTheSharedFileIsWarnedOf) {
  project("[settings]\ncable.cableType = \"none\"\n"
          "[processor.lumacore_0]\ncable.cableType = \"quorla_podusb\"\n");
  const json warnings =
      setJson({"lumacore_0", "--esn", "0042", "--into", "project"})["warnings"];
  std::size_t told = 0;
  for (const json &one : warnings)
    if (one["code"] == "desk-setting") {
      ++told;
      EXPECT_EQ(one["line"], 8);
      EXPECT_EQ(one["column"], 13);
      EXPECT_THAT(one["message"].get<std::string>(),
                  HasSubstr("zeldebug set lumacore_0 --esn 0042 --into "
                            "local"));
    }
  EXPECT_EQ(told, 1U);
}

TEST_F(SettingIntoTest, WhatCannotBeIsRefusedAndNothingIsWritten) {
  project(lumacore0 + "3\n");
  const std::string before = text("zeldebug.toml");
  const auto failure = [this](std::vector<std::string> line, int status) {
    line.insert(line.end(), {"--into", "project"});
    return setJson(line, status)["failure"];
  };
  EXPECT_EQ(failure({"lumacore_0", "--rom", "0x100:0"}, 1)["code"],
            "would-be-lost");
  const json refused = failure({"lumacore_2", "--connection", "hw"}, 1);
  EXPECT_EQ(refused["code"], "not-allowed");
  EXPECT_EQ(refused["option"], "--connection");
  EXPECT_EQ(refused["accepted"], json::parse(R"(["sim"])"));
  EXPECT_EQ(failure({"lumacore_0", "--debug-device", "200"}, 2)["code"],
            "bad-value");
  EXPECT_EQ(
      failure({"lumacore_0", "--debug-device", "1", "--debug-device", "2"},
              1)["code"],
      "excluded");
  EXPECT_EQ(failure({"lumacore_9", "--debug-device", "1"}, 2)["code"],
            "unknown-processor");
  EXPECT_EQ(failure({"lumacore_0", "--from", "connect lc hdu"}, 2)["option"],
            "--from");
  EXPECT_EQ(failure({"lumacore_0", "--copy-from", "lumacore_1"}, 2)["option"],
            "--copy-from");
  EXPECT_EQ(failure({"lumacore_0", "--mkdir"}, 2)["option"], "--mkdir");
  EXPECT_EQ(failure({"lumacore_0", "--force"}, 2)["option"], "--force");
  EXPECT_EQ(failure({"hw/board.xml", "lumacore_0"}, 2)["option"], "--into");
  const json target = setJson({"lumacore_0", "--into", "locl"}, 2)["failure"];
  EXPECT_EQ(target["option"], "--into");
  EXPECT_EQ(target["suggestion"], "local");
  for (const char *const one : {"none", "\xC3\xA4", "a b", ""}) {
    const std::string name = one;
    const json refusal = setJson(
        {"lumacore_0", "--debug-device", "1", "--into", "profile:" + name},
        2)["failure"];
    EXPECT_EQ(refusal["code"], "bad-value");
    EXPECT_EQ(refusal["option"], "--into");
    EXPECT_EQ(refusal["value"], name);
    EXPECT_EQ(refusal["message"],
              "--into: '" + name +
                  "' is no name of a profile: it has letters, digits, '_' and "
                  "'-', and is not 'none'");
  }
  EXPECT_EQ(text("zeldebug.toml"), before);
  EXPECT_FALSE(fs::exists("zeldebug.local.toml"));
  // Faults of the files come first, all of them.
  project(lumacore0 + "128\n");
  EXPECT_EQ(failure({"lumacore_0", "--debug-device", "1"}, 3)["code"],
            "out-of-range");
}

TEST_F(SettingIntoTest, AnOptionFileStartsFromTheProjectWhereThereIsNone) {
  project(lumacore0 + "3\n");
  EXPECT_EQ(set({"lumacore_0", "--cable", "quorla_podusb", "--mkdir"}).status,
            0);
  EXPECT_EQ(saved("lumacore_0"),
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "6000000 -debugdevice deviceNr 3 cpunr 1");
  // What is there is what it starts from.
  save("lumacore_1", "connect lc hdu -debugdevice deviceNr 5 cpunr 2");
  local("[processor.lumacore_1]\ndebugDevice = 7\n");
  EXPECT_EQ(set({"lumacore_1", "--cable", "quorla_podusb"}).status, 0);
  EXPECT_EQ(saved("lumacore_1"),
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "6000000 -debugdevice deviceNr 5 cpunr 2");
  EXPECT_FALSE(fs::exists("etc/.zeldebug-sync"));
  // Without a project, from the defaults.
  EXPECT_EQ(set({"hw/board.xml", "lumacore_0", "-C", "hw", "--mkdir"}).out,
            "connect lc hdu -debugdevice cpunr 1\n");
}

TEST_F(SettingIntoTest, ALineMayNameTheConnectionThatTheFilesDoNot) {
  folder.write("zeldebug.toml", "design = \"hw/board.xml\"\n");
  Result run = set({"lumacore_2", "--mkdir"});
  EXPECT_EQ(run.status, 1);
  EXPECT_FALSE(fs::exists("etc/kvo_lumacore_2.opt"));
  run = set({"lumacore_2", "--connection", "sim", "--mkdir"});
  EXPECT_EQ(run.status, 0) << run.err;
  folder.write("zeldebug.toml", "design = \"hw/board.xml\"\n"
                                "[processor.lumacore_2]\n"
                                "connection = \"vp\"\n");
  fs::remove("etc/kvo_lumacore_2.opt");
  run = set({"lumacore_2", "--connection", "sim"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(
      run.err,
      HasSubstr("zeldebug.toml:3:14: 'vp': 'lumacore_2' does not allow it"));
}

TEST_F(SettingIntoTest, AWordAloneIsTheProcessor) {
  Result run = set({"lumacore_0", "--debug-device", "3"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("zeldebug init DESIGN"));
  project("");
  fs::create_directory("etc");
  EXPECT_EQ(set({"--all", "lumacore_0"}).status, 3); // That is a design.
  EXPECT_EQ(set({"--debug-device", "3"}).status, 2);
  EXPECT_EQ(set({"lumacore_0", "--no-project"}).status, 2);
  EXPECT_EQ(
      set({"hw/board.xml", "lumacore_0", "--project", "zeldebug.toml"}).status,
      2);
  EXPECT_THAT(etc(), IsEmpty());
  run = set({"lumacore_0", "--project", "zeldebug.toml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(saved("lumacore_0"), "connect lc hdu -debugdevice cpunr 1");
}

TEST_F(SettingIntoTest, CompletionKnowsTheTargets) {
  project("[profile.slow.settings]\n");
  EXPECT_EQ(run({"complete", "--", "set", "lumacore_0", "--into", ""}).out,
            "local\nproject\nprofile:slow\n");
  EXPECT_EQ(run({"complete", "--", "set", "a9"}).out, ":files\na9_0\na9_1\n");
  EXPECT_EQ(
      run({"complete", "--", "set", "lumacore_2", "--connection", ""}).out,
      "sim\n");
}

} // namespace
} // namespace tool
