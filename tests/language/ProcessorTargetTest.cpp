// What follows the target words "lc", "ppc", "arm", "r5" and "dap".
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

const Reader kParseLc = KvoOption_Parser::parse_lcoptions;
const Reader kParsePpc = KvoOption_Parser::parse_ppcoptions;
const Reader kParseArm = KvoOption_Parser::parse_armoptions;
const Reader kParseR5 = KvoOption_Parser::parse_armr5options;
const Reader kParseDap = KvoOption_Parser::parse_dapoptions;

// The mask was 0x1000 = 4096.
const std::string kLcSim =
    "connectionType=1 connectionMask=4097 procFamily=0 procType=0 ";
const std::string kLcHdu =
    "connectionType=2 connectionMask=4098 procFamily=0 procType=0 ";
const std::string kLcStub =
    "connectionType=4 connectionMask=4100 procFamily=0 procType=0 ";
const std::string kPpcKind = "procFamily=1 procType=6 ";
const std::string kPpcSim = "connectionType=1 connectionMask=4097 " + kPpcKind;
const std::string kPpcHw = "connectionType=2 connectionMask=4098 " + kPpcKind;
const std::string kArmHw =
    "connectionType=2 connectionMask=4098 procFamily=2 procType=4 ";
const std::string kR5Hw =
    "connectionType=2 connectionMask=4098 procFamily=2 procType=5 ";
const std::string kDapHw =
    "connectionType=2 connectionMask=512 procFamily=2 procType=4 ";

const std::string kFooRefused = "UNKNOWN Option '-foo'";

Prepare allowing(std::uint32_t mask) {
  return [mask](EngineImp &imp) {
    imp.hwManager = silentDesign();
    imp.currentProcessor->connectionMask = mask;
  };
}

/// Words that are no connection of a target, and the lack of one.
void expectConnections(const Reader &reader,
                       const std::vector<std::string> &known) {
  std::vector<Row> rows = {{"", 2}, {" \t", 2}};
  std::vector<std::string> others = {"sim", "stub", "hdu", "hw",
                                     "vp",  "jtag", "0",   "-5"};
  for (const std::string &word : known)
    for (const std::string &miss : nearMisses(word, known))
      others.push_back(miss);
  for (const std::string &other : others) {
    bool accepted = false;
    for (const std::string &word : known)
      accepted = accepted || word == other;
    if (!accepted)
      rows.push_back({other + " -quiet ", 2, kQuiet, "", " -quiet"});
  }
  for (const std::string &word : known)
    rows.push_back({"-" + word + " x", 2, kQuiet, "", " x", "-" + word});
  rows.push_back({"-", kThrows});
  rows.push_back({"- hw", kThrows, kQuiet, "", " hw"});
  expectRows(reader, rows);
  expectRows(reader, rows, allowing(0xFFFFFFFF));
  expectRows(reader, rows, allowing(0));
}

TEST(ProcessorTargets, RefuseEveryOtherConnection) {
  expectConnections(kParseLc, {"sim", "stub", "hdu"});
  expectConnections(kParsePpc, {"sim", "hw"});
  expectConnections(kParseArm, {"hw"});
  expectConnections(kParseR5, {"hw"});
  expectConnections(kParseDap, {"hw"});
}

struct Connection {
  Reader reader;
  std::string word;
  std::string stored;      ///< Without a design.
  std::uint32_t bit;       ///< 0: not asked for.
  std::string underDesign; ///< What is stored while a design is there.
};

const std::vector<Connection> kWithOptions = {
    {kParseLc, "stub", kLcStub, 4, "connectionType=4 "},
    {kParseLc, "hdu", kLcHdu, 2, "connectionType=2 "},
    {kParsePpc, "hw", kPpcHw, 2, "connectionType=2 "},
    {kParseArm, "hw", kArmHw, 2, "connectionType=2 "},
    {kParseR5, "hw", kR5Hw, 2, "connectionType=2 "},
    {kParseDap, "hw", kDapHw, 0, kDapHw},
};

TEST(ProcessorTargets, ReadTheOptionsOfAConnection) {
  for (const Connection &connection : kWithOptions) {
    const std::string &word = connection.word;
    const std::string &stored = connection.stored;
    expectRows(
        connection.reader,
        {
            {word, 0, kQuiet, stored},
            {" " + upper(word) + " ", 0, kQuiet, stored},
            {word + " -quiet", 0, kQuiet, stored, "", "-quiet"},
            {word + " -debugdevice devicenr 2 -cable port p", 0, kQuiet,
             stored + "debugDevice=2 cable.port=p cable.frequency=0", "",
             "-cable"},
            {word + " -comm serial -port p -baud 5 -timeout 6 -bscan USER1", 0,
             kQuiet,
             stored + "stubType=1 stubSerialPort=p stubBaudRate=5 "
                      "stubTimeout=6 bscanUserReg=2",
             "", "-bscan"},
            {word + " -sim", 0, kQuiet, stored + "modelSimMode=1", "", "-sim"},
        });
  }
}

TEST(ProcessorTargets, StoreNoConnectionWhenAnOptionIsRefused) {
  for (const Connection &connection : kWithOptions) {
    const std::string &word = connection.word;
    // The PowerPC target says what it is before its options are read.
    const std::string kind = connection.stored == kPpcHw ? kPpcKind : "";
    const std::vector<Row> rows = {
        {word + " x", 2, kQuiet, kind},
        {word + " -foo x ", 2, kFooRefused, kind, " x", "-foo"},
        {word + " -debugdevice devicenr 2 -foo", 2, kFooRefused,
         kind + "debugDevice=2", "", "-foo"},
        {word + " -quiet 5", 2, kQuiet, kind, "", "-quiet"},
        {word + " -", kThrows, kQuiet, kind},
        {word + " -debugdevice devicenr 2 - x", kThrows, kQuiet,
         kind + "debugDevice=2", " x", "-debugdevice"},
    };
    expectRows(connection.reader, rows);
    // Under a design nobody says what it is.
    std::vector<Row> underDesign = rows;
    for (Row &row : underDesign)
      row.changes = row.changes.substr(kind.size());
    expectRows(connection.reader, underDesign, allowing(0xFFFFFFFF));
  }
}

TEST(ProcessorTargets, AskTheMaskOfADesignBeforeAnyOption) {
  for (const Connection &connection : kWithOptions) {
    const std::string &word = connection.word;
    if (connection.bit != 0)
      for (const std::uint32_t mask : {0U, ~connection.bit})
        expectRows(connection.reader,
                   {{word, 2},
                    {word + " -debugdevice devicenr 2 ", 2, kQuiet, "",
                     " -debugdevice devicenr 2"},
                    {word + " -", 2, kQuiet, "", " -"}},
                   allowing(mask));
    for (const std::uint32_t mask :
         {connection.bit, connection.bit | 0x81U, 0xFFFFFFFFU})
      expectRows(
          connection.reader,
          {{word, 0, kQuiet, connection.underDesign},
           {word + " -debugdevice devicenr 2", 0, kQuiet,
            connection.underDesign + "debugDevice=2", "", "-debugdevice"}},
          allowing(mask));
  }
}

TEST(ProcessorTargets, WidenAnEmptyMask) {
  const Prepare empty = [](EngineImp &imp) {
    imp.currentProcessor->connectionMask = 0;
  };
  const std::string lc = " procFamily=0 procType=0";
  expectRows(kParseLc,
             {{"sim", 0, kQuiet, "connectionType=1 connectionMask=1" + lc},
              {"stub", 0, kQuiet, "connectionType=4 connectionMask=4" + lc},
              {"hdu", 0, kQuiet, "connectionType=2 connectionMask=2" + lc}},
             empty);
  expectRows(
      kParsePpc,
      {{"sim", 0, kQuiet, "connectionType=1 connectionMask=1 " + kPpcKind},
       {"hw", 0, kQuiet, "connectionType=2 connectionMask=2 " + kPpcKind}},
      empty);
  expectRows(kParseArm,
             {{"hw", 0, kQuiet,
               "connectionType=2 connectionMask=2 procFamily=2 procType=4"}},
             empty);
}

// What the debug device clause says of the kind meets what the target says.
TEST(ProcessorTargets, DecideAboutTheKind) {
  const std::string clause = " -debugdevice proctype ppc405";
  expectRows(kParseLc,
             {{"hdu" + clause, 0, kQuiet, kLcHdu, "", "-debugdevice"}});
  expectRows(kParsePpc, {{"hw" + clause, 0, kQuiet,
                          "connectionType=2 connectionMask=4098 procFamily=1 "
                          "procType=1",
                          "", "-debugdevice"},
                         {"sim" + clause, 0, kQuiet,
                          "connectionType=1 connectionMask=4097 procFamily=1 "
                          "procType=1",
                          "", "-debugdevice"}});
  expectRows(kParseArm,
             {{"hw" + clause, 0, kQuiet, kArmHw, "", "-debugdevice"}});
  expectRows(kParseR5, {{"hw" + clause, 0, kQuiet, kR5Hw, "", "-debugdevice"}});
  expectRows(kParseDap,
             {{"hw" + clause, 0, kQuiet, kDapHw, "", "-debugdevice"}});
  // Under a design the clause stands, but for the access port.
  expectRows(kParseArm,
             {{"hw" + clause, 0, kQuiet, "connectionType=2 procType=1", "",
               "-debugdevice"}},
             allowing(2));
  expectRows(kParseDap,
             {{"hw" + clause, 0, kQuiet, kDapHw, "", "-debugdevice"}},
             allowing(2));
}

TEST(LumacoreSimulator, TakesAMemorySize) {
  expectRows(
      kParseLc,
      {
          {"sim", 0, kQuiet, kLcSim},
          {"SIM ", 0, kQuiet, kLcSim},
          {"sim -memsize 0x40", 0, kQuiet, kLcSim + "simMemSize=64", "",
           "-memsize"},
          {"Sim -MEMSIZE 010", 0, kQuiet, kLcSim + "simMemSize=8", "",
           "-MEMSIZE"},
          {"sim -memsize -5", 0, kQuiet, kLcSim + "simMemSize=4294967291", "",
           "-memsize"},
          // Nothing after the value is read.
          {"sim -memsize 5 x -foo ", 0, kQuiet, kLcSim + "simMemSize=5",
           " x -foo", "-memsize"},
          {"sim -memsize 5 -memsize 6", 0, kQuiet, kLcSim + "simMemSize=5",
           " -memsize 6", "-memsize"},
          {"sim -memsize 5 -", 0, kQuiet, kLcSim + "simMemSize=5", " -",
           "-memsize"},
          // An option word in the value's place is the value.
          {"sim -memsize -foo", 0, kQuiet, kLcSim + "simMemSize=0", "", "-foo"},
          {"sim -memsize -memsize 5", 0, kQuiet, kLcSim + "simMemSize=0", " 5",
           "-memsize"},
          // A plain word is ignored, with all behind it.
          {"sim x", 0, kQuiet, kLcSim},
          {"sim x y -foo ", 0, kQuiet, kLcSim, " y -foo"},
          {"sim -5 -memsize 5", 0, kQuiet, kLcSim, " -memsize 5"},
          {"sim x -", 0, kQuiet, kLcSim, " -"},
      });
}

TEST(LumacoreSimulator, StoresItsConnectionBeforeItReadsOn) {
  std::vector<Row> rows = {
      {"sim -memsize", 2, kQuiet, "connectionType=1", "", "-memsize"},
      {"sim -foo 5", 2, kQuiet, "connectionType=1", " 5", "-foo"},
      {"sim -quiet", 2, kQuiet, "connectionType=1", "", "-quiet"},
      {"sim -cable port p", 2, kQuiet, "connectionType=1", " port p", "-cable"},
      {"sim -", kThrows, kQuiet, "connectionType=1"},
      {"sim - x", kThrows, kQuiet, "connectionType=1", " x"},
      {"sim -memsize - x", kThrows, kQuiet, "connectionType=1", " x",
       "-memsize"},
  };
  for (const std::string &miss : nearMisses("-memsize", {"-memsize"}))
    rows.push_back(
        {"sim " + miss + " 5", 2, kQuiet, "connectionType=1", " 5", miss});
  expectRows(kParseLc, rows);
  expectRows(kParseLc, rows, allowing(1));
}

TEST(LumacoreSimulator, AsksTheMaskOfADesign) {
  for (const std::uint32_t mask : {0U, 0xFFFFFFFEU})
    expectRows(kParseLc,
               {{"sim", 2},
                {"sim -memsize 5", 2, kQuiet, "", " -memsize 5"},
                {"sim -", 2, kQuiet, "", " -"}},
               allowing(mask));
  expectRows(kParseLc,
             {{"sim", 0, kQuiet, "connectionType=1"},
              {"sim x", 0, kQuiet, "connectionType=1"},
              {"sim -memsize 5", 0, kQuiet, "connectionType=1 simMemSize=5", "",
               "-memsize"}},
             allowing(0x85));
}

TEST(PowerPcSimulator, ReadsItsOwnOptions) {
  expectRows(
      kParsePpc,
      {
          {"sim", 0, kQuiet, kPpcSim},
          {"SIM -icf f", 0, kQuiet, kPpcSim + "ppcSimConfigFile=f", "", "-icf"},
          {"sim -ipcport h:1", 0, kQuiet, kPpcSim + "simIpcHost=h simIpcPort=1",
           "", "-ipcport"},
          {"sim -debugdevice foo 1", 0,
           "UNKNOWN Parameter 'foo' for  option '-debugDevice'", kPpcSim, "",
           "-debugdevice"},
          // Family and kind stay when the clause is refused.
          {"sim x", 2, kQuiet, kPpcKind},
          {"sim -quiet", 2, "UNKNOWN  PowerPC Sim Option ''", kPpcKind, "",
           "-quiet"},
          {"sim -icf f x", 2, kQuiet, kPpcKind + "ppcSimConfigFile=f", "", "x"},
          {"sim -", kThrows, kQuiet, kPpcKind},
      });
  for (const std::uint32_t mask : {0U, 0xFFFFFFFEU})
    expectRows(kParsePpc, {{"sim -icf f", 2, kQuiet, "", " -icf f"}},
               allowing(mask));
  expectRows(kParsePpc,
             {{"sim -icf f", 0, kQuiet, "connectionType=1 ppcSimConfigFile=f",
               "", "-icf"},
              {"sim x", 2}},
             allowing(1));
}

TEST(DapTarget, ReplacesTheMaskOnlyAtItsEnd) {
  expectRows(kParseDap, {{"hw -foo", 2, kFooRefused, "", "", "-foo"}},
             allowing(0xFFFFFFFF));
  // No connection bit is asked for.
  expectRows(kParseDap, {{"hw", 0, kQuiet, kDapHw}}, allowing(1));
}

} // namespace
