// The files of a project, from the line: which are used, what is told of them,
// and the option files that follow. init, sync.
#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include "ProjectTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

constexpr const char *ofThree =
    "connect lc hdu -debugdevice deviceNr 3 cpunr 1";
constexpr const char *ofFive = "connect lc hdu -debugdevice deviceNr 5 cpunr 1";

const std::string lumacore0 = "[processor.lumacore_0]\ndebugDevice = ";

TEST_F(ProjectTest, InitWritesAProjectThatSyncFollows) {
  Result run = this->run({"init", "hw/board.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "zeldebug.toml\n");
  const std::string made = text("zeldebug.toml");
  EXPECT_THAT(made, HasSubstr("\ndesign = \"hw/board.xml\"\n"));
  EXPECT_THAT(made,
              HasSubstr("\n[processor.lumacore_2]\nconnection = \"sim\"\n"));
  EXPECT_THAT(made, Not(HasSubstr("[processor.lumacore_1]")));
  EXPECT_EQ(text(".gitignore"), "zeldebug.local.toml\netc/\n");
  run = this->run({"sync"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "PROCESSOR   RESULT   FILE\n"
                     "lumacore_0  created  etc/kvo_lumacore_0.opt\n"
                     "lumacore_1  created  etc/kvo_lumacore_1.opt\n"
                     "ppc405_0    created  etc/kvo_ppc405_0.opt\n"
                     "ppc440_0    created  etc/kvo_ppc440_0.opt\n"
                     "lumacore_2  created  etc/kvo_lumacore_2.opt\n"
                     "a9_0        created  etc/kvo_a9_0.opt\n"
                     "a9_1        created  etc/kvo_a9_1.opt\n");
  EXPECT_EQ(saved("lumacore_1"), "connect lc hdu -debugdevice cpunr 2");
  EXPECT_EQ(this->run({"sync", "--check"}).status, 0);
}

TEST_F(ProjectTest, InitTouchesNothingThatIsThere) {
  folder.write("zeldebug.toml", "mine\n");
  const Result run = this->run({"init", "hw/board.xml"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zeldebug: error: zeldebug.toml: it is there already, and "
                     "stays as it is\n");
  EXPECT_EQ(text("zeldebug.toml"), "mine\n");
  EXPECT_FALSE(fs::exists(".gitignore"));
  EXPECT_EQ(runJson({"init", "hw/board.xml"}, 1)["failure"]["code"],
            "file-exists");
}

TEST_F(ProjectTest, InitWritesNothingStrictlyWhereTheDesignHasAWarning) {
  std::string design = text("hw/board.xml");
  const std::string first = "<ipxact:componentInstance>";
  design.insert(design.find(first) + first.size(),
                "<ipxact:isPresent>1</ipxact:isPresent>");
  folder.write("hw/board.xml", design);
  Result run = this->run({"init", "hw/board.xml", "--strict"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("nothing is written, because a warning is a "
                                 "failure with --strict\n"));
  EXPECT_EQ(run.out, "");
  EXPECT_FALSE(fs::exists("zeldebug.toml"));
  EXPECT_FALSE(fs::exists(".gitignore"));
  run = this->run({"init", "hw/board.xml"});
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(ProjectTest, InitSaysWhatTheLineSays) {
  fs::create_directory("desk");
  folder.write(".gitignore", "build/\n/etc/");
  const json document =
      runJson({"init", "hw/board.xml", "-C", "desk", "--library",
               "hw/components", "--library", "hw/buses"});
  EXPECT_EQ(document["project"], "desk/zeldebug.toml");
  EXPECT_EQ(document["local"], nullptr);
  EXPECT_EQ(document["kinds"], nullptr);
  const std::string made = text("desk/zeldebug.toml");
  EXPECT_THAT(made, HasSubstr("design = \"../hw/board.xml\"\n"));
  EXPECT_THAT(made,
              HasSubstr("library = [\"../hw/components\", \"../hw/buses\"]\n"));
  EXPECT_EQ(text(".gitignore"), "build/\n/etc/");
  EXPECT_EQ(run({"sync", "-C", "desk"}).status, 0);
  EXPECT_TRUE(fs::exists("desk/etc/kvo_a9_0.opt"));
}

TEST_F(ProjectTest, OptionFilesFollowUnlessSomebodyChangedThem) {
  project(lumacore0 + "3\n");
  json result = syncOne();
  EXPECT_EQ(result["outcome"], "created");
  EXPECT_EQ(result["connectCommand"], ofThree);
  EXPECT_EQ(saved("lumacore_0"), ofThree);
  EXPECT_EQ(text("etc/.zeldebug-sync"),
            std::string("lumacore_0\t") + ofThree + "\n");
  EXPECT_EQ(syncOne()["outcome"], "same");
  project(lumacore0 + "4\n");
  result = syncOne({"--check"}, 1);
  EXPECT_EQ(result["outcome"], "updated");
  EXPECT_EQ(result["differences"],
            json::parse(R"([{"setting": "debugDevice", "before": 3, "after": 4,
                             "origin": "zeldebug.toml:5:15"}])"));
  EXPECT_EQ(saved("lumacore_0"), ofThree);
  EXPECT_EQ(syncOne({"--dry-run"})["outcome"], "updated");
  EXPECT_EQ(saved("lumacore_0"), ofThree);
  EXPECT_EQ(syncOne()["outcome"], "updated");
  EXPECT_EQ(saved("lumacore_0"),
            "connect lc hdu -debugdevice deviceNr 4 cpunr 1");
  save("lumacore_0", ofFive);
  const Result run = this->run({"sync", "lumacore_0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "PROCESSOR   RESULT    FILE\n"
                     "lumacore_0  conflict  etc/kvo_lumacore_0.opt\n"
                     "\n"
                     "etc/kvo_lumacore_0.opt\n"
                     "  debugDevice: 5 in the file, 4 by zeldebug.toml:5:15\n");
  EXPECT_EQ(run.err,
            "zeldebug: error: lumacore_0: etc/kvo_lumacore_0.opt is not as it "
            "was written last, and stays: 'zeldebug adopt lumacore_0' takes it "
            "into the project, --force writes over it\n");
  EXPECT_EQ(saved("lumacore_0"), ofFive);
  EXPECT_EQ(syncOne({"--force"})["outcome"], "updated");
  EXPECT_EQ(syncOne({"--check"})["outcome"], "same");
}

TEST_F(ProjectTest, EveryFaultIsToldAtItsPlaceAndNothingIsWritten) {
  project("[settings]\ncable.freqency = \"3 MHz\"\ndebugDevice = 128\n");
  local("use.probe = \"lab\"\n[processor.lumacore_9]\ndebugDevice = 1\n");
  const Result run = this->run({"sync"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("zeldebug: error: zeldebug.toml:5:7: "));
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 4) << run.err;
  EXPECT_FALSE(fs::exists("etc"));
  const json document = runJson({"sync"}, 3);
  EXPECT_EQ(document["failure"]["code"], "unknown-key");
  EXPECT_EQ(document["failure"]["file"], "zeldebug.toml");
  EXPECT_EQ(document["failure"]["line"], 5);
  json places;
  for (const json &fault : document["faults"])
    places.push_back({fault["file"], fault["line"], fault["column"],
                      fault["code"], fault["suggestion"]});
  EXPECT_EQ(places, json::parse(R"([
    ["zeldebug.toml", 5, 7, "unknown-key", "frequency"],
    ["zeldebug.toml", 6, 15, "out-of-range", null],
    ["zeldebug.local.toml", 1, 13, "unknown-probe", null],
    ["zeldebug.local.toml", 2, 12, "unknown-processor", "lumacore_0"]])"));
}

TEST_F(ProjectTest, ADesignThatCannotBeReadIsToldWithItsPlace) {
  folder.write("zeldebug.toml", "design = \"hw/bord.xml\"\n");
  const Result run = this->run({"sync"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("hw/bord.xml"));
  EXPECT_THAT(run.err, HasSubstr("\nzeldebug.toml:1:10 names the design\n"));
}

TEST_F(ProjectTest, AFileOfTheProjectThatCannotBeReadIsToldWithItsPlace) {
  const auto told = [this](const std::string &head) {
    folder.write("zeldebug.toml", head + "design = \"hw/board.xml\"\n");
    const Result run = this->run({"sync", "--dry-run"});
    EXPECT_EQ(run.status, 3) << head;
    return run.err;
  };
  EXPECT_EQ(told("kinds = \"no.kinds\"\n"),
            "zeldebug: error: no.kinds: there is no such file\n"
            "zeldebug.toml:1:9 names the kind table\n");
  const std::string noFolder = ": there is no such library folder or catalog\n";
  EXPECT_EQ(told("library = [\"hw\", \"nowhere\"]\n"),
            "zeldebug: error: nowhere" + noFolder +
                "zeldebug.toml:1:18 names a library\n");
  // The file that counts names it.
  local("# mine\nlibrary = [\"elsewhere\"]\n");
  EXPECT_EQ(told("library = [\"nowhere\"]\n"),
            "zeldebug: error: elsewhere" + noFolder +
                "zeldebug.local.toml:2:12 names a library\n");
  local("");
  // What is wrong inside stands there.
  folder.write("bad.kinds", "a b\n");
  const std::string inside = told("kinds = \"bad.kinds\"\n");
  EXPECT_THAT(inside, testing::StartsWith("zeldebug: error: bad.kinds:1: "));
  EXPECT_THAT(inside,
              testing::EndsWith("\nzeldebug.toml:1:9 names the kind table\n"));
  // What the line names stands on the line.
  const Result ofLine = run({"list", "--kinds", "no.kinds"});
  EXPECT_EQ(ofLine.status, 3);
  EXPECT_THAT(ofLine.err,
              testing::StartsWith("zeldebug: error: no.kinds: there is no"));
  EXPECT_THAT(ofLine.err, testing::Not(HasSubstr(" names the ")));
}

TEST_F(ProjectTest, TheProjectIsFoundUpwards) {
  project(lumacore0 + "3\n");
  fs::create_directories("a/b");
  EXPECT_EQ(run({"sync", "-C", "a/b"}).status, 0);
  EXPECT_EQ(saved("lumacore_0"), ofThree);
  EXPECT_FALSE(fs::exists("a/b/etc"));
  // The first one counts.
  folder.write("a/zeldebug.toml", "design = \"../hw/board.xml\"\n"
                                  "[settings]\nconnection = \"sim\"\n");
  EXPECT_EQ(run({"sync", "lumacore_1", "-C", "a/b"}).status, 0);
  EXPECT_TRUE(fs::exists("a/etc/kvo_lumacore_1.opt"));
  // Another file by its name, with a local file of its own.
  project(lumacore0 + "3\n", "other.toml");
  folder.write("other.local.toml",
               "directory = \"elsewhere\"\n" + lumacore0 + "5\n");
  const json document = runJson({"sync", "--project", "other.toml"});
  EXPECT_EQ(document["project"], "other.toml");
  EXPECT_EQ(document["local"], "other.local.toml");
  EXPECT_EQ(text("elsewhere/etc/kvo_lumacore_0.opt"), ofFive);
}

TEST_F(ProjectTest, WrongUseNamesWhatToDo) {
  Result run = this->run({"sync"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zeldebug: error: there is no zeldebug.toml in '.' nor "
                     "above it: give DESIGN, or make one with 'zeldebug init "
                     "DESIGN'\n");
  project("[probe.lab]\nesn = \"0042\"\n");
  EXPECT_EQ(this->run({"sync", "--no-project"}).status, 2);
  EXPECT_EQ(
      this->run({"sync", "--project", "zeldebug.toml", "--no-project"}).status,
      2);
  EXPECT_EQ(this->run({"sync", "--project", "no.toml"}).status, 3);
  EXPECT_EQ(this->run({"sync", "-C", "nowhere"}).status, 3);
  run = this->run({"sync", "lumacore_9"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("did you mean 'lumacore_0'?"));
  json failure = runJson({"sync", "--probe", "lb"}, 2)["failure"];
  EXPECT_EQ(failure["option"], "--probe");
  EXPECT_EQ(failure["code"], "unknown-probe");
  EXPECT_EQ(failure["suggestion"], "lab");
  setenv("ZELDEBUG_PROFILE", "slow", 1);
  failure = runJson({"sync"}, 2)["failure"];
  EXPECT_EQ(failure["option"], "ZELDEBUG_PROFILE");
  EXPECT_EQ(failure["code"], "unknown-profile");
  // The line stands over it.
  EXPECT_EQ(this->run({"sync", "--profile", "none"}).status, 0);
  EXPECT_FALSE(fs::exists("zeldebug.local.toml"));
}

TEST_F(ProjectTest, ProbeAndProfileOfTheLineCount) {
  project("[settings.cable]\ncableType = \"quorla_podusb\"\n"
          "[probe.lab]\nesn = \"0042\"\n"
          "[profile.slow.settings]\ncable.frequency = \"750 kHz\"\n");
  const json plain = runJson({"sync", "lumacore_0", "--dry-run"});
  EXPECT_EQ(plain["probe"], nullptr);
  EXPECT_EQ(plain["profile"], nullptr);
  EXPECT_EQ(plain["results"][0]["connectCommand"],
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "6000000 -debugdevice cpunr 1");
  const json slow =
      runJson({"sync", "lumacore_0", "--dry-run", "--profile", "slow"});
  EXPECT_EQ(slow["profile"], "slow");
  EXPECT_EQ(slow["results"][0]["connectCommand"],
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "750000 -debugdevice cpunr 1");
  const json probe =
      runJson({"sync", "lumacore_0", "--dry-run", "--probe", "lab"});
  EXPECT_EQ(probe["probe"], "lab");
  EXPECT_THAT(probe["results"][0]["connectCommand"].get<std::string>(),
              HasSubstr(" esn 0042"));
}

TEST_F(ProjectTest, AConnectionThatIsNotAllowedHasItsCode) {
  project("[processor.lumacore_1]\nconnection = \"stub-jtag\"\n");
  const json document = runJson({"sync", "lumacore_1"}, 1);
  EXPECT_EQ(document["results"][0]["outcome"], "refused");
  EXPECT_EQ(document["results"][0]["lost"][0]["field"], "connection");
  EXPECT_EQ(document["results"][0]["lost"][0]["origin"], "zeldebug.toml:5:14");
  EXPECT_EQ(document["warnings"][0]["code"], "connection-mask");
  EXPECT_EQ(document["warnings"][0]["setting"], "connection");
  EXPECT_EQ(document["warnings"][0]["line"], 5);
  // Once, and that nothing is written.
  EXPECT_EQ(document["warnings"].size(), 2U);
  for (const char *const subcommand : {"show", "explain", "command"}) {
    const json failure = runJson({subcommand, "lumacore_1"}, 1)["failure"];
    EXPECT_EQ(failure["code"], "connection-mask") << subcommand;
    EXPECT_EQ(failure["line"], 5) << subcommand;
  }
}

TEST_F(ProjectTest, AnOptionFileThatCannotBeReadIsAConflictWithoutDifferences) {
  project(lumacore0 + "3\n");
  save("lumacore_0", "connect nowhere");
  const Result run = this->run({"sync", "lumacore_0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("lumacore_0: etc/kvo_lumacore_0.opt stays: "));
  EXPECT_THAT(run.err, HasSubstr("; --force writes over it\n"));
  EXPECT_THAT(run.out, testing::EndsWith("etc/kvo_lumacore_0.opt\n"));
  EXPECT_THAT(run.out, Not(HasSubstr("in the file")));
  const json document = runJson({"show", "lumacore_0"});
  EXPECT_EQ(document["differences"], nullptr);
  EXPECT_THAT(document["warnings"][0]["message"].get<std::string>(),
              HasSubstr("etc/kvo_lumacore_0.opt: "));
  EXPECT_EQ(syncOne({"--force"})["outcome"], "updated");
}

TEST_F(ProjectTest, ARefusalOfOneWritesNothingOfAny) {
  folder.write("zeldebug.toml", "design = \"hw/board.xml\"\n");
  const Result run = this->run({"sync"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err,
              HasSubstr("zeldebug: error: lumacore_2: zeldebug.toml:1:10: "));
  EXPECT_THAT(
      run.err,
      HasSubstr("[processor.lumacore_2] connection = \"sim\" "
                "[connection-mask]\nzeldebug: error: nothing is written\n"));
  EXPECT_FALSE(fs::exists("etc"));
  const json document = runJson({"sync"}, 1);
  EXPECT_EQ(document["results"][4]["instanceName"], "lumacore_2");
  EXPECT_EQ(document["results"][4]["outcome"], "refused");
  EXPECT_EQ(document["results"][4]["connectCommand"], nullptr);
  EXPECT_EQ(document["warnings"][0]["line"], 1);
  // Who is not asked for does not stand in the way.
  EXPECT_EQ(this->run({"sync", "lumacore_0"}).status, 0);
}

TEST_F(ProjectTest, ALossBlocksUnlessItIsForced) {
  // A range of ROM is written with a size only.
  project("[processor.lumacore_0]\nromemStartAdr = 0x100\n");
  json result = syncOne({}, 1);
  EXPECT_EQ(result["outcome"], "refused");
  EXPECT_EQ(result["lost"][0]["field"], "romemStartAdr");
  EXPECT_EQ(result["lost"][0]["origin"], "zeldebug.toml:5:17");
  EXPECT_FALSE(fs::exists("etc"));
  result = syncOne({"--force"});
  EXPECT_EQ(result["outcome"], "created");
  EXPECT_EQ(result["lost"].size(), 1U);
}

TEST_F(ProjectTest, WhatIsLeftOutIsToldWithBothPlaces) {
  project("[settings]\ncable.cableType = \"quorla_podusb\"\n"
          "cable.port = \"USB22\"\ncable.frequency = \"3 MHz\"\n");
  local("[settings]\ncable.cableType = \"quorla_parallel4\"\n");
  const json document = runJson({"sync", "lumacore_0", "--dry-run"});
  EXPECT_EQ(document["results"][0]["dropped"], json::parse(R"([
    {"setting": "cable.frequency", "value": 3000000,
     "origin": "zeldebug.toml:7:19", "by": "zeldebug.local.toml:2:19"},
    {"setting": "cable.port", "value": "USB22",
     "origin": "zeldebug.toml:6:14", "by": "zeldebug.local.toml:2:19"}])"));
  // A port belongs to a desk.
  EXPECT_EQ(document["warnings"][0]["code"], "desk-setting");
  EXPECT_EQ(document["warnings"][0]["line"], 6);
  EXPECT_EQ(document["warnings"][0]["column"], 14);
  EXPECT_EQ(document["warnings"][1]["code"], "cable-dropped");
  EXPECT_EQ(run({"sync", "--strict"}).status, 1);
  EXPECT_FALSE(fs::exists("etc"));
}

TEST_F(ProjectTest, WhatIsDisplacedIsToldAndIsNoDifference) {
  project("[settings]\ncable.cableType = \"quorla_podusb\"\n"
          "cable.frequency = \"3 MHz\"\n[probe.lab]\nesn = \"0042\"\n");
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 0);
  const Result run =
      this->run({"sync", "lumacore_0", "--dry-run", "--probe", "lab"});
  EXPECT_EQ(run.err, "zeldebug: note: zeldebug.toml:6:19: 'cable.frequency' 3 "
                     "MHz of 'lumacore_0' is not written: 'cable.esn' of "
                     "zeldebug.toml:8:7 takes its place [displaced]\n");
  EXPECT_EQ(run.out,
            "PROCESSOR   RESULT   FILE\n"
            "lumacore_0  updated  etc/kvo_lumacore_0.opt\n"
            "\n"
            "etc/kvo_lumacore_0.opt\n"
            "  cable.esn: \"\" in the file, \"0042\" by zeldebug.toml:8:7\n");
}

TEST_F(ProjectTest, AFullDiskLeavesWhatWasThere) {
  project(lumacore0 + "3\n");
  EXPECT_EQ(run({"sync"}).status, 0);
  project(lumacore0 + "4\n");
  Surroundings surroundings;
  surroundings.fileSizeLimit = 10;
  const Result run = this->run({"sync"}, surroundings);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err,
              HasSubstr("lumacore_0: etc/kvo_lumacore_0.opt: the option "
                        "file could not be written whole: no space "
                        "left"));
  EXPECT_EQ(saved("lumacore_0"), ofThree);
  EXPECT_EQ(syncOne()["outcome"], "updated");
}

TEST_F(ProjectTest, WhatAKilledRunLeavesIsMendedByTheNext) {
  project(lumacore0 + "3\n");
#ifdef SYS_rename
  constexpr long renaming = SYS_rename;
#else
  constexpr long renaming = SYS_renameat;
#endif
  for (const long call : {long{SYS_flock}, long{SYS_fsync}, renaming}) {
    Surroundings surroundings;
    surroundings.fatalCall = call;
    run({"sync"}, surroundings);
    EXPECT_EQ(run({"sync"}).status, 0) << call;
    EXPECT_EQ(run({"sync", "--check"}).status, 0) << call;
    for (const std::string &name : etc())
      EXPECT_TRUE(name == ".zeldebug-sync" || name.compare(0, 4, "kvo_") == 0)
          << name << " is left of " << call;
    fs::remove_all("etc");
  }
}

TEST_F(ProjectTest, TwoRunsAtOnceTakeTurns) {
  project(lumacore0 + "3\n");
  const std::vector<Result> results =
      runAtOnce({{"sync"}, {"sync"}, {"sync"}}, [] {});
  for (const Result &result : results)
    EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(run({"sync", "--check"}).status, 0);
}

TEST_F(ProjectTest, AnOptionFileOfNobodyIsToldAndStays) {
  project("");
  save("gone", ofThree);
  const json document = runJson({"sync", "--dry-run"});
  const json &warning = document["warnings"].back();
  EXPECT_EQ(warning["code"], "stale-option-file");
  EXPECT_EQ(saved("gone"), ofThree);
}

TEST_F(ProjectTest, StrictlyAWarningIsToldBeforeAnythingIsWritten) {
  project("");
  save("gone", ofThree);
  const char *const told = "zeldebug: error: nothing is written, because a "
                           "warning is a failure with --strict\n";
  Result result = run({"sync", "--strict"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("[stale-option-file]\n"));
  EXPECT_THAT(result.err, HasSubstr(told));
  EXPECT_EQ(result.out, "");
  EXPECT_FALSE(fs::exists("etc/kvo_lumacore_0.opt"));

  // What would be lost by force, and what was left out.
  fs::remove("etc/kvo_gone.opt");
  project("[settings]\ncable.cableType = \"quorla_podusb\"\n"
          "cable.frequency = \"3 MHz\"\n");
  local("[settings]\ncable.cableType = \"quorla_parallel4\"\n");
  result = run({"sync", "--strict"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("[cable-dropped]\n"));
  EXPECT_FALSE(fs::exists("etc/kvo_lumacore_0.opt"));

  // Nothing to warn of, and what only looks.
  project("");
  local("");
  EXPECT_EQ(run({"sync", "--strict"}).status, 0);
  EXPECT_TRUE(fs::exists("etc/kvo_lumacore_0.opt"));
  save("gone", ofThree);
  result = run({"sync", "--check", "--strict"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.out, HasSubstr("lumacore_0  same"));
}

TEST_F(ProjectTest, WatchingFollowsEveryChangeUntilItIsEnded) {
  project(lumacore0 + "3\n");
  EXPECT_EQ(run({"sync", "--watch", "--json"}).status, 2);
  // What is wrong is told, and waited on; each step has ten seconds at most.
  folder.write("watch.sh", R"(
waitFor() {
  for i in $(seq 100); do
    if eval "$1" 2>/dev/null; then return 0; fi
    sleep 0.1
  done
  echo "in vain: $1"
}
)" + std::string(ZELDEBUG_PROGRAM) +
                               R"( sync lumacore_0 --watch > out 2> err &
waitFor 'grep -q "deviceNr 3" etc/kvo_lumacore_0.opt'
waitFor 'grep -q waiting err'
sed -i 's/debugDevice = 3/debugDevice = x/' zeldebug.toml
waitFor 'grep -q zeldebug.toml:5:15 err'
sed -i 's/debugDevice = x/debugDevice = 4/' zeldebug.toml
waitFor 'grep -q "deviceNr 4" etc/kvo_lumacore_0.opt'
printf '[processor.lumacore_0]\ndebugDevice = 5\n' > zeldebug.local.toml
waitFor 'grep -q "deviceNr 5" etc/kvo_lumacore_0.opt'
kill -TERM $!
wait $!
echo "ended with $?"
)");
  static_cast<void>(std::system("bash watch.sh > told 2>&1"));
  EXPECT_EQ(text("told"), "ended with 0\n") << text("err");
  EXPECT_THAT(text("out"), HasSubstr("lumacore_0  created  "));
  EXPECT_THAT(text("out"), HasSubstr("lumacore_0  updated  "));
}

TEST_F(ProjectTest, WatchingSeesEveryFileOfTheLibraries) {
  folder.write("elsewhere/catalog.ipxact", "<none/>\n");
  folder.write("zeldebug.toml",
               "design = \"hw/board.xml\"\n"
               "library = [\"hw\", \"elsewhere/catalog.ipxact\"]\n");
  folder.write("watch.sh", R"sh(
again() {
  before=$(grep -c waiting err)
  eval "$1"
  for i in $(seq 100); do
    if [ "$(grep -c waiting err)" -gt "$before" ]; then return 0; fi
    sleep 0.1
  done
  echo "nothing after: $1"
}
touch err
program=$1
again '"$program" sync lumacore_0 --watch > out 2> err &'
again 'echo "<none />" > elsewhere/catalog.ipxact'
again 'echo "<none/>" > hw/new.XML'
kill -INT $!
wait $!
echo "ended with $?"
)sh");
  const std::string line =
      "bash watch.sh " + std::string(ZELDEBUG_PROGRAM) + " > told 2>&1";
  static_cast<void>(std::system(line.c_str()));
  EXPECT_EQ(text("told"), "ended with 0\n") << text("err");
}

TEST_F(ProjectTest, CompletionKnowsTheProject) {
  project("[probe.lab]\nesn = \"1\"\n[profile.slow.settings]\n");
  const auto complete = [this](std::vector<std::string> words) {
    words.insert(words.begin(), {"complete", "--"});
    return run(words).out;
  };
  EXPECT_EQ(complete({"sync", "lumacore_"}),
            "lumacore_0\nlumacore_1\nlumacore_2\n");
  EXPECT_EQ(complete({"sync", "--probe", ""}), "lab\nnone\n");
  EXPECT_EQ(complete({"sync", "--profile", "s"}), "slow\n");
  EXPECT_EQ(complete({"sync", "--project", ""}), ":files\n");
  EXPECT_EQ(complete({"explain-code", "desk"}), "desk-setting\n");
}

TEST_F(ProjectTest, ACodeOfTheFilesIsExplained) {
  EXPECT_EQ(run({"explain-code", "unset-and-set"}).out,
            "unset-and-set (error)\n\n"
            "One table takes a setting away and gives it a value.\n\n"
            "Example, in a project file:\n"
            "  unset = [\"cable.esn\"]\n"
            "  cable.esn = \"0042\"\n\n"
            "What to do: Leave one of them out: a value replaces what lower "
            "sources say anyway.\n");
}

} // namespace
} // namespace tool
