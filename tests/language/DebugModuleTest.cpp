// The debug-module targets ("hdu", "dcc", "kmtc") and the small clauses that go
// with them: "-bscan" and "-pfsl".
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

Reader reader(unsigned (*parse)(std::string &, EngineImp &)) {
  return [parse](std::string &text, EngineImp &imp) {
    return static_cast<int>(parse(text, imp));
  };
}

const Reader kParseHdu = reader(KvoOption_Parser::parse_hduoptions);
const Reader kParseDcc = reader(KvoOption_Parser::parse_dccoptions);
const Reader kParseKmtc = reader(KvoOption_Parser::parse_kmtcoptions);
const Reader kParseBscan = reader(KvoOption_Parser::parse_hdubscan);
const Reader kParsePfsl = reader(KvoOption_Parser::parse_lcfsloptions);

const std::string kHdu = "connectionMask=16 ";
const std::string kDcc = "connectionMask=256 procFamily=2 procType=4 ";
const std::string kKmtc = "connectionMask=32 ";
const std::string kPodusb =
    "cable.cableType=3 cable.port=USB21 cable.frequency=6000000";

std::string unknownOption(const std::string &word) {
  return "UNKNOWN Option '" + word + "'";
}

TEST(HduTarget, ReadsEachOption) {
  expectRows(
      kParseHdu,
      {
          {"", 0, kQuiet, kHdu},
          {" \t", 0, kQuiet, kHdu},
          {"-uart", 0, kQuiet, kHdu + "uartOverHdu=1", "", "-uart"},
          {"-UART", 0, kQuiet, kHdu + "uartOverHdu=1", "", "-UART"},
          {"-bscan USER1", 0, kQuiet, kHdu + "bscanUserReg=2", "", "-bscan"},
          {"-Bscan user3", 0, kQuiet, kHdu + "bscanUserReg=34", "", "-Bscan"},
          {"-debugdevice", 0, kQuiet, kHdu, "", "-debugdevice"},
          {"-DEBUGDEVICE devicenr 2", 0, kQuiet, kHdu + "debugDevice=2", "",
           "-DEBUGDEVICE"},
          {"-cable type quorla_podusb", 0, kQuiet, kHdu + kPodusb, "",
           "-cable"},
          {"-CABLE type quorla_podusb", 0, kQuiet, kHdu + kPodusb, "",
           "-CABLE"},
          {"-configdevice devicenr 2", 0, kQuiet,
           kHdu + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-configdevice"},
          {"-ConfigDevice devicenr 2", 0, kQuiet,
           kHdu + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-ConfigDevice"},
          {"-uart -bscan USER4 -debugdevice devicenr 2 -cable port p "
           "-configdevice nppc 1 -uart ",
           0, kQuiet,
           kHdu + "uartOverHdu=1 bscanUserReg=35 debugDevice=2 cable.port=p "
                  "chain[0]=UNKNOWN,0,0,0,0,0,1",
           "", "-uart"},
          {"-uart -uart", 0, kQuiet, kHdu + "uartOverHdu=1", "", "-uart"},
      });
}

TEST(HduTarget, RefusesAPlainValue) {
  expectRows(
      kParseHdu,
      {
          {"hw", 2, kQuiet, kHdu},
          {"-5 -uart", 2, kQuiet, kHdu, " -uart"},
          {"-uart x ", 2, kQuiet, kHdu + "uartOverHdu=1", "", "-uart"},
          {"-uart x -cable", 2, kQuiet, kHdu + "uartOverHdu=1", " -cable",
           "-uart"},
          {"-bscan USER1 x", 2, kQuiet, kHdu + "bscanUserReg=2", "", "-bscan"},
          {"-bscan", 2, kQuiet, kHdu, "", "-bscan"},
          {"-bscan USER5 -uart", 2, kQuiet, kHdu, " -uart", "-bscan"},
          {"-bscan -uart", 2, kQuiet, kHdu, "", "-uart"},
          {"-debugdevice devicenr", 2, kQuiet, kHdu, "", "-debugdevice"},
          {"-debugdevice foo 1", 2,
           "UNKNOWN Parameter 'foo' for  option '-debugDevice'", kHdu, "",
           "-debugdevice"},
          {"-cable type foo", 2, kQuiet, kHdu, "", "-cable"},
          {"-configdevice jtagport x", 2, kQuiet, kHdu + "cpuJtag=0", "",
           "-configdevice"},
      });
}

// The message shows the word that was looked at behind "-uart" or "-bscan".
TEST(HduTarget, QuotesTheWordLookedAtLast) {
  expectRows(
      kParseHdu,
      {
          {"-foo", 2, unknownOption(""), kHdu, "", "-foo"},
          {"-foo x ", 2, unknownOption(""), kHdu, " x", "-foo"},
          {"-uart -foo", 2, unknownOption("-foo"), kHdu + "uartOverHdu=1", "",
           "-foo"},
          {"-uart -Foo x", 2, unknownOption("-Foo"), kHdu + "uartOverHdu=1",
           " x", "-Foo"},
          {"-bscan USER1 -foo", 2, unknownOption("-foo"),
           kHdu + "bscanUserReg=2", "", "-foo"},
          {"-cable port p -foo", 2, unknownOption(""), kHdu + "cable.port=p",
           "", "-foo"},
          {"-debugdevice devicenr 2 -foo", 2, unknownOption(""),
           kHdu + "debugDevice=2", "", "-foo"},
          {"-configdevice -foo", 2, unknownOption(""),
           kHdu + "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-foo"},
          // It is not cleared by the clauses in between.
          {"-uart -cable port p -foo", 2, unknownOption("-cable"),
           kHdu + "uartOverHdu=1 cable.port=p", "", "-foo"},
          {"-bscan USER1 -debugdevice -foo", 2, unknownOption("-debugdevice"),
           kHdu + "bscanUserReg=2", "", "-foo"},
          {"-uart -bscan USER2 -configdevice -foo", 2,
           unknownOption("-configdevice"),
           kHdu + "uartOverHdu=1 bscanUserReg=3 "
                  "chain[0]=UNKNOWN,0,0,0,0,0,0",
           "", "-foo"},
      });
}

TEST(HduTarget, ForgetsTheWordWithTheCall) {
  Bench bench;
  std::string text = "-uart -foo";
  EXPECT_EQ(KvoOption_Parser::parse_hduoptions(text, bench.imp), 2U);
  EXPECT_EQ(bench.error(), unknownOption("-foo"));
  text = "-bar";
  EXPECT_EQ(KvoOption_Parser::parse_hduoptions(text, bench.imp), 2U);
  EXPECT_EQ(bench.error(), unknownOption(""));
}

TEST(DccTarget, ReadsEachOption) {
  expectRows(
      kParseDcc,
      {
          {"", 0, kQuiet, kDcc},
          {"-uart", 0, kQuiet, kDcc + "uartOverHdu=1", "", "-uart"},
          {"-UART", 0, kQuiet, kDcc + "uartOverHdu=1", "", "-UART"},
          {"-debugdevice cpunr 2", 0, kQuiet, kDcc + "cpuNr=2", "",
           "-debugdevice"},
          {"-DebugDevice cpunr 2", 0, kQuiet, kDcc + "cpuNr=2", "",
           "-DebugDevice"},
          // The clause may still say which processor it is.
          {"-debugdevice proctype ppc405", 0, kQuiet,
           "connectionMask=256 procFamily=2 procType=1", "", "-debugdevice"},
          {"-cable type quorla_podusb", 0, kQuiet, kDcc + kPodusb, "",
           "-cable"},
          {"-Cable type quorla_podusb", 0, kQuiet, kDcc + kPodusb, "",
           "-Cable"},
          {"-uart -debugdevice cpunr 2 -cable port p -uart", 0, kQuiet,
           kDcc + "uartOverHdu=1 cpuNr=2 cable.port=p", "", "-uart"},
      });
}

TEST(DccTarget, RefusesTheRest) {
  expectRows(
      kParseDcc,
      {
          {"hw", 2, kQuiet, kDcc},
          {"-uart x", 2, kQuiet, kDcc + "uartOverHdu=1", "", "-uart"},
          {"-foo", 2, unknownOption(""), kDcc, "", "-foo"},
          {"-uart -foo", 2, unknownOption("-foo"), kDcc + "uartOverHdu=1", "",
           "-foo"},
          {"-uart -cable port p -foo", 2, unknownOption("-cable"),
           kDcc + "uartOverHdu=1 cable.port=p", "", "-foo"},
          {"-bscan USER1", 2, unknownOption(""), kDcc, " USER1", "-bscan"},
          {"-configdevice devicenr 2", 2, unknownOption(""), kDcc,
           " devicenr 2", "-configdevice"},
          {"-uart -configdevice x", 2, unknownOption("-configdevice"),
           kDcc + "uartOverHdu=1", " x", "-configdevice"},
          {"-cable type foo", 2, kQuiet, kDcc, "", "-cable"},
          {"-debugdevice devicenr", 2, kQuiet, kDcc, "", "-debugdevice"},
      });
}

TEST(KmtcTarget, ReadsEachOption) {
  expectRows(
      kParseKmtc,
      {
          {"", 0, kQuiet, kKmtc},
          {"-debugdevice devicenr 2", 0, kQuiet, kKmtc + "debugDevice=2", "",
           "-debugdevice"},
          {"-DebugDevice devicenr 2", 0, kQuiet, kKmtc + "debugDevice=2", "",
           "-DebugDevice"},
          {"-cable type quorla_podusb", 0, kQuiet, kKmtc + kPodusb, "",
           "-cable"},
          {"-Cable type quorla_podusb", 0, kQuiet, kKmtc + kPodusb, "",
           "-Cable"},
          {"-configdevice devicenr 2", 0, kQuiet,
           kKmtc + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-configdevice"},
          {"-ConfigDevice devicenr 2", 0, kQuiet,
           kKmtc + "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-ConfigDevice"},
          {"-configdevice -debugdevice -cable port p -configdevice", 0, kQuiet,
           kKmtc + "cable.port=p chain[0]=UNKNOWN,0,0,0,0,0,0 "
                   "chain[1]=UNKNOWN,0,0,0,0,0,0",
           "", "-configdevice"},
      });
}

TEST(KmtcTarget, QuotesNothing) {
  expectRows(
      kParseKmtc,
      {
          {"hw", 2, kQuiet, kKmtc},
          {"-foo", 2, unknownOption(""), kKmtc, "", "-foo"},
          {"-uart", 2, unknownOption(""), kKmtc, "", "-uart"},
          {"-bscan USER1", 2, unknownOption(""), kKmtc, " USER1", "-bscan"},
          {"-cable port p -foo", 2, unknownOption(""), kKmtc + "cable.port=p",
           "", "-foo"},
          {"-cable port", 2, kQuiet, kKmtc, "", "-cable"},
          {"-configdevice nppc", 2, kQuiet,
           kKmtc + "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-configdevice"},
      });
}

struct Target {
  Reader reader;
  std::string entry;
  std::vector<std::string> options;
};

TEST(DebugModuleTargets, RefuseNearMissesAndTheOptionsOfOthers) {
  const std::vector<Target> targets = {
      {kParseHdu,
       kHdu,
       {"-uart", "-bscan", "-debugdevice", "-cable", "-configdevice"}},
      {kParseDcc, kDcc, {"-uart", "-debugdevice", "-cable"}},
      {kParseKmtc, kKmtc, {"-debugdevice", "-cable", "-configdevice"}},
  };
  for (const Target &target : targets) {
    std::vector<std::string> others = {
        "-pfsl",    "-quiet",  "-noattach", "-writeonly", "-comm",
        "-port",    "-baud",   "-timeout",  "-sim",       "-icf",
        "-ipcport", "-config", "-memsize"};
    for (const std::string &option : target.options)
      for (const std::string &miss : nearMisses(option, target.options))
        others.push_back(miss);
    for (const std::string &other : others)
      expectRows(target.reader, {{other + " USER1", 2, unknownOption(""),
                                  target.entry, " USER1", other}});
  }
}

TEST(DebugModuleTargets, DoNotLookAtTheDesign) {
  const Prepare design = [](EngineImp &imp) { imp.hwManager = silentDesign(); };
  expectRows(kParseHdu, {{"", 0, kQuiet, kHdu}}, design);
  expectRows(kParseDcc, {{"", 0, kQuiet, kDcc}}, design);
  expectRows(kParseKmtc, {{"", 0, kQuiet, kKmtc}}, design);
  // But the number of the processor is compared with it.
  expectRows(kParseHdu,
             {{"-debugdevice cpunr 79", 0, kQuiet, kHdu, "", "-debugdevice"},
              {"-debugdevice cpunr 3", 2, kQuiet, kHdu, "", "-debugdevice"}},
             design);
}

TEST(DebugModuleTargets, FailAtALoneMinus) {
  expectRows(kParseHdu, {
                            {"-", kThrows, kQuiet, kHdu},
                            {"-uart - x", kThrows, kQuiet,
                             kHdu + "uartOverHdu=1", " x", "-uart"},
                            {"-bscan -", kThrows, kQuiet, kHdu, "", "-bscan"},
                            {"-bscan USER1 -", kThrows, kQuiet,
                             kHdu + "bscanUserReg=2", "", "-bscan"},
                        });
  expectRows(kParseDcc, {{"-", kThrows, kQuiet, kDcc},
                         {"-uart -", kThrows, kQuiet, kDcc + "uartOverHdu=1",
                          "", "-uart"}});
  expectRows(kParseKmtc, {{"-", kThrows, kQuiet, kKmtc},
                          {"-cable -", kThrows, kQuiet, kKmtc, "", "-cable"}});
}

TEST(BoundaryScan, KnowsFourRegisters) {
  expectRows(kParseBscan,
             {
                 {"USER1", 0, kQuiet, "bscanUserReg=2"},
                 {"USER2", 0, kQuiet, "bscanUserReg=3"},
                 {"USER3", 0, kQuiet, "bscanUserReg=34"},
                 {"USER4", 0, kQuiet, "bscanUserReg=35"},
                 {"user1", 0, kQuiet, "bscanUserReg=2"},
                 {"User2", 0, kQuiet, "bscanUserReg=3"},
                 {"uSER3", 0, kQuiet, "bscanUserReg=34"},
                 {"user4", 0, kQuiet, "bscanUserReg=35"},
                 // Exactly one word is read.
                 {" USER1 USER2 -x ", 0, kQuiet, "bscanUserReg=2", " USER2 -x"},
                 {"", 2},
                 {"  ", 2},
                 {"USER5", 2},
                 {"USER0 USER1", 2, kQuiet, "", " USER1"},
                 {"2", 2},
                 {"-5", 2},
                 {"-uart USER1", 2, kQuiet, "", " USER1", "-uart"},
                 {"-USER1", 2, kQuiet, "", "", "-USER1"},
                 {"USER1\0"s, 2},
                 {"-", kThrows},
                 {"- USER1", kThrows, kQuiet, "", " USER1"},
             });
  const std::vector<std::string> names = {"USER1", "USER2", "USER3", "USER4"};
  for (const std::string &name : names)
    for (const std::string &miss : nearMisses(name, names))
      expectRows(kParseBscan, {{miss, 2}});
}

TEST(FastLinkClause, ChecksAndKeepsNothing) {
  expectRows(
      kParsePfsl,
      {
          {"", 3},
          {"port 3", 3},
          {"port anything", 3},
          {"port -5", 3},
          {"PORT 3", 3},
          {"type m", 3},
          {"type s", 3},
          {"type ms", 3},
          {"type M", 3},
          {"type S", 3},
          {"TYPE mS", 3},
          {"port 3 type MS -quiet x", 1, kQuiet, "", " x", "-quiet"},
          {"-quiet", 1, kQuiet, "", "", "-quiet"},
          {"port", 2},
          {"type", 2},
          {"type -quiet", 2, kQuiet, "", "", "-quiet"},
          {"foo", 2},
          {"type x", 2, "UNKNOWN Parameter 'x' for  option 'type'"},
          {"TYPE Sm port 3", 2, "UNKNOWN Parameter 'Sm' for  option 'type'", "",
           " port 3"},
          {"type mss", 2, "UNKNOWN Parameter 'mss' for  option 'type'"},
          {"type mm", 2, "UNKNOWN Parameter 'mm' for  option 'type'"},
          {"type ss", 2, "UNKNOWN Parameter 'ss' for  option 'type'"},
          {"type -5", 2, "UNKNOWN Parameter '-5' for  option 'type'"},
          {"foo 3", 2, "UNKNOWN Parameter 'foo' for  option '-pfsl'"},
          {"port 3 Ports 4 type m", 2,
           "UNKNOWN Parameter 'Ports' for  option '-pfsl'", "", " type m"},
          {"-", kThrows},
          {"port -", kThrows},
          {"type - m", kThrows, kQuiet, "", " m"},
      });
  const std::vector<std::string> names = {"port", "type"};
  for (const std::string &name : names)
    for (const std::string &miss : nearMisses(name, names))
      expectRows(kParsePfsl,
                 {{miss + " m", 2,
                   "UNKNOWN Parameter '" + miss + "' for  option '-pfsl'"}});
}

TEST(FastLinkClause, IsNeverWritten) {
  Bench bench;
  const Settings before = settingsOf(bench.imp);
  std::string out = "start";
  EXPECT_EQ(KvoOption_Parser::write_lcfsloptions(out, bench.imp), 0);
  EXPECT_EQ(out, "start");
  EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
}

} // namespace
