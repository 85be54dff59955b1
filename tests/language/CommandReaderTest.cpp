// Whole connect commands, read.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;

// The text is not consumed, and is stored whatever becomes of it.
const Reader kReadCommand = [](std::string &text, EngineImp &imp) {
  imp.currentProcessor->connectCommand = "was";
  try {
    const int code = KvoOption_Parser::ReadKvoCommand(text, imp);
    EXPECT_EQ(printable(imp.currentProcessor->connectCommand), printable(text));
    return code;
  } catch (...) {
    EXPECT_EQ(printable(imp.currentProcessor->connectCommand), printable(text));
    throw;
  }
};

struct Command {
  std::string text;
  int code = 0;
  std::string message = kQuiet;
  std::string changes{};
  std::string option = kUntouched;
};

void expectCommands(const std::vector<Command> &commands,
                    const Prepare &prepare = {}) {
  std::vector<Row> rows;
  for (const Command &command : commands)
    rows.push_back({command.text, command.code, command.message,
                    command.changes, command.text, command.option});
  expectRows(kReadCommand, rows, prepare);
}

// Each target with a connection, and what that stores; the mask was 4096.
struct Target {
  std::string word;
  std::string connection;
  std::string stored;
};
const std::vector<Target> kTargets = {
    {"lc", "hdu",
     "connectionType=2 connectionMask=4098 procFamily=0 procType=0"},
    {"ppc", "hw",
     "connectionType=2 connectionMask=4098 procFamily=1 procType=6"},
    {"arm", "hw",
     "connectionType=2 connectionMask=4098 procFamily=2 procType=4"},
    {"r5", "hw",
     "connectionType=2 connectionMask=4098 procFamily=2 procType=5"},
    {"hdu", "", "connectionMask=16"},
    {"dap", "hw",
     "connectionType=2 connectionMask=512 procFamily=2 procType=4"},
    {"dcc", "", "connectionMask=256 procFamily=2 procType=4"},
    {"kmtc", "", "connectionMask=32"},
};
const std::string kVp = "connectionType=8 connectionMask=4104 procType=0";

TEST(Command, ReadsEachHeadAndTarget) {
  for (const Target &target : kTargets)
    for (const std::string head :
         {"connect", "kconnect", "CONNECT", "KConnect"}) {
      const std::string text =
          head + " " + target.word + " " + target.connection;
      expectCommands({
          {text, 0, kQuiet, target.stored},
          {"  " + text + " ", 0, kQuiet, target.stored},
          {head + "\t \t" + target.word + "\t" + target.connection, 0, kQuiet,
           target.stored},
          {"\n\r" + text + "\r\n", 0, kQuiet, target.stored},
          {head + " " + upper(target.word + " " + target.connection), 0, kQuiet,
           target.stored},
          {text + " -debugdevice devicenr 2", 0, kQuiet,
           target.stored + " debugDevice=2", "-debugdevice"},
      });
    }
  for (const std::string head :
       {"vpconnect", "kvpconnect", "VPCONNECT", "kVPconnect"})
    expectCommands({
        {head + " lc", 0, kQuiet, kVp},
        {"\t" + head + "\tLC -ipcport h:1 ", 0, kQuiet,
         kVp + " simIpcHost=h simIpcPort=1", "-ipcport"},
    });
}

TEST(Command, RefusesWhatIsNoHead) {
  std::vector<Command> commands = {
      {"", 3},
      {" \t\n", 3},
      {"foo", 3},
      {"lc hdu", 3},
      {"connect\nlc hdu", 3},
      {"connect\0 lc hdu"s, 3},
      {"-connect lc hdu", 3, kQuiet, "", "-connect"},
      {"-5 connect lc hdu", 3},
      {"\"connect lc hdu\"", 3},
  };
  const std::vector<std::string> heads = {"connect", "kconnect", "vpconnect",
                                          "kvpconnect"};
  for (const std::string &head : heads)
    for (const std::string &miss : nearMisses(head, heads))
      commands.push_back({miss + " lc hdu -debugdevice devicenr 2", 3});
  expectCommands(commands);
}

TEST(Command, RefusesWhatIsNoTarget) {
  std::vector<Command> commands = {
      {"connect", 3},
      {"kconnect ", 3},
      {"vpconnect", 3},
      {"kvpconnect\t", 3},
      {"connect foo", 3},
      {"connect sim", 3},
      {"connect hw", 3},
      {"connect connect lc hdu", 3},
      {"connect -lc hdu", 3, kQuiet, "", "-lc"},
      {"connect 5 hdu", 3},
      {"connect lc\nhdu", 3},
      // The virtual platform knows the Lumacore only.
      {"vpconnect hdu", 3},
      {"vpconnect ppc sim", 3},
      {"vpconnect arm hw", 3},
      {"kvpconnect kmtc", 3},
  };
  std::vector<std::string> targets;
  for (const Target &target : kTargets)
    targets.push_back(target.word);
  for (const std::string &target : targets)
    for (const std::string &miss : nearMisses(target, targets))
      commands.push_back({"connect " + miss + " hw", 3});
  expectCommands(commands);
}

TEST(Command, RefusesWhatATargetRefuses) {
  expectCommands({
      {"connect lc", 3},
      {"connect ppc", 3},
      {"connect arm", 3},
      {"connect r5", 3},
      {"connect dap ", 3},
      {"connect lc hw", 3},
      {"connect ppc hdu", 3},
      {"connect ppc stub", 3},
      {"connect arm sim", 3},
      {"connect r5 sim", 3},
      {"connect dap sim", 3},
      {"connect hdu hw", 3, kQuiet, "connectionMask=16"},
      {"connect dcc hw", 3, kQuiet,
       "connectionMask=256 procFamily=2 procType=4"},
      {"connect kmtc hw", 3, kQuiet, "connectionMask=32"},
      {"connect lc hdu -foo", 3, "UNKNOWN Option '-foo'", "", "-foo"},
      {"connect dcc -foo", 3, "UNKNOWN Option ''",
       "connectionMask=256 procFamily=2 procType=4", "-foo"},
      {"connect kmtc -uart", 3, "UNKNOWN Option ''", "connectionMask=32",
       "-uart"},
      {"connect hdu -uart -foo", 3, "UNKNOWN Option '-foo'",
       "connectionMask=16 uartOverHdu=1", "-foo"},
      {"connect lc sim -memsize", 3, kQuiet, "connectionType=1", "-memsize"},
      {"connect lc hdu -quiet x", 3, kQuiet, "", "-quiet"},
      {"connect lc stub -comm usb", 3, kQuiet, "", "-comm"},
      {"connect ppc sim -foo", 3, "UNKNOWN  PowerPC Sim Option ''",
       "procFamily=1 procType=6", "-foo"},
      {"vpconnect lc -foo", 3, "UNKNOWN virtual platform Option 'lc'", kVp,
       "-foo"},
      {"vpconnect lc -config foo", 3, kQuiet, kVp, "-config"},
  });
}

TEST(Command, ReadsWholeConfigurations) {
  expectCommands({
      {"CONNECT LC STUB -comm serial -port /dev/ttyUSB0 -BAUD 0x1C200", 0,
       kQuiet,
       "connectionType=4 connectionMask=4100 procFamily=0 procType=0 "
       "stubType=1 stubSerialPort=/dev/ttyUSB0 stubBaudRate=115200",
       "-BAUD"},
      {"connect lc stub -comm serial -port /dev/ttyS0  -baud  115200 -timeout "
       "20000",
       0, kQuiet,
       "connectionType=4 connectionMask=4100 procFamily=0 procType=0 "
       "stubType=1 stubSerialPort=/dev/ttyS0 stubBaudRate=115200 "
       "stubTimeout=20000",
       "-timeout"},
      {"connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
       "-bscan USER1 -configdevice devicenr 2 partname pk9ab100 irlength 6 "
       "idcode 0x1234093 -debugdevice deviceNr 2 cpunr 1",
       0, kQuiet,
       "connectionType=2 connectionMask=4098 procFamily=0 procType=0 "
       "cable.cableType=3 cable.port=USB21 cable.frequency=6000000 "
       "bscanUserReg=2 chain[0]=pk9ab100,19087507,6,2,0,0,0 debugDevice=2 "
       "cpuNr=1",
       "-debugdevice"},
      {"connect ppc hw -debugdevice cpunr 1 romemStartAdr 0xfffff000 "
       "romemSize 4096 isocmStartAdr 0x1 isocmSize 2  isocmDcrStartAdr 0x3 "
       "icacheStartAdr 0x10000 itagStartAdr 0x20000 dcacheStartAdr 0x30000 "
       "dtagStartAdr 0x40000 tlbStartAdr 0x50000 dcrStartAdr 0x60000 fpuType "
       "dp",
       0, kQuiet,
       "connectionType=2 connectionMask=4098 procFamily=1 procType=6 cpuNr=1 "
       "romemStartAdr=4294963200 romemSize=4096 isocmStartAdr=1 isocmSize=2 "
       "isocmDcrStartAdr=3 icacheStartAdr=65536 debugAddressMap=65536 "
       "itagStartAdr=131072 dcacheStartAdr=196608 dtagStartAdr=262144 "
       "tlbStartAdr=327680 dcrStartAdr=393216 fpuType=2",
       "-debugdevice"},
      {"connect ppc sim -ipcport localhost:6470", 0, kQuiet,
       "connectionType=1 connectionMask=4097 procFamily=1 procType=6 "
       "simIpcHost=localhost simIpcPort=6470",
       "-ipcport"},
      {"connect lc sim", 0, kQuiet,
       "connectionType=1 connectionMask=4097 procFamily=0 procType=0"},
      {"connect lc sim and what not -foo", 0, kQuiet,
       "connectionType=1 connectionMask=4097 procFamily=0 procType=0"},
      {"connect lc hdu -port", 0, kQuiet,
       "connectionType=2 connectionMask=4098 procFamily=0 procType=0", "-port"},
      // What the writer makes of two settings is not what is read.
      {"connect lc hdu -configdevice jtagpin cpujtag", 3,
       "UNKNOWN Parameter 'jtagpin' for option '-configDevice'", "",
       "-configdevice"},
      {"vpconnect lc -ipcportlocalhost2340", 3,
       "UNKNOWN virtual platform Option 'lc'", kVp, "-ipcportlocalhost2340"},
  });
}

TEST(Command, AsksTheMaskOfADesign) {
  const Prepare hardwareOnly = [](EngineImp &imp) {
    imp.hwManager = silentDesign();
    imp.currentProcessor->connectionMask = 2;
    imp.currentProcessor->cpuNr = 1;
  };
  expectCommands(
      {
          {"connect lc hdu", 0, kQuiet, "connectionType=2"},
          {"connect lc hdu -debugdevice cpunr 1", 0, kQuiet, "connectionType=2",
           "-debugdevice"},
          {"connect lc hdu -debugdevice devicenr 3 cpunr 2", 3, kQuiet,
           "debugDevice=3", "-debugdevice"},
          {"connect lc stub -foo", 3},
          {"connect lc sim", 3},
          {"connect ppc sim", 3},
          {"connect ppc hw", 0, kQuiet, "connectionType=2"},
          {"connect arm hw", 0, kQuiet, "connectionType=2"},
          {"connect r5 hw", 0, kQuiet, "connectionType=2"},
          {"vpconnect lc", 3},
          {"connect hdu", 0, kQuiet, "connectionMask=16"},
          {"connect dap hw", 0, kQuiet,
           "connectionType=2 connectionMask=512 procFamily=2 procType=4"},
      },
      hardwareOnly);
}

TEST(Command, AddsToTheChainThatIsThere) {
  expectCommands(
      {{"connect lc hdu -configdevice devicenr 2", 0, kQuiet,
        "connectionType=2 connectionMask=4098 procFamily=0 "
        "procType=0 chain[1]=UNKNOWN,0,0,2,0,0,0",
        "-configdevice"}},
      [](EngineImp &imp) { imp.jtagChain.push_back(new JtagOption); });
}

TEST(Command, FailsAtALoneMinusWithTheTextStored) {
  expectCommands({
      {"-", kThrows},
      {"- connect lc hdu", kThrows},
      {"connect -", kThrows},
      {"connect - lc hdu", kThrows},
      {"connect lc -", kThrows},
      {"connect lc hdu -", kThrows},
      {"connect ppc hw -", kThrows, kQuiet, "procFamily=1 procType=6"},
      {"connect dcc -", kThrows, kQuiet,
       "connectionMask=256 procFamily=2 procType=4"},
      {"vpconnect -", kThrows},
      {"vpconnect lc -", kThrows, kQuiet, kVp},
      {"connect lc sim -", kThrows, kQuiet, "connectionType=1"},
      // Never reached.
      {"foo -", 3},
      {"connect foo -", 3},
      {"connect lc foo -", 3},
      {"connect lc sim x -", 0, kQuiet,
       "connectionType=1 connectionMask=4097 procFamily=0 procType=0"},
  });
}

// Messages go to the engine that the state names, and nowhere without one.
TEST(Command, ReportsToTheEngineOfTheState) {
  Bench bench;
  Engine other;
  bench.engine.SetErrorStr(kQuiet);
  bench.imp.engine = &other;
  EXPECT_EQ(KvoOption_Parser::ReadKvoCommand("connect lc hdu -foo", bench.imp),
            3);
  std::string text;
  other.GetErrorStr(text);
  EXPECT_EQ(text, "UNKNOWN Option '-foo'");
  EXPECT_EQ(bench.error(), kQuiet);

  bench.imp.engine = nullptr;
  EXPECT_EQ(KvoOption_Parser::ReadKvoCommand("connect lc hdu -bar", bench.imp),
            3);
  other.GetErrorStr(text);
  EXPECT_EQ(text, "UNKNOWN Option '-foo'");
  EXPECT_EQ(bench.error(), kQuiet);
  bench.imp.engine = &bench.engine;
}

} // namespace
