// The "-debugdevice" clause, read and written.
#include <cstdint>
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

const Reader kParseDebugDevice = [](std::string &text, EngineImp &imp) {
  return static_cast<int>(KvoOption_Parser::parse_debugdevice(text, imp));
};

const std::vector<std::string> kNames = {
    "devicenr",     "cpunr",          "proctype",       "romemStartAdr",
    "romemSize",    "icacheStartAdr", "dcacheStartAdr", "itagStartAdr",
    "dtagStartAdr", "isocmStartAdr",  "isocmSize",      "isocmDcrStartAdr",
    "tlbStartAdr",  "dcrStartAdr",    "cpu_version",    "hdu_version",
    "nCpu",         "fpuType"};

std::string unknownName(const std::string &name) {
  return "UNKNOWN Parameter '" + name + "' for  option '-debugDevice'";
}

TEST(DebugDeviceClause, ReadsEachName) {
  expectRows(
      kParseDebugDevice,
      {
          {"", 3},
          {" \t ", 3},
          {"devicenr 2", 3, kQuiet, "debugDevice=2"},
          {"deviceNr 2", 3, kQuiet, "debugDevice=2"},
          {"DEVICENR 0x10", 3, kQuiet, "debugDevice=16"},
          {"devicenr 010", 3, kQuiet, "debugDevice=8"},
          {"devicenr 200", 3, kQuiet, "debugDevice=-56"},
          {"devicenr -56", 3, kQuiet, "debugDevice=-56"},
          {"cpunr 3", 3, kQuiet, "cpuNr=3"},
          {"cpunr 200", 3, kQuiet, "cpuNr=-56"},
          {"proctype ppc405", 3, kQuiet, "procType=1"},
          {"proctype ppc440", 3, kQuiet, "procType=2"},
          {"PROCTYPE PPC440", 3, kQuiet, "procType=2"},
          {"proctype Ppc405", 3, kQuiet, "procType=1"},
          {"romemStartAdr 0x1001", 3, kQuiet, "romemStartAdr=4097"},
          {"romemSize 4096", 3, kQuiet, "romemSize=4096"},
          {"icacheStartAdr 0x10000", 3, kQuiet,
           "icacheStartAdr=65536 debugAddressMap=65536"},
          {"dcacheStartAdr 0x20000", 3, kQuiet, "dcacheStartAdr=131072"},
          {"itagStartAdr 0x30000", 3, kQuiet, "itagStartAdr=196608"},
          {"dtagStartAdr 0x40000", 3, kQuiet, "dtagStartAdr=262144"},
          {"isocmStartAdr 0x1234", 3, kQuiet, "isocmStartAdr=4660"},
          {"isocmSize 5", 3, kQuiet, "isocmSize=5"},
          {"isocmDcrStartAdr 0x15", 3, kQuiet, "isocmDcrStartAdr=21"},
          {"tlbStartAdr 0x50000", 3, kQuiet, "tlbStartAdr=327680"},
          {"dcrStartAdr 0x60000", 3, kQuiet, "dcrStartAdr=393216"},
          {"cpu_version 8.40.a", 3, kQuiet, "cpu_version=8.40.a"},
          {"hdu_version 2.10.A", 3, kQuiet, "hdu_version=2.10.A"},
          {"nCpu 4", 3, kQuiet, "nCpu=4"},
          {"nCpu -4", 3, kQuiet, "nCpu=-4"},
          {"fpuType sp", 3, kQuiet, "fpuType=1"},
          {"fpuType dp", 3, kQuiet, "fpuType=2"},
          {"fpuType SP", 3, kQuiet, "fpuType=1"},
          {"FPUTYPE DP", 3, kQuiet, "fpuType=2"},
          {"fputype Dp", 3, kQuiet, "fpuType=2"},
          {"cpu_version a\0b hdu_version -5"s, 3, kQuiet,
           "cpu_version=a\\x00b hdu_version=-5"},
          {"ROMEMSTARTADR 1 romemsize 2 ISOCMSTARTADR 3 isocmsize 4 "
           "isocmdcrstartadr 5 NCPU 6 CPU_VERSION v HDU_VERSION w CPUNR 7",
           3, kQuiet,
           "romemStartAdr=1 romemSize=2 isocmStartAdr=3 isocmSize=4 "
           "isocmDcrStartAdr=5 nCpu=6 cpu_version=v hdu_version=w cpuNr=7"},
          {"ICACHESTARTADR 0x70000 dcachestartadr 0x80000 ITAGSTARTADR "
           "0x90000 dtagstartadr 0xA0000 TLBSTARTADR 0xb0000 dcrstartadr 0",
           3, kQuiet,
           "icacheStartAdr=458752 debugAddressMap=458752 "
           "dcacheStartAdr=524288 itagStartAdr=589824 dtagStartAdr=655360 "
           "tlbStartAdr=720896 dcrStartAdr=0"},
          // The last one counts.
          {"devicenr 2 devicenr 3 fpuType sp fpuType dp", 3, kQuiet,
           "debugDevice=3 fpuType=2"},
      });
}

TEST(DebugDeviceClause, StopsAtTheNextOption) {
  expectRows(kParseDebugDevice, {
                                    {"-quiet", 1, kQuiet, "", "", "-quiet"},
                                    {"devicenr 2 cpunr 0 -Quiet x ", 1, kQuiet,
                                     "debugDevice=2 cpuNr=0", " x", "-Quiet"},
                                });
}

TEST(DebugDeviceClause, NeedsAValueForEachName) {
  std::vector<Row> rows = {{"foo", 2},
                           {"foo -bar x", 2, kQuiet, "", " x", "-bar"}};
  for (const std::string &name : kNames) {
    rows.push_back({name, 2});
    rows.push_back({"isocmSize 5 " + name + " ", 2, kQuiet, "isocmSize=5"});
    rows.push_back({name + " -quiet 5", 2, kQuiet, "", " 5", "-quiet"});
  }
  expectRows(kParseDebugDevice, rows);
}

TEST(DebugDeviceClause, QuotesAnUnknownName) {
  expectRows(kParseDebugDevice,
             {
                 {"foo bar", 2, unknownName("foo")},
                 {"devicenr 3 Foo bar nCpu 1 ", 2, unknownName("Foo"),
                  "debugDevice=3", " nCpu 1"},
                 {"-5 x", 2, unknownName("-5")},
                 {"sp dp", 2, unknownName("sp")},
             });
  for (const std::string &name : kNames)
    for (const std::string &miss : nearMisses(name, kNames))
      expectRows(kParseDebugDevice,
                 {{miss + " sp nCpu 1", 2, unknownName(miss), "", " nCpu 1"}});
}

TEST(DebugDeviceClause, TakesAnotherPowerPcAsUnknown) {
  std::vector<Row> rows = {
      {"proctype ppc603", 2, kQuiet, "procType=6"},
      {"proctype 1 devicenr 2", 2, kQuiet, "procType=6", " devicenr 2"},
      {"proctype -5", 2, kQuiet, "procType=6"},
      {"proctype ppc405 proctype x", 2, kQuiet, "procType=6"},
  };
  const std::vector<std::string> kinds = {"ppc405", "ppc440"};
  for (const std::string &kind : kinds)
    for (const std::string &miss : nearMisses(kind, kinds))
      rows.push_back({"proctype " + miss, 2, kQuiet, "procType=6"});
  expectRows(kParseDebugDevice, rows);
}

TEST(DebugDeviceClause, QuotesAnUnknownFpuAndItsName) {
  std::vector<Row> rows = {
      {"fpuType xp", 2, "UNKNOWN Parameter 'xp' for  option 'fpuType'"},
      {"FPUTYPE None x ", 2, "UNKNOWN Parameter 'None' for  option 'FPUTYPE'",
       "", " x"},
      {"fpuType sp fpuType 2", 2, "UNKNOWN Parameter '2' for  option 'fpuType'",
       "fpuType=1"},
  };
  const std::vector<std::string> types = {"sp", "dp"};
  for (const std::string &type : types)
    for (const std::string &miss : nearMisses(type, types))
      rows.push_back(
          {"fpuType " + miss, 2,
           "UNKNOWN Parameter '" + miss + "' for  option 'fpuType'"});
  expectRows(kParseDebugDevice, rows);
}

struct Region {
  std::string name;
  std::string message;
};
const std::vector<Region> kRegions = {
    {"icacheStartAdr", "Icache Start Address should be aligned at 64k boundry"},
    {"dcacheStartAdr", "Dcache Start Address should be aligned at 64k boundry"},
    {"itagStartAdr", "Itag Start Address should be aligned at 64k boundry"},
    {"dtagStartAdr", "Dtag Start Address should be aligned at 64k boundry"},
    {"tlbStartAdr", "TLB Start Address should be aligned at 64k boundry"},
    {"dcrStartAdr", "DCR Start Address should be aligned at 64k boundry"},
};

TEST(DebugDeviceClause, KeepsTheMisalignedAddress) {
  for (const Region &region : kRegions) {
    std::vector<Row> rows;
    for (const std::string address :
         {"1", "32768", "65535", "65537", "98304", "2147516416", "4294967295"})
      rows.push_back({region.name + " " + address + " devicenr 2", 2,
                      region.message, region.name + "=" + address,
                      " devicenr 2"});
    // 2^32 + 1, and text that is cut to nothing odd.
    rows.push_back(
        {region.name + " 4294967297", 2, region.message, region.name + "=1"});
    rows.push_back(
        {region.name + " 0x18000", 2, region.message, region.name + "=98304"});
    rows.push_back({region.name + " 0xFFFFFFFFFFFFFFFFF", 2, region.message,
                    region.name + "=4294967295"});
    expectRows(kParseDebugDevice, rows);
  }
}

TEST(DebugDeviceClause, TakesAlignedAddresses) {
  for (const Region &region : kRegions) {
    std::vector<Row> rows;
    for (const std::string address :
         {"0", "65536", "131072", "2147483648", "4294901760"}) {
      const std::string map =
          region.name == "icacheStartAdr" ? " debugAddressMap=" + address : "";
      rows.push_back({region.name + " " + address, 3, kQuiet,
                      region.name + "=" + address + map});
    }
    expectRows(kParseDebugDevice, rows);
  }
}

TEST(DebugDeviceClause, LeavesTheMapOfAMisalignedIcache) {
  expectRows(
      kParseDebugDevice,
      {{"icacheStartAdr 0x10000 icacheStartAdr 0x18000", 2,
        "Icache Start Address should be aligned at 64k boundry",
        "icacheStartAdr=98304 debugAddressMap=65536"},
       {"isocmStartAdr 0xFFFF isocmDcrStartAdr 1 romemStartAdr 0x8001", 3,
        kQuiet, "isocmStartAdr=65535 isocmDcrStartAdr=1 romemStartAdr=32769"}});
}

TEST(DebugDeviceClause, ComparesTheProcessorNumberWithADesign) {
  const auto numbered = [](std::int8_t number) {
    return Prepare([number](EngineImp &imp) {
      imp.hwManager = silentDesign();
      imp.currentProcessor->cpuNr = number;
    });
  };
  expectRows(kParseDebugDevice,
             {
                 {"cpunr 3", 3},
                 {"CPUNR 0x3", 3},
                 {"cpunr 003 devicenr 2", 3, kQuiet, "debugDevice=2"},
                 {"cpunr 4294967299", 3},
                 {"cpunr 4 devicenr 2", 2, kQuiet, "", " devicenr 2"},
                 {"devicenr 2 cpunr 2", 2, kQuiet, "debugDevice=2"},
                 {"cpunr 259", 2},
                 {"cpunr -3", 2},
                 {"cpunr x", 2},
             },
             numbered(3));
  expectRows(kParseDebugDevice,
             {
                 {"cpunr 200", 2},
                 {"cpunr 0xC8", 2},
                 {"cpunr -56", 3},
                 {"cpunr 0xFFFFFFC8", 3},
                 {"cpunr 0x1FFFFFFC8", 3},
                 {"cpunr 0xFFFFC8", 2},
             },
             numbered(-56));
  expectRows(kParseDebugDevice,
             {
                 {"cpunr 128", 2},
                 {"cpunr -128", 3},
             },
             numbered(-128));
  expectRows(kParseDebugDevice,
             {
                 {"cpunr 255", 2},
                 {"cpunr -1", 3},
                 {"cpunr 99999999999999999999", 3},
             },
             numbered(-1));
  expectRows(kParseDebugDevice,
             {
                 {"cpunr x", 3},
                 {"cpunr 256", 2},
             },
             numbered(0));
}

TEST(DebugDeviceClause, FailsAtALoneMinus) {
  expectRows(
      kParseDebugDevice,
      {
          {"-", kThrows},
          {"- devicenr 2", kThrows, kQuiet, "", " devicenr 2"},
          {"devicenr -", kThrows},
          {"devicenr 2 -", kThrows, kQuiet, "debugDevice=2"},
          {"devicenr 2 cpunr - x", kThrows, kQuiet, "debugDevice=2", " x"},
          {"foo -", kThrows},
          {"proctype -", kThrows},
          {"fpuType -", kThrows},
          {"icacheStartAdr -", kThrows},
      });
}

// --- Written ---------------------------------------------------------------

struct WriteRow {
  std::string what;
  std::function<void(ProcessorInfoImp &)> set;
  std::string written;
};

void expectWritten(const std::vector<WriteRow> &rows) {
  for (const WriteRow &row : rows) {
    SCOPED_TRACE(row.what);
    Bench bench;
    bench.record = ProcessorInfoImp();
    bench.record.cpuNr = 0;
    bench.record.connectionType = 1;
    row.set(bench.record);
    const Settings before = settingsOf(bench.imp);
    std::string out = "start";
    EXPECT_EQ(KvoOption_Parser::write_debugdeviceoptions(out, bench.imp), 0);
    EXPECT_EQ(out, "start" + row.written);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
  }
}

TEST(WriteDebugDevice, WritesNothingButTheNumbersOfALumacore) {
  expectWritten({
      {"nothing set", [](ProcessorInfoImp &) {}, ""},
      {"device", [](ProcessorInfoImp &r) { r.debugDevice = 2; },
       " -debugdevice deviceNr 2"},
      {"negative device", [](ProcessorInfoImp &r) { r.debugDevice = -56; },
       " -debugdevice deviceNr -56"},
      {"lowest device", [](ProcessorInfoImp &r) { r.debugDevice = -128; },
       " -debugdevice deviceNr -128"},
      {"simulator: no number", [](ProcessorInfoImp &r) { r.cpuNr = 3; }, ""},
      {"stub: no number",
       [](ProcessorInfoImp &r) {
         r.connectionType = 4;
         r.cpuNr = 3;
       },
       ""},
      {"hardware: its number, also 0",
       [](ProcessorInfoImp &r) { r.connectionType = 2; },
       " -debugdevice cpunr 0"},
      {"hardware: a negative number",
       [](ProcessorInfoImp &r) {
         r.connectionType = 2;
         r.cpuNr = -128;
         r.debugDevice = 127;
       },
       " -debugdevice deviceNr 127 cpunr -128"},
      {"virtual platform: its number",
       [](ProcessorInfoImp &r) { r.connectionType = 8; },
       " -debugdevice cpunr 0"},
      {"any other connection: its number",
       [](ProcessorInfoImp &r) {
         r.connectionType = 0x84;
         r.cpuNr = 3;
       },
       " -debugdevice cpunr 3"},
      {"regions belong to a PowerPC",
       [](ProcessorInfoImp &r) {
         r.procFamily = 2;
         r.icacheStartAdr = r.itagStartAdr = r.dcacheStartAdr = r.dtagStartAdr =
             r.tlbStartAdr = r.dcrStartAdr = 0;
         r.fpuType = 1;
       },
       ""},
      {"never written",
       [](ProcessorInfoImp &r) {
         r.procType = 2;
         r.cpu_version = "v";
         r.hdu_version = "w";
         r.nCpu = 3;
         r.debugAddressMap = 0;
       },
       ""},
  });
}

TEST(WriteDebugDevice, WritesTheRomOfAHardwareConnection) {
  const auto rom = [](std::uint32_t type, std::uint32_t start,
                      std::uint32_t size) {
    return [=](ProcessorInfoImp &r) {
      r.connectionType = type;
      r.romemStartAdr = start;
      r.romemSize = size;
    };
  };
  expectWritten({
      {"both", rom(2, 0xABCD0, 4096),
       " -debugdevice cpunr 0 romemStartAdr 0xabcd0 romemSize 4096"},
      {"start 0", rom(2, 0, 1),
       " -debugdevice cpunr 0 romemStartAdr 0x0 romemSize 1"},
      {"limits", rom(2, 0xFFFFFFFE, 0xFFFFFFFF),
       " -debugdevice cpunr 0 romemStartAdr 0xfffffffe romemSize -1"},
      {"half", rom(2, 0x80000000, 0x80000000),
       " -debugdevice cpunr 0 romemStartAdr 0x80000000 romemSize "
       "-2147483648"},
      {"no start", rom(2, 0xFFFFFFFF, 4096), " -debugdevice cpunr 0"},
      {"no size", rom(2, 0, 0), " -debugdevice cpunr 0"},
      {"simulator", rom(1, 0, 1), ""},
      {"stub", rom(4, 0, 1), ""},
      {"virtual platform", rom(8, 0, 1), " -debugdevice cpunr 0"},
      {"hardware with another bit", rom(0x42, 0, 1), " -debugdevice cpunr 0"},
  });
}

TEST(WriteDebugDevice, WritesTheIsocmOfAPpc405) {
  const auto isocm = [](std::uint32_t procType, std::uint32_t start) {
    return [=](ProcessorInfoImp &r) {
      r.procType = procType;
      r.isocmStartAdr = start;
      r.isocmSize = 0x80000000;
      r.isocmDcrStartAdr = 0xFFFFFFFF;
    };
  };
  expectWritten({
      {"ppc405", isocm(1, 0xABC),
       " -debugdevice isocmStartAdr 0xabc isocmSize -2147483648  "
       "isocmDcrStartAdr 0xffffffff"},
      {"start 0", isocm(1, 0),
       " -debugdevice isocmStartAdr 0x0 isocmSize -2147483648  "
       "isocmDcrStartAdr 0xffffffff"},
      {"no start", isocm(1, 0xFFFFFFFF), ""},
      {"ppc440", isocm(2, 0xABC), ""},
      {"unknown PowerPC", isocm(6, 0xABC), ""},
      {"Lumacore", isocm(0, 0xABC), ""},
      {"small numbers",
       [](ProcessorInfoImp &r) {
         r.procType = 1;
         r.isocmStartAdr = 1;
         r.isocmSize = 0;
         r.isocmDcrStartAdr = 0;
       },
       " -debugdevice isocmStartAdr 0x1 isocmSize 0  isocmDcrStartAdr 0x0"},
  });
}

TEST(WriteDebugDevice, WritesTheRegionsAndTheFpuOfAPowerPc) {
  const auto ppc = [](std::uint32_t ProcessorInfoImp::*field,
                      std::uint32_t value) {
    return [=](ProcessorInfoImp &r) {
      r.procFamily = 1;
      r.*field = value;
    };
  };
  using R = ProcessorInfoImp;
  expectWritten({
      {"icache", ppc(&R::icacheStartAdr, 0x10000),
       " -debugdevice icacheStartAdr 0x10000"},
      {"itag", ppc(&R::itagStartAdr, 0x20000),
       " -debugdevice itagStartAdr 0x20000"},
      {"dcache", ppc(&R::dcacheStartAdr, 0x30000),
       " -debugdevice dcacheStartAdr 0x30000"},
      {"dtag", ppc(&R::dtagStartAdr, 0x40000),
       " -debugdevice dtagStartAdr 0x40000"},
      {"tlb", ppc(&R::tlbStartAdr, 0), " -debugdevice tlbStartAdr 0x0"},
      {"dcr", ppc(&R::dcrStartAdr, 0xFFFFFFFE),
       " -debugdevice dcrStartAdr 0xfffffffe"},
      {"misaligned", ppc(&R::icacheStartAdr, 0xAB001),
       " -debugdevice icacheStartAdr 0xab001"},
      {"none", ppc(&R::icacheStartAdr, 0xFFFFFFFF), ""},
      {"sp", ppc(&R::fpuType, 1), " -debugdevice fpuType sp"},
      {"dp", ppc(&R::fpuType, 2), " -debugdevice fpuType dp"},
      {"another FPU", ppc(&R::fpuType, 3), " -debugdevice fpuType dp"},
      {"no FPU", ppc(&R::fpuType, 0), ""},
  });
}

TEST(WriteDebugDevice, WritesAllOfAPpc405InItsOrder) {
  expectWritten({{"everything",
                  [](ProcessorInfoImp &r) {
                    r.procFamily = 1;
                    r.procType = 1;
                    r.connectionType = 2;
                    r.debugDevice = 1;
                    r.cpuNr = 2;
                    r.romemStartAdr = 3;
                    r.romemSize = 4;
                    r.isocmStartAdr = 5;
                    r.isocmSize = 6;
                    r.isocmDcrStartAdr = 7;
                    r.icacheStartAdr = 8;
                    r.dcacheStartAdr = 9;
                    r.itagStartAdr = 10;
                    r.dtagStartAdr = 11;
                    r.tlbStartAdr = 12;
                    r.dcrStartAdr = 13;
                    r.fpuType = 2;
                  },
                  " -debugdevice deviceNr 1 cpunr 2 romemStartAdr 0x3 "
                  "romemSize 4 isocmStartAdr 0x5 isocmSize 6  "
                  "isocmDcrStartAdr 0x7 icacheStartAdr 0x8 itagStartAdr 0xa "
                  "dcacheStartAdr 0x9 dtagStartAdr 0xb tlbStartAdr 0xc "
                  "dcrStartAdr 0xd fpuType dp"}});
}

} // namespace
