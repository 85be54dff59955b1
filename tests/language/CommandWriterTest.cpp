// Whole connect commands, written, with the cable and chain clauses in them.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "support/Cables.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::CableOption;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

const std::string kLumacoreRefused = "Invalid Connect Type for Lumacore Target";
const std::string kPowerPcRefused = "Invalid Connect Type for PowerPC Target";
const std::string kCableRefused = "Invalid Cable Type";

struct WriteRow {
  std::string what;
  std::function<void(EngineImp &)> set;
  int code;
  std::string written;
  std::string message = kQuiet;
};

/// The bench with a default record and no cable, told apart by its number.
void makePlain(Bench &bench) {
  bench.record = ProcessorInfoImp();
  bench.record.connectCommand = "was";
  bench.imp.cableOption->CableOptionInit(Engine::CABLE_NONE);
  bench.imp.cpuJtag = 0;
  bench.engine.SetErrorStr(kQuiet);
}

using Writer = int (*)(std::string &out, EngineImp &imp);

void expectWritten(Writer writer, const std::vector<WriteRow> &rows) {
  for (const WriteRow &row : rows) {
    SCOPED_TRACE(row.what);
    Bench bench;
    makePlain(bench);
    row.set(bench.imp);
    const Settings before = settingsOf(bench.imp);
    std::string out = "start";
    EXPECT_EQ(writer(out, bench.imp), row.code);
    EXPECT_EQ(printable(out), "start" + row.written);
    EXPECT_EQ(bench.error(), row.message);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
    EXPECT_EQ(bench.record.connectCommand, "was");
  }
}

std::function<void(EngineImp &)> connection(std::uint32_t family,
                                            std::uint32_t type) {
  return [=](EngineImp &imp) {
    imp.currentProcessor->procFamily = family;
    imp.currentProcessor->connectionType = type;
  };
}

/// The same with a cable, a chain device and a debug device.
std::function<void(EngineImp &)> wired(std::uint32_t family, std::uint32_t type,
                                       std::uint32_t stubType = 0) {
  return [=](EngineImp &imp) {
    ProcessorInfoImp &record = *imp.currentProcessor;
    record.procFamily = family;
    record.connectionType = type;
    record.stubType = stubType;
    record.stubBaudRate = 115200;
    record.debugDevice = 2;
    record.ppcSimConfigFile = "f";
    imp.cableOption->CableOptionInit(Engine::QUORLA_PODUSB);
    imp.jtagChain.push_back(new JtagOption);
  };
}

const std::string kWires =
    " -cable type quorla_podusb port USB21 frequency 6000000 -configdevice "
    "devicenr 0 partname UNKNOWN irlength 0 idcode 0x0 -debugdevice deviceNr "
    "2";
const std::string kNumberedWires = kWires + " cpunr 1";

const std::string kSerial = " -port /dev/ttyS0  -baud  115200 -timeout 20000";

TEST(WriteLumacore, WritesEachConnection) {
  expectWritten(
      KvoOption_Parser::write_lcoptions,
      {
          {"simulator", wired(0, 1), 0, " lc sim"},
          {"hardware", connection(0, 2), 0, " lc hdu -debugdevice cpunr 1"},
          {"hardware, wired", wired(0, 2), 0, " lc hdu" + kNumberedWires},
          {"stub over JTAG", connection(0, 4), 0, " lc stub -comm jtag"},
          {"stub over JTAG, wired", wired(0, 4), 0,
           " lc stub -comm jtag" + kWires},
          {"stub over a line", wired(0, 4, 1), 0,
           " lc stub -comm serial" + kSerial},
          {"any other stub", wired(0, 4, 2), 0,
           " lc stub -comm serial" + kSerial},
          {"any other stub", wired(0, 4, 0x80000000), 0,
           " lc stub -comm serial" + kSerial},
          // The target word does not depend on the family.
          {"of a PowerPC", connection(1, 1), 0, " lc sim"},
      });
  for (const std::uint32_t type :
       {0U, 3U, 5U, 6U, 7U, 8U, 0x42U, 0x44U, 0x84U, 0x80000001U, 0xFFFFFFFFU})
    expectWritten(KvoOption_Parser::write_lcoptions,
                  {{"connection " + std::to_string(type), wired(0, type), 2,
                    " lc", kLumacoreRefused}});
}

TEST(WritePowerPc, WritesEachConnection) {
  expectWritten(
      KvoOption_Parser::write_ppcoptions,
      {
          {"simulator", connection(1, 1), 0, " ppc sim"},
          {"simulator, wired", wired(1, 1), 0, " ppc sim -icf f"},
          {"hardware", connection(1, 2), 0, " ppc hw -debugdevice cpunr 1"},
          {"hardware, wired", wired(1, 2), 0, " ppc hw" + kNumberedWires},
          {"of an ARM", wired(2, 2), 0, " ppc hw" + kNumberedWires},
          {"of an ARM", connection(2, 1), 0, " ppc sim"},
      });
  for (const std::uint32_t type :
       {0U, 3U, 4U, 5U, 6U, 8U, 0x42U, 0x84U, 0x80000002U, 0xFFFFFFFFU})
    expectWritten(KvoOption_Parser::write_ppcoptions,
                  {{"connection " + std::to_string(type), wired(1, type), 2,
                    " ppc", kPowerPcRefused}});
}

TEST(WriteStubLine, WritesItsBlanks) {
  const auto line = [](const std::string &port, int baud, int timeout) {
    return [=](EngineImp &imp) {
      imp.currentProcessor->stubSerialPort = port;
      imp.currentProcessor->stubBaudRate = baud;
      imp.currentProcessor->stubTimeout = timeout;
    };
  };
  const std::string longPort(5000, 'p');
  const int lowest = -2147483647 - 1;
  expectWritten(
      KvoOption_Parser::write_commoptions,
      {
          {"defaults", [](EngineImp &) {}, 0,
           " -port /dev/ttyS0  -baud  0 -timeout 20000"},
          {"all", line("/dev/ttyS0", 115200, 20000), 0,
           " -port /dev/ttyS0  -baud  115200 -timeout 20000"},
          {"negative", line("p", -1, -5), 0, " -port p  -baud  -1 -timeout -5"},
          {"limits", line("p", lowest, 2147483647), 0,
           " -port p  -baud  -2147483648 -timeout 2147483647"},
          {"no port", line("", 1, 2), 0, " -port   -baud  1 -timeout 2"},
          {"null byte", line("a\0b"s, 1, 2), 0,
           " -port a\\x00b  -baud  1 -timeout 2"},
          {"long port", line(longPort, 1, 2), 0,
           " -port " + longPort + "  -baud  1 -timeout 2"},
      });
}

// --- Whole commands ----------------------------------------------------------

void expectCommand(const WriteRow &row) {
  SCOPED_TRACE(row.what);
  for (const bool throughTheEngine : {false, true}) {
    Bench bench;
    makePlain(bench);
    row.set(bench.imp);
    const Settings before = settingsOf(bench.imp);
    std::string out = "old";
    EXPECT_EQ(throughTheEngine
                  ? bench.engine.GenerateCmdString(out)
                  : KvoOption_Parser::WriteKvoCmdString(bench.imp, out),
              row.code);
    const bool refused = row.code != 0;
    EXPECT_EQ(printable(out), refused ? "old" : row.written);
    EXPECT_EQ(printable(bench.record.connectCommand),
              refused ? "was" : row.written);
    EXPECT_EQ(bench.error(), row.message);
    EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), "");
  }
}

TEST(WriteCommand, WritesEachTarget) {
  const auto vp = [](std::uint32_t family) {
    return [family](EngineImp &imp) {
      imp.currentProcessor->procFamily = family;
      imp.currentProcessor->connectionType = 8;
      imp.currentProcessor->simIpcHost = "localhost";
      imp.currentProcessor->simIpcPort = 2340;
    };
  };
  for (const WriteRow &row : std::vector<WriteRow>{
           {"Lumacore, simulator", wired(0, 1), 0, "connect lc sim"},
           {"Lumacore, hardware", wired(0, 2), 0,
            "connect lc hdu" + kNumberedWires},
           {"Lumacore, stub over JTAG", wired(0, 4), 0,
            "connect lc stub -comm jtag" + kWires},
           {"Lumacore, stub over a line", wired(0, 4, 1), 0,
            "connect lc stub -comm serial" + kSerial},
           {"PowerPC, simulator", wired(1, 1), 0, "connect ppc sim -icf f"},
           {"PowerPC, hardware", wired(1, 2), 0,
            "connect ppc hw" + kNumberedWires},
           {"ARM, hardware", wired(2, 2), 0, "connect ppc hw" + kNumberedWires},
           {"ARM, simulator", connection(2, 1), 0, "connect ppc sim"},
           {"any other family", connection(0x80000000, 2), 0,
            "connect ppc hw -debugdevice cpunr 1"},
           // The clause of the virtual platform takes the place of the head.
           {"virtual platform", vp(0), 0, "vpconnect lc -ipcportlocalhost2340"},
       })
    expectCommand(row);
}

TEST(WriteCommand, LeavesBothTextsWhenItRefuses) {
  const auto cable = [](std::uint32_t family, std::uint32_t type) {
    return [=](EngineImp &imp) {
      imp.currentProcessor->procFamily = family;
      imp.cableOption->cableType = static_cast<Engine::CableType>(type);
    };
  };
  for (const WriteRow &row : std::vector<WriteRow>{
           {"Lumacore, nothing", connection(0, 0), 1, "", kLumacoreRefused},
           {"Lumacore, two bits", connection(0, 3), 1, "", kLumacoreRefused},
           {"Lumacore, stub with a UART", connection(0, 0x84), 1, "",
            kLumacoreRefused},
           {"PowerPC, stub", connection(1, 4), 1, "", kPowerPcRefused},
           {"ARM, stub", connection(2, 4), 1, "", kPowerPcRefused},
           {"PowerPC, nothing", connection(1, 0), 1, "", kPowerPcRefused},
           {"PowerPC, virtual platform", connection(1, 8), 1, ""},
           {"ARM, virtual platform", connection(2, 8), 1, ""},
           {"Lumacore, SVF cable", cable(0, 1), 1, "", kCableRefused},
           {"Lumacore, TCF cable", cable(0, 7), 1, "", kCableRefused},
           {"PowerPC, SVF cable", cable(1, 1), 1, "", kCableRefused},
           {"PowerPC, unknown cable", cable(1, 99), 1, "", kCableRefused},
       })
    expectCommand(row);
}

TEST(WriteCommand, PassesOnTheRefusalOfACable) {
  const auto tcf = [](std::uint32_t type) {
    return [type](EngineImp &imp) {
      imp.currentProcessor->connectionType = type;
      imp.currentProcessor->debugDevice = 2;
      imp.cableOption->cableType = Engine::QUORLA_TCF;
    };
  };
  expectWritten(
      KvoOption_Parser::write_lcoptions,
      {{"hardware", tcf(2), 2, " lc hdu -cable", kCableRefused},
       {"stub", tcf(4), 2, " lc stub -comm jtag -cable", kCableRefused}});
  expectWritten(KvoOption_Parser::write_ppcoptions,
                {{"hardware", tcf(2), 2, " ppc hw -cable", kCableRefused}});
}

// --- Cable and chain
// -----------------------------------------------------------

std::function<void(EngineImp &)> cable(std::uint32_t type,
                                       const std::string &port = "p",
                                       const std::string &esn = "") {
  return [=](EngineImp &imp) {
    CableOption &option = *imp.cableOption;
    option.cableType = static_cast<Engine::CableType>(type);
    option.frequency = 0xFFFFFFFF;
    option.port = port;
    option.esn = esn;
    option.svfFile = "s";
    option.moduleName = "m";
    option.moduleArgs = "a;b";
    option.url = "u";
  };
}

TEST(WriteJtagOptions, WritesEachCable) {
  std::vector<WriteRow> rows{
      {"none", cable(0), 0, ""},
      {"with a serial number", cable(3, "p", "007"), 0,
       " -cable type quorla_podusb esn 007"},
      {"no port", cable(2, ""), 0,
       " -cable type quorla_parallel port  frequency -1"},
  };
  for (const support::Cable &known : support::cables())
    if (known.form != support::CableForm::none)
      rows.push_back(
          {"cable " + std::to_string(known.number), cable(known.number), 0,
           support::clauseOf(known, " port p frequency -1",
                             " modulename m modulearg a modulearg b")});
  expectWritten(KvoOption_Parser::write_jtagoptions, rows);
  for (const std::uint32_t type : support::unwritableCableNumbers())
    expectWritten(KvoOption_Parser::write_jtagoptions,
                  {{"cable " + std::to_string(type),
                    [type](EngineImp &imp) {
                      cable(type)(imp);
                      imp.currentProcessor->bscanUserReg = 2;
                      imp.cpuJtag = 1;
                    },
                    2, " -cable", kCableRefused}});
}

TEST(WriteJtagOptions, WritesMarksAndChainInTheirOrder) {
  const auto bscan = [](std::uint32_t code) {
    return
        [code](EngineImp &imp) { imp.currentProcessor->bscanUserReg = code; };
  };
  const auto mark = [](std::uint32_t value) {
    return [value](EngineImp &imp) { imp.cpuJtag = value; };
  };
  expectWritten(
      KvoOption_Parser::write_jtagoptions,
      {
          {"USER1", bscan(2), 0, " -bscan USER1"},
          {"USER2", bscan(3), 0, ""},
          {"USER3", bscan(0x22), 0, ""},
          {"USER4", bscan(0x23), 0, ""},
          {"no register", bscan(0), 0, ""},
          {"mark", mark(1), 0, " -configdevice jtagpin cpujtag"},
          {"no mark", mark(2), 0, ""},
          {"all",
           [](EngineImp &imp) {
             cable(6)(imp);
             imp.currentProcessor->bscanUserReg = 2;
             imp.cpuJtag = 1;
             JtagOption first;
             first.partname = "pk9ab100";
             first.idcode = 0x1234093;
             first.irlength = 6;
             first.devicenr = 2;
             first.isfpga = 1;
             first.hardppc = 2;
             first.nppc = 3;
             JtagOption second;
             second.partname = "";
             second.idcode = 0xFFFFFFFF;
             second.irlength = -128;
             second.devicenr = -56;
             imp.jtagChain = {new JtagOption(first), new JtagOption(second)};
           },
           0,
           " -cable type digilent_plugin -bscan USER1 -configdevice jtagpin "
           "cpujtag -configdevice devicenr 2 partname pk9ab100 irlength 6 "
           "idcode 0x1234093 -configdevice devicenr -56 partname  irlength "
           "-128 idcode 0xffffffff"},
      });
}

TEST(WriteCableOptions, WritesTheParametersOfACable) {
  CableOption option;
  option.port = "p";
  option.frequency = 5;
  std::string out = "start";
  EXPECT_EQ(KvoOption_Parser::write_quorla_cableoptions(out, option), 0);
  EXPECT_EQ(out, "start port p frequency 5");
  option.esn = "e";
  out = "start";
  EXPECT_EQ(KvoOption_Parser::write_quorla_cableoptions(out, option), 0);
  EXPECT_EQ(out, "start esn e");
  EXPECT_EQ(KvoOption_Parser::write_digilent_cableoptions(out, option), 0);
  EXPECT_EQ(out, "start esn e");

  struct Arguments {
    std::string text;
    std::string written;
  };
  for (const Arguments &arguments : std::vector<Arguments>{
           {"", ""},
           {"a", " modulearg a"},
           {"a;b", " modulearg a modulearg b"},
           {"a;b;c", " modulearg a modulearg b modulearg c"},
           {";", " modulearg  modulearg "},
           {"a;", " modulearg a modulearg "},
           {";a", " modulearg  modulearg a"},
           {"a;;b", " modulearg a modulearg  modulearg b"},
           {"a b", " modulearg a b"},
       }) {
    option.moduleName = "m";
    option.moduleArgs = arguments.text;
    out = "start";
    EXPECT_EQ(KvoOption_Parser::write_plugin_cableoptions(out, option), 0);
    EXPECT_EQ(out, "start modulename m" + arguments.written);
    option.moduleName = "";
    out = "start";
    EXPECT_EQ(KvoOption_Parser::write_plugin_cableoptions(out, option), 0);
    EXPECT_EQ(out, "start modulename " + arguments.written);
  }
}

TEST(WriteJtagCableOptions, AddsTheDebugDevice) {
  struct DeviceRow {
    int device;
    std::uint32_t cableType;
    int code;
    std::string written;
  };
  for (const DeviceRow &row : std::vector<DeviceRow>{
           {0, 0, 0, ""},
           {0, 6, 0, " -cable type digilent_plugin"},
           {2, 6, 0, " -cable type digilent_plugin -debugdevice deviceNr 2"},
           {-56, 0, 0, " -debugdevice deviceNr -56"},
           {2, 7, 1, " -cable"},
           {2, 1, 1, " -cable"},
       }) {
    SCOPED_TRACE(row.written);
    Bench bench;
    makePlain(bench);
    bench.imp.cableOption->cableType =
        static_cast<Engine::CableType>(row.cableType);
    bench.record.debugDevice = static_cast<std::int8_t>(row.device);
    std::string out = "start";
    EXPECT_EQ(KvoOption_Parser::WriteJtagCableOptionsString(bench.imp, out),
              row.code);
    EXPECT_EQ(out, "start" + row.written);
    EXPECT_EQ(bench.error(), row.code == 0 ? kQuiet : kCableRefused);
  }
}

} // namespace
