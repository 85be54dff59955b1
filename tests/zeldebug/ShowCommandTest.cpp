#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

using ShowCommandTest = ToolTest;

constexpr const char *command =
    "connect lc hdu -cable type quorla_podusb port USB22 frequency 3000000 "
    "-configdevice devicenr 2 partname p -debugdevice devicenr 0x10 cpunr 1";

TEST_F(ShowCommandTest, TellsEveryFieldInJson) {
  save("lumacore_0", command);
  const json document = runJson({"show", board, "lumacore_0"});
  const json record{{"instanceName", "lumacore_0"},
                    {"procFamily", 0},
                    {"procType", 0},
                    {"connectionMask", 0x87},
                    {"cpuNr", 1},
                    {"connectionType", 2},
                    {"simMemSize", 16},
                    {"ppcSimConfigFile", ""},
                    {"simIpcHost", ""},
                    {"simIpcPort", 0},
                    {"vpConfigMode", 0},
                    {"cycleApproximate", 0},
                    {"stubType", 0},
                    {"stubSerialPort", "/dev/ttyS0"},
                    {"stubBaudRate", 0},
                    {"stubTimeout", 20000},
                    {"debugDevice", 16},
                    {"debugAddressMap", 0xFFFFFFFF},
                    {"isocmStartAdr", 0xFFFFFFFF},
                    {"isocmSize", 0},
                    {"isocmDcrStartAdr", 0xFFFFFFFF},
                    {"icacheStartAdr", 0xFFFFFFFF},
                    {"dcacheStartAdr", 0xFFFFFFFF},
                    {"itagStartAdr", 0xFFFFFFFF},
                    {"dtagStartAdr", 0xFFFFFFFF},
                    {"tlbStartAdr", 0xFFFFFFFF},
                    {"dcrStartAdr", 0xFFFFFFFF},
                    {"fpuType", 0},
                    {"cpu_version", ""},
                    {"hdu_version", ""},
                    {"nCpu", 8},
                    {"romemStartAdr", 0xFFFFFFFF},
                    {"romemSize", 0},
                    {"svfFileFlag", false},
                    {"modelSimMode", false},
                    {"modelSimHost", "localhost"},
                    {"modelSimPort", 9998},
                    {"uartOverHdu", false},
                    {"bscanUserReg", 3},
                    {"connectCommand", command}};
  EXPECT_EQ(document["record"], record);
  EXPECT_EQ(document["cable"], json({{"cableType", 3},
                                     {"frequency", 3000000},
                                     {"port", "USB22"},
                                     {"esn", ""},
                                     {"svfFile", ""},
                                     {"moduleName", ""},
                                     {"moduleArgs", ""},
                                     {"url", ""}}));
  EXPECT_EQ(document["chain"], json({{{"partname", "p"},
                                      {"idcode", 0},
                                      {"irlength", 0},
                                      {"devicenr", 2},
                                      {"isfpga", 0},
                                      {"hardppc", 0},
                                      {"nppc", 0}}}));
  EXPECT_EQ(document["cpuJtag"], 0);
  EXPECT_EQ(document["connectCommand"], command);
  EXPECT_EQ(document["result"], 0);
  EXPECT_EQ(document["error"], "");
}

TEST_F(ShowCommandTest, ShowsDefaultsWhereNothingIsSaved) {
  const Result run = this->run({"show", board, "lumacore_0"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("SETTING           VALUE\n"
                                  "connection        hw\n"
                                  "cable             none\n"
                                  "instanceName      \"lumacore_0\"\n"));
  EXPECT_EQ(run.err, "zeldebug: note: nothing is saved in "
                     "etc/kvo_lumacore_0.opt: these are the defaults\n");
  EXPECT_EQ(runJson({"show", board, "lumacore_0"})["result"], 4);
}

TEST_F(ShowCommandTest, ShowsAFileWithoutADesign) {
  folder.write("any.txt", "\n\nkconnect arm hw\nconnect lc sim\n");
  const json document = runJson({"show", "--file", "any.txt"});
  EXPECT_EQ(document["connectCommand"], "kconnect arm hw");
  EXPECT_EQ(document["record"]["procFamily"], 2);
  EXPECT_EQ(document["record"]["procType"], 4);
  EXPECT_EQ(document["result"], 0);
}

TEST_F(ShowCommandTest, NamesTheFileAndLineOfARefusal) {
  folder.write("any.txt", "\nconnect lc hdu -foo\n");
  const Result run = this->run({"show", "--file", "any.txt"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zeldebug: error: any.txt:2: the command is refused: column "
            "16: '-foo' is no option here (UNKNOWN Option '-foo')\n");
  const json document = runJson({"show", "--file", "any.txt"}, 3);
  EXPECT_EQ(document["result"], 3);
  EXPECT_EQ(document["error"], "UNKNOWN Option '-foo'");
}

TEST_F(ShowCommandTest, NamesFilesWithoutACommand) {
  folder.write("empty.txt", "\n\n");
  EXPECT_EQ(this->run({"show", "--file", "empty.txt"}).err,
            "zeldebug: error: empty.txt: there is no command in it\n");
  EXPECT_EQ(this->run({"show", "--file", "none.txt"}).err,
            "zeldebug: error: none.txt: there is no such file\n");
  EXPECT_EQ(this->run({"show", "--file", "none.txt"}).status, 3);
}

TEST_F(ShowCommandTest, TellsWhereValuesComeFrom) {
  save("ppc405_0",
       "connect ppc hw -cable type quorla_podusb -debugdevice devicenr "
       "2 fpuType dp");
  const json document =
      runJson({"show", board, "ppc405_0", "--origin", "--rom", "0:16"});
  const json &origin = document["origin"];
  EXPECT_EQ(origin["record"]["instanceName"], "design");
  EXPECT_EQ(origin["record"]["cpuNr"], "design");
  EXPECT_EQ(origin["record"]["connectionMask"], "design");
  EXPECT_EQ(origin["record"]["connectionType"], "file:13");
  EXPECT_EQ(origin["record"]["debugDevice"], "file:64");
  // The design overrules the command.
  EXPECT_EQ(origin["record"]["fpuType"], "design");
  EXPECT_EQ(document["record"]["fpuType"], 1);
  EXPECT_EQ(origin["record"]["romemStartAdr"], "option");
  EXPECT_EQ(origin["record"]["romemSize"], "option");
  EXPECT_EQ(origin["record"]["simMemSize"], "default");
  EXPECT_EQ(origin["record"]["connectCommand"], "file:1");
  EXPECT_EQ(origin["cable"]["cableType"], "file:28");
  EXPECT_EQ(origin["cable"]["port"], "file:28");
  EXPECT_EQ(origin["cable"]["frequency"], "default");
  EXPECT_EQ(origin["cpuJtag"], "default");
  EXPECT_EQ(origin["chain"], json::array());
}

TEST_F(ShowCommandTest, TellsWhereEachValueComesFromExactly) {
  const struct {
    const char *processor;
    const char *saved;
    const char *group;
    const char *field;
    const char *origin;
  } rows[] = {
      // Words that tell which processor it is.
      {"ppc405_0", "connect ppc hw -debugdevice proctype ppc440", "record",
       "procType", "file:38"},
      {"ppc405_0", "connect ppc hw", "record", "procType", "design"},
      {"lumacore_0", "connect lc hdu -debugdevice cpunr 1", "record", "cpuNr",
       "design"},
      // A cable without a port leaves the one before it.
      {"lumacore_0", "connect lc hdu -cable port X type quorla_tcf -quiet",
       "cable", "port", "file:28"},
      {"lumacore_0", "connect lc hdu -cable type quorla_tcf -quiet", "cable",
       "port", "default"},
      {"lumacore_0",
       "connect lc hdu -cable type quorla_podusb frequency 3000000 -cable port "
       "X",
       "cable", "frequency", "default"},
      // Without a colon there is no host.
      {"ppc405_0", "connect ppc sim -ipcport a:1 -ipcport b", "record",
       "simIpcHost", "file:26"},
      {"ppc405_0", "connect ppc sim -ipcport a:1 -ipcport b", "record",
       "simIpcPort", "file:39"},
      {"lumacore_0", "connect lc hdu -sim -ipcport nocolon", "record",
       "modelSimHost", "default"},
      // Refused values that are stored all the same.
      {"ppc405_0", "connect ppc sim -debugdevice proctype x", "record",
       "procType", "file:39"},
      {"lumacore_0", "connect lc hdu -sim -configdevice jtagport x", "cpuJtag",
       "", "file:44"},
      // Selecting a processor that is no PowerPC resets it.
      {"lumacore_0", "connect lc hdu -debugdevice fpuType sp", "record",
       "fpuType", "default"},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.saved);
    save(row.processor, row.saved);
    const json origin =
        runJson({"show", board, row.processor, "--origin"})["origin"];
    const json &group = origin[row.group];
    EXPECT_EQ(group.is_object() ? group[row.field] : group, row.origin)
        << row.field;
  }
}

TEST_F(ShowCommandTest, ARefusedValueThatIsNotStoredIsNoOrigin) {
  folder.write("any.txt", "connect ppc sim -debugdevice fputype dp fputype x");
  const auto origin = [this] {
    return runJson({"show", "--file", "any.txt",
                    "--origin"})["origin"]["record"]["fpuType"];
  };
  EXPECT_EQ(origin(), "file:38");
  folder.write("any.txt", "connect ppc sim -debugdevice fputype x");
  EXPECT_EQ(origin(), "default");
}

TEST_F(ShowCommandTest, AWholeCommandTakesThePlaceOfWhatIsSaved) {
  save("ppc405_0", "connect ppc sim -icf a");
  const json origin = runJson({"show", board, "ppc405_0", "--origin", "--from",
                               "connect dap hw"})["origin"]["record"];
  EXPECT_EQ(origin["connectionType"], "option");
  EXPECT_EQ(origin["connectionMask"], "option");
  EXPECT_EQ(origin["procFamily"], "option");
  EXPECT_EQ(origin["ppcSimConfigFile"], "default");
  EXPECT_EQ(origin["connectCommand"], "option");
  EXPECT_EQ(origin["instanceName"], "design");
}

TEST_F(ShowCommandTest, TellsTheOriginOfAFilesValues) {
  folder.write("any.txt", command);
  const json origin =
      runJson({"show", "--file", "any.txt", "--origin"})["origin"];
  EXPECT_EQ(origin["cable"]["port"], "file:47");
  EXPECT_EQ(origin["chain"][0]["partname"], "file:105");
  EXPECT_EQ(origin["chain"][0]["idcode"], "default");
  const Result run = this->run({"show", "--file", "any.txt", "--origin"});
  EXPECT_THAT(run.out,
              HasSubstr("\ndebugDevice        16             file:129\n"));
}

TEST_F(ShowCommandTest, WantsOneSource) {
  EXPECT_EQ(this->run({"show", board}).status, 2);
  EXPECT_EQ(this->run({"show", board, "--no-project"}).err,
            "zeldebug: error: PROCESSOR is required\n");
  EXPECT_EQ(this->run({"show", board, "lumacore_0", "--file", "x"}).err,
            "zeldebug: error: show: --file goes without a design and without "
            "settings\n");
  EXPECT_EQ(this->run({"show", "--file", "x", "--cpu-jtag"}).status, 2);
}

} // namespace
} // namespace tool
