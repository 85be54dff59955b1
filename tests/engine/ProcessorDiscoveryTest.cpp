// Which processors of a design can be debugged, and what is asked to find out.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

using Names = std::vector<std::string>;

struct Found {
  std::string name;
  std::uint32_t family;
  std::uint32_t type;
  std::uint32_t mask;
  int number;
};

class ProcessorDiscovery : public support::DesignFixture {
protected:
  void addLumacore(const std::string &instance) {
    design.instancesOfType["lumacore"].push_back(instance);
  }
  void addCortexA9(const std::string &instance) {
    design.instancesOfType["soc_cortexa9"].push_back(instance);
  }

  /// `processorList` holds exactly these, with default settings.
  void expectFound(const std::vector<Found> &expected) {
    Names texts;
    for (const Found &found : expected) {
      ProcessorInfoImp record;
      record.instanceName = found.name;
      record.procFamily = found.family;
      record.procType = found.type;
      record.connectionMask = found.mask;
      record.cpuNr = static_cast<std::int8_t>(found.number);
      texts.push_back(textOf(record));
    }
    Names actual;
    for (const ProcessorInfoImp *record : state.processorList)
      actual.push_back(textOf(*record));
    EXPECT_EQ(actual, texts);
  }
};

TEST_F(ProcessorDiscovery, FindsEachKindAndNumbersEachFamily) {
  design.addDebugModule("dbg0", "hdu", {"soft0", "soft1"});
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc0", "ppc1"});
  design.addDebugModule("dbg1", "hdu_cedar", {"soft2", "soft3"});
  design.addDebugModule("link1", "ppc_jtag_link", {"ppc2"});
  design.typeOf["ppc0"] = "ppc405_core";
  design.typeOf["ppc1"] = "ppc440_core";
  design.typeOf["ppc2"] = "x405";
  addLumacore("soft4");
  addLumacore("soft5");
  addCortexA9("arm0");
  addCortexA9("arm1");
  EXPECT_EQ(engine.GetProcessorList(&design), &state);
  expectFound({{"soft0", 0, 0, 3, 1},
               {"soft1", 0, 0, 3, 2},
               {"ppc0", 1, 1, 3, 1},
               {"ppc1", 1, 2, 3, 2},
               {"soft2", 0, 0, 3, 3},
               {"soft3", 0, 0, 3, 4},
               {"ppc2", 1, 1, 3, 3},
               {"soft4", 0, 0, 1, 5},
               {"soft5", 0, 0, 1, 6},
               {"arm0", 2, 4, 2, 1},
               {"arm1", 2, 4, 2, 2}});
}

TEST_F(ProcessorDiscovery, AsksTheDesignInThisOrder) {
  design.processors = {"soft0"};
  design.addDebugModule("dbg0", "hdu", {"soft0", "soft1"});
  design.addDebugModule("odd0", "other", {"hidden"});
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc0", "ppc1"});
  design.addPeripheral("soft0", "timer0", "timer");
  design.addPeripheral("soft0", "uart0", "uart_mini_cedar");
  design.addPeripheral("soft0", "uart1", "uart_mini_cedar");
  addLumacore("soft0");
  addLumacore("soft2");
  design.addPeripheral("soft2", "uart2", "uart");
  addCortexA9("arm0");
  Names names;
  engine.GetProcessorList(&design, names);
  EXPECT_EQ(design.log,
            (Names{"getProcessorInstances(false)", "getIpInstances(kind 5)",
                   "getIpName(dbg0)", "getHduConnectedProcessorList(dbg0)",
                   "getPeripherals(soft0)", "getIpName(timer0)",
                   "getIpName(uart0)", "getPeripherals(soft1)",
                   "getIpName(odd0)", "getHduConnectedProcessorList(odd0)",
                   "getIpName(link0)", "getHduConnectedProcessorList(link0)",
                   "getIpName(ppc0)", "getIpName(ppc1)",
                   "getIpInstances(lumacore)", "getPeripherals(soft2)",
                   "getIpName(uart2)", "getIpInstances(soc_cortexa9)"}));
}

TEST_F(ProcessorDiscovery, AsksTheSameWithoutAListOfNames) {
  design.processors = {"soft0"};
  EXPECT_EQ(engine.GetProcessorList(&design), &state);
  EXPECT_EQ(
      design.log,
      (Names{"getProcessorInstances(false)", "getIpInstances(kind 5)",
             "getIpInstances(lumacore)", "getIpInstances(soc_cortexa9)"}));
}

TEST_F(ProcessorDiscovery, JoinsStubConnectionsIntoTheMask) {
  design.addDebugModule("dbg0", "hdu", {"soft0", "soft1"});
  design.addPeripheral("soft0", "uart0", "uart_mini_ember");
  design.addPeripheral("soft1", "uart1", "Uart_mini_ember");
  addLumacore("soft2");
  addLumacore("soft3");
  design.addPeripheral("soft2", "uart2", "uart_mini_cedar");
  // No stub is asked for on a processor of another family.
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc0"});
  design.addPeripheral("ppc0", "uart3", "uart_mini_cedar");
  addCortexA9("arm0");
  design.addPeripheral("arm0", "uart4", "uart_mini_cedar");
  engine.GetProcessorList(&design);
  expectFound({{"soft0", 0, 0, 0x87, 1},
               {"soft1", 0, 0, 3, 2},
               {"ppc0", 1, 2, 3, 1},
               {"soft2", 0, 0, 0x85, 3},
               {"soft3", 0, 0, 1, 4},
               {"arm0", 2, 4, 2, 1}});
}

TEST_F(ProcessorDiscovery, TakesTypeNamesOfDebugInstancesExactly) {
  for (const char *typeName :
       {"Hdu", "HDU", "hd", "hdux", "hdu ", " hdu", "xhdu", "hdu_", "hdu_ceda",
        "hdu_cedar1", "HDU_CEDAR", "hdu_Cedar", "ppc_jtag_lin",
        "ppc_jtag_link1", "PPC_JTAG_LINK", "ppc_jtag_Link", "xppc_jtag_link",
        "", "lumacore"}) {
    SCOPED_TRACE(typeName);
    design = support::FakeDesign();
    design.addDebugModule("odd0", typeName, {"cpu0"});
    engine.GetProcessorList(&design);
    EXPECT_TRUE(state.processorList.empty());
    EXPECT_EQ(
        design.log,
        (Names{"getProcessorInstances(false)", "getIpInstances(kind 5)",
               "getIpName(odd0)", "getHduConnectedProcessorList(odd0)",
               "getIpInstances(lumacore)", "getIpInstances(soc_cortexa9)"}));
  }
}

TEST_F(ProcessorDiscovery, TakesOnlyInstancesOfTheTwoTypesOfUnattachedCores) {
  for (const char *typeName :
       {"Lumacore", "lumacor", "lumacore1", "soc_cortexa", "soc_cortexa99",
        "soc_cortexr5", "SOC_CORTEXA9", ""})
    design.instancesOfType[typeName] = {"cpu0"};
  design.instancesOfKind[4] = {"dbg4"};
  design.instancesOfKind[6] = {"dbg6"};
  engine.GetProcessorList(&design);
  EXPECT_TRUE(state.processorList.empty());
}

TEST_F(ProcessorDiscovery, TellsAPpc405ByItsNumberAnywhereInTheTypeName) {
  const struct {
    const char *typeName;
    std::uint32_t type;
  } rows[] = {
      {"405", 1},
      {"ppc405", 1},
      {"ppc405_core", 1},
      {"405ppc", 1},
      {"x4405", 1},
      {"PPC405", 1},
      {"ppc440", 2},
      {"ppc40", 2},
      {"ppc4_05", 2},
      {"ppc504", 2},
      {"", 2},
      {"45", 2},
      {"ppc", 2},
      {"ppc440_405x", 1},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.typeName);
    ReleaseProcessorRecords(state);
    design = support::FakeDesign();
    design.addDebugModule("link0", "ppc_jtag_link", {"ppc0"});
    design.typeOf["ppc0"] = row.typeName;
    engine.GetProcessorList(&design);
    expectFound({{"ppc0", 1, row.type, 3, 1}});
  }
}

TEST_F(ProcessorDiscovery, AddsAnAttachedProcessorForEachAttachment) {
  design.addDebugModule("dbg0", "hdu", {"soft0", "soft0"});
  design.addDebugModule("dbg1", "hdu_cedar", {"soft0"});
  design.addDebugModule("link0", "ppc_jtag_link", {"soft0"});
  addLumacore("soft0");
  addCortexA9("soft0");
  engine.GetProcessorList(&design);
  expectFound({{"soft0", 0, 0, 3, 1},
               {"soft0", 0, 0, 3, 2},
               {"soft0", 0, 0, 3, 3},
               {"soft0", 1, 2, 3, 1},
               {"soft0", 2, 4, 2, 1}});
}

TEST_F(ProcessorDiscovery, SkipsUnattachedProcessorsThatAreListed) {
  design.addDebugModule("dbg0", "hdu", {"soft1"});
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc0"});
  for (const char *name :
       {"soft0", "soft1", "ppc0", "soft0", "Soft1", "soft", "soft11", "arm0"})
    addLumacore(name);
  addCortexA9("arm0");
  engine.GetProcessorList(&design);
  expectFound({{"soft1", 0, 0, 3, 1},
               {"ppc0", 1, 2, 3, 1},
               {"soft0", 0, 0, 1, 2},
               {"Soft1", 0, 0, 1, 3},
               {"soft", 0, 0, 1, 4},
               {"soft11", 0, 0, 1, 5},
               {"arm0", 0, 0, 1, 6},
               {"arm0", 2, 4, 2, 1}});
}

TEST_F(ProcessorDiscovery, AppendsAgainAndNumbersAnewWhenRepeated) {
  design.addDebugModule("dbg0", "hdu", {"soft0"});
  design.addDebugModule("link0", "ppc_jtag_link", {"ppc0"});
  addLumacore("soft1");
  addCortexA9("arm0");
  engine.GetProcessorList(&design);
  const std::vector<ProcessorInfoImp *> first = state.processorList;
  first[0]->romemSize = 7;
  addLumacore("soft2");
  design.log.clear();
  engine.GetProcessorList(&design);

  ASSERT_EQ(state.processorList.size(), 8U);
  for (std::size_t i = 0; i < first.size(); ++i)
    EXPECT_EQ(state.processorList[i], first[i]);
  EXPECT_EQ(first[0]->romemSize, 7U);
  first[0]->romemSize = 0;
  expectFound({{"soft0", 0, 0, 3, 1},
               {"ppc0", 1, 2, 3, 1},
               {"soft1", 0, 0, 1, 2},
               {"arm0", 2, 4, 2, 1},
               {"soft0", 0, 0, 3, 1},
               {"ppc0", 1, 2, 3, 1},
               {"soft2", 0, 0, 1, 2},
               {"arm0", 2, 4, 2, 1}});
  EXPECT_EQ(design.log,
            (Names{"getProcessorInstances(false)", "getIpInstances(kind 5)",
                   "getIpName(dbg0)", "getHduConnectedProcessorList(dbg0)",
                   "getPeripherals(soft0)", "getIpName(link0)",
                   "getHduConnectedProcessorList(link0)", "getIpName(ppc0)",
                   "getIpInstances(lumacore)", "getPeripherals(soft2)",
                   "getIpInstances(soc_cortexa9)"}));
}

TEST_F(ProcessorDiscovery, NumbersInEightBits) {
  Names attached;
  Names linked;
  for (int i = 1; i <= 300; ++i) {
    attached.push_back("soft" + std::to_string(i));
    linked.push_back("ppc" + std::to_string(i));
    addLumacore("free" + std::to_string(i));
    addCortexA9("arm" + std::to_string(i));
  }
  design.addDebugModule("dbg0", "hdu", attached);
  design.addDebugModule("link0", "ppc_jtag_link", linked);
  engine.GetProcessorList(&design);

  std::vector<Found> expected;
  for (int i = 1; i <= 300; ++i)
    expected.push_back({"soft" + std::to_string(i), 0, 0, 3, i});
  for (int i = 1; i <= 300; ++i)
    expected.push_back({"ppc" + std::to_string(i), 1, 2, 3, i});
  for (int i = 1; i <= 300; ++i)
    expected.push_back({"free" + std::to_string(i), 0, 0, 1, 300 + i});
  for (int i = 1; i <= 300; ++i)
    expected.push_back({"arm" + std::to_string(i), 2, 4, 2, i});
  expectFound(expected);

  EXPECT_EQ(state.processorList[126]->cpuNr, 127);
  EXPECT_EQ(state.processorList[127]->cpuNr, -128);
  EXPECT_EQ(state.processorList[254]->cpuNr, -1);
  EXPECT_EQ(state.processorList[255]->cpuNr, 0);
  EXPECT_EQ(state.processorList[256]->cpuNr, 1);
  EXPECT_EQ(state.processorList[600]->cpuNr, 45);
}

TEST_F(ProcessorDiscovery, GivesTheNamesOfAllProcessors) {
  design.processors = {"soft0", "none0", "soft0", ""};
  design.addDebugModule("dbg0", "hdu", {"soft0"});
  Names names = {"what stood there"};
  EXPECT_EQ(engine.GetProcessorList(&design, names), 0);
  EXPECT_EQ(names, (Names{"what stood there", "soft0", "none0", "soft0", ""}));
  expectFound({{"soft0", 0, 0, 3, 1}});
  EXPECT_EQ(state.hwManager, &design);
}

TEST_F(ProcessorDiscovery, FindsNothingInAnEmptyDesign) {
  Names names;
  EXPECT_EQ(engine.GetProcessorList(&design, names), 0);
  EXPECT_TRUE(names.empty());
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.hwManager, &design);
}

TEST_F(ProcessorDiscovery, FindsNothingInANullDesign) {
  design.addDebugModule("dbg0", "hdu", {"soft0"});
  engine.GetProcessorList(&design);
  Names names = {"what stood there"};
  EXPECT_EQ(engine.GetProcessorList(nullptr, names), 0);
  EXPECT_EQ(names, Names{"what stood there"});
  expectFound({{"soft0", 0, 0, 3, 1}});
  EXPECT_EQ(state.hwManager, nullptr);
  EXPECT_EQ(engine.GetProcessorList(nullptr), &state);
}

TEST_F(ProcessorDiscovery, TakesTheLastDesign) {
  support::FakeDesign other;
  other.instancesOfType["soc_cortexa9"] = {"arm0"};
  design.instancesOfType["soc_cortexa9"] = {"arm1"};
  engine.GetProcessorList(&other);
  engine.GetProcessorList(&design);
  EXPECT_EQ(state.hwManager, &design);
  expectFound({{"arm0", 2, 4, 2, 1}, {"arm1", 2, 4, 2, 1}});
  state.hwManager = nullptr;
}

TEST_F(ProcessorDiscovery, LeavesTheRestOfTheEngineAlone) {
  auto *current = new ProcessorInfoImp(support::unusualRecord());
  JtagOption device;
  state.currentProcessor = current;
  state.jtagChain = {&device};
  state.cpuJtag = 1;
  *state.cableOption = support::unusualCable();
  engine.SetErrorStr("an old message");
  state.hwManager = &design;
  const std::string before = textOf(state);

  design.addDebugModule("dbg0", "hdu", {"cpu7"});
  engine.GetProcessorList(&design);
  ASSERT_EQ(state.processorList.size(), 1U);
  delete state.processorList[0];
  state.processorList.clear();
  EXPECT_EQ(textOf(state), before);
}

} // namespace
