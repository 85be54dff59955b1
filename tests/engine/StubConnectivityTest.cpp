// Which stub connections a design allows for a processor.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;

namespace {

using Log = std::vector<std::string>;

class StubConnectivity : public support::EngineFixture {
protected:
  StubConnectivity() {
    state.hwManager = &design;
    engine.SetErrorStr("an old message");
    before = support::textOf(state);
  }
  ~StubConnectivity() override { EXPECT_EQ(support::textOf(state), before); }

  support::FakeDesign design;
  std::string before;
};

TEST_F(StubConnectivity, IsSerialWithAUart) {
  for (const char *typeName : {"uart_mini_cedar", "uart_mini_ember"}) {
    SCOPED_TRACE(typeName);
    design = support::FakeDesign();
    design.addPeripheral("cpu0", "uart0", typeName);
    EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0x84U);
    EXPECT_EQ(design.log, (Log{"getPeripherals(cpu0)", "getIpName(uart0)"}));
  }
}

TEST_F(StubConnectivity, IsNotSerialWithAnotherUart) {
  for (const char *typeName :
       {"Uart_mini_cedar", "UART_MINI_EMBER", "uart_mini_ceda",
        "uart_mini_cedar1", "uart_mini_cedar ", " uart_mini_ember",
        "uart_mini_embe", "uart_mini_embers", "xuart_mini_cedar",
        "uart_mini_delta", "uart_mini_", "uart", "", "aux_fpu"}) {
    SCOPED_TRACE(typeName);
    design = support::FakeDesign();
    design.addPeripheral("cpu0", "uart0", typeName);
    EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0U);
    EXPECT_EQ(design.log, (Log{"getPeripherals(cpu0)", "getIpName(uart0)"}));
  }
}

TEST_F(StubConnectivity, IsSerialFromTheFirstUartOn) {
  design.addPeripheral("cpu0", "timer", "timer");
  design.addPeripheral("cpu0", "uart0", "uart_mini_ember");
  design.addPeripheral("cpu0", "uart1", "uart_mini_cedar");
  EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0x84U);
  EXPECT_EQ(design.log, (Log{"getPeripherals(cpu0)", "getIpName(timer)",
                             "getIpName(uart0)"}));
}

TEST_F(StubConnectivity, IsNotSerialWithoutPeripherals) {
  EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0U);
  EXPECT_EQ(design.log, (Log{"getPeripherals(cpu0)"}));
}

TEST_F(StubConnectivity, IsSerialForTheProcessorThatHasTheUart) {
  design.addPeripheral("cpu0", "uart0", "uart_mini_cedar");
  EXPECT_EQ(state.IsStubSerialConnect("cpu"), 0U);
  EXPECT_EQ(state.IsStubSerialConnect("Cpu0"), 0U);
  EXPECT_EQ(state.IsStubSerialConnect(""), 0U);
  EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0x84U);
}

TEST_F(StubConnectivity, IsNeverOverJtag) {
  design.addPeripheral("cpu0", "uart0", "uart_mini_cedar");
  EXPECT_EQ(state.IsStubJtagConnect("cpu0"), 0U);
  EXPECT_EQ(state.IsStubJtagConnect(""), 0U);
  EXPECT_TRUE(design.log.empty());
}

TEST(StubConnectivityAlone, IsNoneWithoutADesign) {
  EngineImp state;
  EXPECT_EQ(state.IsStubSerialConnect("cpu0"), 0U);
  EXPECT_EQ(state.IsStubJtagConnect("cpu0"), 0U);
}

} // namespace
