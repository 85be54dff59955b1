// A text that holds only cable, chain, debug device and boundary scan clauses,
// and the operations of the engine that read such a text.
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "support/Cables.h"

namespace {

using namespace LanguageTest;
using ZelDebugDialog::CableOption;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;

const Reader kReadJtagOptions = KvoOption_Parser::ReadJtagCableOptions;

const std::string kPodusb = "cable.cableType=3 cable.port=USB21";

TEST(JtagOptions, ReadsEachClauseToTheEndOfTheText) {
  expectRows(kReadJtagOptions,
             {
                 {"", 0},
                 {" \t\n", 0},
                 {"-cable", 0, kQuiet, "cable.frequency=0", "", "-cable"},
                 {"-cable type quorla_podusb", 0, kQuiet,
                  kPodusb + " cable.frequency=6000000", "", "-cable"},
                 {"-configdevice", 0, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0",
                  "", "-configdevice"},
                 {"-configdevice devicenr 2", 0, kQuiet,
                  "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-configdevice"},
                 {"-debugdevice", 0, kQuiet, "", "", "-debugdevice"},
                 {"-debugdevice devicenr 3", 0, kQuiet, "debugDevice=3", "",
                  "-debugdevice"},
                 {"-bscan USER1", 0, kQuiet, "bscanUserReg=2", "", "-bscan"},
                 {"-CABLE type quorla_podusb", 0, kQuiet,
                  kPodusb + " cable.frequency=6000000", "", "-CABLE"},
                 {"-ConfigDevice devicenr 2", 0, kQuiet,
                  "chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-ConfigDevice"},
                 {"-DebugDevice devicenr 3", 0, kQuiet, "debugDevice=3", "",
                  "-DebugDevice"},
                 {"-BSCAN user1", 0, kQuiet, "bscanUserReg=2", "", "-BSCAN"},
             });
}

TEST(JtagOptions, GoesOnAfterEachClause) {
  expectRows(
      kReadJtagOptions,
      {
          {"-cable type quorla_podusb frequency 625000 -configdevice "
           "devicenr 1",
           0, kQuiet,
           kPodusb + " cable.frequency=625000 chain[0]=UNKNOWN,0,0,1,0,0,0", "",
           "-configdevice"},
          {"-cable type quorla_podusb -bscan USER2", 0, kQuiet,
           kPodusb + " bscanUserReg=3", "", "-bscan"},
          {"-configdevice devicenr 1 -configdevice devicenr 2 -cable type "
           "quorla_podusb",
           0, kQuiet,
           "chain[0]=UNKNOWN,0,0,1,0,0,0 chain[1]=UNKNOWN,0,0,2,0,0,0 " +
               kPodusb + " cable.frequency=6000000",
           "", "-cable"},
          {"-debugdevice devicenr 3 -bscan USER4", 0, kQuiet,
           "debugDevice=3 bscanUserReg=35", "", "-bscan"},
          {"-bscan USER3 -debugdevice cpunr 3", 0, kQuiet,
           "bscanUserReg=34 cpuNr=3", "", "-debugdevice"},
          {"-bscan USER3 -bscan USER4 -cable port p", 0, kQuiet,
           "bscanUserReg=35 cable.port=p cable.frequency=0", "", "-cable"},
          {"-cable port a -cable port b", 0, kQuiet,
           "cable.port=b cable.frequency=0", "", "-cable"},
      });
}

TEST(JtagOptions, RefusesWhatIsNoClause) {
  expectRows(
      kReadJtagOptions,
      {
          {"foo", 3},
          {"type quorla_podusb", 3, kQuiet, "", " quorla_podusb"},
          {"modulename m", 3, kQuiet, "", " m"},
          {"-5", 3},
          {"-foo", 3, "UNKNOWN Option '-foo'", "", "", "-foo"},
          {"-Foo x ", 3, "UNKNOWN Option '-Foo'", "", " x", "-Foo"},
          {"-cable port p -foo x", 3, "UNKNOWN Option '-foo'", "cable.port=p",
           " x", "-foo"},
          {"-configdevice -foo", 3, "UNKNOWN Option '-foo'",
           "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-foo"},
          {"-debugdevice -foo", 3, "UNKNOWN Option '-foo'", "", "", "-foo"},
          {"-bscan USER1 -foo", 3, "UNKNOWN Option '-foo'", "bscanUserReg=2",
           "", "-foo"},
      });
  // Options of a whole command are none here.
  const std::vector<std::string> known = {"-debugdevice", "-cable",
                                          "-configdevice", "-bscan"};
  std::vector<std::string> others = {
      "-pfsl", "-quiet",   "-noattach", "-writeonly", "-comm",
      "-port", "-baud",    "-timeout",  "-sim",       "-uart",
      "-icf",  "-ipcport", "-config",   "-memsize"};
  for (const std::string &word : known)
    for (const std::string &miss : nearMisses(word, known))
      others.push_back(miss);
  for (const std::string &option : others)
    expectRows(kReadJtagOptions,
               {{option + " USER1", 3, "UNKNOWN Option '" + option + "'", "",
                 " USER1", option}});
}

TEST(JtagOptions, RefusesWhatAClauseRefuses) {
  expectRows(
      kReadJtagOptions,
      {
          {"-cable type foo", 3, kQuiet, "", "", "-cable"},
          {"-cable foo bar -bscan USER1", 3,
           "UNKNOWN Parameter 'foo' for  option '-cable'", "", " -bscan USER1",
           "-cable"},
          {"-cable port", 3, kQuiet, "", "", "-cable"},
          {"-cable port -bscan USER1", 3, kQuiet, "", " USER1", "-bscan"},
          {"-cable type quorla_parallel3 frequency 5", 3,
           "UnSupported Quorla Parallel3 Cable Frequency - 5\n\t Supported "
           "Frequencies: 200000",
           "cable.cableType=4 cable.port=LPT1 cable.frequency=5", "", "-cable"},
          {"-configdevice jtagport x", 3, kQuiet, "cpuJtag=0", "",
           "-configdevice"},
          {"-configdevice devicenr", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0",
           "", "-configdevice"},
          {"-configdevice devicenr -bscan USER1", 3, kQuiet,
           "chain[0]=UNKNOWN,0,0,0,0,0,0", " USER1", "-bscan"},
          {"-configdevice jtagpin cpujtag", 3,
           "UNKNOWN Parameter 'jtagpin' for option '-configDevice'", "", "",
           "-configdevice"},
          {"-debugdevice devicenr", 3, kQuiet, "", "", "-debugdevice"},
          {"-debugdevice foo 1", 3,
           "UNKNOWN Parameter 'foo' for  option '-debugDevice'", "", "",
           "-debugdevice"},
          {"-bscan", 3, kQuiet, "", "", "-bscan"},
          {"-bscan USER5", 3, kQuiet, "", "", "-bscan"},
          {"-bscan -cable", 3, kQuiet, "", "", "-cable"},
          {"-bscan USER1 USER2", 3, kQuiet, "bscanUserReg=2", "", "-bscan"},
      });
}

TEST(JtagOptions, FailsAtALoneMinus) {
  expectRows(
      kReadJtagOptions,
      {
          {"-", kThrows},
          {"- -cable", kThrows, kQuiet, "", " -cable"},
          {"-bscan -", kThrows, kQuiet, "", "", "-bscan"},
          {"-bscan USER1 - x", kThrows, kQuiet, "bscanUserReg=2", " x",
           "-bscan"},
          {"-cable port p -", kThrows, kQuiet, "cable.port=p", "", "-cable"},
          {"-debugdevice devicenr 3 -", kThrows, kQuiet, "debugDevice=3", "",
           "-debugdevice"},
          {"-configdevice devicenr 3 -", kThrows, kQuiet, "", "",
           "-configdevice"},
          {"-configdevice devicenr 3 -configdevice -", kThrows, kQuiet,
           "chain[0]=UNKNOWN,0,0,3,0,0,0", "", "-configdevice"},
      });
}

TEST(JtagOptions, ChecksTheProcessorNumberOnlyWithADesign) {
  const Prepare design = [](EngineImp &imp) {
    imp.hwManager = silentDesign();
    imp.currentProcessor->cpuNr = 2;
  };
  expectRows(kReadJtagOptions,
             {{"-debugdevice cpunr 2", 0, kQuiet, "", "", "-debugdevice"},
              {"-debugdevice cpunr 3", 3, kQuiet, "", "", "-debugdevice"}},
             design);
}

// --- ParseJtagCableInfo ----------------------------------------------------

struct ParsedText {
  int code;
  std::string text; ///< As `describe`.
};

std::string describe(const CableOption &cable,
                     const std::vector<JtagOption *> &chain, int cpuJtag,
                     char debugDevice) {
  std::string text = std::to_string(unsigned(cable.cableType)) + "," +
                     std::to_string(cable.frequency) + "," + cable.port + "," +
                     cable.esn + "," + cable.svfFile + "," + cable.moduleName +
                     "," + cable.moduleArgs + "," + cable.url;
  for (const JtagOption *device : chain)
    text += " [" + device->partname + "," + std::to_string(device->devicenr) +
            "," + std::to_string(device->isfpga) + "]";
  return text + " " + std::to_string(cpuJtag) + " " +
         std::to_string(static_cast<signed char>(debugDevice));
}

struct ParseRow {
  std::string text;
  int code;
  std::string result;
};

TEST(ParseJtagCableInfo, FillsItsArgumentsOrLeavesThem) {
  const std::string kept = "6,9,old,old,old,old,old,old [mine,9,9] 9 9";
  const std::vector<ParseRow> rows = {
      {"", 0, "0,0,,,,,, 0 0"},
      {"-cable type quorla_podusb", 0, "3,6000000,USB21,,,,, 0 0"},
      {"-cable type quorla_plugin port p esn e fname f modulename m modulearg "
       "a modulearg b url u",
       0, "5,0,p,e,f,m,a;b,u 0 0"},
      {"-configdevice jtagport cpu", 0, "0,0,,,,,, [UNKNOWN,0,0] 1 0"},
      {"-debugdevice devicenr 200", 0, "0,0,,,,,, 0 -56"},
      // Without a debug device the first FPGA lends its number.
      {"-configdevice devicenr 1 -configdevice devicenr 2 isfpga 1 "
       "-configdevice devicenr 3 isfpga 1",
       0, "0,0,,,,,, [UNKNOWN,1,0] [UNKNOWN,2,1] [UNKNOWN,3,1] 0 2"},
      {"-configdevice devicenr 5 isfpga 255", 0,
       "0,0,,,,,, [UNKNOWN,5,255] 0 5"},
      {"-configdevice devicenr 5 isfpga 256", 0, "0,0,,,,,, [UNKNOWN,5,0] 0 0"},
      {"-configdevice isfpga 1 -configdevice devicenr 2 isfpga 1", 0,
       "0,0,,,,,, [UNKNOWN,0,1] [UNKNOWN,2,1] 0 0"},
      {"-configdevice devicenr 2 isfpga 1 -debugdevice devicenr 7", 0,
       "0,0,,,,,, [UNKNOWN,2,1] 0 7"},
      {"-configdevice devicenr 2 isfpga 1 -debugdevice devicenr 0x100", 0,
       "0,0,,,,,, [UNKNOWN,2,1] 0 2"},
      {"-bscan USER1 -configdevice partname p", 0, "0,0,,,,,, [p,0,0] 0 0"},
      // Refused: nothing changes.
      {"x", 3, kept},
      {"-foo", 3, kept},
      {"-configdevice devicenr 2 -configdevice foo 1", 3, kept},
      {"-configdevice devicenr", 3, kept},
      {"-cable type quorla_podusb frequency 5", 3, kept},
      {"-configdevice devicenr 2 -cable type quorla_svffile", 3, kept},
  };
  for (const ParseRow &row : rows) {
    SCOPED_TRACE("text: \"" + row.text + "\"");
    Bench bench;
    bench.engine.SetErrorStr(kQuiet);
    const Settings before = settingsOf(bench.imp);
    CableOption cable;
    cable.cableType = Engine::DIGILENT_PLUGIN;
    cable.frequency = 9;
    cable.port = cable.esn = cable.svfFile = cable.moduleName =
        cable.moduleArgs = cable.url = "old";
    JtagOption mine;
    mine.partname = "mine";
    mine.devicenr = 9;
    mine.isfpga = 9;
    std::vector<JtagOption *> chain = {&mine};
    int cpuJtag = 9;
    char debugDevice = 9;

    EXPECT_EQ(bench.engine.ParseJtagCableInfo(row.text, cable, chain, cpuJtag,
                                              debugDevice),
              row.code);

    EXPECT_EQ(describe(cable, chain, cpuJtag, debugDevice), row.result);
    EXPECT_EQ(bench.error(), kQuiet);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
    if (row.code == 0)
      ZelDebugDialog::ReleaseChainRecords(chain);
  }
}

TEST(ParseJtagCableInfo, PassesOnTheErrorOfALoneMinus) {
  for (const std::string text :
       {"-", "-configdevice devicenr 1 -", "-cable port -", "-bscan -"}) {
    SCOPED_TRACE("text: \"" + text + "\"");
    Bench bench;
    CableOption cable;
    std::vector<JtagOption *> chain;
    int cpuJtag = 9;
    char debugDevice = 9;
    try {
      bench.engine.ParseJtagCableInfo(text, cable, chain, cpuJtag, debugDevice);
      ADD_FAILURE() << "no error";
    } catch (const std::out_of_range &error) {
      EXPECT_EQ(error.what(), kLoneMinus);
    }
    EXPECT_EQ(describe(cable, chain, cpuJtag, debugDevice), "0,0,,,,,, 9 9");
    EXPECT_EQ(bench.engine.ParseJtagCableInfo("-debugdevice devicenr 4", cable,
                                              chain, cpuJtag, debugDevice),
              0);
    EXPECT_EQ(debugDevice, 4);
  }
}

// --- Options of plug-in cables ---------------------------------------------

const std::string kNotAPlugin = "Internal Error: Other Cable Options applies "
                                "only for QUORLA_PLUGIN cable type";

const Reader kSetPluginOptions = [](std::string &text, EngineImp &imp) {
  return imp.engine->SetPluginCableOptions(text);
};

const Prepare kPluginCable = [](EngineImp &imp) {
  imp.cableOption->cableType = Engine::QUORLA_PLUGIN;
};

TEST(SetPluginCableOptions, ReadsClausesIntoTheEngine) {
  // The text itself is not consumed.
  const auto row = [](const std::string &text, int code,
                      const std::string &message, const std::string &changes,
                      const std::string &option = kUntouched) {
    return Row{text, code, message, changes, text, option};
  };
  expectRows(
      kSetPluginOptions,
      {
          row("", 0, kQuiet, ""),
          row("  ", 0, kQuiet, ""),
          row("-cable modulename m modulearg a modulearg b", 0, kQuiet,
              "cable.moduleName=m cable.moduleArgs=a;b cable.frequency=0",
              "-cable"),
          row("-cable type quorla_podusb", 0, kQuiet,
              "cable.cableType=3 cable.port=USB21 cable.frequency=6000000",
              "-cable"),
          row("-configdevice devicenr 1 -bscan USER1", 0, kQuiet,
              "chain[0]=UNKNOWN,0,0,1,0,0,0 bscanUserReg=2", "-bscan"),
          row(" modulename m modulearg a", 1, kQuiet, ""),
          row("-cable modulearg a", 1,
              "Plug-in Module NOT specified for Cable Type quorla_plugin",
              "cable.moduleArgs=a", "-cable"),
          row("-cable modulename m foo bar", 1,
              "UNKNOWN Parameter 'foo' for  option '-cable'",
              "cable.moduleName=m", "-cable"),
          row("-foo", 1, "UNKNOWN Option '-foo'", "", "-foo"),
          row("-cable modulename -", kThrows, kQuiet, "", "-cable"),
      },
      kPluginCable);
}

TEST(SetPluginCableOptions, RefusesEveryOtherCable) {
  for (const unsigned type : support::cableNumbersBut(Engine::QUORLA_PLUGIN)) {
    SCOPED_TRACE(type);
    expectRows(
        kSetPluginOptions,
        {{"-cable modulename m", 1, kNotAPlugin, "", "-cable modulename m"},
         {"", 1, kNotAPlugin, "", ""},
         {"-", 1, kNotAPlugin, "", "-"}},
        [type](EngineImp &imp) {
          imp.cableOption->cableType = static_cast<Engine::CableType>(type);
        });
  }
}

TEST(Set3rdPartyCableOptions, ReadsClausesIntoTheRecordAlone) {
  const std::string kept = "3,9,old,old,old,old,old,old 0 0";
  const std::vector<ParseRow> rows = {
      {"", 0, "0,0,,,,,, 0 0"},
      {"-cable type quorla_podusb", 0, "3,6000000,USB21,,,,, 0 0"},
      {"-cable type quorla_plugin modulename m modulearg a modulearg b port p "
       "esn e fname f url u",
       0, "5,0,p,e,f,m,a;b,u 0 0"},
      {"-bscan USER1 -configdevice devicenr 2", 0, "0,0,,,,,, 0 0"},
      {"-cable foo bar", 1, kept},
      {"-cable type quorla_plugin", 1, kept},
      {"-foo", 1, kept},
      {"modulename m", 1, kept},
      {"-configdevice devicenr", 1, kept},
  };
  for (const ParseRow &row : rows) {
    SCOPED_TRACE("text: \"" + row.text + "\"");
    Bench bench;
    bench.engine.SetErrorStr(kQuiet);
    const Settings before = settingsOf(bench.imp);
    CableOption cable;
    cable.cableType = Engine::QUORLA_PODUSB;
    cable.frequency = 9;
    cable.port = cable.esn = cable.svfFile = cable.moduleName =
        cable.moduleArgs = cable.url = "old";
    EXPECT_EQ(bench.engine.Set3rdPartyCableOptions(cable, row.text), row.code);
    EXPECT_EQ(describe(cable, {}, 0, 0), row.result);
    EXPECT_EQ(bench.error(), kQuiet);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
  }
}

TEST(Set3rdPartyCableOptions, PassesOnTheErrorOfALoneMinus) {
  Bench bench;
  CableOption cable;
  cable.port = "old";
  EXPECT_THROW(bench.engine.Set3rdPartyCableOptions(
                   cable, "-configdevice devicenr 1 -cable port p esn -"),
               std::out_of_range);
  EXPECT_EQ(cable.port, "old");
  EXPECT_EQ(bench.engine.Set3rdPartyCableOptions(cable, "-cable port p"), 0);
  EXPECT_EQ(cable.port, "p");
}

} // namespace
