// A dialog's whole life: a design is loaded, each processor is selected,
// configured and saved, and another dialog finds everything again.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "language/SmallDesign.h"
#include "language/WorkingFolder.h"

namespace {

using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfo;

/// The sequence of settings for one kind of processor and connection, and the
/// command that comes of it, with %N for the processor's number.
struct Plan {
  std::string kind;
  void (*configure)(Engine &engine);
  std::string command;
};

struct Planned {
  std::string name;
  int number;
  const Plan *plan;
};

void chooseCable(Engine &engine) {
  EXPECT_EQ(engine.SetCableType(Engine::QUORLA_PODUSB), 0);
  EXPECT_EQ(engine.SetCableSpeed(12000000), 0);
  EXPECT_EQ(engine.SetCablePort("USB22"), 0);
  EXPECT_EQ(engine.SetDebugDevice(2), 0);
}

const std::string kCable =
    " -cable type quorla_podusb port USB22 frequency 12000000";
const std::string kChain =
    " -configdevice devicenr 1 partname first irlength 4 idcode 0x1 "
    "-configdevice devicenr 2 partname second irlength 6 idcode 0xffffffff";

const Plan kHardware = {
    "Lumacore on hardware",
    [](Engine &engine) {
      EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_HW), 0);
      chooseCable(engine);
      EXPECT_EQ(engine.SetROMem(0x1000, 256), 0);
    },
    "connect lc hdu" + kCable + kChain +
        " -debugdevice deviceNr 2 cpunr %N romemStartAdr 0x1000 romemSize "
        "256"};

const Plan kSerialStub = {
    "Lumacore with a stub behind a UART",
    [](Engine &engine) {
      EXPECT_EQ(
          engine.SetConnectionType(static_cast<Engine::ConnectionType>(0x84)),
          0);
      EXPECT_EQ(engine.SetStubType(Engine::STUB_SERIAL), 0);
      EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_STUB), 0);
      EXPECT_EQ(engine.SetStubSerialPort("/dev/ttyUSB1"), 0);
      EXPECT_EQ(engine.SetStubBaudrate(115200), 0);
      // The line of the stub carries no chain.
      EXPECT_EQ(engine.SetJtagChainOptions({}), 0);
    },
    "connect lc stub -comm serial -port /dev/ttyUSB1  -baud  115200 -timeout "
    "20000"};

const Plan kSimulator = {
    "Lumacore on the simulator",
    [](Engine &engine) {
      EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_HW), 1);
      EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_SIM), 0);
      EXPECT_EQ(engine.SetJtagChainOptions({}), 0);
    },
    "connect lc sim"};

const Plan kPowerPc = {
    "PowerPC on hardware",
    [](Engine &engine) {
      EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_HW), 0);
      chooseCable(engine);
      EXPECT_EQ(engine.SetIcacheBaseAddr(0x10000), 0);
      EXPECT_EQ(engine.SetITagBaseAddr(0x20000), 0);
      EXPECT_EQ(engine.SetDcacheBaseAddr(0x30000), 0);
      EXPECT_EQ(engine.SetDTagBaseAddr(0x40000), 0);
      EXPECT_EQ(engine.SetDcrBaseAddr(0x50000), 0);
      EXPECT_EQ(engine.SetTlbBaseAddr(0x60000), 0);
      EXPECT_EQ(engine.SetDcrBaseAddr(0x50001), 1);
    },
    "connect ppc hw" + kCable + kChain +
        " -debugdevice deviceNr 2 cpunr %N icacheStartAdr 0x10000 "
        "itagStartAdr 0x20000 dcacheStartAdr 0x30000 dtagStartAdr 0x40000 "
        "tlbStartAdr 0x60000 dcrStartAdr 0x50000 fpuType sp"};

const Plan kArm = {"Cortex-A9 on hardware",
                   [](Engine &engine) {
                     EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_SIM),
                               1);
                     EXPECT_EQ(engine.SetCableType(Engine::DIGILENT_PLUGIN), 0);
                   },
                   "connect ppc hw -cable type digilent_plugin" + kChain +
                       " -debugdevice cpunr %N"};

std::string commandOf(const Planned &planned) {
  std::string command = planned.plan->command;
  const std::size_t place = command.find("%N");
  return place == std::string::npos
             ? command
             : command.replace(place, 2, std::to_string(planned.number));
}

class DialogLife : public testing::Test {
protected:
  DialogLife() {
    first.partname = "first";
    first.devicenr = 1;
    first.irlength = 4;
    first.idcode = 1;
    second.partname = "second";
    second.devicenr = 2;
    second.irlength = 6;
    second.idcode = 0xFFFFFFFF;
  }

  std::string add(const std::string &name, const std::string &type, int number,
                  const Plan &plan) {
    design.processor(name, type);
    expected.push_back({name, number, &plan});
    return name;
  }

  /// Discovers, and hands each processor to `live`.
  template <class Live> void forEachProcessor(const Live &live) {
    Engine engine;
    std::vector<std::string> names;
    EXPECT_EQ(engine.GetProcessorList(&design, names), 0);
    EXPECT_EQ(names.size(), expected.size());
    EngineImp &imp = *engine.GetProcessorList(nullptr);
    imp.hwManager = &design;
    ASSERT_EQ(imp.processorList.size(), expected.size());
    for (const Planned &planned : expected) {
      SCOPED_TRACE(planned.name + ", " + planned.plan->kind);
      EXPECT_EQ(engine.GetProcessorNr(planned.name), planned.number);
      live(engine, imp, planned);
    }
    ReleaseProcessorRecords(imp);
  }

  void liveThroughAll() {
    std::vector<Settings> saved;
    forEachProcessor(
        [&](Engine &engine, EngineImp &imp, const Planned &planned) {
          ProcessorInfo info;
          EXPECT_EQ(engine.SetProcessor(planned.name, info), 4);
          EXPECT_EQ(engine.SetJtagChainOptions({&first, &second}), 0);
          planned.plan->configure(engine);
          std::string command;
          EXPECT_EQ(engine.GenerateCmdString(command), 0);
          EXPECT_EQ(command, commandOf(planned));
          EXPECT_EQ(engine.Generate(), 0);
          EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile(planned.name)),
                    command);
          saved.push_back(settingsOf(imp));
          // The same dialog selects it again.
          expectSelected(engine, imp, planned, saved.back());
        });
    // The dialog of the next day.
    std::size_t index = 0;
    forEachProcessor(
        [&](Engine &engine, EngineImp &imp, const Planned &planned) {
          expectSelected(engine, imp, planned, saved.at(index++));
        });
  }

  void expectSelected(Engine &engine, EngineImp &imp, const Planned &planned,
                      const Settings &saved) {
    ProcessorInfo info;
    EXPECT_EQ(engine.SetProcessor(planned.name, info), 0);
    EXPECT_EQ(changesBetween(saved, settingsOf(imp)), "");
    EXPECT_EQ(imp.currentProcessor->connectCommand, commandOf(planned));
    EXPECT_EQ(std::to_string(info.procType), saved.at("procType"));
    EXPECT_EQ(std::to_string(info.procFamily), saved.at("procFamily"));
    EXPECT_EQ(std::to_string(info.connectionMask), saved.at("connectionMask"));
    std::string again;
    EXPECT_EQ(engine.GenerateCmdString(again), 0);
    EXPECT_EQ(again, commandOf(planned));
    ReleaseChainRecords(imp.jtagChain);
  }

  SmallDesign design;
  std::vector<Planned> expected;
  WorkingFolder folder;
  JtagOption first;
  JtagOption second;
};

TEST_F(DialogLife, OfAnEmptyDesign) {
  liveThroughAll();
  Engine engine;
  ProcessorInfo info;
  std::vector<std::string> names;
  EXPECT_EQ(engine.GetProcessorList(&design, names), 0);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(engine.SetProcessor("lc0", info), 2);
  EXPECT_EQ(engine.ParseProcessorInfo("lc0", info, "connect lc hdu"), 2);
  EXPECT_EQ(engine.GetProcessorNr("lc0"), -1);
}

TEST_F(DialogLife, OfOneProcessor) {
  design.module("debug", "hdu", {add("lc0", "lumacore", 1, kHardware)});
  liveThroughAll();
}

TEST_F(DialogLife, OfSixtyFourProcessors) {
  int lumacores = 0;
  int powerPcs = 0;
  for (int i = 0; i < 16; ++i) {
    const std::string name = "lc" + std::to_string(i);
    const std::string hardware =
        add(name + "a", "lumacore", ++lumacores, kHardware);
    const std::string stub =
        add(name + "b", "lumacore", ++lumacores, kSerialStub);
    design.peripheral(stub, "uart" + name, "uart_mini_cedar")
        .module("debug" + name, i % 2 == 0 ? "hdu" : "hdu_cedar",
                {hardware, stub});
  }
  for (int i = 0; i < 8; ++i) {
    const std::string name = "ppc" + std::to_string(i);
    const std::string one = add(name + "a", "ppc405", ++powerPcs, kPowerPc);
    const std::string two = add(name + "b", "ppc440", ++powerPcs, kPowerPc);
    design.peripheral(one, "fpu1" + name, "aux_fpu")
        .peripheral(two, "fpu2" + name, "aux_fpu_gen5")
        .module("link" + name, "ppc_jtag_link", {one, two});
  }
  for (int i = 0; i < 8; ++i)
    add("sim" + std::to_string(i), "lumacore", ++lumacores, kSimulator);
  for (int i = 0; i < 8; ++i)
    add("arm" + std::to_string(i), "soc_cortexa9", i + 1, kArm);
  ASSERT_EQ(expected.size(), 64U);
  liveThroughAll();
}

// A command is taken over, changed and saved.
TEST_F(DialogLife, BeginsWithACommand) {
  design.processor("ppc", "ppc405_core")
      .module("link", "ppc_jtag_link", {"ppc"});
  Engine engine;
  EngineImp &imp = *engine.GetProcessorList(&design);
  ProcessorInfo info;
  EXPECT_EQ(engine.ParseProcessorInfo(
                "ppc", info,
                "kconnect ppc hw -cable type quorla_parallel3 -debugdevice "
                "isocmStartAdr 0x1000 isocmSize 16 isocmDcrStartAdr 0x15 "
                "icacheStartAdr 0x10000 -bscan USER1 -configdevice jtagport "
                "cpu"),
            0);
  unsigned address = 0;
  EXPECT_EQ(engine.GetISOCMBaseAddr(address), 0);
  EXPECT_EQ(address, 0x1000U);
  EXPECT_EQ(engine.GetDebugAddressMap(address), 0);
  EXPECT_EQ(address, 0x10000U);
  ReleaseChainRecords(imp.jtagChain);
  EXPECT_EQ(engine.SetCableESN("0007"), 0);
  imp.cpuJtag = 0;
  EXPECT_EQ(engine.Generate(), 0);
  const std::string command =
      "connect ppc hw -cable type quorla_parallel3 esn 0007 -bscan USER1 "
      "-debugdevice cpunr 1 isocmStartAdr 0x1000 isocmSize 16  "
      "isocmDcrStartAdr 0x15 icacheStartAdr 0x10000";
  EXPECT_EQ(WorkingFolder::contentOf(folder.optionFile("ppc")), command);
  const Settings saved = settingsOf(imp);
  EXPECT_EQ(engine.SetProcessor("ppc", info), 0);
  // The port is its type's; the frequency never was in the command.
  EXPECT_EQ(changesBetween(saved, settingsOf(imp)), "");
  EXPECT_EQ(imp.cableOption->port, "LPT1");
  std::string again;
  EXPECT_EQ(engine.GenerateCmdString(again), 0);
  EXPECT_EQ(again, command);
  ReleaseProcessorRecords(imp);
}

} // namespace
