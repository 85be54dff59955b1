// The "-configdevice" clause: one device of the chain, or the mark of the
// processor's own JTAG pins.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;

const Reader kParseConfigDevice = KvoOption_Parser::parse_configdevice;

const std::vector<std::string> kNames = {"jtagport", "devicenr", "idcode",
                                         "irlength", "partname", "isfpga",
                                         "hardppc",  "nppc"};

std::string unknownName(const std::string &name) {
  return "UNKNOWN Parameter '" + name + "' for option '-configDevice'";
}

// A device is shown as partname,idcode,irlength,devicenr,isfpga,hardppc,nppc.
TEST(ConfigDeviceClause, ReadsEachName) {
  expectRows(
      kParseConfigDevice,
      {
          {"", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0"},
          {" \t", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0"},
          {"partname pk9ab100", 3, kQuiet, "chain[0]=pk9ab100,0,0,0,0,0,0"},
          {"idcode 0x1234093", 3, kQuiet,
           "chain[0]=UNKNOWN,19087507,0,0,0,0,0"},
          {"irlength 6", 3, kQuiet, "chain[0]=UNKNOWN,0,6,0,0,0,0"},
          {"devicenr 2", 3, kQuiet, "chain[0]=UNKNOWN,0,0,2,0,0,0"},
          {"isfpga 1", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,1,0,0"},
          {"hardppc ppc405", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,1,0"},
          {"nppc 2", 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,2"},
          {"jtagport cpu", 3, kQuiet, "cpuJtag=1 chain[0]=UNKNOWN,0,0,0,0,0,0"},
          {"devicenr 2 partname pk9ab100 irlength 6 idcode 0x1234093 isfpga 1 "
           "hardppc ppc440 nppc 2 jtagport cpu",
           3, kQuiet, "cpuJtag=1 chain[0]=pk9ab100,19087507,6,2,1,2,2"},
          {"DEVICENR 2 PARTNAME pK IRLENGTH 6 IDCODE 7 ISFPGA 1 HARDPPC PPC405 "
           "NPPC 2 JTAGPORT CPU",
           3, kQuiet, "cpuJtag=1 chain[0]=pK,7,6,2,1,1,2"},
          // The last one counts.
          {"devicenr 2 devicenr 3 partname a partname b", 3, kQuiet,
           "chain[0]=b,0,0,3,0,0,0"},
          {"hardppc ppc405 hardppc none", 3, kQuiet,
           "chain[0]=UNKNOWN,0,0,0,0,2,0"},
          {"partname a\0b"s, 3, kQuiet, "chain[0]=a\\x00b,0,0,0,0,0,0"},
          {"partname -5", 3, kQuiet, "chain[0]=-5,0,0,0,0,0,0"},
          {"partname devicenr", 3, kQuiet, "chain[0]=devicenr,0,0,0,0,0,0"},
      });
}

TEST(ConfigDeviceClause, KnowsOneHardCoreByName) {
  std::vector<Row> rows;
  for (const std::string core : {"ppc405", "PPC405", "Ppc405"})
    rows.push_back(
        {"hardppc " + core, 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,1,0"});
  for (const std::string core : {"ppc440", "ppc40", "pc405", "ppc4055", "0",
                                 "1", "-1", "none", "ppc405="})
    rows.push_back(
        {"hardppc " + core, 3, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,2,0"});
  expectRows(kParseConfigDevice, rows);
}

TEST(ConfigDeviceClause, StopsAtTheNextOption) {
  expectRows(
      kParseConfigDevice,
      {
          {"-quiet", 1, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-quiet"},
          {"devicenr 2 -Cable type x ", 1, kQuiet,
           "chain[0]=UNKNOWN,0,0,2,0,0,0", " type x", "-Cable"},
          {"jtagport cpu -configdevice devicenr 1", 1, kQuiet,
           "cpuJtag=1 chain[0]=UNKNOWN,0,0,0,0,0,0", " devicenr 1",
           "-configdevice"},
      });
}

TEST(ConfigDeviceClause, KeepsTheDeviceWhenAValueIsMissing) {
  std::vector<Row> rows;
  for (const std::string &name : kNames) {
    rows.push_back({name, 2, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0"});
    rows.push_back({"devicenr 3 " + name + " ", 2, kQuiet,
                    "chain[0]=UNKNOWN,0,0,3,0,0,0"});
    rows.push_back({"devicenr 3 " + name + " -quiet 5", 2, kQuiet,
                    "chain[0]=UNKNOWN,0,0,3,0,0,0", " 5", "-quiet"});
  }
  rows.push_back({"foo", 2, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0"});
  expectRows(kParseConfigDevice, rows);
}

TEST(ConfigDeviceClause, DropsTheDeviceOfAnotherJtagPort) {
  std::vector<Row> rows = {
      {"devicenr 3 jtagport fpga nppc 1", 2, kQuiet, "cpuJtag=0", " nppc 1"},
      {"jtagport cpu jtagport x", 2, kQuiet, "cpuJtag=0"},
      {"jtagport -5", 2, kQuiet, "cpuJtag=0"},
      {"jtagport cpujtag", 2, kQuiet, "cpuJtag=0"},
  };
  for (const std::string &miss : nearMisses("cpu", {"cpu"}))
    rows.push_back({"jtagport " + miss, 2, kQuiet, "cpuJtag=0"});
  expectRows(kParseConfigDevice, rows);
}

TEST(ConfigDeviceClause, DropsTheDeviceOfAnUnknownName) {
  expectRows(
      kParseConfigDevice,
      {
          {"foo bar", 2, unknownName("foo")},
          {"Foo bar nppc 1 ", 2, unknownName("Foo"), "", " nppc 1"},
          // What the writer makes of the mark is not what is read.
          {"jtagpin cpujtag", 2, unknownName("jtagpin")},
          {"devicenr 3 jtagport cpu foo 5", 2, unknownName("foo"), "cpuJtag=1"},
          {"-5 x", 2, unknownName("-5")},
      });
  for (const std::string &name : kNames)
    for (const std::string &miss : nearMisses(name, kNames))
      expectRows(kParseConfigDevice, {{"nppc 1 " + miss + " v nppc 2", 2,
                                       unknownName(miss), "", " nppc 2"}});
}

TEST(ConfigDeviceClause, AppendsToTheChain) {
  const Prepare oneDevice = [](EngineImp &imp) {
    imp.jtagChain.push_back(new JtagOption);
  };
  expectRows(kParseConfigDevice,
             {{"devicenr 2", 3, kQuiet, "chain[1]=UNKNOWN,0,0,2,0,0,0"},
              {"foo 2", 2, unknownName("foo")}},
             oneDevice);
}

TEST(ConfigDeviceClause, FailsAtALoneMinusWithoutADevice) {
  expectRows(
      kParseConfigDevice,
      {
          {"-", kThrows},
          {"- devicenr 2", kThrows, kQuiet, "", " devicenr 2"},
          {"devicenr -", kThrows},
          {"jtagport cpu devicenr - x", kThrows, kQuiet, "cpuJtag=1", " x"},
          {"jtagport -", kThrows},
          {"devicenr 2 -", kThrows},
          {"foo -", kThrows},
      });
}

} // namespace
