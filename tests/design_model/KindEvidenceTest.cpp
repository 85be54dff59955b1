// What a proposed kind table says to a person, word for word: the evidence for
// each candidate, what is open about it, and the table's text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Proposing.h"
#include "proposals/KindFacts.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string bus = port("bus", "mem", "master");
const std::string imem = port("imem", "mem", "master");
const std::string dmem = port("dmem", "mem", "master");
const std::string answers = port("p", "mem", "slave");
const std::string debug = port("dbg", "link", "slave");
const std::string fromModule = port("o", "link", "master");

const std::string softCore =
    "nothing in its name speaks for another kind than a soft core";
const std::string hasCpus =
    "its component has a 'cpus' element: it says that it is a processor";
const std::string typeNameKnown = "the debugger knows its type name";

// --- Processors --------------------------------------------------------------

TEST(KindEvidence, OfAProcessorIsAllThatSpeaksForIt) {
  const Proposing found(
      {{"x.xml", part("tiny_cpu", imem + dmem + debug, cpus)},
       {"y.xml", part("y", answers)},
       {"top.xml", design("d", instance("x", "tiny_cpu") + instance("y", "y"),
                          connection("w", {"x.imem", "y.p"}))}});
  EXPECT_THAT(
      found.named("tiny_cpu").evidence,
      ElementsAre(hasCpus,
                  "it fetches instructions by 'imem' and has its data by "
                  "'dmem'",
                  "its name holds 'cpu'", "it has a debug interface, 'dbg'",
                  softCore));
  EXPECT_THAT(found.named("tiny_cpu").wiredTo, ElementsAre("imem: y.p"));
  EXPECT_EQ(found.named("tiny_cpu").question, "");
}

TEST(KindEvidence, OfAProcessorOfAnotherFamilyIsItsName) {
  const Proposing found(
      {{"a.xml", part("ppc405", "", cpus)},
       {"b.xml", part("powerpc", "", cpus)},
       {"c.xml", part("soc_cortexr5", "", cpus)},
       {"top.xml",
        design("d", instance("a", "ppc405") + instance("b", "powerpc") +
                        instance("c", "soc_cortexr5"))}});
  EXPECT_THAT(found.named("ppc405").evidence, ElementsAre(hasCpus));
  EXPECT_THAT(found.named("powerpc").evidence, ElementsAre(hasCpus));
  EXPECT_EQ(
      found.named("powerpc").question,
      "its name does not say which of 'ppc405_core' and 'ppc440_core' it is "
      "like");
  EXPECT_THAT(found.named("soc_cortexr5").evidence, ElementsAre(typeNameKnown));
}

TEST(KindEvidence, OfAProcessorThatIsKnownIsHow) {
  const Proposing found({{"a.xml", part("mine", bus)},
                         {"top.xml", design("d", instance("a", "mine"))}},
                        "x:y:mine:1 processor lumacore\n");
  EXPECT_THAT(found.candidates(), ElementsAre("processor known mine lumacore"));
  EXPECT_THAT(found.named("mine").evidence,
              ElementsAre("a kind table lets it play 'lumacore'"));
  EXPECT_EQ(found.named("mine").question, "");
}

TEST(KindEvidence, OfAProcessorMayBeItsNameOnly) {
  const Proposing found(
      {{"x.xml", part("tiny_cpu", bus)},
       {"y.xml", part("y", answers)},
       {"top.xml", design("d", instance("x", "tiny_cpu") + instance("y", "y"),
                          connection("w", {"x.bus", "y.p"}))}});
  EXPECT_THAT(found.named("tiny_cpu").evidence,
              ElementsAre("its name holds 'cpu'"));
  EXPECT_EQ(found.named("tiny_cpu").question,
            "only its name speaks for a processor");
}

TEST(KindEvidence, TellsOfTheProcessorInside) {
  const Proposing found(
      {{"box.xml", part("cpu_box", imem + dmem, viewOf("inner"))},
       {"core.xml", part("core", imem + dmem)},
       {"inner.xml", design("inner", instance("core", "core"))},
       {"top.xml", design("d", instance("box", "cpu_box"))}});
  EXPECT_EQ(found.named("cpu_box").question, "the processor is inside it");
  EXPECT_THAT(found.named("cpu_box").typeNames, IsEmpty());
}

/// Whatever speaks for a processor.
TEST(KindEvidence, IsNotOfWhatIsSettled) {
  const auto candidatesOf = [](const std::string &name,
                               const std::string &kinds) {
    return Proposing({{"x.xml", part(name, imem + dmem + bus + debug)},
                      {"y.xml", part("y", answers)},
                      {"top.xml",
                       design("d", instance("x", name) + instance("y", "y"),
                              connection("w", {"x.bus", "y.p"}))}},
                     kinds)
        .candidates();
  };
  EXPECT_THAT(candidatesOf("tiny_cpu", ""),
              ElementsAre("processor proposed tiny_cpu lumacore"));
  EXPECT_THAT(candidatesOf("tiny_cpu", "x:y:tiny_cpu:1 other thing\n"),
              IsEmpty());
  EXPECT_THAT(candidatesOf("tiny_cpu", "x:y:tiny_cpu:1 debug-module hdu\n"),
              ElementsAre("module known tiny_cpu hdu"));
  EXPECT_THAT(candidatesOf("hdu", ""), ElementsAre("module known hdu hdu"));
}

/// Each word that an interface is known by, beside one of the other side.
TEST(KindEvidence, OfAPairIsAWordOfEach) {
  const Names instructions = {
      "instruction", "instructions", "instr", "insn",  "imem",  "ibus",
      "icache",      "ifetch",       "fetch", "iport", "iside", "iaxi",
      "iahb",        "iwb",          "ilmb",  "iplb",  "icode", "icb"};
  const Names data = {"data",  "dmem",  "dbus", "dcache", "dport",
                      "dside", "daxi",  "dahb", "dwb",    "dlmb",
                      "dplb",  "dcode", "lsu"};
  const auto pairs = [](const std::string &fetches, const std::string &loads) {
    const Proposing found({{"x.xml", part("x", port(fetches, "a", "master") +
                                                   port(loads, "a", "master"))},
                           {"top.xml", design("d", instance("x", "x"))}});
    return found.candidates() == Names{"processor proposed x lumacore"};
  };
  for (const std::string &word : instructions) {
    EXPECT_TRUE(pairs(word, "data")) << word;
    EXPECT_FALSE(pairs(word + "x", "data")) << word;
    EXPECT_FALSE(pairs("x" + word, "data")) << word;
  }
  for (const std::string &word : data) {
    EXPECT_TRUE(pairs("instr", word)) << word;
    EXPECT_FALSE(pairs("instr", word + "x")) << word;
    EXPECT_FALSE(pairs("instr", "x" + word)) << word;
  }
}

struct CoreName {
  const char *name;
  bool isDebugged; ///< It has a debug interface.
  const char *word;
  Names expected;
};

TEST(KindEvidence, OfACoreIsAWordOfItsName) {
  const CoreName rows[] = {
      {"own_cpu", false, "cpu", {"processor undecided own_cpu lumacore"}},
      {"own_processor",
       false,
       "processor",
       {"processor undecided own_processor lumacore"}},
      {"own_riscv", false, "riscv", {"processor undecided own_riscv lumacore"}},
      {"rv_64", false, "rv", {"processor undecided rv_64 lumacore"}},
      {"own_core", true, "core", {"processor proposed own_core lumacore"}},
      {"own_mcu", true, "mcu", {"processor proposed own_mcu lumacore"}},
      {"own_mcu", false, "", {}},
      {"own_mcux", true, "", {}},
      {"riscv_dmx", true, "riscv", {"processor proposed riscv_dmx lumacore"}},
      {"riscv_dm", true, "", {}},
      {"riscv_dtm", true, "", {}},
      {"riscv_dtmx", true, "riscv", {"processor proposed riscv_dtmx lumacore"}},
  };
  for (const CoreName &row : rows) {
    const Proposing found(
        {{"x.xml", part(row.name, row.isDebugged ? bus + debug : bus)},
         {"y.xml", part("y", answers)},
         {"top.xml", design("d", instance("x", row.name) + instance("y", "y"),
                            connection("w", {"x.bus", "y.p"}))}});
    EXPECT_EQ(found.candidates(), row.expected) << row.name;
    if (!row.expected.empty()) {
      EXPECT_EQ(found.named(row.name).evidence.front(),
                "its name holds '" + std::string(row.word) + "'");
    }
  }
}

/// By its own name or by that of its bus, whatever else the word holds.
TEST(KindEvidence, OfADebugInterfaceIsAWordThatHoldsDebug) {
  const struct {
    const char *name;
    const char *bus;
    bool isOne;
  } rows[] = {
      {"dbg", "link", true},     {"debug", "link", true},
      {"sysdbgx", "link", true}, {"sysdebugx", "link", true},
      {"p", "own_debug", true},  {"p", "dbg_link", true},
      {"DEBUG", "link", true},   {"p", "link", false},
      {"dbug", "link", false},   {"d_b_g", "link", false},
      {"jtag", "link", false},   {"debug", "clock", false},
      {"debug", "reset", false},
  };
  for (const auto &row : rows) {
    const Proposing found(
        {{"x.xml", part("own_core", bus + port(row.name, row.bus, "slave"))},
         {"y.xml", part("y", answers)},
         {"top.xml", design("d", instance("x", "own_core") + instance("y", "y"),
                            connection("w", {"x.bus", "y.p"}))}});
    const Names expected{"processor proposed own_core lumacore"};
    EXPECT_EQ(found.candidates(), row.isOne ? expected : Names())
        << row.name << " on " << row.bus;
  }
}

// --- Debug modules -----------------------------------------------------------

TEST(KindEvidence, OfADebugModuleThatIsKnownIsHow) {
  const Proposing found(
      {{"m.xml", part("mine", fromModule)},
       {"n.xml", part("hdu", "")},
       {"top.xml", design("d", instance("m", "mine") + instance("n", "hdu"))}},
      "x:y:mine:1 debug-module hdu\n");
  EXPECT_THAT(found.candidates(),
              ElementsAre("module known mine hdu", "module known hdu hdu"));
  EXPECT_THAT(found.named("mine").evidence,
              ElementsAre("a kind table lets it play 'hdu'"));
  EXPECT_THAT(found.named("hdu").evidence, ElementsAre(typeNameKnown));
}

TEST(KindEvidence, OfADebugModuleIsItsWiresAndItsName) {
  const Proposing found(
      {{"core.xml", part("core", debug, cpus)},
       {"m.xml", part("own_dmi", port("tap", "jtag", "slave") +
                                     port("jtag", "x", "slave") + fromModule)},
       {"top.xml", design("d",
                          instance("a", "core") + instance("b", "core") +
                              instance("m", "own_dmi"),
                          connection("v", {"m.o", "a.dbg"}) +
                              connection("w", {"m.o", "b.dbg"}))}});
  EXPECT_THAT(found.named("own_dmi").evidence,
              ElementsAre("it is wired by 'o' to 'dbg' of 'a'",
                          "it is wired by 'o' to 'dbg' of 'b'",
                          "its name speaks of debugging",
                          "it has a JTAG interface, 'tap'"));
  EXPECT_THAT(found.named("own_dmi").wiredTo,
              ElementsAre("o: a.dbg", "o: b.dbg"));
  EXPECT_THAT(found.named("core").wiredTo,
              ElementsAre("a.dbg: m.o", "b.dbg: m.o"));
}

TEST(KindEvidence, OfAJtagInterfaceIsItsOwnName) {
  const Proposing found(
      {{"core.xml", part("core", debug, cpus)},
       {"m.xml", part("m", port("jtag", "x", "slave") + fromModule)},
       {"n.xml", part("n", port("jtagx", "x", "slave") + fromModule)},
       {"top.xml", design("d",
                          instance("a", "core") + instance("b", "core") +
                              instance("m", "m") + instance("n", "n"),
                          connection("v", {"m.o", "a.dbg"}) +
                              connection("w", {"n.o", "b.dbg"}))}});
  EXPECT_THAT(found.named("m").evidence,
              ElementsAre("it is wired by 'o' to 'dbg' of 'a'",
                          "it has a JTAG interface, 'jtag'"));
  EXPECT_THAT(found.named("n").evidence,
              ElementsAre("it is wired by 'o' to 'dbg' of 'b'"));
}

TEST(KindEvidence, SaysWhyAConnectionIsStated) {
  const Proposing found(
      {{"core.xml", part("core", port("debug", "link", "master"), cpus)},
       {"m.xml", part("m", port("o", "link", "slave"))},
       {"top.xml", design("d", instance("c", "core") + instance("m", "m"),
                          connection("w", {"m.o", "c.debug"}))}});
  ASSERT_THAT(found.proposal.connections, SizeIs(1));
  EXPECT_EQ(found.proposal.connections[0].processor, "c");
  EXPECT_EQ(found.proposal.connections[0].debugModule, "m");
  EXPECT_TRUE(found.proposal.connections[0].isProposed);
  EXPECT_EQ(found.proposal.connections[0].reason,
            "they are wired for debugging, but not from an initiator of the "
            "module to a target of the processor");
}

TEST(KindEvidence, AsksWhichFamilyADebugModuleServes) {
  const Proposing found(
      {{"p.xml", part("ppc405", debug, cpus)},
       {"c.xml", part("core", debug, cpus)},
       {"m.xml", part("m", fromModule)},
       {"top.xml", design("d",
                          instance("p", "ppc405") + instance("c", "core") +
                              instance("m", "m"),
                          connection("v", {"m.o", "p.dbg"}) +
                              connection("w", {"m.o", "c.dbg"}))}});
  EXPECT_THAT(found.candidates(),
              ElementsAre("processor proposed ppc405 ppc405_core",
                          "processor proposed core lumacore",
                          "module undecided m hdu ppc_jtag_link"));
  EXPECT_EQ(found.named("m").question,
            "processors of different families are on it, and it can play one "
            "of 'hdu' and 'ppc_jtag_link'");
}

TEST(KindEvidence, AsksWhoIsOnADebugModule) {
  const Files parts = {{"core.xml", part("core", bus, cpus)},
                       {"m.xml", part("own_debug", "")}};
  const auto proposedFor = [&parts](const std::string &instances) {
    Files files = parts;
    files["top.xml"] = design("d", instances);
    return Proposing(files);
  };
  const Proposing none = proposedFor(instance("m", "own_debug"));
  EXPECT_EQ(none.named("own_debug").question,
            "no processor is known that could be on it");
  EXPECT_THAT(none.named("own_debug").typeNames, ElementsAre("hdu"));
  EXPECT_THAT(none.proposal.questions,
              ElementsAre("no component is known, or says of itself, to be a "
                          "processor"));
  EXPECT_THAT(none.proposal.connections, IsEmpty());

  const Proposing one =
      proposedFor(instance("c", "core") + instance("m", "own_debug"));
  EXPECT_EQ(one.named("own_debug").question,
            "no wire puts a processor on it; if one is, a row 'connect' says "
            "so");
  EXPECT_THAT(one.named("own_debug").evidence,
              ElementsAre("its name speaks of debugging"));
  ASSERT_THAT(one.proposal.connections, SizeIs(1));
  EXPECT_EQ(one.proposal.connections[0].reason, "no wire says so");

  const Proposing two =
      proposedFor(instance("c", "core") + instance("m", "own_debug") +
                  instance("n", "own_debug"));
  EXPECT_EQ(two.named("own_debug").question,
            "no wire puts a processor on it, and it is not the only one that "
            "is called so");
  EXPECT_THAT(two.proposal.connections, IsEmpty());
}

TEST(KindEvidence, SaysWhichDebugModulesTheProcessorsAreOn) {
  const Files parts = {{"core.xml", part("core", debug, cpus)},
                       {"m.xml", part("m", fromModule)},
                       {"n.xml", part("n", fromModule)},
                       {"x.xml", part("own_debug", "")}};
  const auto proposedFor = [&parts](const std::string &instances,
                                    const std::string &wires,
                                    const std::string &kinds = "") {
    Files files = parts;
    files["top.xml"] =
        design("d", instance("x", "own_debug") + instances, wires);
    return Proposing(files, kinds);
  };
  const std::string one = instance("a", "core") + instance("m", "m");
  const std::string wired = connection("v", {"m.o", "a.dbg"});
  EXPECT_EQ(proposedFor(one, wired).named("own_debug").question,
            "it is not wired to a processor as a debug module is; 'm' is");
  EXPECT_EQ(proposedFor(one + instance("b", "core") + instance("n", "n"),
                        wired + connection("w", {"n.o", "b.dbg"}))
                .named("own_debug")
                .question,
            "it is not wired to a processor as a debug module is; 'm' and 'n' "
            "are");
  EXPECT_EQ(proposedFor(one, wired, "x:y:m:1 debug-module hdu\n")
                .named("own_debug")
                .question,
            "it is not wired to a processor as a debug module is");
}

TEST(KindEvidence, NamesWhatIsWiredToAProcessorWithoutADebugModule) {
  const Proposing found(
      {{"core.xml",
        part("core",
             port("i", "x", "slave") + port("j", "x", "mirroredMaster") +
                 port("k", "x", "slave") + port("rst", "x", "slave") + bus,
             cpus)},
       {"m.xml", part("m", port("o", "x", "master") + port("q", "x", "master") +
                               port("r", "x", "master"))},
       {"top.xml", design("d", instance("c", "core") + instance("m", "m"),
                          connection("u", {"m.o", "c.i"}) +
                              connection("v", {"m.q", "c.j"}) +
                              connection("w", {"m.r", "c.rst"}))}});
  EXPECT_THAT(found.proposal.questions,
              ElementsAre("nothing says which debug module 'c' is on; what is "
                          "wired to its target interfaces, 'm.o' and 'm.q', "
                          "does not look like one"));
}

TEST(KindEvidence, AsksOfEightProcessorsAndCountsTheRest) {
  const auto questionsFor = [](int count) {
    std::string instances;
    for (int i = 0; i < count; ++i)
      instances += instance("c" + std::to_string(i), "core");
    return Proposing({{"core.xml", part("core", "", cpus)},
                      {"top.xml", design("d", instances)}})
        .proposal.questions;
  };
  EXPECT_THAT(questionsFor(8), SizeIs(8));
  const Names nine = questionsFor(9);
  ASSERT_THAT(nine, SizeIs(9));
  EXPECT_EQ(nine[7], "nothing says which debug module 'c7' is on: nothing is "
                     "wired to a target interface of it");
  EXPECT_EQ(nine[8], "the same holds for 1 more processors");
  EXPECT_EQ(questionsFor(1001).back(),
            "the same holds for 992 more processors");
}

/// Past the last of them a debug interface is taken for a clock or the like.
TEST(KindEvidence, LooksAtSixtyFourEndsOfAWire) {
  const auto candidatesFor = [](int others) {
    std::string instances = instance("c", "core");
    Names ends = {"c.dbg"};
    for (int i = 0; i < others; ++i) {
      instances += instance("z" + std::to_string(i), "z");
      ends.push_back("z" + std::to_string(i) + ".p");
    }
    ends.emplace_back("m.o");
    return Proposing({{"core.xml", part("core", debug, cpus)},
                      {"z.xml", part("z", answers, cpus)},
                      {"m.xml", part("m", fromModule)},
                      {"top.xml", design("d", instances + instance("m", "m"),
                                         connection("w", ends))}})
        .candidates();
  };
  EXPECT_THAT(candidatesFor(63), ElementsAre("processor proposed core lumacore",
                                             "processor proposed z lumacore",
                                             "module proposed m hdu"));
  EXPECT_THAT(candidatesFor(64), ElementsAre("processor proposed core lumacore",
                                             "processor proposed z lumacore"));
}

TEST(KindEvidence, OfADebugModuleIsEightWiresAtMost) {
  std::string instances;
  std::string wires;
  for (int i = 0; i < 9; ++i) {
    const std::string name = "c" + std::to_string(i);
    instances += instance(name, "core");
    wires += connection(name, {"m.o", name + ".dbg"});
  }
  const Proposing found(
      {{"core.xml", part("core", debug, cpus)},
       {"m.xml", part("m", fromModule)},
       {"top.xml", design("d", instances + instance("m", "m"), wires)}});
  ASSERT_THAT(found.named("m").evidence, SizeIs(8));
  EXPECT_EQ(found.named("m").evidence.back(),
            "it is wired by 'o' to 'dbg' of 'c7'");
  EXPECT_THAT(found.named("m").wiredTo, SizeIs(9));
}

// --- Serial ports and memories -----------------------------------------------

const std::string mapped =
    interface("p", "<ipxact:slave><ipxact:memoryMapRef memoryMapRef=\"m\"/>"
                   "</ipxact:slave>");
const std::string memoryMap =
    "<ipxact:memoryMaps><ipxact:memoryMap><ipxact:name>m</ipxact:name>"
    "<ipxact:addressBlock><ipxact:name>b</ipxact:name><ipxact:baseAddress>0"
    "</ipxact:baseAddress><ipxact:range>16</ipxact:range><ipxact:width>32"
    "</ipxact:width><ipxact:usage>memory</ipxact:usage></ipxact:addressBlock>"
    "</ipxact:memoryMap></ipxact:memoryMaps>";

/// A design in which a Lumacore reaches such a component, "t".
Files reaching(const std::string &name, const std::string &interfaces,
               const std::string &others = "") {
  return {
      {"core.xml", part("lumacore", bus)},
      {"hdu.xml", part("hdu", "")},
      {"t.xml", part(name, interfaces, others)},
      {"top.xml", design("d", instance("c", "lumacore") + instance("t", name),
                         connection("w", {"c.bus", "t.p"}))}};
}

struct PeripheralEvidence {
  const char *name;
  std::string interfaces;
  std::string others;
  Names evidence;
  const char *question;
};

TEST(KindEvidence, OfSerialPortsAndMemories) {
  const std::string line = port("line", "uart", "master");
  const PeripheralEvidence rows[] = {
      {"uart", answers, "", {"its name holds 'uart'"}, ""},
      {"my_usart", answers, "", {"its name holds 'usart'"}, ""},
      {"uart",
       answers + line,
       "",
       {"its name holds 'uart'", "it has a serial line, 'line'"},
       ""},
      {"serial_io",
       answers,
       "",
       {"its name holds 'serial'"},
       "it may be another kind of serial interface than a UART"},
      {"io",
       answers + line,
       "",
       {"it has a serial line, 'line'"},
       "its name does not say that it is a UART and nothing else"},
      {"uart_mini_cedar", answers, "", {typeNameKnown}, ""},
      {"ram", answers, "", {"its name holds 'ram'"}, ""},
      {"x", mapped, memoryMap, {"what is behind 'p' is said to be memory"}, ""},
      {"flash",
       mapped,
       memoryMap,
       {"what is behind 'p' is said to be memory", "its name holds 'flash'"},
       ""},
      {"ext_mem",
       answers,
       "",
       {"its name holds 'mem'"},
       "its name holds 'ext', which leaves open whether the memory is on the "
       "chip, static outside, or dynamic outside"},
      {"soc_ocram", answers, "", {typeNameKnown}, ""},
  };
  for (const PeripheralEvidence &row : rows) {
    const Proposing found(reaching(row.name, row.interfaces, row.others));
    EXPECT_EQ(found.named(row.name).evidence, row.evidence) << row.name;
    EXPECT_EQ(found.named(row.name).question, row.question) << row.name;
  }
}

TEST(KindEvidence, OfAPeripheralThatATableKnows) {
  const Proposing uart(reaching("mine", answers),
                       "x:y:mine:1 other uart_mini_cedar\n");
  EXPECT_THAT(uart.named("mine").evidence,
              ElementsAre("a kind table lets it play 'uart_mini_cedar'"));
  const Proposing memory(reaching("mine", answers),
                         "x:y:mine:1 other emc_ctl_cedar\n");
  EXPECT_THAT(memory.named("mine").evidence,
              ElementsAre("a kind table lets it play 'emc_ctl_cedar'"));
}

/// Whatever its name.
TEST(KindEvidence, OfAPeripheralIsNotOfWhatIsSettledOrHandsOn) {
  const auto othersOf = [](const Files &files, const std::string &kinds = "") {
    Names others;
    for (const std::string &candidate : Proposing(files, kinds).candidates())
      if (candidate.rfind("processor", 0) != 0)
        others.push_back(candidate);
    return others;
  };
  for (const std::string name : {"own_uart", "own_ram"}) {
    EXPECT_THAT(othersOf(reaching(name, answers + bus)), SizeIs(1)) << name;
    EXPECT_THAT(othersOf(reaching(name, answers + bus),
                         "x:y:" + name + ":1 other thing\n"),
                IsEmpty())
        << name;
    EXPECT_THAT(othersOf(reaching(name, bridge("p", "bus") + bus)), IsEmpty())
        << name;
  }
}

TEST(KindEvidence, AsksWhoReachesAPeripheral) {
  const Proposing found(
      {{"u.xml", part("uart", answers)},
       {"r.xml", part("ram", answers)},
       {"top.xml", design("d", instance("u", "uart") + instance("r", "ram"))}});
  EXPECT_EQ(found.named("uart").question,
            "no processor is known that could reach it");
  EXPECT_THAT(found.named("uart").typeNames, ElementsAre("uart_mini_cedar"));
  EXPECT_EQ(found.named("ram").question,
            "no processor is known that could reach it");
}

/// Each word that a memory is known by, and which one it plays then.
TEST(KindEvidence, OfAMemoryIsAWordOfItsName) {
  const std::string onChip = "memory proposed own_X ocm_ctl_cedar";
  const std::string staticOne = "memory proposed own_X emc_ctl_cedar";
  const std::string dynamicOne = "memory proposed own_X multiport_memctl";
  const std::map<std::string, Names> words = {
      {staticOne, {"flash", "nor", "emc"}},
      {dynamicOne, {"dram", "sdram", "sdr"}},
      {onChip,
       {"ram", "sram", "bram", "spram", "dpram", "ocram", "ocm", "tcm", "rom",
        "brom", "prom", "bootrom", "mem", "memory"}},
  };
  const auto candidatesFor = [](const std::string &name) {
    const Proposing found(reaching(name, answers));
    Names others;
    for (const std::string &candidate : found.candidates())
      if (candidate.rfind("processor", 0) != 0)
        others.push_back(candidate);
    return others;
  };
  for (const auto &[expected, holding] : words)
    for (const std::string &word : holding) {
      const std::string name = "own_" + word;
      std::string line = expected;
      line.replace(line.find("own_X"), 5, name);
      EXPECT_THAT(candidatesFor(name), ElementsAre(line));
      EXPECT_THAT(candidatesFor(name + "z"), IsEmpty()) << word;
      EXPECT_THAT(candidatesFor("own_z" + word), IsEmpty()) << word;
    }
}

TEST(KindEvidence, OfAMemoryMayLeaveOpenWhereItIs) {
  for (const std::string word :
       {"external", "ext", "controller", "ctrl", "ctl", "memctl"}) {
    const Proposing open(reaching(word + "_ram", answers));
    EXPECT_EQ(open.named(word + "_ram").verdict, KindVerdict::undecided)
        << word;
    EXPECT_EQ(open.named(word + "_ram")
                  .question.rfind(
                      "its name holds '" + word + "', which leaves open", 0),
              0u)
        << word;
    const Proposing clear(reaching(word + "z_ram", answers));
    EXPECT_EQ(clear.named(word + "z_ram").verdict, KindVerdict::proposed)
        << word;
  }
}

/// What something is inside of is a box: the part is what is in it.
TEST(KindEvidence, IsNotOfWhatHoldsOthers) {
  struct Row {
    const char *name;
    const char *whenEmpty; ///< What it is with nothing inside.
  };
  const Row rows[] = {
      {"uart_box", "uart proposed uart_box uart_mini_cedar"},
      {"ram_box", "memory proposed ram_box ocm_ctl_cedar"},
      {"jtag_box", "module undecided jtag_box hdu"},
      {"cpu_box", "processor undecided cpu_box lumacore"},
  };
  for (const Row &row : rows)
    for (const bool isEmpty : {true, false}) {
      Files files = reaching(row.name, answers + bus, viewOf("inner"));
      files["x.xml"] = part("thing", answers);
      files["inner.xml"] =
          design("inner", isEmpty ? "" : instance("i", "thing"));
      files["top.xml"] =
          design("d",
                 instance("c", "lumacore") + instance("t", row.name) +
                     instance("x", "thing"),
                 connection("v", {"c.bus", "t.p"}) +
                     connection("w", {"t.bus", "x.p"}));
      Names others;
      for (const std::string &candidate : Proposing(files).candidates())
        if (candidate != "processor known lumacore lumacore")
          others.push_back(candidate);
      EXPECT_EQ(others, isEmpty ? Names{row.whenEmpty} : Names{}) << row.name;
    }
}

// --- Lists -------------------------------------------------------------------

TEST(KindEvidence, ListsFiveNamesAndCutsSix) {
  EXPECT_EQ(listed({}), "");
  EXPECT_EQ(listed({"a"}), "'a'");
  EXPECT_EQ(listed({"a", "b"}), "'a' and 'b'");
  EXPECT_EQ(listed({"a", "b", "c"}), "'a', 'b' and 'c'");
  EXPECT_EQ(listed({"a", "b", "c", "d", "e"}), "'a', 'b', 'c', 'd' and 'e'");
  EXPECT_EQ(listed({"a", "b", "c", "d", "e", "f"}),
            "'a', 'b', 'c', 'd' and 2 more");
}

TEST(KindEvidence, NamesTwentyWires) {
  std::string interfaces;
  std::string wires;
  for (int i = 0; i < 21; ++i) {
    const std::string name = "i" + std::to_string(i);
    interfaces += port(name, "x", "slave");
    wires += connection(name, {"y.p", "c." + name});
  }
  const Proposing found(
      {{"core.xml", part("core", interfaces, cpus)},
       {"y.xml", part("y", port("p", "x", "master"))},
       {"top.xml",
        design("d", instance("c", "core") + instance("y", "y"), wires)}});
  ASSERT_THAT(found.named("core").wiredTo, SizeIs(20));
  EXPECT_EQ(found.named("core").wiredTo.front(), "i0: y.p");
  EXPECT_EQ(found.named("core").wiredTo.back(), "i19: y.p");
}

TEST(KindEvidence, NamesTwentyInstances) {
  const auto proposedFor = [](int count) {
    std::string instances;
    for (int i = 0; i < count; ++i)
      instances += instance("c" + std::to_string(i), "core");
    return Proposing({{"core.xml", part("core", "", cpus)},
                      {"top.xml", design("d", instances)}});
  };
  const Proposing all = proposedFor(20);
  EXPECT_THAT(all.named("core").instances, SizeIs(20));
  EXPECT_EQ(all.named("core").otherInstances, 0u);
  const Proposing cut = proposedFor(21);
  EXPECT_THAT(cut.named("core").instances, SizeIs(20));
  EXPECT_EQ(cut.named("core").otherInstances, 1u);
}

// --- The table ---------------------------------------------------------------

/// One candidate of each part, and each that can become of one.
TEST(KindEvidence, IsTheTextOfTheTable) {
  const Proposing found(
      {{"core.xml",
        part("tiny_cpu", bus + port("debug", "link", "master"), cpus)},
       {"lone.xml", part("lumacore", "")},
       {"m.xml", part("m", port("o", "link", "slave"))},
       {"n.xml", part("own_debug", "")},
       {"u.xml", part("serial_io", answers)},
       {"r.xml", part("sp_ram", answers)},
       {"e.xml", part("ext_mem", answers)},
       {"top.xml",
        design("d",
               instance("c", "tiny_cpu") + instance("l", "lumacore") +
                   instance("m", "m") + instance("n", "own_debug") +
                   instance("u", "serial_io") + instance("r", "sp_ram") +
                   instance("e", "ext_mem"),
               connection("v", {"m.o", "c.debug"}) +
                   connection("w", {"c.bus", "u.p"}) +
                   connection("x", {"c.bus", "e.p"}))}});
  EXPECT_EQ(
      found.proposal.table,
      "# What the parts of top.xml could play, with the evidence for it.\n"
      "# Mend it where it is wrong: the first row that fits a component "
      "counts.\n"
      "\n"
      "# processor: c\n"
      "#   its component has a 'cpus' element: it says that it is a processor\n"
      "#   its name holds 'cpu'\n"
      "#   nothing in its name speaks for another kind than a soft core\n"
      "#   wired: bus: u.p\n"
      "#   wired: bus: e.p\n"
      "#   wired: debug: m.o\n"
      "x:y:tiny_cpu:1   processor   lumacore\n"
      "\n"
      "# debug module: m\n"
      "#   it is wired by 'o' to 'debug' of 'c'\n"
      "#   wired: o: c.debug\n"
      "x:y:m:1   debug-module   hdu\n"
      "\n"
      "# debug module: n\n"
      "#   its name speaks of debugging\n"
      "#   undecided: no wire puts a processor on it; if one is, a row "
      "'connect' says so\n"
      "#x:y:own_debug:1   debug-module   hdu\n"
      "\n"
      "# serial port: u\n"
      "#   its name holds 'serial'\n"
      "#   wired: p: c.bus\n"
      "#   undecided: it may be another kind of serial interface than a UART\n"
      "#x:y:serial_io:1   other   uart_mini_cedar\n"
      "\n"
      "# memory: r\n"
      "#   its name holds 'ram'\n"
      "#   not taken: no processor reaches it\n"
      "\n"
      "# memory: e\n"
      "#   its name holds 'mem'\n"
      "#   wired: p: c.bus\n"
      "#   undecided: its name holds 'ext', which leaves open whether the "
      "memory is on the chip, static outside, or dynamic outside\n"
      "#x:y:ext_mem:1   other   ocm_ctl_cedar\n"
      "#x:y:ext_mem:1   other   emc_ctl_cedar\n"
      "#x:y:ext_mem:1   other   multiport_memctl\n"
      "\n"
      "# they are wired for debugging, but not from an initiator of the module "
      "to a target of the processor\n"
      "connect   c   m\n"
      "\n"
      "# no wire says so\n"
      "#connect   l   n\n"
      "\n"
      "# undecided: nothing says which debug module 'l' is on: nothing is "
      "wired to a target interface of it\n");
}

} // namespace
} // namespace ZelDebugDialog
