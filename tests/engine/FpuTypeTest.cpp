// The FPU of a PowerPC, from the peripherals that the design names.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

using Log = std::vector<std::string>;

class FpuType : public support::RecordFixture {
protected:
  FpuType() {
    state.hwManager = &design;
    record = support::unusualRecord();
    record.instanceName = "ppc0";
    record.procFamily = 1;
    engine.SetErrorStr("an old message");
  }

  /// Asks anew, with another FPU type stored, and checks the whole engine.
  void expectFpu(int result, std::uint32_t type) {
    record.fpuType = 7;
    design.log.clear();
    EXPECT_EQ(state.GetFPUType(), result);
    EXPECT_EQ(record.fpuType, type);
    ProcessorInfoImp expected = support::unusualRecord();
    expected.instanceName = "ppc0";
    expected.procFamily = record.procFamily;
    expected.fpuType = type;
    EXPECT_EQ(textOf(record), textOf(expected));
    EXPECT_EQ(errorText(), "an old message");
  }

  support::FakeDesign design;
};

TEST_F(FpuType, IsSinglePrecisionForASimpleFpu) {
  design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  expectFpu(0, 1);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(fpu0)"}));
}

TEST_F(FpuType, IsWhatTheParameterSaysForAFifthGenerationFpu) {
  const struct {
    const char *value;
    std::uint32_t type;
  } rows[] = {
      {"1", 2},    {"0x1", 2}, {"0X1", 2},  {"01", 2}, {"001", 2}, {" 1", 2},
      {"1 ", 2},   {"1x", 2},  {"0x01", 2}, {"0", 1},  {"", 1},    {"true", 1},
      {"TRUE", 1}, {"2", 1},   {"10", 1},   {"11", 1}, {"010", 1}, {"0x10", 1},
      {"x1", 1},   {"-1", 1},  {"0x", 1},   {"08", 1},
  };
  design.addPeripheral("ppc0", "fpu0", "aux_fpu_gen5");
  for (const auto &row : rows) {
    SCOPED_TRACE(row.value);
    design.parameterOf[{"fpu0", "C_DOUBLE_PRECISION"}] = row.value;
    expectFpu(0, row.type);
    EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(fpu0)",
                               "getParameterValue(fpu0, C_DOUBLE_PRECISION)"}));
  }
}

TEST_F(FpuType, IsTheFirstFpusOfSeveral) {
  design.addPeripheral("ppc0", "timer0", "timer");
  design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  design.addPeripheral("ppc0", "fpu1", "aux_fpu_gen5");
  design.parameterOf[{"fpu1", "C_DOUBLE_PRECISION"}] = "1";
  expectFpu(0, 1);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(timer0)",
                             "getIpName(fpu0)"}));

  design.peripheralsOf["ppc0"] = {"fpu1", "fpu0", "timer0"};
  expectFpu(0, 2);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(fpu1)",
                             "getParameterValue(fpu1, C_DOUBLE_PRECISION)"}));
}

TEST_F(FpuType, IsNoneWithoutPeripherals) {
  expectFpu(1, 0);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)"}));
}

TEST_F(FpuType, IsNoneWithOtherPeripherals) {
  Log asked = {"getPeripherals(ppc0)"};
  for (const std::string typeName :
       {"Aux_fpu", "AUX_FPU", "aux_fp", "aux_fpu1", "aux_fpu ", "xaux_fpu",
        "aux_fpu_gen", "aux_fpu_gen4", "aux_fpu_gen55", "aux_fpu_Gen5",
        "AUX_FPU_GEN5", "timer", ""}) {
    design.addPeripheral("ppc0", "of type " + typeName, typeName);
    asked.push_back("getIpName(of type " + typeName + ")");
  }
  expectFpu(1, 0);
  EXPECT_EQ(design.log, asked);
}

TEST_F(FpuType, IsNotAskedForOtherFamilies) {
  design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  for (const std::uint32_t family : {0U, 2U, 3U, 0x101U}) {
    SCOPED_TRACE(family);
    record.procFamily = family;
    expectFpu(0, 0);
    EXPECT_TRUE(design.log.empty());
  }
}

TEST_F(FpuType, IsNoneWithoutADesign) {
  state.hwManager = nullptr;
  expectFpu(1, 0);
  record.procFamily = 0;
  expectFpu(0, 0);
}

} // namespace
