// What a saved command would not bring back: named, refused, and saved all the
// same with --force.
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;

class SurvivalTest : public ToolTest {
protected:
  void SetUp() override { fs::create_directory("etc"); }

  Result set(const std::string &processor,
             const std::vector<std::string> &settings) {
    std::vector<std::string> line{"set", board, processor};
    line.insert(line.end(), settings.begin(), settings.end());
    return run(line);
  }
};

constexpr const char *otherKind =
    ": a command for this kind of connection does not carry it "
    "[other-connections]";
constexpr const char *noWriter =
    ": no command can be written that carries it [never-written]";

TEST_F(SurvivalTest, NamesEachSettingAndSavesNothing) {
  const struct {
    const char *processor;
    std::vector<std::string> settings;
    std::vector<std::string> losses;
  } rows[] = {
      {"lumacore_0",
       {"--cpu-jtag"},
       {"cpuJtag 1: it is written as '-configdevice jtagpin cpujtag', which no "
        "reader accepts [cpu-jtag-marker]"}},
      // A hardware default where only the simulator is allowed.
      {"lumacore_2",
       {},
       {"connection hw: the processor does not allow this kind of connection; "
        "it allows 'sim' [connection-mask]"}},
      {"lumacore_0",
       {"--connection", "sim", "--cable", "quorla_podusb", "--debug-device",
        "1", "--rom", "0:16"},
       {std::string("debugDevice 1 (comes back as 0)") + otherKind,
        std::string("romemStartAdr 0x0 (comes back as not set)") + otherKind,
        std::string("romemSize 16 (comes back as 0)") + otherKind,
        std::string("cable.cableType 3 (comes back as 0)") + otherKind}},
      {"lumacore_0",
       {"--stub-baud", "9600", "--stub-port", "/dev/ttyS1"},
       {std::string("stubSerialPort \"/dev/ttyS1\" (comes back as "
                    "\"/dev/ttyS0\")") +
            otherKind,
        std::string("stubBaudRate 9600 (comes back as 0)") + otherKind}},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--frequency", "3MHz", "--port", "USB22",
        "--esn", "7"},
       {"cable.frequency 3000000 (comes back as 0): the serial number takes "
        "its place [serial-number]",
        "cable.port \"USB22\" (comes back as \"USB21\"): the serial number "
        "takes its place [serial-number]"}},
      {"lumacore_0",
       {"--cable", "digilent_plugin", "--port", "x"},
       {"cable.port \"x\" (comes back as \"\"): a command does not carry it "
        "for this cable [other-cables]"}},
      {"lumacore_0",
       {"--icache", "0x10000"},
       {"debugAddressMap 0x10000 (comes back as not set): a command carries it "
        "for a PowerPC only [other-processors]",
        "icacheStartAdr 0x10000 (comes back as not set): a command carries it "
        "for a PowerPC only [other-processors]"}},
      {"lumacore_0",
       {"--rom", "0x1000:0"},
       {"romemStartAdr 0x1000 (comes back as not set): a range without start "
        "or size is not written [rom-range]"}},
      {"lumacore_0",
       {"--device",
        "devicenr=1,partname=p,irlength=6,idcode=1,isfpga=1,hardppc=2,nppc=1"},
       {std::string("chain p: isfpga") + noWriter}},
      {"lumacore_0",
       {"--connection", "stub-jtag", "--cable", "quorla_podusb", "--frequency",
        "625000"},
       {"cable.frequency 625000: it is none of the cable's frequencies, and "
        "the cable clause that ends a command is checked [frequency]"}},
      {"lumacore_0",
       {"--cable", "quorla_plugin"},
       {"cable.moduleName \"\": a plug-in cable needs a module [empty-text]"}},
      {"lumacore_0",
       {"--from", "connect lc hdu -sim -ipcport h:5"},
       {std::string("modelSimMode yes (comes back as no)") + noWriter,
        std::string("modelSimHost \"h\" (comes back as \"localhost\")") +
            noWriter,
        std::string("modelSimPort 5 (comes back as 9998)") + noWriter}},
      {"lumacore_0",
       {"--from",
        "connect lc hdu -bscan USER4 -debugdevice nCpu 2 cpu_version 1.0 "
        "hdu_version 2.0"},
       {std::string("cpu_version \"1.0\" (comes back as \"\")") + noWriter,
        std::string("hdu_version \"2.0\" (comes back as \"\")") + noWriter,
        std::string("nCpu 2 (comes back as 8)") + noWriter,
        "bscanUserReg 0x23 (comes back as 0x3): only USER1 and USER2 can be "
        "written [never-written]"}},
      // Which processor it is, where the command says something else.
      {"lumacore_0",
       {"--from", "connect dap hw"},
       {"procFamily 2 (comes back as 0): the target is written as a processor "
        "[other-targets]",
        "procType 4 (comes back as 0): the target is written as a processor "
        "[other-targets]",
        "connectionMask 0x200 (comes back as 0x87): the target is written as a "
        "processor [other-targets]"}},
      {"lumacore_0",
       {"--from", "connect hdu"},
       {"connectionMask 0x10 (comes back as 0x87): the target is written as a "
        "processor [other-targets]"}},
      {"lumacore_0",
       {"--from", "connect kmtc"},
       {"connectionMask 0x20 (comes back as 0x87): the target is written as a "
        "processor [other-targets]"}},
      {"lumacore_0",
       {"--from", "connect lc hdu -debugdevice proctype ppc440"},
       {"procType 2 (comes back as 0): the kind of a processor is not written; "
        "the "
        "design gives it [processor-kind]"}},
      {"lumacore_0",
       {"--from", "connect lc hdu -cable type quorla_plugin modulename m port "
                  "X frequency 5 esn E -quiet"},
       {"cable.frequency 5 (comes back as 0): a command does not carry it for "
        "this cable [other-cables]",
        "cable.port \"X\" (comes back as \"\"): a command does not carry it "
        "for this cable [other-cables]",
        "cable.esn \"E\" (comes back as \"\"): a command does not carry it "
        "for this cable [other-cables]"}},
      {"lumacore_0",
       {"--from", "connect lc sim -memsize 64"},
       {std::string("simMemSize 64 (comes back as 16)") + noWriter}},
      {"ppc405_0",
       {"--from", "connect ppc sim -icf f -ipcport h:3"},
       {"simIpcHost \"h\" (comes back as \"\"): the simulator file takes its "
        "place [simulator-file]",
        "simIpcPort 3 (comes back as 0): the simulator file takes its place "
        "[simulator-file]"}},
      {"ppc440_0",
       {"--from", "connect ppc hw -debugdevice isocmStartAdr 0 isocmSize 16"},
       {"isocmStartAdr 0x0 (comes back as not set): a command carries it for a "
        "ppc405 only [isocm]",
        "isocmSize 16 (comes back as 0): a command carries it for a ppc405 "
        "only [isocm]"}},
      {"lumacore_0",
       {"--from", "connect lc hdu -cable type quorla_podusb url u fname f "
                  "-debugdevice cpunr 1"},
       {std::string("svfFileFlag yes (comes back as no)") + noWriter,
        std::string("cable.svfFile \"f\" (comes back as \"\")") + noWriter,
        std::string("cable.url \"u\" (comes back as \"\")") + noWriter}},
  };
  for (const auto &row : rows) {
    std::string expected =
        std::string("zeldebug: error: ") + row.processor +
        ": nothing is saved, because it would not survive:\n";
    for (const std::string &loss : row.losses)
      expected += "  " + loss + "\n";
    expected += "--force saves it all the same; docs/round-trip.md tells what "
                "to do\n";
    const Result run = set(row.processor, row.settings);
    EXPECT_EQ(run.status, 1) << testing::PrintToString(row.settings);
    EXPECT_EQ(run.out, "") << testing::PrintToString(row.settings);
    EXPECT_EQ(run.err, expected);
    EXPECT_TRUE(etc().empty()) << testing::PrintToString(row.settings);
  }
}

TEST_F(SurvivalTest, SavesALossAllTheSameWithForce) {
  const Result run = set("lumacore_0", {"--cpu-jtag", "--force"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      "zeldebug: warning: lumacore_0: does not survive: cpuJtag 1: it is "
      "written as '-configdevice jtagpin cpujtag', which no reader accepts "
      "[cpu-jtag-marker]\n"
      "zeldebug: note: lumacore_0: saved in etc/kvo_lumacore_0.opt\n");
  EXPECT_EQ(
      saved("lumacore_0"),
      "connect lc hdu -configdevice jtagpin cpujtag -debugdevice cpunr 1");
}

TEST_F(SurvivalTest, AnArmProcessorSurvivesWithItsDesign) {
  EXPECT_EQ(set("a9_0", {"--debug-device", "1"}).status, 0);
  EXPECT_EQ(saved("a9_0"), "connect ppc hw -debugdevice deviceNr 1 cpunr 1");
}

TEST_F(SurvivalTest, ALineIsNotLongerThanWhatIsReadOfIt) {
  const std::string before = "connect lc hdu -cable type quorla_podusb port ";
  const std::string behind = " frequency 6000000 -debugdevice cpunr 1";
  const std::size_t most = 1023 - before.size() - behind.size();
  const std::string longest(most, 'x');
  EXPECT_EQ(
      set("lumacore_0", {"--cable", "quorla_podusb", "--port", longest}).status,
      0);
  EXPECT_EQ(saved("lumacore_0").size(), 1023U);
  const Result run = set("lumacore_0", {"--port", longest + "x"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.err,
      "zeldebug: error: lumacore_0: nothing is saved, because it would not "
      "survive:\n  the command: it has 1024 characters, and only 1023 of a "
      "line are read [long-file]\n--force saves it all the same; "
      "docs/round-trip.md tells what to do\n");
  EXPECT_EQ(saved("lumacore_0").size(), 1023U);
}

TEST_F(SurvivalTest, WhatTheLineDisplacesIsNamedAndDropped) {
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb port USB22 "
                     "frequency 3000000 -debugdevice deviceNr 1 cpunr 1");
  Result run = set("lumacore_0", {"--esn", "7"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      "zeldebug: note: lumacore_0: no longer saved: cable.frequency 3000000 "
      "(comes back as 0): the serial number takes its place [serial-number]\n"
      "zeldebug: note: lumacore_0: no longer saved: cable.port \"USB22\" "
      "(comes back as \"USB21\"): the serial number takes its place "
      "[serial-number]\n"
      "zeldebug: note: lumacore_0: saved in etc/kvo_lumacore_0.opt\n");
  run = set("lumacore_0", {"--connection", "sim"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(saved("lumacore_0"), "connect lc sim");
}

/// Defaults that the saved command had spelled out count as well.
TEST_F(SurvivalTest, WhatIsDisplacedIsNamedAlsoWhereItIsADefault) {
  const std::string text = "connect lc hdu -cable type quorla_podusb port "
                           "USB21 frequency 6000000 -debugdevice cpunr 1";
  save("lumacore_0", text);
  Result run = set("lumacore_0", {"--esn", "01", "--dry-run"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      "zeldebug: note: lumacore_0: no longer saved: cable.frequency 6000000 "
      "(comes back as 0): the serial number takes its place [serial-number]\n"
      "zeldebug: note: lumacore_0: would be saved in "
      "etc/kvo_lumacore_0.opt\n");
  run = set("lumacore_0", {"--connection", "sim", "--dry-run"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      std::string("zeldebug: note: lumacore_0: no longer saved: "
                  "cable.cableType 3 (comes back as 0)") +
          otherKind +
          "\nzeldebug: note: lumacore_0: no longer saved: cable.frequency "
          "6000000 (comes back as 0)" +
          otherKind +
          "\nzeldebug: note: lumacore_0: no longer saved: cable.port "
          "\"USB21\" (comes back as \"\")" +
          otherKind +
          "\nzeldebug: note: lumacore_0: would be saved in "
          "etc/kvo_lumacore_0.opt\n");
  // What the type of the cable brings was never saved.
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb");
  run = set("lumacore_0", {"--connection", "sim", "--dry-run"});
  EXPECT_EQ(run.err, std::string("zeldebug: note: lumacore_0: no longer saved: "
                                 "cable.cableType 3 (comes back as 0)") +
                         otherKind +
                         "\nzeldebug: note: lumacore_0: would be saved in "
                         "etc/kvo_lumacore_0.opt\n");
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb esn 5");
  run = set("lumacore_0", {"--debug-device", "1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zeldebug: note: lumacore_0: saved in etc/kvo_lumacore_0.opt\n");
}

TEST_F(SurvivalTest, TheTypeOfASavedCommandIsASetting) {
  const std::string text = "connect ppc hw -debugdevice proctype ppc440";
  save("ppc405_0", text);
  EXPECT_EQ(set("ppc405_0", {"--debug-device", "1"}).status, 1);
  EXPECT_EQ(saved("ppc405_0"), text);
  save("ppc440_0", text);
  EXPECT_EQ(set("ppc440_0", {"--debug-device", "1"}).status, 0);
}

TEST_F(SurvivalTest, WhatNothingDisplacesIsNotDropped) {
  const std::string text = "connect lc hdu -sim -ipcport h:5";
  save("lumacore_0", text);
  EXPECT_EQ(set("lumacore_0", {"--debug-device", "1"}).status, 1);
  EXPECT_EQ(saved("lumacore_0"), text);
}

/// Each loss points to the place of docs/round-trip.md that tells what to do.
TEST_F(SurvivalTest, PointsToPlacesOfThePage) {
  std::ifstream file(ZELDEBUG_ROUND_TRIP_PAGE);
  ASSERT_TRUE(file);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  const std::string quorla = "connect lc hdu -cable type quorla_podusb";
  const std::string plugin = "connect lc hdu -cable type quorla_plugin";
  const struct {
    const char *processor;
    std::vector<std::string> settings;
    const char *anchor;
  } rows[] = {
      {"lumacore_0", {"--cpu-jtag"}, "cpu-jtag-marker"},
      {"lumacore_2", {}, "connection-mask"},
      {"lumacore_0", {"--stub-baud", "1"}, "other-connections"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--port", "p", "--esn", "7"},
       "serial-number"},
      {"lumacore_0",
       {"--cable", "digilent_plugin", "--port", "x"},
       "other-cables"},
      {"lumacore_0", {"--icache", "0x10000"}, "other-processors"},
      {"lumacore_0", {"--rom", "0x1000:0"}, "rom-range"},
      {"lumacore_0", {"--from", "connect lc sim -memsize 1"}, "never-written"},
      {"lumacore_0",
       {"--connection", "stub-jtag", "--cable", "quorla_podusb", "--frequency",
        "1"},
       "frequency"},
      {"lumacore_0", {"--cable", "quorla_plugin"}, "empty-text"},
      {"lumacore_0",
       {"--from", plugin + " modulename m modulearg a;;b -quiet"},
       "empty-text"},
      {"lumacore_0",
       {"--from", plugin + " modulename m modulearg a;-b -quiet"},
       "leading-minus"},
      {"lumacore_0", {"--from", quorla + " port a\nb"}, "lines-in-file"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--port", std::string(1000, 'x')},
       "long-file"},
      {"ppc405_0",
       {"--from", "connect ppc sim -icf f -ipcport h:3"},
       "simulator-file"},
      {"ppc440_0",
       {"--from", "connect ppc hw -debugdevice isocmStartAdr 0 isocmSize 1"},
       "isocm"},
  };
  for (const auto &row : rows) {
    const Result run = set(row.processor, row.settings);
    EXPECT_EQ(run.status, 1) << row.anchor;
    const std::string anchor = row.anchor;
    EXPECT_THAT(run.err, testing::HasSubstr(" [" + anchor + "]\n"));
    EXPECT_THAT(page, testing::HasSubstr("<a id=\"" + anchor + "\"></a>"));
  }
  const struct {
    const char *command;
    const char *anchor;
  } commands[] = {
      {"connect arm hw", "other-targets"},
      {"connect dap hw", "other-targets"},
      {"connect ppc hw -debugdevice proctype ppc405", "processor-kind"},
      {"vpconnect lc -ipcport h:1", "virtual-platform-host"},
      {"vpconnect lc -config cycle_approximate -ipcport h:1",
       "configuration-mode"},
  };
  for (const auto &row : commands) {
    folder.write("commands", row.command);
    const json losses =
        runJson({"roundtrip", "commands"}, 1)["lines"][0]["lost"];
    ASSERT_FALSE(losses.empty()) << row.command;
    for (const json &loss : losses)
      EXPECT_EQ(loss["anchor"], row.anchor) << row.command;
    EXPECT_THAT(page, testing::HasSubstr(std::string("<a id=\"") + row.anchor +
                                         "\"></a>"));
  }
}

TEST_F(SurvivalTest, TellsLossesInJson) {
  const json document =
      runJson({"set", board, "lumacore_0", "--cpu-jtag", "--force"});
  EXPECT_EQ(
      document["results"][0]["lost"],
      json({{{"field", "cpuJtag"},
             {"value", 1},
             {"readBack", nullptr},
             {"reason", "it is written as '-configdevice jtagpin cpujtag', "
                        "which no reader accepts"},
             {"anchor", "cpu-jtag-marker"}}}));
  EXPECT_EQ(document["results"][0]["outcome"], "saved");
}

} // namespace
} // namespace tool
