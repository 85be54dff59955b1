// The commands on designs that others made, with kind tables that let their
// parts play known ones. What is expected is worked out in the files of
// tests/design_model/expected/libraries.
#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::SizeIs;

struct Row {
  const char *design;
  const char *processor;
  const char *debugModule;
  std::vector<std::string> peripherals;
};

const Row rows[] = {
    {"subsystem/SysCtrl_SS/1.0/SysCtrl_SS.design.1.0.xml",
     "Ibex_Core",
     "jtag_dbg_wrapper",
     {"SS_Ctrl_reg_array", "jtag_dbg_wrapper", "i_dmem", "i_imem",
      "i_SysCtrl_peripherals.APB_UART", "i_SysCtrl_peripherals.APB_GPIO",
      "i_SysCtrl_peripherals.APB_SPI"}},
    {"subsystem/SysCtrl_SS/1.1/SysCtrl_SS.design.1.1.xml",
     "i_ibex_wrapper",
     "jtag_dbg_wrapper",
     {"i_dmem", "i_imem", "jtag_dbg_wrapper", "apb_uart", "apb_gpio",
      "apb_spi_master", "ctrl_reg_array"}},
    {"soc/Didactic/1.0/Didactic.1.0.xml",
     "SystemControl_SS.SysCtrl_SS.Ibex_Core",
     "SystemControl_SS.SysCtrl_SS.jtag_dbg_wrapper",
     {"SystemControl_SS.SysCtrl_SS.SS_Ctrl_reg_array",
      "SystemControl_SS.SysCtrl_SS.jtag_dbg_wrapper",
      "SystemControl_SS.SysCtrl_SS.i_dmem",
      "SystemControl_SS.SysCtrl_SS.i_imem",
      "SystemControl_SS.SysCtrl_SS.i_SysCtrl_peripherals.APB_UART",
      "SystemControl_SS.SysCtrl_SS.i_SysCtrl_peripherals.APB_GPIO",
      "SystemControl_SS.SysCtrl_SS.i_SysCtrl_peripherals.APB_SPI",
      "Student_SS_0.Student_area_0", "Student_SS_1.student_ss_1",
      "Student_SS_2.student_ss_2", "Student_SS_3.Student_SS_3"}},
    {"soc/Didactic/1.1/Didactic.1.1.xml",
     "SystemControl_SS.SysCtrl_SS.i_ibex_wrapper",
     "SystemControl_SS.SysCtrl_SS.jtag_dbg_wrapper",
     {"Student_SS_0.Student_area_0", "Student_SS_1.student_ss_1",
      "Student_SS_2.student_ss_2", "Student_SS_3.Student_SS_3",
      "SystemControl_SS.SysCtrl_SS.i_dmem",
      "SystemControl_SS.SysCtrl_SS.i_imem",
      "SystemControl_SS.SysCtrl_SS.jtag_dbg_wrapper",
      "SystemControl_SS.SysCtrl_SS.apb_uart",
      "SystemControl_SS.SysCtrl_SS.apb_gpio",
      "SystemControl_SS.SysCtrl_SS.apb_spi_master",
      "SystemControl_SS.SysCtrl_SS.ctrl_reg_array"}},
};

class LibraryDesignsTest : public ToolTest {
protected:
  static std::vector<std::string> words(const std::string &command,
                                        const Row &row, bool withKinds = true) {
    const std::string library = ZELDEBUG_IPXACT_LIBRARIES "/didactic";
    std::vector<std::string> words = {command,
                                      library + "/ipxact/tuni.fi/" + row.design,
                                      "--library", library};
    if (withKinds) {
      words.emplace_back("--kinds");
      words.emplace_back(ZELDEBUG_KINDS "/didactic.kinds");
    }
    return words;
  }
};

/// The serial port that plays a known one allows a stub: mask 0x87.
TEST_F(LibraryDesignsTest, ListADebuggableProcessor) {
  for (const Row &row : rows) {
    SCOPED_TRACE(row.design);
    const json document = runJson(words("list", row));
    EXPECT_EQ(document["names"], json({row.processor}));
    ASSERT_THAT(document["processors"], SizeIs(1));
    const json &processor = document["processors"][0];
    EXPECT_EQ(processor["instanceName"], row.processor);
    EXPECT_EQ(processor["cpuNr"], 1);
    EXPECT_EQ(processor["connectionMask"], 0x87);
    EXPECT_EQ(document["undebuggable"], json::array());
  }
}

TEST_F(LibraryDesignsTest, HaveItOnADebugModuleWithItsPeripherals) {
  for (const Row &row : rows) {
    SCOPED_TRACE(row.design);
    const json document = runJson(words("design", row));
    EXPECT_EQ(document["processors"], json({row.processor}));
    EXPECT_EQ(document["debugModules"],
              json::array({{{"name", row.debugModule},
                            {"type", "hdu"},
                            {"processors", {row.processor}}}}));
    EXPECT_EQ(document["peripherals"][row.processor], json(row.peripherals));
  }
}

/// The core says that it is a processor, but of a type that is not known.
TEST_F(LibraryDesignsTest, HaveNoneWithoutAKindTable) {
  for (const Row &row : rows) {
    SCOPED_TRACE(row.design);
    const json document = runJson(words("list", row, false));
    EXPECT_EQ(document["processors"], json::array());
    EXPECT_EQ(document["names"], json({row.processor}));
  }
}

} // namespace
} // namespace tool
