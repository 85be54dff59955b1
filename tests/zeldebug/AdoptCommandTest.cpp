// Option files that are there become a project, or part of one.
#include <filesystem>

#include <gmock/gmock.h>

#include "ProjectTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

using AdoptCommandTest = ProjectTest;

constexpr const char *usb =
    "connect lc hdu -cable type quorla_podusb esn 0042 -debugdevice cpunr 1";

TEST_F(AdoptCommandTest, MakesAProjectThatGivesTheSameFiles) {
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
  save("lumacore_1", "connect lc hdu -debugdevice deviceNr 3 cpunr 2");
  save("lumacore_2", "connect lc sim");
  const Result run = this->run({"adopt", "hw/board.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "zeldebug.toml\n");
  const std::string made = text("zeldebug.toml");
  EXPECT_THAT(made, HasSubstr("\ndesign = \"hw/board.xml\"\n"));
  EXPECT_THAT(made, HasSubstr("\n[processor.lumacore_0]\ndebugDevice = 3\n"));
  EXPECT_THAT(made,
              HasSubstr("\n[processor.lumacore_2]\nconnection = \"sim\"\n"));
  const json document = runJson({"sync"});
  for (const json &result : document["results"]) {
    const std::string name = result["instanceName"];
    const bool wasThere = name.compare(0, 8, "lumacore") == 0;
    EXPECT_EQ(result["outcome"], wasThere ? "same" : "created") << name;
  }
}

TEST_F(AdoptCommandTest, WhatBelongsToADeskGoesToTheLocalFile) {
  save("lumacore_0", usb);
  const json document = runJson({"adopt", "hw/board.xml"});
  EXPECT_EQ(document["project"], "zeldebug.toml");
  EXPECT_EQ(document["local"], "zeldebug.local.toml");
  EXPECT_THAT(text("zeldebug.toml"), Not(HasSubstr("0042")));
  EXPECT_THAT(text("zeldebug.toml"), Not(HasSubstr("frequency")));
  EXPECT_THAT(text("zeldebug.local.toml"),
              HasSubstr("[processor.lumacore_0]\ncable.esn = \"0042\"\n"));
  EXPECT_THAT(text(".gitignore"), HasSubstr("zeldebug.local.toml\n"));
}

TEST_F(AdoptCommandTest, AFileThatWouldChangeIsNamed) {
  const std::string other = "connect  lc hdu -debugdevice devicenr 3 cpunr 1";
  save("lumacore_0", other);
  Result run = this->run({"adopt", "hw/board.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("[adopt-changes]\n  is      " + other +
                                 "\n  becomes connect lc hdu -debugdevice "
                                 "deviceNr 3 cpunr 1\n"));
  EXPECT_FALSE(fs::exists("zeldebug.toml"));
  EXPECT_EQ(runJson({"adopt", "hw/board.xml"}, 1)["failure"]["code"],
            "adopt-changes");
  const json document = runJson({"adopt", "hw/board.xml", "--force"});
  EXPECT_EQ(document["changes"][0]["before"], other);
  EXPECT_EQ(saved("lumacore_0"), other);
  EXPECT_TRUE(fs::exists("zeldebug.toml"));
}

TEST_F(AdoptCommandTest, AFileThatCannotBeReadIsNoSource) {
  save("lumacore_0", "connect nothing");
  const Result run = this->run({"adopt", "hw/board.xml"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("etc/kvo_lumacore_0.opt"));
  EXPECT_FALSE(fs::exists("zeldebug.toml"));
}

TEST_F(AdoptCommandTest, TakesAChangeIntoTheProject) {
  project("# of the lab\n[processor.lumacore_0]\ndebugDevice = 0x3 # chain\n");
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 0);
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb esn 0042 "
                     "-debugdevice deviceNr 5 cpunr 1");
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 1);
  const Result run = this->run({"adopt", "lumacore_0"});
  EXPECT_EQ(run.status, 0) << run.err;
  // The cable is the project's, its serial number the desk's; comments stay.
  EXPECT_THAT(text("zeldebug.toml"),
              HasSubstr("# of the lab\n[processor.lumacore_0]\ndebugDevice = "
                        "0x5 # chain\n"));
  EXPECT_THAT(text("zeldebug.toml"),
              HasSubstr("cable.cableType = \"quorla_podusb\"\n"));
  EXPECT_THAT(text("zeldebug.toml"), Not(HasSubstr("0042")));
  EXPECT_THAT(text("zeldebug.local.toml"),
              HasSubstr("[processor.lumacore_0]\ncable.esn = \"0042\"\n"));
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
}

TEST_F(AdoptCommandTest, AllOfItGoesWhereTheLineSays) {
  project("[profile.slow.settings]\n");
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  const json document =
      runJson({"adopt", "lumacore_0", "--into", "profile:slow"});
  EXPECT_EQ(document["adopted"], json::parse(R"([
    {"instanceName": "lumacore_0", "setting": "debugDevice", "value": 5,
     "file": "zeldebug.toml"}])"));
  EXPECT_THAT(text("zeldebug.toml"),
              HasSubstr("[profile.slow.processor.lumacore_0]\n"
                        "debugDevice = 5\n"));
  EXPECT_EQ(runJson({"adopt", "lumacore_0", "--into", "local"})["local"],
            "zeldebug.local.toml");
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
  // Nothing is left to take.
  const Result again = this->run({"adopt", "lumacore_0"});
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.out, "");
  EXPECT_EQ(again.err, "zeldebug: note: the project says it already\n");
}

TEST_F(AdoptCommandTest, AProcessorThatIsNamedTwiceIsTakenOnce) {
  project("");
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  save("lumacore_1", "connect lc hdu -debugdevice deviceNr 3 cpunr 2");
  const Result run =
      this->run({"adopt", "lumacore_1", "lumacore_0", "lumacore_1"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "PROCESSOR   SETTING      VALUE  FILE\n"
                     "lumacore_1  debugDevice  3      zeldebug.toml\n"
                     "lumacore_0  debugDevice  5      zeldebug.toml\n");
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 6 cpunr 1");
  EXPECT_EQ(runJson({"adopt", "lumacore_0", "lumacore_0"})["adopted"].size(),
            1U);
}

TEST_F(AdoptCommandTest, WhatAnEditorHasSavedIsTakenForGood) {
  project("");
  EXPECT_EQ(run({"sync"}).status, 0);
  // An editor ends the line.
  const std::string changed =
      "connect lc hdu -debugdevice deviceNr 5 cpunr 1\n";
  save("lumacore_0", changed);
  EXPECT_EQ(syncOne({}, 1)["outcome"], "conflict");
  EXPECT_EQ(run({"adopt", "lumacore_0"}).status, 0);
  EXPECT_EQ(syncOne({"--dry-run"})["outcome"], "updated");
  EXPECT_EQ(syncOne()["outcome"], "updated");
  EXPECT_EQ(saved("lumacore_0") + "\n", changed);
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
}

TEST_F(AdoptCommandTest, ASerialNumberThatIsGoneIsGoneFromTheLocalFile) {
  project("[settings]\ncable.cableType = \"quorla_podusb\"\n");
  local("[processor.lumacore_0]\ncable.esn = \"0042\"\n");
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 0);
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb port USB21 "
                     "frequency 6000000 -debugdevice cpunr 1");
  const Result run = this->run({"adopt", "lumacore_0"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.err, Not(HasSubstr("overridden")));
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[processor.lumacore_0]\ncable.esn = \"\"\n");
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
}

TEST_F(AdoptCommandTest, WhatDoesNotSurviveWithItIsUnset) {
  project("[processor.lumacore_0]\nconnection = \"stub-serial\"\n"
          "stubBaudRate = 9600\n");
  local("[settings]\nstubTimeout = 7\n");
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 0);
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  EXPECT_EQ(syncOne({}, 1)["outcome"], "conflict");
  const json document = runJson({"adopt", "lumacore_0"});
  EXPECT_EQ(document["adopted"], json::parse(R"([
    {"instanceName": "lumacore_0", "setting": "connection", "value": "hw",
     "file": "zeldebug.toml"},
    {"instanceName": "lumacore_0", "setting": "debugDevice", "value": 5,
     "file": "zeldebug.toml"},
    {"instanceName": "lumacore_0", "setting": "stubBaudRate", "value": null,
     "file": "zeldebug.toml"},
    {"instanceName": "lumacore_0", "setting": "stubTimeout", "value": null,
     "file": "zeldebug.local.toml"}])"));
  EXPECT_THAT(text("zeldebug.toml"),
              HasSubstr("[processor.lumacore_0]\nconnection = \"hw\"\n"
                        "debugDevice = 5\n"));
  EXPECT_THAT(text("zeldebug.toml"), Not(HasSubstr("stub")));
  EXPECT_EQ(text("zeldebug.local.toml"),
            "[settings]\nstubTimeout = 7\n\n[processor.lumacore_0]\n"
            "unset = [\"stubTimeout\"]\n");
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
}

TEST_F(AdoptCommandTest, NothingIsLeftOfAProjectThatCannotBeWritten) {
  Surroundings surroundings;
  // Enough for the lines of .gitignore, not for the project.
  surroundings.fileSizeLimit = 40;
  for (const bool isThere : {false, true}) {
    if (isThere)
      folder.write(".gitignore", "build/\n");
    EXPECT_EQ(this->run({"init", "hw/board.xml"}, surroundings).status, 1);
    EXPECT_FALSE(fs::exists("zeldebug.toml"));
    EXPECT_EQ(fs::exists(".gitignore"), isThere);
  }
  EXPECT_EQ(text(".gitignore"), "build/\n");
}

TEST_F(AdoptCommandTest, ADesignMakesNoSecondProjectAndWhatWouldIsTold) {
  project("");
  local("");
  const auto told = [this](std::vector<std::string> more) {
    more.insert(more.begin(), {"adopt", "hw/board.xml"});
    const Result run = this->run(more);
    EXPECT_EQ(run.status, 2);
    return run.err;
  };
  const auto refusal = [](const std::string &file, const std::string &advice) {
    return "zeldebug: error: 'hw/board.xml' is no processor: adopt takes "
           "option files of processors into " +
           file + ", which is there already; " + advice + '\n';
  };
  const std::vector<std::string> newProject{"adopt", "hw/board.xml",
                                            "--no-project"};
  EXPECT_EQ(told({}),
            refusal("zeldebug.toml",
                    "with --no-project it makes a project of DESIGN, once "
                    "zeldebug.toml and zeldebug.local.toml are moved away"));
  EXPECT_EQ(run(newProject).status, 1);
  fs::remove("zeldebug.local.toml");
  EXPECT_EQ(told({}),
            refusal("zeldebug.toml",
                    "with --no-project it makes a project of DESIGN, once "
                    "zeldebug.toml is moved away"));
  EXPECT_EQ(run(newProject).status, 1);

  // The project of a folder above is in nobody's way.
  fs::create_directory("sub");
  EXPECT_EQ(told({"-C", "sub"}),
            refusal("zeldebug.toml",
                    "with --no-project it makes a project of DESIGN"));
  EXPECT_EQ(run({"adopt", "hw/board.xml", "-C", "sub", "--no-project"}).status,
            0);
  EXPECT_TRUE(fs::exists("sub/zeldebug.toml"));

  fs::rename("zeldebug.toml", "other.toml");
  EXPECT_EQ(told({"--project", "other.toml"}),
            refusal("other.toml", "with --no-project in place of --project it "
                                  "makes a project of DESIGN"));
  EXPECT_EQ(run(newProject).status, 0);
  EXPECT_TRUE(fs::exists("zeldebug.toml"));
}

TEST_F(AdoptCommandTest, WrongUse) {
  EXPECT_EQ(run({"adopt"}).status, 2);
  EXPECT_EQ(run({"adopt", "hw/board.xml", "--into", "local"}).status, 2);
  EXPECT_EQ(run({"adopt", "hw/board.xml", "lumacore_0"}).status, 2);
  project("");
  EXPECT_EQ(run({"adopt"}).status, 2);
  Result unknown = run({"adopt", "lumacore_9"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.err,
            "zeldebug: error: 'lumacore_9' is no processor that can be "
            "debugged; did you mean 'lumacore_0'?\n");
  unknown = run({"adopt", "r5_0"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("'r5_0' cannot be debugged: "));
  json failure =
      runJson({"adopt", "lumacore_0", "--into", "locl"}, 2)["failure"];
  EXPECT_EQ(failure["option"], "--into");
  EXPECT_EQ(failure["suggestion"], "local");
  for (const char *const one : {"none", "\xC3\xA4", "a b", ""}) {
    const std::string name = one;
    const Result noName =
        run({"adopt", "lumacore_0", "--into", "profile:" + name});
    EXPECT_EQ(noName.status, 2);
    EXPECT_EQ(noName.err,
              "zeldebug: error: --into: '" + name +
                  "' is no name of a profile: it has letters, digits, '_' and "
                  "'-', and is not 'none'\n");
  }
  failure =
      runJson({"adopt", "lumacore_0", "--into", "profile:no"}, 2)["failure"];
  EXPECT_EQ(failure["option"], "--into");
  EXPECT_EQ(failure["message"], "--into: 'no' is no profile of the project; "
                                "write [profile.no.settings]");
  // No option file is there.
  EXPECT_EQ(run({"adopt", "lumacore_0"}).status, 3);
}

} // namespace
} // namespace tool
