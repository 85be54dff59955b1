// The commands on designs that others made, with kind tables that let their
// parts play known ones. What is expected is worked out in the files of
// tests/design_model/expected/libraries.
#include <sstream>

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

/// A design, and what an informed person would put into a table for it.
struct ProposalRow {
  const char *design; ///< Below the folder of the libraries.
  const char *library;
  std::vector<std::string> rows;
  /// "name mask" of each processor that can be debugged then.
  std::vector<std::string> processors;
};

/// From the text. ibex has `cpus`, and its target Debug of kind debug_req is
/// wired to the initiator Debug of jtag_dbg_wrapper (of jtag_dbg_wrapper_obi in
/// 1.1), which fetch_en and the resets, wired to targets of it as well, are
/// not. sp_sram has an address block of usage memory; apb_uart is on the bridge
/// to APB. core_example fetches by `instructions` and has its data by
/// `local_data`; nothing is wired to it for debugging, so that only a simulator
/// can run it. What else begins accesses (wb_dual_master, wb_master,
/// spi_master) has neither `cpus` nor such a pair; of wb_cpu.bench only the
/// name speaks of a processor.
const ProposalRow proposals[] = {
    {"didactic/ipxact/tuni.fi/subsystem/SysCtrl_SS/1.0/"
     "SysCtrl_SS.design.1.0.xml",
     "didactic",
     {"tuni.fi:lowRISC:ibex:1.0 processor lumacore",
      "tuni.fi:ip:jtag_dbg_wrapper:1.0 debug-module hdu",
      "tuni.fi:pulp.peripheral:apb_uart:1.0 other uart_mini_cedar",
      "tuni.fi:memory.simulation:sp_sram:1.0 other ocm_ctl_cedar"},
     {"Ibex_Core 135"}},
    {"didactic/ipxact/tuni.fi/subsystem/SysCtrl_SS/1.1/"
     "SysCtrl_SS.design.1.1.xml",
     "didactic",
     {"tuni.fi:lowRISC:ibex:1.1 processor lumacore",
      "tuni.fi:ip:jtag_dbg_wrapper_obi:1.0 debug-module hdu",
      "tuni.fi:pulp.peripheral:apb_uart:1.0 other uart_mini_cedar",
      "tuni.fi:memory.simulation:sp_sram:1.1 other ocm_ctl_cedar"},
     {"i_ibex_wrapper 135"}},
    {"didactic/ipxact/tuni.fi/soc/Didactic/1.0/Didactic.1.0.xml",
     "didactic",
     {"tuni.fi:lowRISC:ibex:1.0 processor lumacore",
      "tuni.fi:ip:jtag_dbg_wrapper:1.0 debug-module hdu",
      "tuni.fi:pulp.peripheral:apb_uart:1.0 other uart_mini_cedar",
      "tuni.fi:memory.simulation:sp_sram:1.0 other ocm_ctl_cedar"},
     {"SystemControl_SS.SysCtrl_SS.Ibex_Core 135"}},
    {"didactic/ipxact/tuni.fi/soc/Didactic/1.1/Didactic.1.1.xml",
     "didactic",
     {"tuni.fi:lowRISC:ibex:1.1 processor lumacore",
      "tuni.fi:ip:jtag_dbg_wrapper_obi:1.0 debug-module hdu",
      "tuni.fi:pulp.peripheral:apb_uart:1.0 other uart_mini_cedar",
      "tuni.fi:memory.simulation:sp_sram:1.1 other ocm_ctl_cedar"},
     {"SystemControl_SS.SysCtrl_SS.i_ibex_wrapper 135"}},
    {"didactic/ipxact/tuni.fi/subsystem.wrapper/SysCtrl_SS_wrapper/1.1/"
     "SysCtrl_SS_wrapper.1.1.xml",
     "didactic",
     {"tuni.fi:lowRISC:ibex:1.1 processor lumacore",
      "tuni.fi:ip:jtag_dbg_wrapper_obi:1.0 debug-module hdu",
      "tuni.fi:pulp.peripheral:apb_uart:1.0 other uart_mini_cedar",
      "tuni.fi:memory.simulation:sp_sram:1.1 other ocm_ctl_cedar"},
     {"SysCtrl_SS.i_ibex_wrapper 135"}},
    {"didactic/ipxact/tuni.fi/subsystem.wrapper/Student_SS_0/1.0/"
     "Student_SS_0.1.0.xml",
     "didactic",
     {},
     {}},
    {"examplelib/tut.fi/cpu.structure.test/cpu_example.setup/1.0/"
     "cpu_example.setup.1.0.xml",
     "examplelib",
     {"tut.fi:cpu.subsystem:core_example:1.0 processor lumacore",
      "tut.fi:cpu.logic.test:instruction_memory:1.0 other ocm_ctl_cedar",
      "tut.fi:cpu.logic.test:data_memory:1.0 other ocm_ctl_cedar"},
     {"cpu_example_0.core 1"}},
    {"examplelib/tut.fi/cpu.structure/cpu_example/1.0/cpu_example.1.0.xml",
     "examplelib",
     {"tut.fi:cpu.subsystem:core_example:1.0 processor lumacore"},
     {"core 1"}},
    {"examplelib/tut.fi/cpu.subsystem.test/core_example.setup/1.0/"
     "core_example.setup.1.0.xml",
     "examplelib",
     {"tut.fi:cpu.subsystem:core_example:1.0 processor lumacore",
      "tut.fi:cpu.logic.test:instruction_memory:1.0 other ocm_ctl_cedar",
      "tut.fi:cpu.logic.test:data_memory:1.0 other ocm_ctl_cedar"},
     {"core_example_0 1"}},
    {"examplelib/tut.fi/other.subsystem/wb_example/1.0/wb_example.1.0.xml",
     "examplelib",
     {},
     {}},
    {"examplelib/tut.fi/communication.bridge.test/wb_cpu.setup/1.0/"
     "wb_cpu.setup.1.0.xml",
     "examplelib",
     {},
     {}},
};

/// The words of the rows of a table, one blank between them.
std::vector<std::string> rowsOf(const std::string &table) {
  std::vector<std::string> found;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find('#')));
    std::string row;
    for (std::string word; words >> word;)
      row += (row.empty() ? "" : " ") + word;
    if (!row.empty())
      found.push_back(row);
  }
  return found;
}

std::vector<std::string> processorsIn(const json &list) {
  std::vector<std::string> found;
  for (const json &processor : list["processors"])
    found.push_back(processor["instanceName"].get<std::string>() + " " +
                    std::to_string(processor["connectionMask"].get<int>()));
  return found;
}

TEST_F(LibraryDesignsTest, AreDebuggableWithTheTableThatKindsProposes) {
  for (const ProposalRow &row : proposals) {
    SCOPED_TRACE(row.design);
    const std::string libraries = ZELDEBUG_IPXACT_LIBRARIES "/";
    const std::vector<std::string> words = {libraries + row.design, "--library",
                                            libraries + row.library};
    std::vector<std::string> kinds = {"kinds"};
    kinds.insert(kinds.end(), words.begin(), words.end());
    kinds.insert(kinds.end(), {"--write", "kinds", "--force"});
    const json proposal = runJson(kinds);
    EXPECT_EQ(rowsOf(proposal["table"].get<std::string>()), row.rows);
    EXPECT_EQ(processorsIn(proposal["list"]), row.processors);
    std::vector<std::string> list = {"list"};
    list.insert(list.end(), words.begin(), words.end());
    list.insert(list.end(), {"--kinds", "kinds"});
    EXPECT_EQ(processorsIn(runJson(list)), row.processors);
  }
}

/// What the text leaves open is said, and between what.
TEST_F(LibraryDesignsTest, LeaveOpenWhatTheirTextDoes) {
  const std::string library = ZELDEBUG_IPXACT_LIBRARIES "/examplelib";
  const json bench =
      runJson({"kinds",
               library + "/tut.fi/communication.bridge.test/wb_cpu.setup/1.0/"
                         "wb_cpu.setup.1.0.xml",
               "--library", library});
  ASSERT_EQ(bench["candidates"].size(), 1U);
  EXPECT_EQ(bench["candidates"][0]["identity"],
            "tut.fi:communication.bridge.test:wb_cpu.bench:1.0");
  EXPECT_EQ(bench["candidates"][0]["verdict"], "undecided");
  const json structure =
      runJson({"kinds",
               library + "/tut.fi/cpu.structure/cpu_example/1.0/"
                         "cpu_example.1.0.xml",
               "--library", library});
  const json &memory = structure["candidates"].back();
  EXPECT_EQ(memory["identity"], "tut.fi:peripheral.logic:wb_external_mem:1.0");
  EXPECT_EQ(memory["types"],
            json({"ocm_ctl_cedar", "emc_ctl_cedar", "multiport_memctl"}));
  EXPECT_EQ(structure["questions"],
            json({"nothing says which debug module 'core' is on: nothing is "
                  "wired to a target interface of it"}));
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
