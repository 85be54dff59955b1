// Virtual platform, PowerPC simulator and ModelSim: read and written.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

Reader reader(unsigned (*parse)(std::string &, EngineImp &)) {
  return [parse](std::string &text, EngineImp &imp) {
    return static_cast<int>(parse(text, imp));
  };
}

const Reader kParseVp = reader(KvoOption_Parser::parse_vpoptions);
const Reader kParsePpcSim = reader(KvoOption_Parser::parse_ppcsim_options);
const Reader kParseModelSim = reader(KvoOption_Parser::parse_modelsim_options);

// What the virtual platform's target word alone stores; the mask was 0x1000.
const std::string kVp = "connectionType=8 connectionMask=4104 procType=0 ";

std::string unknownVp(const std::string &word) {
  return "UNKNOWN virtual platform Option '" + word + "'";
}
std::string unknownPpcSim(const std::string &word) {
  return "UNKNOWN  PowerPC Sim Option '" + word + "'";
}
std::string unknownModelSim(const std::string &word) {
  return "UNKNOWN  ModelSim Option '" + word + "'";
}

// --- Host and port -----------------------------------------------------------

struct HostPort {
  std::string value;
  std::string host; ///< Empty: as it was.
  std::string port; ///< Empty: the reader's own for a value without a colon.
};

const std::vector<HostPort> kHostPorts = {
    {"h:1", "h", "1"},
    {"myhost:5000", "myhost", "5000"},
    {":5000", "localhost", "5000"},
    {":", "localhost", "0"},
    {"h:", "h", "0"},
    {"h:x", "h", "0"},
    {"h:5x", "h", "5"},
    {"h:+5", "h", "5"},
    {"h:-5", "h", "-5"},
    // The first colon counts; the port is decimal.
    {"a:b:5", "a", "0"},
    {"a:5:6", "a", "5"},
    {"::5", "localhost", "0"},
    {"h:0x10", "h", "0"},
    {"h:010", "h", "10"},
    {"h:2147483647", "h", "2147483647"},
    {"h:2147483648", "h", "-2147483648"},
    {"h:-2147483649", "h", "2147483647"},
    {"h:4294967297", "h", "1"},
    {"h:9223372036854775807", "h", "-1"},
    {"h:9223372036854775808", "h", "-1"},
    {"h:-9223372036854775809", "h", "0"},
    {"h:1e3", "h", "1"},
    {"Host.Name:1", "Host.Name", "1"},
    {"-5:7", "-5", "7"},
    {"h:\n5", "h", "5"},
    // Without a colon the host stays.
    {"host1", "", ""},
    {"5000", "", ""},
    {"-5", "", ""},
    {"h;5", "", ""},
};

void expectHostPorts(const Reader &reader, const std::string &lead,
                     const std::string &changes, const std::string &host,
                     const std::string &port, const std::string &defaultPort,
                     int code) {
  std::vector<Row> rows;
  for (const HostPort &row : kHostPorts) {
    std::string stored = changes;
    if (!row.host.empty())
      stored += " " + host + "=" + row.host;
    const std::string number = row.port.empty() ? defaultPort : row.port;
    if (!number.empty())
      stored += " " + port + "=" + number;
    rows.push_back(
        {lead + "-ipcport " + row.value, code, kQuiet, stored, "", "-ipcport"});
  }
  expectRows(reader, rows);
}

TEST(IpcPort, IsReadByEachSimulator) {
  expectHostPorts(kParseVp, "lc ", kVp, "simIpcHost", "simIpcPort", "2340", 0);
  expectHostPorts(kParsePpcSim, "", "", "simIpcHost", "simIpcPort", "6470", 0);
  // ModelSim has no port of its own: a value without a colon is ignored.
  expectHostPorts(kParseModelSim, "", "modelSimMode=1", "modelSimHost",
                  "modelSimPort", "", 3);
}

TEST(IpcPort, KeepsNullBytes) {
  const std::string value = "h\0i:5\0006"s;
  expectRows(kParseVp,
             {{"lc -ipcport " + value, 0, kQuiet,
               kVp + "simIpcHost=h\\x00i simIpcPort=5", "", "-ipcport"}});
  expectRows(kParsePpcSim,
             {{"-ipcport " + value, 0, kQuiet,
               "simIpcHost=h\\x00i simIpcPort=5", "", "-ipcport"}});
  expectRows(
      kParseModelSim,
      {{"-ipcport " + value, 3, kQuiet,
        "modelSimMode=1 modelSimHost=h\\x00i modelSimPort=5", "", "-ipcport"}});
}

// --- Virtual platform --------------------------------------------------------

TEST(VirtualPlatform, ReadsEachOption) {
  expectRows(
      kParseVp,
      {
          {"lc", 0, kQuiet, kVp},
          {" LC ", 0, kQuiet, kVp},
          {"Lc -config cycle_approximate", 0, kQuiet,
           kVp + "vpConfigMode=1 cycleApproximate=1", "", "-config"},
          {"LC -CONFIG CYCLE_APPROXIMATE", 0, kQuiet,
           kVp + "vpConfigMode=1 cycleApproximate=1", "", "-CONFIG"},
          {"lc -ipcport h:1", 0, kQuiet, kVp + "simIpcHost=h simIpcPort=1", "",
           "-ipcport"},
          {"lc -IPCPORT h:1", 0, kQuiet, kVp + "simIpcHost=h simIpcPort=1", "",
           "-IPCPORT"},
          {"lc -ipcport h:1 -config Cycle_Approximate -ipcport x", 0, kQuiet,
           kVp + "vpConfigMode=1 cycleApproximate=1 simIpcHost=h "
                 "simIpcPort=2340",
           "", "-ipcport"},
      });
}

TEST(VirtualPlatform, NeedsItsTargetWord) {
  std::vector<Row> rows = {
      {"", 2},
      {" \t", 2},
      {"ppc", 2},
      {"hdu -config cycle_approximate", 2, kQuiet, "",
       " -config cycle_approximate"},
      {"-lc", 2, kQuiet, "", "", "-lc"},
      {"-config cycle_approximate", 2, kQuiet, "", " cycle_approximate",
       "-config"},
      {"-", kThrows},
      {"- lc", kThrows, kQuiet, "", " lc"},
  };
  for (const std::string &miss : nearMisses("lc", {"lc"}))
    rows.push_back({miss, 2});
  expectRows(kParseVp, rows);
}

TEST(VirtualPlatform, RefusesWhatIsNoOption) {
  expectRows(kParseVp,
             {
                 {"lc sim", 2, kQuiet, kVp},
                 {"lc -5 -config x", 2, kQuiet, kVp, " -config x"},
                 // A plain word behind an option lands in the option string.
                 {"lc -config cycle_approximate x y ", 2, kQuiet,
                  kVp + "vpConfigMode=1 cycleApproximate=1", " y", "x"},
                 {"lc -ipcport h:1 -5", 2, kQuiet,
                  kVp + "simIpcHost=h simIpcPort=1", "", "-5"},
             });
}

TEST(VirtualPlatform, NeedsAValueForEachOption) {
  std::vector<Row> rows = {
      {"lc -config", 2, kQuiet, kVp, "", "-config"},
      {"lc -config -ipcport h:1", 2, kQuiet, kVp, " h:1", "-ipcport"},
      {"lc -config -foo", 2, kQuiet, kVp, "", "-foo"},
      {"lc -ipcport", 2, kQuiet, kVp, "", "-ipcport"},
      {"lc -ipcport -config", 2, kQuiet, kVp, "", "-config"},
      {"lc -ipcport -:5", 2, kQuiet, kVp, "", "-:5"},
      {"lc -config cycle_approximate -ipcport", 2, kQuiet,
       kVp + "vpConfigMode=1 cycleApproximate=1", "", "-ipcport"},
      {"lc -config foo -ipcport h:1", 2, kQuiet, kVp, " -ipcport h:1",
       "-config"},
      {"lc -config 1", 2, kQuiet, kVp, "", "-config"},
  };
  for (const std::string &miss :
       nearMisses("cycle_approximate", {"cycle_approximate"}))
    rows.push_back({"lc -config " + miss, 2, kQuiet, kVp, "", "-config"});
  expectRows(kParseVp, rows);
}

// The message shows the value read last, or the target word.
TEST(VirtualPlatform, QuotesTheValueReadLast) {
  expectRows(kParseVp,
             {
                 {"lc -foo", 2, unknownVp("lc"), kVp, "", "-foo"},
                 {"LC -foo x ", 2, unknownVp("LC"), kVp, " x", "-foo"},
                 {"lc -icf f", 2, unknownVp("lc"), kVp, " f", "-icf"},
                 {"lc -ipcport h:1 -foo", 2, unknownVp("h:1"),
                  kVp + "simIpcHost=h simIpcPort=1", "", "-foo"},
                 {"lc -config Cycle_approximate -foo", 2,
                  unknownVp("Cycle_approximate"),
                  kVp + "vpConfigMode=1 cycleApproximate=1", "", "-foo"},
                 {"lc -ipcport h:1 -config cycle_approximate -ipcport x -foo",
                  2, unknownVp("x"),
                  kVp + "simIpcHost=h simIpcPort=2340 vpConfigMode=1 "
                        "cycleApproximate=1",
                  "", "-foo"},
             });
  const std::vector<std::string> options = {"-config", "-ipcport"};
  for (const std::string &option : options)
    for (const std::string &miss : nearMisses(option, options))
      expectRows(kParseVp,
                 {{"lc " + miss + " cycle_approximate", 2, unknownVp("lc"), kVp,
                   " cycle_approximate", miss}});
}

TEST(VirtualPlatform, AsksTheMaskOnlyWithADesign) {
  const auto allowing = [](std::uint32_t mask) {
    return Prepare([mask](EngineImp &imp) {
      imp.hwManager = silentDesign();
      imp.currentProcessor->connectionMask = mask;
    });
  };
  for (const std::uint32_t mask : {0U, 1U, 7U, 0x87U, 0xFFFFFFF7U})
    expectRows(kParseVp,
               {{"lc -config cycle_approximate", 2, kQuiet, "",
                 " -config cycle_approximate"},
                {"", 2},
                {"ppc", 2}},
               allowing(mask));
  // The mask and the type are the design's.
  for (const std::uint32_t mask : {8U, 15U, 0xFFFFFFFFU})
    expectRows(
        kParseVp,
        {{"lc", 0, kQuiet, "connectionType=8"},
         {"lc -foo", 2, unknownVp("lc"), "connectionType=8", "", "-foo"}},
        allowing(mask));
  // Without a design the mask may be empty.
  expectRows(kParseVp,
             {{"lc", 0, kQuiet,
               "connectionType=8 connectionMask=8 "
               "procType=0"}},
             [](EngineImp &imp) { imp.currentProcessor->connectionMask = 0; });
}

TEST(VirtualPlatform, FailsAtALoneMinus) {
  expectRows(kParseVp,
             {
                 {"lc -", kThrows, kQuiet, kVp},
                 {"lc -config -", kThrows, kQuiet, kVp, "", "-config"},
                 {"lc -ipcport - x", kThrows, kQuiet, kVp, " x", "-ipcport"},
                 // It is read straight into the option string.
                 {"lc -ipcport h:1 - x", kThrows, kQuiet,
                  kVp + "simIpcHost=h simIpcPort=1", " x", "-"},
             });
}

// --- PowerPC simulator -------------------------------------------------------

TEST(PpcSimulator, ReadsEachOption) {
  expectRows(
      kParsePpcSim,
      {
          {"", 0},
          {" \t", 0},
          {"-icf file.cfg", 0, kQuiet, "ppcSimConfigFile=file.cfg", "", "-icf"},
          {"-ICF F", 0, kQuiet, "ppcSimConfigFile=F", "", "-ICF"},
          {"-ipcport h:1", 0, kQuiet, "simIpcHost=h simIpcPort=1", "",
           "-ipcport"},
          {"-IPCPORT h:1", 0, kQuiet, "simIpcHost=h simIpcPort=1", "",
           "-IPCPORT"},
          {"-debugdevice devicenr 2", 0, kQuiet, "debugDevice=2", "",
           "-debugdevice"},
          {"-DebugDevice devicenr 2", 0, kQuiet, "debugDevice=2", "",
           "-DebugDevice"},
          {"-icf file.cfg -ipcport h:1", 0, kQuiet,
           "ppcSimConfigFile=file.cfg simIpcHost=h simIpcPort=1", "",
           "-ipcport"},
          {"-icf a -icf b", 0, kQuiet, "ppcSimConfigFile=b", "", "-icf"},
          {"-icf a\0b"s, 0, kQuiet, "ppcSimConfigFile=a\\x00b", "", "-icf"},
          {"-icf -5", 0, kQuiet, "ppcSimConfigFile=-5", "", "-icf"},
      });
}

TEST(PpcSimulator, TakesAnOptionForAMissingValue) {
  expectRows(
      kParsePpcSim,
      {
          // At the end of the text nothing is stored, or the value of before.
          {"-icf", 0, kQuiet, "", "", "-icf"},
          {"-ipcport", 0, kQuiet, "simIpcPort=6470", "", "-ipcport"},
          {"-ipcport h:1 -ipcport", 0, kQuiet, "simIpcHost=h simIpcPort=1", "",
           "-ipcport"},
          {"-ipcport h:1 -icf f -ipcport ", 0, kQuiet,
           "simIpcHost=h simIpcPort=1 ppcSimConfigFile=f", "", "-ipcport"},
          {"-icf f -icf", 0, kQuiet, "ppcSimConfigFile=f", "", "-icf"},
          // An option word in a value's place is the value.
          {"-icf -foo", 0, kQuiet, "ppcSimConfigFile=-foo", "", "-foo"},
          {"-icf -ipcport h:1", 2, kQuiet, "ppcSimConfigFile=-ipcport", "",
           "h:1"},
          {"-icf -ipcport -ipcport h:1", 0, kQuiet,
           "ppcSimConfigFile=-ipcport simIpcHost=h simIpcPort=1", "",
           "-ipcport"},
          {"-ipcport -icf", 0, kQuiet, "simIpcPort=6470", "", "-icf"},
          {"-ipcport -icf f", 2, kQuiet, "simIpcPort=6470", "", "f"},
          {"-ipcport -h:5", 0, kQuiet, "simIpcHost=-h simIpcPort=5", "",
           "-h:5"},
          {"-ipcport -:5", 0, kQuiet, "simIpcHost=- simIpcPort=5", "", "-:5"},
      });
}

TEST(PpcSimulator, LosesTheOptionThatEndsADebugDevice) {
  expectRows(kParsePpcSim,
             {
                 {"-debugdevice", 0, kQuiet, "", "", "-debugdevice"},
                 {"-debugdevice devicenr 2 -icf f", 2, kQuiet, "debugDevice=2",
                  "", "f"},
                 {"-debugdevice devicenr 2 -icf", 0, kQuiet, "debugDevice=2",
                  "", "-icf"},
                 {"-debugdevice devicenr 2 -icf -ipcport h:1", 0, kQuiet,
                  "debugDevice=2 simIpcHost=h simIpcPort=1", "", "-ipcport"},
                 {"-debugdevice -foo -icf f", 0, kQuiet, "ppcSimConfigFile=f",
                  "", "-icf"},
                 {"-debugdevice devicenr -icf f", 2, kQuiet, "", "", "f"},
                 // Nor does a refused clause stop the reading.
                 {"-debugdevice devicenr", 0, kQuiet, "", "", "-debugdevice"},
                 {"-debugdevice foo 1 -icf f", 0,
                  "UNKNOWN Parameter 'foo' for  option '-debugDevice'",
                  "ppcSimConfigFile=f", "", "-icf"},
                 {"-debugdevice foo 1 devicenr 2", 2,
                  "UNKNOWN Parameter 'foo' for  option '-debugDevice'", "",
                  " 2", "devicenr"},
                 {"-debugdevice proctype x -icf f", 0, kQuiet,
                  "procType=6 ppcSimConfigFile=f", "", "-icf"},
                 {"-debugdevice icacheStartAdr 1 -icf f", 0,
                  "Icache Start Address should be aligned at 64k boundry",
                  "icacheStartAdr=1 ppcSimConfigFile=f", "", "-icf"},
             });
}

TEST(PpcSimulator, RefusesAPlainValue) {
  expectRows(
      kParsePpcSim,
      {
          {"hw", 2},
          {"-5 -icf f", 2, kQuiet, "", " -icf f"},
          {"-icf f x y ", 2, kQuiet, "ppcSimConfigFile=f", " y", "x"},
          {"-ipcport h:1 -5", 2, kQuiet, "simIpcHost=h simIpcPort=1", "", "-5"},
      });
}

TEST(PpcSimulator, QuotesTheHostAndPortReadLast) {
  expectRows(kParsePpcSim,
             {
                 {"-foo", 2, unknownPpcSim(""), "", "", "-foo"},
                 {"-foo x ", 2, unknownPpcSim(""), "", " x", "-foo"},
                 {"-icf f -foo", 2, unknownPpcSim(""), "ppcSimConfigFile=f", "",
                  "-foo"},
                 {"-ipcport h:1 -foo", 2, unknownPpcSim("h:1"),
                  "simIpcHost=h simIpcPort=1", "", "-foo"},
                 {"-ipcport H -icf f -foo", 2, unknownPpcSim("H"),
                  "simIpcPort=6470 ppcSimConfigFile=f", "", "-foo"},
                 {"-ipcport -a -foo", 2, unknownPpcSim("-a"), "simIpcPort=6470",
                  "", "-foo"},
                 {"-config cycle_approximate", 2, unknownPpcSim(""), "",
                  " cycle_approximate", "-config"},
                 {"-cable type quorla_podusb", 2, unknownPpcSim(""), "",
                  " type quorla_podusb", "-cable"},
             });
  const std::vector<std::string> options = {"-icf", "-ipcport", "-debugdevice"};
  for (const std::string &option : options)
    for (const std::string &miss : nearMisses(option, options))
      expectRows(kParsePpcSim,
                 {{miss + " h:1", 2, unknownPpcSim(""), "", " h:1", miss}});
}

TEST(PpcSimulator, FailsAtALoneMinus) {
  expectRows(
      kParsePpcSim,
      {
          {"-", kThrows},
          {"- -icf f", kThrows, kQuiet, "", " -icf f"},
          // The file is read straight into its field.
          {"-icf - x", kThrows, kQuiet, "ppcSimConfigFile=-", " x", "-icf"},
          {"-ipcport -", kThrows, kQuiet, "", "", "-ipcport"},
          {"-ipcport h:1 - x", kThrows, kQuiet, "simIpcHost=h simIpcPort=1",
           " x", "-"},
          {"-debugdevice devicenr 2 -", kThrows, kQuiet, "debugDevice=2", "",
           "-debugdevice"},
          {"-debugdevice devicenr -", kThrows, kQuiet, "", "", "-debugdevice"},
      });
}

// --- ModelSim ----------------------------------------------------------------

const std::string kSim = "modelSimMode=1 ";

TEST(ModelSim, ReadsEachOption) {
  expectRows(kParseModelSim,
             {
                 {"", 3, kQuiet, kSim},
                 {" \t", 3, kQuiet, kSim},
                 {"-ipcport h:1", 3, kQuiet,
                  kSim + "modelSimHost=h modelSimPort=1", "", "-ipcport"},
                 {"-IPCPORT h:1", 3, kQuiet,
                  kSim + "modelSimHost=h modelSimPort=1", "", "-IPCPORT"},
                 {"-configdevice devicenr 2", 3, kQuiet,
                  kSim + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-configdevice"},
                 {"-ConfigDevice devicenr 2", 3, kQuiet,
                  kSim + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-ConfigDevice"},
                 {"-ipcport h:1 -ipcport i:2 -configdevice", 3, kQuiet,
                  kSim + "modelSimHost=i modelSimPort=2 "
                         "chain[0]=UNKNOWN,0,0,0,0,0,0",
                  "", "-configdevice"},
                 {"-ipcport nocolon", 3, kQuiet, kSim, "", "-ipcport"},
             });
}

TEST(ModelSim, TakesAnOptionForAMissingValue) {
  expectRows(kParseModelSim,
             {
                 {"-ipcport", 3, kQuiet, kSim, "", "-ipcport"},
                 {"-ipcport h:1 -ipcport", 3, kQuiet,
                  kSim + "modelSimHost=h modelSimPort=1", "", "-ipcport"},
                 {"-ipcport -quiet", 3, kQuiet, kSim, "", "-quiet"},
                 {"-ipcport -h:5", 3, kQuiet,
                  kSim + "modelSimHost=-h "
                         "modelSimPort=5",
                  "", "-h:5"},
                 {"-ipcport -configdevice devicenr 2", 2, kQuiet, kSim, " 2",
                  "devicenr"},
             });
}

TEST(ModelSim, LosesTheOptionThatEndsAConfigDevice) {
  expectRows(
      kParseModelSim,
      {
          {"-configdevice devicenr 2 -quiet", 3, kQuiet,
           kSim + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-quiet"},
          {"-configdevice devicenr 2 -ipcport h:1", 2, kQuiet,
           kSim + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "h:1"},
          {"-configdevice devicenr 2 -quiet -ipcport h:1", 3, kQuiet,
           kSim + "chain[0]=UNKNOWN,0,0,2,0,0,0 modelSimHost=h "
                  "modelSimPort=1",
           "", "-ipcport"},
          {"-configdevice devicenr", 3, kQuiet,
           kSim + "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-configdevice"},
          {"-configdevice foo 1 -ipcport h:1", 3,
           "UNKNOWN Parameter 'foo' for option '-configDevice'",
           kSim + "modelSimHost=h modelSimPort=1", "", "-ipcport"},
          {"-configdevice jtagport x -ipcport h:1", 3, kQuiet,
           kSim + "cpuJtag=0 modelSimHost=h modelSimPort=1", "", "-ipcport"},
          {"-configdevice jtagport x y", 2, kQuiet, kSim + "cpuJtag=0", "",
           "y"},
      });
}

TEST(ModelSim, RefusesTheRest) {
  expectRows(kParseModelSim,
             {
                 {"x", 2, kQuiet, kSim},
                 {"-5 -ipcport h:1", 2, kQuiet, kSim, " -ipcport h:1"},
                 {"-ipcport h:1 x y ", 2, kQuiet,
                  kSim + "modelSimHost=h modelSimPort=1", " y", "x"},
                 {"-foo", 2, unknownModelSim(""), kSim, "", "-foo"},
                 {"-quiet", 2, unknownModelSim(""), kSim, "", "-quiet"},
                 {"-ipcport h:1 -foo x", 2, unknownModelSim("h:1"),
                  kSim + "modelSimHost=h modelSimPort=1", " x", "-foo"},
                 {"-ipcport Nocolon -configdevice -x -foo", 2,
                  unknownModelSim("Nocolon"),
                  kSim + "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-foo"},
                 {"-icf f", 2, unknownModelSim(""), kSim, " f", "-icf"},
                 {"-debugdevice devicenr 2", 2, unknownModelSim(""), kSim,
                  " devicenr 2", "-debugdevice"},
             });
  const std::vector<std::string> options = {"-ipcport", "-configdevice"};
  for (const std::string &option : options)
    for (const std::string &miss : nearMisses(option, options))
      expectRows(kParseModelSim,
                 {{miss + " h:1", 2, unknownModelSim(""), kSim, " h:1", miss}});
}

TEST(ModelSim, FailsAtALoneMinus) {
  expectRows(
      kParseModelSim,
      {
          {"-", kThrows, kQuiet, kSim},
          {"-ipcport -", kThrows, kQuiet, kSim, "", "-ipcport"},
          {"-ipcport h:1 - x", kThrows, kQuiet,
           kSim + "modelSimHost=h modelSimPort=1", " x", "-"},
          {"-configdevice devicenr 2 -", kThrows, kQuiet, kSim, "",
           "-configdevice"},
          {"-configdevice foo 1 -", kThrows,
           "UNKNOWN Parameter 'foo' for option '-configDevice'", kSim, "", "-"},
      });
}

// --- Written ---------------------------------------------------------------

struct WriteRow {
  std::string what;
  std::function<void(ProcessorInfoImp &)> set;
  int code;
  std::string written;
};

using Writer = int (*)(std::string &out, EngineImp &imp);

void expectWritten(Writer writer, const std::vector<WriteRow> &rows) {
  for (const WriteRow &row : rows) {
    SCOPED_TRACE(row.what);
    Bench bench;
    bench.record = ProcessorInfoImp();
    bench.engine.SetErrorStr(kQuiet);
    row.set(bench.record);
    const Settings before = settingsOf(bench.imp);
    std::string out = "start";
    EXPECT_EQ(writer(out, bench.imp), row.code);
    EXPECT_EQ(printable(out), row.written);
    EXPECT_EQ(bench.error(), kQuiet);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
  }
}

TEST(WriteVirtualPlatform, ReplacesWhatWasBegun) {
  using R = ProcessorInfoImp;
  const auto ipc = [](const std::string &host, int port) {
    return [=](R &r) {
      r.simIpcHost = host;
      r.simIpcPort = port;
    };
  };
  expectWritten(
      KvoOption_Parser::write_vpoptions,
      {
          {"nothing set", [](R &) {}, 0, "vpconnect lc"},
          {"both flags",
           [](R &r) {
             r.vpConfigMode = 1;
             r.cycleApproximate = 1;
           },
           0, "vpconnect lc -config cycle_approximate"},
          {"configuration mode alone", [](R &r) { r.vpConfigMode = 1; }, 0,
           "vpconnect lc -config"},
          {"cycle-approximate alone", [](R &r) { r.cycleApproximate = 1; }, 0,
           "vpconnect lc"},
          {"flags of other values",
           [](R &r) {
             r.vpConfigMode = 0x80000000;
             r.cycleApproximate = 2;
           },
           0, "vpconnect lc -config cycle_approximate"},
          {"host and port", ipc("localhost", 2340), 0,
           "vpconnect lc -ipcportlocalhost2340"},
          {"port 0", ipc("h", 0), 0, "vpconnect lc -ipcporth0"},
          {"negative port", ipc("h", -5), 0, "vpconnect lc -ipcporth-5"},
          {"port without a host", ipc("", 5), 0, "vpconnect lc"},
          {"null byte", ipc("a\0b"s, 1), 0, "vpconnect lc -ipcporta\\x00b1"},
          {"the mode displaces the host",
           [](R &r) {
             r.vpConfigMode = 1;
             r.simIpcHost = "h";
             r.simIpcPort = 1;
           },
           0, "vpconnect lc -config"},
          {"PowerPC", [](R &r) { r.procFamily = 1; }, 2, "vpconnect"},
          {"ARM", [](R &r) { r.procFamily = 2; }, 2, "vpconnect"},
          {"any other", [](R &r) { r.procFamily = 0x80000000; }, 2,
           "vpconnect"},
      });
}

TEST(WritePpcSimulator, PrefersTheFile) {
  using R = ProcessorInfoImp;
  expectWritten(
      KvoOption_Parser::write_ppcsim_options,
      {
          {"nothing set", [](R &) {}, 0, "start"},
          {"file", [](R &r) { r.ppcSimConfigFile = "file.cfg"; }, 0,
           "start -icf file.cfg"},
          {"host and port",
           [](R &r) {
             r.simIpcHost = "h";
             r.simIpcPort = 1;
           },
           0, "start -ipcport h:1"},
          {"negative port",
           [](R &r) {
             r.simIpcHost = "h";
             r.simIpcPort = -2147483647 - 1;
           },
           0, "start -ipcport h:-2147483648"},
          {"port without a host", [](R &r) { r.simIpcPort = 5; }, 0, "start"},
          {"both",
           [](R &r) {
             r.ppcSimConfigFile = "f";
             r.simIpcHost = "h";
             r.simIpcPort = 1;
           },
           0, "start -icf f"},
          {"null bytes",
           [](R &r) {
             r.simIpcHost = "a\0b"s;
             r.simIpcPort = 1;
           },
           0, "start -ipcport a\\x00b:1"},
          {"debug device", [](R &r) { r.debugDevice = 2; }, 0, "start"},
      });
}

TEST(WritePpcSimulator, WritesNamesOfAnyLength) {
  const std::string name(5000, 'n');
  expectWritten(
      KvoOption_Parser::write_ppcsim_options,
      {{"host", [&](ProcessorInfoImp &r) { r.simIpcHost = name; }, 0,
        "start -ipcport " + name + ":0"},
       {"file", [&](ProcessorInfoImp &r) { r.ppcSimConfigFile = name; }, 0,
        "start -icf " + name}});
}

} // namespace
