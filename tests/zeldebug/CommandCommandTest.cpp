#include <sstream>

#include <gmock/gmock.h>

#include "ToolTest.h"
#include "support/Cables.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;

/// Those that a command can be written with.
std::string offeredCables() {
  std::string text = "'none'";
  for (const support::Cable &cable : support::cables())
    for (const std::string &word : cable.words)
      if (cable.form != support::CableForm::none)
        text += ", '" + word + "'";
  return text;
}

std::string linesWithoutNotes(const std::string &err) {
  std::istringstream stream(err);
  std::string others;
  for (std::string line; std::getline(stream, line);)
    if (line.rfind("zeldebug: note: ", 0) != 0)
      others += line + "\n";
  return others;
}

class CommandCommandTest : public ToolTest {
protected:
  /// The command for settings; on standard error are no more than notes.
  std::string commandFor(const std::string &processor,
                         const std::vector<std::string> &settings) {
    std::vector<std::string> line{"command", board, processor};
    line.insert(line.end(), settings.begin(), settings.end());
    const Result run = this->run(line);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(linesWithoutNotes(run.err), "");
    EXPECT_EQ(run.out.back(), '\n');
    return run.out.substr(0, run.out.size() - 1);
  }

  Result refusalOf(const std::string &processor,
                   const std::vector<std::string> &settings) {
    std::vector<std::string> line{"command", board, processor};
    line.insert(line.end(), settings.begin(), settings.end());
    Result run = this->run(line);
    EXPECT_EQ(run.out, "");
    return run;
  }
};

TEST_F(CommandCommandTest, PrintsTheCommandAndNothingElse) {
  const struct {
    const char *processor;
    std::vector<std::string> settings;
    const char *command;
  } rows[] = {
      {"lumacore_0", {}, "connect lc hdu -debugdevice cpunr 1"},
      {"ppc405_0", {}, "connect ppc hw -debugdevice cpunr 1 fpuType sp"},
      {"ppc440_0", {}, "connect ppc hw -debugdevice cpunr 2 fpuType dp"},
      {"a9_1", {}, "connect ppc hw -debugdevice cpunr 2"},
      // connection kinds
      {"lumacore_2", {"--connection", "sim"}, "connect lc sim"},
      {"lumacore_0", {"--connection", "sim"}, "connect lc sim"},
      {"lumacore_0",
       {"--connection", "hw"},
       "connect lc hdu -debugdevice cpunr 1"},
      {"lumacore_0",
       {"--connection", "stub-jtag"},
       "connect lc stub -comm jtag"},
      {"lumacore_0",
       {"--connection", "stub-serial", "--stub-port", "/dev/ttyUSB0",
        "--stub-baud", "0x1C200"},
       "connect lc stub -comm serial -port /dev/ttyUSB0  -baud  115200 "
       "-timeout "
       "20000"},
      // cables
      {"lumacore_0",
       {"--cable", "quorla_podusb"},
       "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--cable", "QUORLA_PARALLEL4"},
       "connect lc hdu -cable type quorla_parallel port LPT1 frequency 5000000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--frequency", "3MHz", "--port", "USB22"},
       "connect lc hdu -cable type quorla_podusb port USB22 frequency 3000000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--cable=quorla_podusb", "--frequency=750kHz"},
       "connect lc hdu -cable type quorla_podusb port USB21 frequency 750000 "
       "-debugdevice cpunr 1"},
      // whatever their order
      {"lumacore_0",
       {"--frequency", "3MHz", "--cable", "quorla_podusb"},
       "connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--port", "USB22", "--cable", "quorla_podusb"},
       "connect lc hdu -cable type quorla_podusb port USB22 frequency 6000000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--esn", "7", "--cable", "quorla_podusb"},
       "connect lc hdu -cable type quorla_podusb esn 7 -debugdevice cpunr 1"},
      {"lumacore_0",
       {"--stub-baud", "9600", "--connection", "stub-serial"},
       "connect lc stub -comm serial -port /dev/ttyS0  -baud  9600 -timeout "
       "20000"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--frequency", "1.5MHz"},
       "connect lc hdu -cable type quorla_podusb port USB21 frequency 1500000 "
       "-debugdevice cpunr 1"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--frequency", "0.75MHz"},
       "connect lc hdu -cable type quorla_podusb port USB21 frequency 750000 "
       "-debugdevice cpunr 1"},
      // The same twice is once.
      {"lumacore_0",
       {"--debug-device", "3", "--debug-device", "0x3"},
       "connect lc hdu -debugdevice deviceNr 3 cpunr 1"},
      {"lumacore_0",
       {"--cable", "quorla_podusb", "--esn", "000012:aB"},
       "connect lc hdu -cable type quorla_podusb esn 000012:aB -debugdevice "
       "cpunr 1"},
      {"lumacore_0",
       {"--cable", "quorla_plugin", "--module", "m", "--module-arg", "a",
        "--module-arg", "b=c"},
       "connect lc hdu -cable type quorla_plugin modulename m modulearg a "
       "modulearg b=c -debugdevice cpunr 1"},
      {"lumacore_0",
       {"--cable", "digilent_plugin"},
       "connect lc hdu -cable type digilent_plugin -debugdevice cpunr 1"},
      // chain and device
      {"lumacore_0",
       {"--debug-device", "0x7f"},
       "connect lc hdu -debugdevice deviceNr 127 cpunr 1"},
      {"lumacore_0",
       {"--device", "devicenr=1,partname=pk9ab100,irlength=6,idcode=0x1234093",
        "--device", "idcode=0,devicenr=2,irlength=0,partname=x"},
       "connect lc hdu -configdevice devicenr 1 partname pk9ab100 irlength 6 "
       "idcode 0x1234093 -configdevice devicenr 2 partname x irlength 0 idcode "
       "0x0 -debugdevice cpunr 1"},
      // address map and read-only memory
      {"ppc440_0",
       {"--address-map", "0x40000000"},
       "connect ppc hw -debugdevice cpunr 2 icacheStartAdr 0x40000000 "
       "itagStartAdr 0x40010000 dcacheStartAdr 0x40020000 dtagStartAdr "
       "0x40030000 tlbStartAdr 0x40050000 dcrStartAdr 0x40040000 fpuType dp"},
      // a region that is named by itself wins, in front and behind
      {"ppc440_0",
       {"--dcache", "0x10000", "--address-map", "0x40000000"},
       "connect ppc hw -debugdevice cpunr 2 icacheStartAdr 0x40000000 "
       "itagStartAdr 0x40010000 dcacheStartAdr 0x10000 dtagStartAdr "
       "0x40030000 tlbStartAdr 0x40050000 dcrStartAdr 0x40040000 fpuType dp"},
      {"ppc440_0",
       {"--address-map", "0x40000000", "--icache", "0x10000"},
       "connect ppc hw -debugdevice cpunr 2 icacheStartAdr 0x10000 "
       "itagStartAdr 0x40010000 dcacheStartAdr 0x40020000 dtagStartAdr "
       "0x40030000 tlbStartAdr 0x40050000 dcrStartAdr 0x40040000 fpuType dp"},
      {"ppc440_0",
       {"--unset-address-map", "--icache", "0x10000", "--dcache", "0x20000",
        "--itag", "0x30000", "--dtag", "0x40000", "--tlb", "0x50000", "--dcr",
        "0x60000"},
       "connect ppc hw -debugdevice cpunr 2 icacheStartAdr 0x10000 "
       "itagStartAdr "
       "0x30000 dcacheStartAdr 0x20000 dtagStartAdr 0x40000 tlbStartAdr "
       "0x50000 "
       "dcrStartAdr 0x60000 fpuType dp"},
      {"lumacore_0",
       {"--rom", "0xFFF00000:4096"},
       "connect lc hdu -debugdevice cpunr 1 romemStartAdr 0xfff00000 romemSize "
       "4096"},
      // the settings of a whole command
      {"ppc405_0",
       {"--from", "connect ppc sim -icf sim.cfg"},
       "connect ppc sim -icf sim.cfg"},
      {"ppc405_0",
       {"--from", "connect ppc hw -bscan user1 -debugdevice isocmStartAdr "
                  "0x100 isocmSize "
                  "16 isocmDcrStartAdr 0x200"},
       "connect ppc hw -bscan USER1 -debugdevice cpunr 1 isocmStartAdr 0x100 "
       "isocmSize 16  isocmDcrStartAdr 0x200 fpuType sp"},
      {"lumacore_0",
       {"--debug-device", "3", "--from",
        "connect lc hdu -debugdevice devicenr 2"},
       "connect lc hdu -debugdevice deviceNr 3 cpunr 1"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(commandFor(row.processor, row.settings), row.command)
        << testing::PrintToString(row.settings);
}

TEST_F(CommandCommandTest, StartsFromWhatIsSaved) {
  save("lumacore_1", "connect lc hdu -cable type quorla_podusb port USB22 "
                     "frequency 3000000 -debugdevice deviceNr 4 cpunr 2");
  EXPECT_EQ(
      commandFor("lumacore_1", {"--frequency", "1500000"}),
      "connect lc hdu -cable type quorla_podusb port USB22 frequency 1500000 "
      "-debugdevice deviceNr 4 cpunr 2");
  EXPECT_EQ(etc(), std::vector<std::string>{"kvo_lumacore_1.opt"});
}

TEST_F(CommandCommandTest, TakesTheWorkingFolderForSavedOptionsOnly) {
  folder.write("work/etc/kvo_lumacore_1.opt", "connect lc sim");
  folder.write("design/board.xml", "");
  EXPECT_EQ(commandFor("lumacore_1", {"-C", "work"}), "connect lc sim");
}

TEST_F(CommandCommandTest, ModuleArgumentsOfTheLineReplaceSavedOnes) {
  save("lumacore_0", "connect lc hdu -cable type quorla_plugin modulename m "
                     "modulearg a modulearg b -debugdevice cpunr 1");
  EXPECT_EQ(
      commandFor("lumacore_0", {"--module-arg", "c", "--module-arg", "d"}),
      "connect lc hdu -cable type quorla_plugin modulename m modulearg c "
      "modulearg d -debugdevice cpunr 1");
}

/// As `set` would: what is asked for stands, or the run fails.
TEST_F(CommandCommandTest, FailsForWhatNoCommandBringsBack) {
  Result run = this->run({"command", board, "lumacore_0", "--cpu-jtag"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "connect lc hdu -configdevice jtagpin cpujtag -debugdevice "
            "cpunr 1\n");
  EXPECT_EQ(run.err,
            "zeldebug: warning: does not survive: cpuJtag 1: it is "
            "written as '-configdevice jtagpin cpujtag', which no reader "
            "accepts [cpu-jtag-marker]\n");
  run = this->run({"command", board, "lumacore_0", "--cpu-jtag", "--force"});
  EXPECT_EQ(run.status, 0);
  run = this->run({"command", board, "lumacore_0", "--frequency", "3MHz"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "connect lc hdu -debugdevice cpunr 1\n");
  EXPECT_EQ(run.err,
            "zeldebug: warning: does not survive: cable.frequency 3000000 "
            "(comes back as 0): a command does not carry it for this cable "
            "[other-cables]\n");
}

TEST_F(CommandCommandTest, SaysWhatAModuleNeeds) {
  const Result run =
      this->run({"command", board, "lumacore_1", "--module", "m"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("cable.moduleName \"m\""));
  EXPECT_THAT(run.err,
              HasSubstr("a command does not carry it for this cable, only for "
                        "'quorla_plugin' [other-cables]"));
  EXPECT_THAT(run.err, testing::Not(HasSubstr("Internal Error")));
}

TEST_F(CommandCommandTest, WarnsOfASerialLineWithoutARate) {
  Result run = this->run(
      {"command", board, "lumacore_0", "--connection", "stub-serial"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "connect lc stub -comm serial -port /dev/ttyS0  -baud  0 "
                     "-timeout 20000\n");
  EXPECT_EQ(run.err, "zeldebug: warning: stubBaudRate: '0' is no rate of a "
                     "serial line [baud-zero]\n");
  // One is a rate.
  EXPECT_EQ(this->run({"command", board, "lumacore_0", "--connection",
                       "stub-serial", "--stub-baud", "1"})
                .err,
            "");
}

TEST_F(CommandCommandTest, NamesWhatElseChanges) {
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb port USB22 "
                     "frequency 3000000 -debugdevice cpunr 1");
  const std::string why = ": choosing a cable brings its port and frequency\n";
  Result run = this->run(
      {"command", board, "lumacore_0", "--cable", "quorla_parallel3"});
  EXPECT_EQ(run.err, "zeldebug: note: cable.frequency 3000000 becomes 200000" +
                         why +
                         "zeldebug: note: cable.port \"USB22\" becomes "
                         "\"LPT1\"" +
                         why);
  // What is asked for is no news.
  run = this->run({"command", board, "lumacore_0", "--port", "LPT2", "--cable",
                   "quorla_parallel3"});
  EXPECT_EQ(run.err,
            "zeldebug: note: cable.frequency 3000000 becomes 200000" + why);
  // The cable that is there stays as it is.
  run = this->run({"command", board, "lumacore_0", "--cable", "quorla_podusb"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "connect lc hdu -cable type quorla_podusb port USB22 "
                     "frequency 3000000 -debugdevice cpunr 1\n");
}

TEST_F(CommandCommandTest, SaysWhichSettingsExcludeEachOther) {
  const std::string device = "devicenr=1,partname=p,irlength=6,idcode=1";
  const struct {
    std::vector<std::string> settings;
    int status;
    std::string message;
  } rows[] = {
      {{"--cable", "quorla_podusb", "--cable", "none"},
       1,
       "--cable: it is given twice, with different values"},
      {{"--connection", "sim", "--connection", "hw"},
       1,
       "--connection: it is given twice, with different values"},
      {{"--device", device, "--clear-chain"},
       1,
       "--device and --clear-chain exclude each other"},
      {{"--address-map", "0", "--unset-address-map"},
       1,
       "--address-map and --unset-address-map exclude each other"},
      {{"--unset", "debugDevice", "--debug-device", "3"},
       1,
       "--unset debugDevice and --debug-device exclude each other"},
      {{"--from", "connect lc hdu", "--copy-from", "lumacore_1"},
       1,
       "--from and --copy-from exclude each other"},
  };
  for (const auto &row : rows) {
    const Result run = refusalOf("lumacore_0", row.settings);
    EXPECT_EQ(run.status, row.status) << row.message;
    EXPECT_EQ(run.err, "zeldebug: error: " + row.message + "\n");
  }
}

/// A number of a whole command is as exact as one of an option.
TEST_F(CommandCommandTest, TakesNoNumberThatWouldBeCut) {
  const struct {
    std::string command;
    std::string problem;
    std::string code;
    std::string forced;
  } rows[] = {
      {"connect lc hdu -debugdevice devicenr 200",
       "column 38: '200' does not fit: debugDevice becomes -56", "value-cut",
       "deviceNr -56"},
      {"connect lc hdu -debugdevice devicenr abc",
       "column 38: 'abc' is no number: it gives 0", "not-a-number", "cpunr 1"},
      {"connect lc hdu -debugdevice devicenr 0x12zz",
       "column 38: '0x12zz' is no number: it is read as '0x12'", "not-a-number",
       "deviceNr 18"},
  };
  for (const auto &row : rows) {
    const std::string said = "--from: " + row.problem + " [" + row.code + "]";
    const Result refused = refusalOf("lumacore_0", {"--from", row.command});
    EXPECT_EQ(refused.status, 1) << row.command;
    EXPECT_EQ(refused.err, "zeldebug: error: " + said +
                               "; --force takes it as it is read\n");
    const Result forced = this->run(
        {"command", board, "lumacore_0", "--force", "--from", row.command});
    EXPECT_EQ(forced.status, 0) << row.command;
    EXPECT_THAT(forced.err, HasSubstr("zeldebug: warning: " + said + "\n"));
    EXPECT_THAT(forced.out, HasSubstr(row.forced));
  }
  // The largest number fits.
  EXPECT_EQ(commandFor("lumacore_0",
                       {"--from", "connect lc hdu -debugdevice devicenr 127"}),
            "connect lc hdu -debugdevice deviceNr 127 cpunr 1");
}

TEST_F(CommandCommandTest, UnsetsByName) {
  save("lumacore_0",
       "connect lc hdu -cable type quorla_podusb port USB22 frequency 3000000 "
       "-configdevice devicenr 1 partname p irlength 6 idcode 0x1 -debugdevice "
       "deviceNr 3 cpunr 1");
  EXPECT_EQ(commandFor("lumacore_0", {"--unset", "chain", "--unset",
                                      "debugDevice", "--unset", "cable.port"}),
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "3000000 -debugdevice cpunr 1");
  const struct {
    const char *name;
    std::string problem;
  } rows[] = {
      {"cpuNr", " cpuNr: it says which processor it is, and cannot be set"},
      {"connectionType",
       " connectionType: it follows from other settings, and cannot be set"},
      {"chain[0].partname", ": the chain goes back as a whole, by 'chain'"},
  };
  for (const auto &row : rows) {
    const Result run = refusalOf("lumacore_0", {"--unset", row.name});
    EXPECT_EQ(run.status, 2) << row.name;
    EXPECT_EQ(run.err, "zeldebug: error: --unset" + row.problem + "\n");
  }
  const Result unknown = refusalOf("lumacore_0", {"--unset", "debugDevise"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err,
              testing::StartsWith("zeldebug: error: --unset: 'debugDevise' is "
                                  "no setting; there are 'connection', "));
  EXPECT_THAT(unknown.err,
              testing::EndsWith("; did you mean 'debugDevice'?\n"));
  EXPECT_THAT(unknown.err, testing::Not(HasSubstr("'cpuNr'")));
  EXPECT_THAT(refusalOf("lumacore_0", {"--unset", ""}).err,
              HasSubstr("--unset: '' is no setting; there are "));
  // `show` has two names for it.
  EXPECT_EQ(commandFor("lumacore_0", {"--unset", "cable"}),
            commandFor("lumacore_0", {"--unset", "cable.cableType"}));
}

TEST_F(CommandCommandTest, CopiesFromAnotherProcessor) {
  save("lumacore_0", "connect lc hdu -cable type quorla_podusb port USB22 "
                     "frequency 3000000 -debugdevice deviceNr 3 cpunr 1");
  EXPECT_EQ(commandFor("lumacore_1", {"--copy-from", "lumacore_0"}),
            "connect lc hdu -cable type quorla_podusb port USB22 frequency "
            "3000000 -debugdevice deviceNr 3 cpunr 2");
  EXPECT_EQ(commandFor("lumacore_1",
                       {"--copy-from", "lumacore_0", "--debug-device", "4"}),
            "connect lc hdu -cable type quorla_podusb port USB22 frequency "
            "3000000 -debugdevice deviceNr 4 cpunr 2");
  const Result unknown = refusalOf("lumacore_1", {"--copy-from", "lumacore_O"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("--copy-from: 'lumacore_O' is no "
                                     "processor of the design"));
  save("lumacore_0", "connect nothing");
  const Result broken = refusalOf("lumacore_1", {"--copy-from", "lumacore_0"});
  EXPECT_EQ(broken.status, 3);
  EXPECT_THAT(broken.err, HasSubstr("etc/kvo_lumacore_0.opt:1: "));
}

TEST_F(CommandCommandTest, TakesTheSettingsOfADocument) {
  const std::string command =
      "connect lc hdu -cable type quorla_podusb port USB22 frequency 3000000 "
      "-configdevice devicenr 1 partname p irlength 6 idcode 0x1 -debugdevice "
      "deviceNr 3 cpunr ";
  save("lumacore_0", command + "1");
  folder.write("saved.json",
               this->run({"show", board, "lumacore_0", "--json"}).out);
  EXPECT_EQ(commandFor("lumacore_0", {"--settings", "saved.json"}),
            command + "1");
  const Result other =
      this->run({"command", board, "lumacore_1", "--settings", "saved.json"});
  EXPECT_EQ(other.status, 0);
  EXPECT_EQ(other.out, command + "2\n");
  EXPECT_THAT(other.err,
              HasSubstr("zeldebug: note: cpuNr 1 of saved.json is left out: it "
                        "is 2\n"));
  // The file's own words are none that are left out.
  save("lumacore_1", "connect lc hdu -debugdevice devicenr 3 cpunr 2");
  folder.write("own.json",
               this->run({"show", board, "lumacore_1", "--json"}).out);
  const Result own =
      this->run({"command", board, "lumacore_1", "--settings", "own.json"});
  EXPECT_EQ(own.out, saved("lumacore_1") + "\n");
  EXPECT_EQ(own.err, "");
  std::filesystem::remove("etc/kvo_lumacore_1.opt");
  // Options stand over it, and a part of a document is one.
  EXPECT_EQ(commandFor("lumacore_1",
                       {"--settings", "saved.json", "--clear-chain", "--unset",
                        "cable.port", "--debug-device", "4"}),
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "3000000 -debugdevice deviceNr 4 cpunr 2");
  Surroundings surroundings;
  surroundings.input = R"({"connection": "sim"})";
  const Result piped = this->run(
      {"command", board, "lumacore_1", "--settings", "-"}, surroundings);
  EXPECT_EQ(piped.out, "connect lc sim\n");
}

TEST_F(CommandCommandTest, TakesTextThatIsNoUtf8FromADocument) {
  const std::string command =
      "connect lc hdu -cable type quorla_podusb esn caf\xe9 -configdevice "
      "devicenr 1 partname p irlength 4 idcode 0x1 -configdevice devicenr 2 "
      "partname p\xff irlength 4 idcode 0x2 -debugdevice cpunr 2";
  save("lumacore_1", command);
  const json shown = runJson({"show", board, "lumacore_1"});
  EXPECT_EQ(shown["cable"]["esn"], "caf\uFFFD");
  EXPECT_EQ(shown["bytes"]["cable"], json({{"esn", "Y2Fm6Q=="}}));
  EXPECT_EQ(shown["bytes"]["chain"],
            json({json::object(), {{"partname", "cP8="}}}));
  folder.write("own.json", shown.dump());
  const Result own =
      this->run({"command", board, "lumacore_1", "--settings", "own.json"});
  EXPECT_EQ(own.out, command + "\n");
  EXPECT_EQ(own.err, "");
  // It may stand for itself; what is all UTF-8 has no such member.
  folder.write("own.json", R"({"bytes": {"cable": {"esn": "Y2Fm6Q=="}}})");
  save("lumacore_1", "connect lc hdu -cable type quorla_podusb esn caf\u00e9 "
                     "-debugdevice cpunr 2");
  EXPECT_FALSE(runJson({"show", board, "lumacore_1"}).contains("bytes"));
  EXPECT_THAT(commandFor("lumacore_1", {"--settings", "own.json"}),
              HasSubstr("esn caf\xe9 "));
}

TEST_F(CommandCommandTest, NamesWhatIsWrongWithADocument) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  const struct {
    std::string text;
    std::string problem;
  } rows[] = {
      {"{\n  \"cable\": {,\n}", "2: this is no JSON"},
      {"[]", "1: this is no document of settings: no object"},
      {"{\n\"debugDevise\": 3}",
       "2: 'debugDevise' is no setting; did you mean 'debugDevice'?"},
      {"{\"record\": {\n\"nCpu\": 1.5}}",
       "2: 'nCpu' is no text, whole number or flag"},
      {"{\"chain\": 3}", "1: 'chain' is no list of devices"},
      {"{\"cable\": []}", "1: 'cable' is no object"},
      {"{\"record\": {\n\"nCpu\": 1e999\n}\n}",
       "2: a number is too large for any kind of it"},
      {"1e999", "1: a number is too large for any kind of it"},
      {"{\"version\": 1,\n\"processors\": []}",
       "2: it has the settings of several processors, and those of one are "
       "taken"},
      // Which of two is meant cannot be told.
      {"{\"nCpu\": 1,\n\"nCpu\": 2}", "2: 'nCpu' is given twice"},
      {"{\"nCpu\": 1,\n\n\"nCpu\"\n: 1}", "3: 'nCpu' is given twice"},
      {"{\"record\":\n{\"nCpu\": 1,\n\"nC\\u0070u\": 2}}",
       "3: 'nCpu' is given twice"},
      {"{\"record\": {},\n\"record\": {}}", "2: 'record' is given twice"},
      {"{\"chain\": [{},\n{\"irlength\": 1,\n\"irlength\": 2}]}",
       "3: 'irlength' is given twice"},
      {"{\"warnings\": [[{\"a\": {},\n\"a\": {}}]]}", "2: 'a' is given twice"},
      {"{\"nCpu\": 1, \"nCpu\": 2,\n\"nCpu\": {,}", "1: 'nCpu' is given twice"},
      {"{\"nCpu\": {,},\n\"nCpu\": 2}", "1: this is no JSON"},
      {"{\"\": 1,\n\"\": 2}", "2: '' is given twice"},
      {"{\"bytes\":\n{\"cable\": {\"esn\": \"Y2Fm6R==\"}}}",
       "1: 'bytes' holds what is no base64, or stands for nothing that is "
       "shown"},
      {"{\"chain\": [],\n\"bytes\": {\"chain\": [{\"partname\": \"cP8=\"}]}}",
       "2: 'bytes' holds what is no base64, or stands for nothing that is "
       "shown"},
      {"{\"bytes\": {\"cable\": {\"esm\": \"Y2Fm6Q==\"}}}",
       "1: 'cable.esm' is no setting; did you mean 'cable.esn'?"},
      {"{\"warnings\":\n" + nested(100) + "}",
       "2: it is nested more than 100 deep"},
      {"{\"cable\":\n" + nested(1'000'000) + "}",
       "2: it is nested more than 100 deep"},
      {"{\"record\": {},\n\"failure\": {}}",
       "2: it tells of a failure: what it shows is not what was saved"},
  };
  for (const auto &row : rows) {
    folder.write("settings.json", row.text);
    const Result run = refusalOf("lumacore_0", {"--settings", "settings.json"});
    EXPECT_EQ(run.status, 3) << row.text;
    EXPECT_EQ(run.err, "zeldebug: error: settings.json:" + row.problem + "\n");
  }
  folder.write("settings.json", R"({"record": {"debugDevice": 200}})");
  const Result run = refusalOf("lumacore_0", {"--settings", "settings.json"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zeldebug: error: settings.json:1: debugDevice: '200' is no number "
            "from 0 to 127 (decimal or 0x)\n");
  folder.write("settings.json", "{\"warnings\": " + nested(99) + "}");
  EXPECT_EQ(commandFor("lumacore_0", {"--settings", "settings.json"}),
            commandFor("lumacore_0", {}));
  // One name in several objects, or in another case, is none that is given
  // twice.
  folder.write("settings.json",
               R"({"warnings": [{"code": "a"}, {"code": "b"}], "code": 1})");
  EXPECT_THAT(refusalOf("lumacore_0", {"--settings", "settings.json"}).err,
              HasSubstr("'code' is no setting"));
  folder.write("settings.json",
               R"({"chain": [{"devicenr": 1, "partname": "p"},
                             {"devicenr": 2, "partname": "q"}],
                   "cable": {"cableType": 3}, "origin": {"cableType": "x",
                   "CableType": "y"}})");
  EXPECT_THAT(commandFor("lumacore_0", {"--settings", "settings.json"}),
              HasSubstr("-configdevice devicenr 2 partname q"));
  folder.write("settings.json", "{\n\"connection\": \"vp\"}");
  const Result kind = refusalOf("lumacore_1", {"--settings", "settings.json"});
  EXPECT_EQ(kind.status, 1);
  EXPECT_THAT(kind.err, HasSubstr("settings.json:2: connection: 'vp'"));
  EXPECT_EQ(refusalOf("lumacore_0", {"--settings", "nowhere.json"}).status, 3);
}

TEST_F(CommandCommandTest, TellsTheSameInJson) {
  const json document = runJson({"command", board, "lumacore_0", "--connection",
                                 "sim", "--debug-device", "3"},
                                1);
  EXPECT_EQ(document["instanceName"], "lumacore_0");
  EXPECT_EQ(document["connectCommand"], "connect lc sim");
  EXPECT_EQ(document["lost"],
            json({{{"field", "debugDevice"},
                   {"value", 3},
                   {"readBack", 0},
                   {"reason", "a command for this kind of connection does not "
                              "carry it"},
                   {"anchor", "other-connections"}}}));
  EXPECT_EQ(document["dropped"], json::array());
  EXPECT_EQ(document["effects"], json::array());
  EXPECT_EQ(document["diagnostics"], json::array());
  ASSERT_EQ(document["warnings"].size(), 1U);
  EXPECT_EQ(document["warnings"][0]["severity"], "warning");
  EXPECT_EQ(document["warnings"][0]["code"], "other-connections");
  EXPECT_EQ(document["warnings"][0]["setting"], "debugDevice");
}

TEST_F(CommandCommandTest, RefusesNumbersThatDoNotFit) {
  const std::string decimal = " (decimal or 0x)\n";
  const struct {
    std::vector<std::string> settings;
    std::string message;
  } rows[] = {
      {{"--debug-device", "128"},
       "--debug-device: '128' is no number from 0 to 127"},
      {{"--debug-device", "-1"},
       "--debug-device: '-1' is no number from 0 to 127"},
      {{"--debug-device", ""}, "--debug-device: '' is no number from 0 to 127"},
      {{"--debug-device="}, "--debug-device: '' is no number from 0 to 127"},
      {{"--debug-device", "0x12zz"},
       "--debug-device: '0x12zz' is no number from 0 to 127"},
      {{"--debug-device", "0x"},
       "--debug-device: '0x' is no number from 0 to 127"},
      {{"--debug-device", " 1"},
       "--debug-device: ' 1' is no number from 0 to 127"},
      {{"--debug-device", "+1"},
       "--debug-device: '+1' is no number from 0 to 127"},
      {{"--stub-baud", "2147483648"},
       "--stub-baud: '2147483648' is no number from 0 to 2147483647"},
      {{"--icache", "0x100000000"},
       "--icache: '0x100000000' is no number from 0x0 to 0xffffffff that is a "
       "multiple of 0x10000"},
      {{"--icache", "18446744073709551616"},
       "--icache: '18446744073709551616' is no number from 0x0 to 0xffffffff "
       "that is a multiple of 0x10000"},
      {{"--icache", "0x18000"},
       "--icache: '0x18000' is no number from 0x0 to 0xffffffff that is a "
       "multiple of 0x10000"},
      {{"--address-map", "0xFFFB0000"},
       "--address-map: '0xFFFB0000' is no number from 0x0 to 0xfffa0000 that "
       "is "
       "a multiple of 0x10000"},
      {{"--address-map", "0x10001"},
       "--address-map: '0x10001' is no number from 0x0 to 0xfffa0000 that is a "
       "multiple of 0x10000"},
      {{"--rom", "0:0x100000000"},
       "--rom SIZE: '0x100000000' is no number from 0 to 4294967295"},
      {{"--rom", ":16"}, "--rom START: '' is no number from 0x0 to 0xffffffff"},
      {{"--device", "devicenr=1,partname=p,irlength=128,idcode=1"},
       "--device irlength: '128' is no number from 0 to 127"},
      {{"--device", "devicenr=1,partname=p,irlength=6,idcode=1,nppc=256"},
       "--device nppc: '256' is no number from 0 to 255"},
  };
  for (const auto &row : rows) {
    const Result run = refusalOf("lumacore_0", row.settings);
    EXPECT_EQ(run.status, 2) << row.message;
    EXPECT_EQ(run.err, "zeldebug: error: " + row.message + decimal);
  }
}

/// The largest number of each field is taken as it is, and one more is not.
TEST_F(CommandCommandTest, TakesNumbersUpToTheirLimits) {
  const std::string device = "devicenr=1,partname=p,irlength=1,idcode=1";
  const struct {
    const char *processor;
    const char *option;
    std::string most;
    std::string oneMore;
    std::string written;
  } rows[] = {
      {"lumacore_0", "--debug-device", "127", "128", "deviceNr 127 "},
      {"lumacore_0", "--rom", "0xFFFFFFFE:4294967295", "4294967296:1",
       "romemStartAdr 0xfffffffe romemSize -1"},
      {"lumacore_0", "--device",
       "devicenr=127,partname=p,irlength=127,idcode=4294967295,nppc=0",
       "devicenr=128,partname=p,irlength=127,idcode=1",
       "devicenr 127 partname p irlength 127 idcode 0xffffffff"},
      {"lumacore_0", "--device", device, device + ",hardppc=256",
       "devicenr 1 partname p irlength 1 idcode 0x1"},
      {"lumacore_0", "--device", device, device + ",isfpga=256",
       "devicenr 1 partname p irlength 1 idcode 0x1"},
      {"lumacore_0", "--device", device,
       "devicenr=1,partname=p,irlength=1,idcode=0x100000000",
       "devicenr 1 partname p irlength 1 idcode 0x1"},
      {"ppc440_0", "--icache", "0xFFFF0000", "0x100000000",
       "icacheStartAdr 0xffff0000"},
      {"ppc440_0", "--dcache", "0xFFFF0000", "0x100000000",
       "dcacheStartAdr 0xffff0000"},
      {"ppc440_0", "--itag", "0xFFFF0000", "0x100000000",
       "itagStartAdr 0xffff0000"},
      {"ppc440_0", "--dtag", "0xFFFF0000", "0x100000000",
       "dtagStartAdr 0xffff0000"},
      {"ppc440_0", "--tlb", "0xFFFF0000", "0x100000000",
       "tlbStartAdr 0xffff0000"},
      {"ppc440_0", "--dcr", "0xFFFF0000", "0x100000000",
       "dcrStartAdr 0xffff0000"},
      {"ppc440_0", "--address-map", "0xFFFA0000", "0xFFFA0001",
       "tlbStartAdr 0xffff0000 dcrStartAdr 0xfffe0000"},
  };
  for (const auto &row : rows) {
    EXPECT_THAT(commandFor(row.processor, {row.option, row.most}),
                HasSubstr(row.written));
    EXPECT_EQ(refusalOf(row.processor, {row.option, row.oneMore}).status, 2)
        << row.option;
  }
  EXPECT_THAT(commandFor("lumacore_0", {"--connection", "stub-serial",
                                        "--stub-baud", "2147483647"}),
              HasSubstr("-baud  2147483647 "));
  const Result fastest = run({"command", board, "lumacore_0", "--cable",
                              "quorla_podusb", "--frequency", "4294967295"});
  EXPECT_EQ(fastest.status, 0);
  EXPECT_THAT(fastest.err, HasSubstr("cable.frequency 4294967295: "));
}

/// A serial number is text: nothing of it is read as a number, cut or changed.
TEST_F(CommandCommandTest, ASerialNumberIsOpaque) {
  for (const std::string esn : {"0", "000012", "0x10", "aB:cD", "a:b:", "%s",
                                "\xC3\xA9", "'q'", "-5"}) {
    const json document = runJson({"command", board, "lumacore_0", "--cable",
                                   "quorla_podusb", "--esn", esn});
    EXPECT_EQ(document["connectCommand"],
              "connect lc hdu -cable type quorla_podusb esn " + esn +
                  " -debugdevice cpunr 1");
    EXPECT_EQ(document["lost"], json::array());
  }
}

/// What was never set is not what was set to nothing.
TEST_F(CommandCommandTest, EmptyIsNotUnset) {
  for (const char *option :
       {"--port", "--esn", "--module", "--module-arg", "--stub-port",
        "--debug-device", "--stub-baud", "--icache", "--rom", "--device",
        "--cable", "--connection", "--frequency", "--address-map"}) {
    for (const std::vector<std::string> &line :
         {std::vector<std::string>{option, ""},
          std::vector<std::string>{std::string(option) + "="}}) {
      const Result run = refusalOf("lumacore_0", line);
      EXPECT_EQ(run.status, 2) << option;
      EXPECT_THAT(run.err,
                  HasSubstr(std::string("zeldebug: error: ") + option));
      EXPECT_THAT(run.err, HasSubstr("''")) << option;
    }
  }
}

TEST_F(CommandCommandTest, RefusesFrequenciesThatAreNoWholeHertz) {
  for (const char *text :
       {"4294967296", "4295MHz", "1.5", "1.5Hz", "0.0000005MHz", "1.MHz",
        ".5MHz", "0x1.8MHz", "1.5.0MHz", "MHz", "3mhz", "-3MHz", "",
        "0x12zzkHz"}) {
    const Result run = refusalOf("lumacore_0", {"--frequency", text});
    EXPECT_EQ(run.status, 2) << text;
    EXPECT_EQ(run.err,
              std::string("zeldebug: error: --frequency: '") + text +
                  "' is no whole number of hertz (decimal or 0x, with Hz, "
                  "kHz, MHz or nothing behind it), up to 4294967295 Hz\n");
  }
}

TEST_F(CommandCommandTest, RefusesTextsThatAreNoWord) {
  for (const char *option :
       {"--port", "--esn", "--module", "--module-arg", "--stub-port"}) {
    const std::string prefix =
        std::string("zeldebug: error: ") + option + ": '";
    const struct {
      const char *text;
      const char *reason;
      const char *shown = text;
    } rows[] = {
        {"", "it is empty, and a command cannot carry an empty value"},
        {"a b", "it holds white space, and a command ends its words there"},
        {"a\t", "it holds white space, and a command ends its words there",
         "a\\x09"},
        {"-x", "it begins with '-', and a command takes it for an option word"},
        {"-", "it begins with '-', and a command takes it for an option word"},
    };
    for (const auto &row : rows) {
      const Result run = refusalOf(
          "lumacore_0", {"--cable", "quorla_plugin", option, row.text});
      EXPECT_EQ(run.status, 2) << option << row.text;
      EXPECT_EQ(run.err,
                prefix + row.shown + "' is refused: " + row.reason + "\n");
    }
  }
}

TEST_F(CommandCommandTest, ANegativeNumberIsAWord) {
  EXPECT_EQ(
      commandFor("lumacore_0", {"--cable", "quorla_podusb", "--port", "-5"}),
      "connect lc hdu -cable type quorla_podusb port -5 frequency 6000000 "
      "-debugdevice cpunr 1");
}

TEST_F(CommandCommandTest, NamesWhatIsAccepted) {
  const struct {
    std::vector<std::string> settings;
    int status;
    std::string message;
  } rows[] = {
      {{"--cable", "quorla_usb"},
       2,
       "--cable: 'quorla_usb' is unknown; accepted are " + offeredCables() +
           "; did you mean 'quorla_podusb'?"},
      {{"--connection", "serial"},
       2,
       "--connection: 'serial' is unknown; accepted are 'sim', 'hw', "
       "'stub-serial', 'stub-jtag', 'vp'"},
      {{"--connection", "vp"},
       1,
       "--connection vp: 'lumacore_1' does not allow it; it allows 'sim', "
       "'hw'"},
      {{"--connection", "stub-serial"},
       1,
       "--connection stub-serial: 'lumacore_1' does not allow it; it allows "
       "'sim', 'hw'"},
      {{"--device", "devicenr=1,part=p"},
       2,
       "--device: unknown key 'part'; accepted are 'devicenr', 'partname', "
       "'irlength', 'idcode', 'isfpga', 'hardppc', 'nppc'"},
      {{"--device", "devicenr=1,devicenr=2"},
       2,
       "--device: 'devicenr' is given twice"},
      {{"--device", "devicenr=1,partname=p,irlength=6"},
       2,
       "--device: 'idcode' is missing in 'devicenr=1,partname=p,irlength=6'"},
      {{"--device", "x"}, 2, "--device: 'x' is no KEY=VALUE"},
      {{"--rom", "16"}, 2, "--rom: '16' is no START:SIZE"},
      {{"--cable", "quorla_tcf"},
       1,
       "--cable: no command can be written with 'quorla_tcf'; accepted are " +
           offeredCables()},
      {{"--from", ""},
       1,
       "--from: the command is refused: column 1: the command is empty"},
      {{"--from", "connect lc hdu -foo"},
       1,
       "--from: the command is refused: column 16: '-foo' is no option here "
       "(UNKNOWN Option '-foo')"},
      {{"--from", "connect lc hdu -debugdevice cpunr 7"},
       1,
       "--from: the command is refused: column 35: '7' is refused as the "
       "value"},
      {{"--from", "connect lc stub"},
       1,
       "--from: the command is refused: column 12: 'stub' is a connection that "
       "the processor does not allow"},
  };
  for (const auto &row : rows) {
    const Result run = refusalOf("lumacore_1", row.settings);
    EXPECT_EQ(run.status, row.status) << row.message;
    EXPECT_EQ(run.err, "zeldebug: error: " + row.message + "\n");
  }
}

TEST_F(CommandCommandTest, RefusesWhatIsSavedAndCannotBeRead) {
  save("lumacore_0", "connect lc hdu -foo");
  const Result run = refusalOf("lumacore_0", {});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(
      run.err,
      "zeldebug: error: etc/kvo_lumacore_0.opt:1: the command is refused: "
      "column 16: '-foo' is no option here (UNKNOWN Option '-foo'); it stays "
      "as it is (--force starts from the defaults)\n");
  const Result forced = this->run({"command", board, "lumacore_0", "--force"});
  EXPECT_EQ(forced.out, "connect lc hdu -debugdevice cpunr 1\n");
  EXPECT_THAT(forced.err, HasSubstr("(UNKNOWN Option '-foo'); what it says is "
                                    "not taken over\n"));
}

} // namespace
} // namespace tool
