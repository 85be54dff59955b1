// What a kind table could say: candidates, what is made of them, and the table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Proposing.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// --- Processors --------------------------------------------------------------

struct ProcessorRow {
  const char *name;
  std::string interfaces;
  std::string others;
  const char *verdict; ///< "" for no candidate.
};

TEST(KindProposal, KnowsAProcessorByWhatItSaysAndDoes) {
  const std::string data = port("dmem", "mem", "master");
  const std::string code = port("imem", "mem", "master");
  const std::string bus = port("bus", "mem", "master");
  const std::string debug = port("dbg", "dm_link", "slave");
  const ProcessorRow rows[] = {
      {"x", bus, cpus, "processor proposed x lumacore"},
      {"x", "", cpus, "processor proposed x lumacore"},
      {"x", code + data, "", "processor proposed x lumacore"},
      {"x", port("M_INSTR", "a", "master") + port("M_DATA", "a", "master"), "",
       "processor proposed x lumacore"},
      {"x", port("iBus", "a", "master") + port("dBus", "a", "master"), "",
       "processor proposed x lumacore"},
      // One of the two alone, both in one, or on the wrong side.
      {"x", code, "", ""},
      {"x", data, "", ""},
      {"x", port("instr_data", "a", "master"), "", ""},
      {"x", port("imem", "a", "slave") + data, "", ""},
      {"x", code + port("data_irq", "a", "master"), "", ""},
      // A name, with accesses.
      {"tiny_cpu", bus, "", "processor undecided tiny_cpu lumacore"},
      {"CpuCore", bus, "", "processor undecided CpuCore lumacore"},
      {"rv32i", bus, "", "processor undecided rv32i lumacore"},
      {"tiny_cpu", "", "", ""},
      {"tiny_cpu", port("bus", "mem", "slave"), "", ""},
      {"tiny_cpus", bus, "", ""},
      {"i2c_core", bus, "", ""},
      // A name, accesses and a debug interface.
      {"tiny_cpu", bus + debug, "", "processor proposed tiny_cpu lumacore"},
      {"own_core", bus + debug, "", "processor proposed own_core lumacore"},
      {"own_cores", bus + debug, "", ""},
      {"own_core", bus + port("dbg", "a", "master"), "", ""},
      {"own_core", bus + port("dbg", "irq", "slave"), "", ""},
      {"own_core", bus + port("jtag", "jtag", "slave"), "", ""},
      {"riscv_dbg", bus + debug, "", ""},
      {"riscv_dm", bus + port("jtag", "jtag", "slave"), "", ""},
      // What passes accesses on is no processor, whatever its name.
      {"cpu_bridge", port("bus", "mem", "master") + bridge("in", "bus"), "",
       ""},
      {"x", code + data + bridge("in", "dmem"), "", ""},
      // By its name it is one of another family.
      {"ppc405", bus, cpus, "processor proposed ppc405 ppc405_core"},
      {"my_ppc440_x", bus, cpus, "processor proposed my_ppc440_x ppc440_core"},
      {"ppc", bus, cpus, "processor undecided ppc ppc405_core ppc440_core"},
      {"Cortex-A9", bus, cpus, "processor proposed Cortex-A9 soc_cortexa9"},
      {"cortex_r5", bus, cpus, "processor proposed cortex_r5 soc_cortexr5"},
      {"cortex_a5", bus, cpus, "processor proposed cortex_a5 lumacore"},
      {"core4405", bus, cpus, "processor proposed core4405 lumacore"},
  };
  for (const ProcessorRow &row : rows) {
    const std::string wired =
        row.interfaces.find("name>bus<") != std::string::npos
            ? connection("w", {"x.bus", "y.p"})
            : "";
    const Proposing found(
        {{"x.xml", part(row.name, row.interfaces, row.others)},
         {"y.xml", part("y", port("p", "mem", "slave"))},
         {"top.xml",
          design("d", instance("x", row.name) + instance("y", "y"), wired)}});
    EXPECT_TRUE(found.isRead);
    Names processors;
    for (const std::string &line : found.candidates())
      if (line.rfind("processor", 0) == 0)
        processors.push_back(line);
    const Names expected = *row.verdict == '\0' ? Names{} : Names{row.verdict};
    EXPECT_EQ(processors, expected) << row.name << "\n" << row.interfaces;
  }
}

TEST(KindProposal, NeedsNoRowForWhatIsKnown) {
  const Files files = {
      {"lumacore.xml", part("lumacore", port("bus", "mem", "master"))},
      {"hdu.xml", part("hdu", "")},
      {"uart.xml", part("uart_mini_ember", port("p", "mem", "slave"))},
      {"ram.xml", part("DDR3_ctl", port("p", "mem", "slave"))},
      {"top.xml", design("d", instance("c", "lumacore") + instance("h", "hdu") +
                                  instance("u", "uart_mini_ember") +
                                  instance("r", "DDR3_ctl"))}};
  const Proposing found(files);
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor known lumacore lumacore",
                          "module known hdu hdu",
                          "uart known uart_mini_ember uart_mini_ember",
                          "memory known DDR3_ctl DDR3_ctl"));
  EXPECT_THAT(found.rows(), IsEmpty());
}

/// The core is what is inside; around it there is only a box.
TEST(KindProposal, TakesTheProcessorInside) {
  const std::string pair =
      port("imem", "mem", "master") + port("dmem", "mem", "master");
  const Proposing found(
      {{"box.xml", part("cpu_box", pair, viewOf("inner"))},
       {"core.xml", part("core", pair)},
       {"inner.xml", design("inner", instance("core", "core"),
                            connection("a", {"core.imem", "imem"}) +
                                connection("b", {"core.dmem", "dmem"}))},
       {"top.xml", design("d", instance("box", "cpu_box"))}});
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor rejected cpu_box",
                          "processor proposed core lumacore"));
  EXPECT_THAT(found.rows(), ElementsAre("x:y:core:1   processor   lumacore"));
}

/// What is inside a processor is no part of the design that the debugger sees.
TEST(KindProposal, LooksForNothingInsideAProcessor) {
  const Proposing found(
      {{"core.xml",
        part("core",
             port("imem", "mem", "master") + port("dmem", "mem", "master"),
             viewOf("inner"))},
       {"cache.xml", part("cache_ram", port("p", "mem", "slave"))},
       {"inner.xml", design("inner", instance("ram", "cache_ram"))},
       {"top.xml", design("d", instance("core", "core"))}});
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed core lumacore"));
}

// --- Debug modules -----------------------------------------------------------

/// A core whose debug interface is wired to a bridge, behind a bus on which a
/// component is that is called a debug module.
const Files behindABridge = {
    {"core.xml",
     part("core",
          port("bus", "mem", "master") + port("debug", "dbg_link", "slave") +
              port("rst", "reset", "slave"),
          cpus)},
    {"adv.xml", part("adv_dbg_if", port("jtag", "jtag", "slave") +
                                       port("out", "mem", "master") +
                                       port("rst_o", "reset", "master"))},
    {"bus.xml", part("bus", port("in", "mem", "mirroredMaster") +
                                port("out", "mem", "mirroredSlave"))},
    {"per.xml",
     part("bus2per", bridge("in", "out") + port("out", "dbg_link", "master"))},
    {"top.xml",
     design("d",
            instance("core", "core") + instance("adv", "adv_dbg_if") +
                instance("bus", "bus") + instance("per", "bus2per"),
            connection("a", {"adv.out", "bus.in"}) +
                connection("b", {"bus.out", "per.in"}) +
                connection("c", {"per.out", "core.debug"}) +
                connection("d", {"adv.rst_o", "core.rst"}))},
};

TEST(KindProposal, KnowsADebugModuleByWhatItIsWiredTo) {
  Proposing found(behindABridge);
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed core lumacore",
                          "module proposed bus2per hdu",
                          "module rejected adv_dbg_if"));
  EXPECT_THAT(found.named("bus2per").evidence,
              ElementsAre("it is wired by 'out' to 'debug' of 'core'"));
  EXPECT_EQ(found.named("adv_dbg_if").question,
            "it is not wired to a processor as a debug module is; 'per' is");
  EXPECT_THAT(found.proposal.questions, IsEmpty());
  EXPECT_THAT(found.result.attached("per"), ElementsAre("core"));
}

struct ModuleRow {
  const char *what;
  std::string core;   ///< Interfaces of the core, besides its bus.
  std::string module; ///< Interfaces of the module.
  const char *name;   ///< Of the module.
  Names wires;
  Names expected; ///< The candidates for debug modules.
};

TEST(KindProposal, TellsDebugModulesFromOthersOnTheProcessor) {
  const std::string debug = port("dbg", "link", "slave");
  const ModuleRow rows[] = {
      {"a debug interface",
       debug,
       port("o", "link", "master"),
       "m",
       {"m.o", "core.dbg"},
       {"module proposed m hdu"}},
      {"a kind of bus for debugging",
       port("i", "jtag_tap", "slave"),
       port("o", "x", "master"),
       "m",
       {"m.o", "core.i"},
       {"module proposed m hdu"}},
      {"a bus that is mirrored",
       debug,
       port("o", "link", "mirroredSlave"),
       "m",
       {"m.o", "core.dbg"},
       {"module proposed m hdu"}},
      {"its name, wired to any target",
       port("i", "x", "slave"),
       port("o", "x", "master"),
       "my_debugger",
       {"m.o", "core.i"},
       {"module proposed my_debugger hdu"}},
      {"a stranger, wired to any target",
       port("i", "x", "slave"),
       port("o", "x", "master"),
       "m",
       {"m.o", "core.i"},
       {}},
      {"a reset that is called for debugging",
       port("dbg_i", "reset", "slave"),
       port("o", "reset", "master"),
       "m",
       {"m.o", "core.dbg_i"},
       {}},
      {"a reset from a debug module",
       port("rst", "reset", "slave"),
       port("o", "reset", "master"),
       "my_debugger",
       {"m.o", "core.rst"},
       {"module undecided my_debugger hdu"}},
      {"not wired", debug, port("o", "link", "master"), "m", {}, {}},
      {"wired from another side",
       debug,
       port("o", "link", "slave"),
       "m",
       {"m.o", "core.dbg"},
       {"module proposed m hdu"}},
      {"its name, not wired",
       debug,
       port("o", "link", "master"),
       "jtag_box",
       {},
       {"module undecided jtag_box hdu"}},
      {"almost its name, not wired",
       debug,
       port("o", "link", "master"),
       "jtg_box",
       {},
       {}},
  };
  for (const ModuleRow &row : rows) {
    const Proposing found(
        {{"core.xml",
          part("core", port("bus", "mem", "master") + row.core, cpus)},
         {"m.xml", part(row.name, row.module)},
         {"top.xml",
          design("d", instance("core", "core") + instance("m", row.name),
                 row.wires.empty() ? "" : connection("w", row.wires))}});
    Names modules;
    for (const std::string &line : found.candidates())
      if (line.rfind("module", 0) == 0)
        modules.push_back(line);
    EXPECT_EQ(modules, row.expected) << row.what;
  }
}

TEST(KindProposal, StatesAConnectionThatTheWiresDoNotMake) {
  Proposing found(
      {{"core.xml", part("core", port("debug", "link", "master"), cpus)},
       {"m.xml", part("m", port("o", "link", "slave"))},
       {"top.xml", design("d", instance("a core", "core") + instance("m", "m"),
                          connection("w", {"m.o", "a core.debug"}))}});
  EXPECT_THAT(found.rows(), ElementsAre("x:y:core:1   processor   lumacore",
                                        "x:y:m:1   debug-module   hdu",
                                        "connect   a?core   m"));
  EXPECT_THAT(found.result.attached("m"), ElementsAre("a core"));
  EXPECT_THAT(found.result.diagnostics(), IsEmpty());
}

TEST(KindProposal, SaysBetweenWhatItCannotDecide) {
  Proposing found(
      {{"core.xml",
        part("core",
             port("dbg", "link", "slave") + port("trace_dbg", "link", "slave"),
             cpus)},
       {"m.xml", part("m", port("o", "link", "master"))},
       {"n.xml", part("n", port("o", "link", "master"))},
       {"top.xml", design("d",
                          instance("core", "core") + instance("m", "m") +
                              instance("n", "n"),
                          connection("v", {"m.o", "core.dbg"}) +
                              connection("w", {"n.o", "core.trace_dbg"}))}});
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed core lumacore",
                          "module undecided m hdu", "module undecided n hdu"));
  EXPECT_EQ(found.named("n").question,
            "'core' is on one of 'm' and 'n', which are all wired to it for "
            "debugging");
  EXPECT_THAT(found.rows(), ElementsAre("x:y:core:1   processor   lumacore"));
  EXPECT_THAT(found.proposal.table,
              HasSubstr("\n#x:y:n:1   debug-module   hdu\n"));
}

/// The only one that is called so: the row is there, but not in force.
TEST(KindProposal, LeavesAConnectionOpenThatOnlyANameSpeaksFor) {
  Proposing found(
      {{"core.xml", part("core", port("bus", "mem", "master"), cpus)},
       {"m.xml", part("jtag_link", port("jtag", "jtag", "slave"))},
       {"top.xml", design("d", instance("core", "core") +
                                   instance("link", "jtag_link"))}});
  ASSERT_EQ(found.proposal.connections.size(), 1u);
  EXPECT_FALSE(found.proposal.connections[0].isProposed);
  EXPECT_THAT(found.proposal.table,
              HasSubstr("# no wire says so\n#connect   core   link\n"));
  EXPECT_THAT(found.proposal.questions,
              ElementsAre("nothing says which debug module 'core' is on: "
                          "nothing is wired to a target interface of it"));
}

TEST(KindProposal, GivesEachFamilyItsController) {
  const std::string debug = port("dbg", "link", "slave");
  const std::string out = port("o", "link", "master");
  Proposing found(
      {{"p.xml", part("ppc405", debug, cpus)},
       {"a.xml", part("cortexa9", debug, cpus)},
       {"m.xml", part("m", out)},
       {"n.xml", part("n", out)},
       {"top.xml", design("d",
                          instance("p", "ppc405") + instance("a", "cortexa9") +
                              instance("m", "m") + instance("n", "n"),
                          connection("v", {"m.o", "p.dbg"}) +
                              connection("w", {"n.o", "a.dbg"}))}});
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed ppc405 ppc405_core",
                          "processor proposed cortexa9 soc_cortexa9",
                          "module proposed m ppc_jtag_link"));
}

TEST(KindProposal, KeepsWhatATableSays) {
  Proposing found(behindABridge, "x:y:adv*:1 debug-module hdu\n"
                                 "connect core adv # no end of line");
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed core lumacore",
                          "module known adv_dbg_if hdu"));
  EXPECT_EQ(found.proposal.table.rfind("x:y:adv*:1 debug-module hdu\n"
                                       "connect core adv # no end of line\n"
                                       "# What the parts of ",
                                       0),
            0u)
      << found.proposal.table;
  EXPECT_THAT(found.result.attached("adv"), ElementsAre("core"));
  // Not even against what the components say.
  const Proposing other(behindABridge, "x:y:core:1 other thing\n");
  EXPECT_THAT(other.candidates(),
              ElementsAre("module undecided adv_dbg_if hdu"));
}

// --- Serial ports and memories -----------------------------------------------

struct PeripheralRow {
  const char *name;
  std::string others; ///< Interfaces besides "p", which the core reaches.
  std::string map;    ///< The memory map behind "p".
  const char *verdict;
};

TEST(KindProposal, TellsSerialPortsAndMemories) {
  const std::string block =
      "<ipxact:addressBlock><ipxact:name>b</ipxact:name><ipxact:baseAddress>0"
      "</ipxact:baseAddress><ipxact:range>16</ipxact:range><ipxact:width>32"
      "</ipxact:width>";
  const std::string memory =
      block + "<ipxact:usage>memory</ipxact:usage></ipxact:addressBlock>";
  const std::string line = port("line", "UART", "master");
  const PeripheralRow rows[] = {
      {"apb_uart", "", "", "uart proposed apb_uart uart_mini_cedar"},
      {"UARTLite", "", "", "uart proposed UARTLite uart_mini_cedar"},
      {"uart16550", line, "", "uart proposed uart16550 uart_mini_cedar"},
      {"quartz", "", "", ""},
      {"uarts", "", "", ""},
      {"serial_io", "", "", "uart undecided serial_io uart_mini_cedar"},
      {"serializer", "", "", ""},
      {"io", line, "", "uart undecided io uart_mini_cedar"},
      {"io", port("uart", "x", "master"), "",
       "uart undecided io uart_mini_cedar"},
      {"x", "", memory, "memory proposed x ocm_ctl_cedar"},
      {"x", "", block + "</ipxact:addressBlock>", ""},
      {"sp_sram", "", "", "memory proposed sp_sram ocm_ctl_cedar"},
      {"boot_rom", "", "", "memory proposed boot_rom ocm_ctl_cedar"},
      {"sp_srams", "", "", ""},
      {"params", "", "", ""},
      {"diagram", "", "", ""},
      {"spi_flash", "", "", "memory proposed spi_flash emc_ctl_cedar"},
      {"sdram_ctl", "", memory, "memory proposed sdram_ctl multiport_memctl"},
      {"ddr9", "", "", "memory known ddr9 ddr9"},
      {"ext_mem", "", "",
       "memory undecided ext_mem ocm_ctl_cedar emc_ctl_cedar "
       "multiport_memctl"},
      {"memory_controller", "", "",
       "memory undecided memory_controller ocm_ctl_cedar emc_ctl_cedar "
       "multiport_memctl"},
  };
  for (const PeripheralRow &row : rows) {
    const Proposing found(
        {{"core.xml", part("lumacore", port("bus", "mem", "master"))},
         {"hdu.xml", part("hdu", "")},
         {"x.xml",
          part(row.name,
               interface("p", "<ipxact:slave><ipxact:memoryMapRef "
                              "memoryMapRef=\"m\"/></ipxact:slave>") +
                   row.others,
               "<ipxact:memoryMaps><ipxact:memoryMap><ipxact:name>m"
               "</ipxact:name>" +
                   row.map + "</ipxact:memoryMap></ipxact:memoryMaps>")},
         {"top.xml",
          design("d", instance("c", "lumacore") + instance("x", row.name),
                 connection("w", {"c.bus", "x.p"}))}});
    Names others;
    for (const std::string &candidate : found.candidates())
      if (candidate.rfind("processor", 0) != 0)
        others.push_back(candidate);
    EXPECT_EQ(others, *row.verdict == '\0' ? Names{} : Names{row.verdict})
        << row.name;
  }
}

TEST(KindProposal, WantsThemReached) {
  const Files files = {
      {"core.xml", part("core", port("bus", "mem", "master"), cpus)},
      {"uart.xml", part("uart", port("p", "mem", "slave"))},
      {"ram.xml", part("ram", port("p", "mem", "slave"))},
      {"pads.xml", part("pads", port("p", "uart", "slave"))},
      {"top.xml",
       design("d", instance("c", "core") + instance("u", "uart") +
                       instance("r", "ram") + instance("p", "pads"))},
  };
  const Proposing found(files);
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed core lumacore",
                          "uart rejected uart", "memory rejected ram"));
  EXPECT_EQ(found.named("ram").question, "no processor reaches it");
  Files without = files;
  without["top.xml"] = design("d", instance("u", "uart"));
  const Proposing none(without);
  EXPECT_THAT(none.candidates(),
              ElementsAre("uart undecided uart uart_mini_cedar"));
  EXPECT_THAT(none.proposal.questions,
              ElementsAre("no component is known, or says of itself, to be a "
                          "processor"));
}

// --- The table ---------------------------------------------------------------

/// Reading the table that is proposed gives the design that was promised.
TEST(KindProposal, IsATableThatCanBeRead) {
  Proposing found(behindABridge);
  Files files = behindABridge;
  files["kinds"] = found.proposal.table;
  Reading reading = readFiles(files);
  EXPECT_TRUE(reading.isRead);
  EXPECT_EQ(reading.processors(), found.result.processors());
  EXPECT_EQ(reading.debugModules(), found.result.debugModules());
  EXPECT_EQ(reading.model.getIpName("core"), "lumacore");
}

/// Names that a row could not hold.
TEST(KindProposal, WritesRowsWhateverTheNames) {
  const std::string name = "a b#c";
  Proposing found(
      {{"x.xml", part(name, "", cpus)},
       {"top.xml", design("d", instance("line\nend # \xc2\xa0", name))}});
  EXPECT_THAT(found.rows(), ElementsAre("x:y:a?b?c:1   processor   lumacore"));
  EXPECT_EQ(found.result.model.getIpName(found.result.instances().front()),
            "lumacore");
}

/// A colon parts the first word of a row.
TEST(KindProposal, WritesNoRowThatIsNone) {
  const Proposing found({{"x.xml", part("a:b", "", cpus)},
                         {"top.xml", design("d", instance("x", "a:b"))}});
  EXPECT_TRUE(found.isRead);
  EXPECT_THAT(found.rows(), IsEmpty());
  ASSERT_EQ(found.proposal.candidates.size(), 1u);
  EXPECT_EQ(found.proposal.candidates[0].verdict, KindVerdict::undecided);
  EXPECT_EQ(found.proposal.candidates[0].question,
            "a part of its identity holds a colon: put '?' in its place");
}

TEST(KindProposal, IsEmptyForADesignThatCannotBeRead) {
  const Proposing none((Files()));
  EXPECT_FALSE(none.isRead);
  EXPECT_THAT(none.result.diagnostics(),
              ElementsAre("error top.xml:0: there is no such file"));
  const Proposing bad(behindABridge, "nonsense\n");
  EXPECT_FALSE(bad.isRead);
  KindProposal proposal;
  proposal.table = "before";
  DesignModel model;
  EXPECT_FALSE(ProposeKinds({"/nowhere.xml", {}, "", ""}, proposal, model));
  EXPECT_EQ(proposal.table, "");
}

TEST(KindProposal, ListsAFewOfMany) {
  std::string instances;
  for (int i = 0; i < 30; ++i)
    instances += instance("c" + std::to_string(i), "core");
  const Proposing found({{"core.xml", part("core", "", cpus)},
                         {"top.xml", design("d", instances)}});
  EXPECT_EQ(found.named("core").instances.size(), 20u);
  EXPECT_EQ(found.named("core").otherInstances, 10u);
  EXPECT_THAT(found.proposal.table, HasSubstr("c19 and 10 more\n"));
  EXPECT_THAT(found.proposal.questions.back(),
              "the same holds for 22 more processors");
}

struct WordRow {
  const char *name;
  Names words;
};

TEST(Words, AreCutOutOfNames) {
  const WordRow rows[] = {
      {"", {}},
      {"_", {}},
      {"a", {"a"}},
      {"uart", {"uart"}},
      {"UART", {"uart"}},
      {"apb_uart", {"apb", "uart", "apbuart"}},
      {"UARTLite", {"uart", "lite", "uartlite"}},
      {"myUart16550", {"my", "uart", "16550", "myuart", "uart16550"}},
      {"i_mem", {"i", "mem", "imem"}},
      {"--x..y--", {"x", "y", "xy"}},
      {"\xc3\xa4x", {"x"}},
      // The first and the last of each range, and what is beside them.
      {"a`z{A@Z[0/9:",
       {"a", "z", "a", "z", "0", "9", "az", "za", "az", "z0", "09"}},
      {"AZ09az", {"az", "09", "az", "az09", "09az"}},
  };
  for (const WordRow &row : rows)
    EXPECT_EQ(wordsOf(row.name), row.words) << row.name;
}

TEST(Words, NameDebugging) {
  for (const char *name : {"debug", "dbg", "jtag", "dmi", "my_debugger",
                           "xdbgx", "JTAG", "core_dmi"})
    EXPECT_TRUE(namesDebugging(name)) << name;
  for (const char *name : {"", "debu", "d_b_g", "jta", "dmix", "xdmi"})
    EXPECT_FALSE(namesDebugging(name)) << name;
}

TEST(Words, NameClocksResetsAndInterrupts) {
  for (const std::string name :
       {"clk", "clock", "clocks", "rst", "reset", "resetn", "rstn", "irq",
        "irqs", "interrupt", "interrupts"}) {
    EXPECT_TRUE(namesAuxiliary(name)) << name;
    EXPECT_TRUE(namesAuxiliary("my_" + name)) << name;
    EXPECT_FALSE(namesAuxiliary(name + "x")) << name;
    EXPECT_FALSE(namesAuxiliary("x" + name)) << name;
  }
}

struct IdentityRow {
  const char *identity, *name;
};

TEST(Words, AreLookedForInTheNameOfAnIdentity) {
  const IdentityRow rows[] = {
      {"v:l:n:1", "n"}, {"v:l:n:m:1", "m"}, {"l:n:1", "n"},
      {":n:1", "n"},    {"n:1", "n:1"},     {":1", ":1"},
      {"n", "n"},       {"", ""},           {"v:l::1", ""},
  };
  for (const IdentityRow &row : rows)
    EXPECT_EQ(nameIn(row.identity), row.name) << row.identity;
}

TEST(Words, AreNotCutOutOfAllOfALongName) {
  EXPECT_EQ(wordsOf(std::string(100000, 'a')).front().size(), 256u);
}

} // namespace
} // namespace ZelDebugDialog
