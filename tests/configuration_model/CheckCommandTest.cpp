// What is wrong with a command, or surely not meant.
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "support/Cables.h"
#include "support/FakeDesign.h"
#include "support/Targets.h"

namespace {

using namespace ZelDebugDialog;

/// "16+4 error unknown-option", joined.
std::string shown(const std::vector<CommandDiagnostic> &diagnostics) {
  std::string text;
  for (const CommandDiagnostic &one : diagnostics)
    text += (text.empty() ? "" : "; ") + std::to_string(one.offset) + "+" +
            std::to_string(one.length) + " " + ShowSeverity(one.severity) +
            " " + one.code;
  return text;
}

struct Row {
  std::string command;
  std::string found;
};

/// "8 error unknown-target: 'pcc' is no target | accepted: lc, ppc | nearest:
/// ppc".
std::string told(const CommandDiagnostic &one) {
  std::string text = std::to_string(one.offset) + " " +
                     ShowSeverity(one.severity) + " " + one.code + ": " +
                     one.message;
  if (!one.engineMessage.empty() && one.engineMessage != one.message)
    text += " | engine: " + one.engineMessage;
  for (const std::string &word : one.accepted)
    text += (&word == &one.accepted.front() ? " | accepted: " : ", ") + word;
  return text + (one.suggestion.empty() ? "" : " | nearest: " + one.suggestion);
}

TEST(CheckCommand, TellsOfEachFaultWhatWouldBeAccepted) {
  std::string cables;
  for (const std::string &word : support::cableWords())
    cables += (cables.empty() ? "" : ", ") + word;
  const struct {
    std::string command;
    std::vector<std::string> told;
  } rows[] = {
      {" ",
       {"1 error missing-head: the command is empty | accepted: connect, "
        "kconnect, vpconnect, kvpconnect"}},
      {"conect lc hdu",
       {"0 error unknown-head: 'conect' is no head word | accepted: connect, "
        "kconnect, vpconnect, kvpconnect | nearest: connect"}},
      {"connect",
       {"7 error missing-target: a target word is missing here | accepted: " +
        support::listed(support::targets, "")}},
      {"connect pcc hw",
       {"8 error unknown-target: 'pcc' is no target | accepted: " +
        support::listed(support::targets, "") + " | nearest: ppc"}},
      {"connect lc",
       {"10 error missing-connection: a connection word is missing here | "
        "accepted: sim, stub, hdu"}},
      {"connect ppc hdu",
       {"12 error unknown-connection: 'hdu' is no way to connect to this "
        "target | accepted: sim, hw"}},
      {"connect ppc sim -icff x",
       {"16 error unknown-option: '-icff' is no option here | engine: UNKNOWN "
        " PowerPC Sim Option '' | accepted: -icf, -ipcport, -debugdevice | "
        "nearest: -icf"}},
      {"connect lc hdu -quiet yes",
       {"22 error not-an-option: 'yes' stands where an option word belongs"}},
      {"connect lc hdu -cable frequenzy 1",
       {"22 error unknown-parameter: 'frequenzy' is no parameter of this "
        "option | engine: UNKNOWN Parameter 'frequenzy' for  option '-cable' | "
        "accepted: type, port, esn, url, frequency, fname, modulename, "
        "modulearg | nearest: frequency"}},
      {"connect lc hdu -cable port",
       {"26 error missing-value: a value is missing here"}},
      {"connect lc hdu -cable type",
       {"26 error missing-value: a value is missing here | accepted: " +
        cables}},
      {"connect lc hdu -cable type quorla_usb",
       {"27 error refused-value: 'quorla_usb' is refused as the value | "
        "accepted: " +
        cables + " | nearest: quorla_podusb"}},
      {"connect ppc hw -debugdevice icacheStartAdr 0x18000",
       {"43 error refused-value: '0x18000' is refused as the value | engine: "
        "Icache Start Address should be aligned at 64k boundry"}},
      {"connect lc hdu -cable type quorla_plugin",
       {"40 error missing-module: the plug-in cable's module is missing here | "
        "engine: Plug-in Module NOT specified for Cable Type quorla_plugin"}},
      {"connect lc hdu -cable type quorla_podusb frequency 625000",
       {"51 error refused-frequency: '625000' is no frequency of this cable | "
        "engine: UnSupported Quorla PodUSB Cable Frequency - 625000\nSupported "
        "Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, 24000000 | "
        "accepted: 750000, 1500000, 3000000, 6000000, 12000000, 24000000"}},
      {"connect lc hdu -", {"15 error lone-dash: '-' is a lone '-'"}},
      {"connect lc hdu -cable type quorla_podusb frequency 625000 -quiet",
       {"51 warning frequency-not-checked: '625000' is no frequency of this "
        "cable, and is read all the same | engine: UnSupported Quorla PodUSB "
        "Cable Frequency - 625000\nSupported Frequencies: 750000, 1500000, "
        "3000000, 6000000, 12000000, 24000000 | accepted: 750000, 1500000, "
        "3000000, 6000000, 12000000, 24000000"}},
      {"connect lc hdu -debugdevice devicenr 200",
       {"37 warning value-cut: '200' does not fit: debugDevice becomes -56"}},
      {"connect lc hdu -debugdevice romemStartAdr 0x100000001",
       {"42 warning value-cut: '0x100000001' does not fit: romemStartAdr "
        "becomes 0x1"}},
      {"connect lc hdu -debugdevice devicenr two",
       {"37 warning not-a-number: 'two' is no number: it gives 0"}},
      {"connect lc hdu -debugdevice devicenr 0x1g",
       {"37 warning not-a-number: '0x1g' is no number: it is read as '0x1'"}},
      {"connect lc hdu -debugdevice devicenr 010",
       {"37 warning octal-number: '010' is read as an octal number: its value "
        "is 8"}},
      {"connect lc sim -memsize -quiet",
       {"24 warning option-as-value: '-quiet' looks like an option, but is "
        "taken for a value"}},
      {"connect ppc sim -debugdevice devicenr 1 -ipcport",
       {"40 warning option-lost: '-ipcport' is lost"}},
      {"connect lc stub -comm",
       {"21 warning missing-value: a value is missing here | accepted: jtag, "
        "serial"}},
      {"connect lc stub -baud -port -timeout 5",
       {"22 warning missing-value: a value is missing here, in front of "
        "'-port'",
        "28 warning missing-value: a value is missing here, in front of "
        "'-timeout'"}},
      {"connect ppc sim -debugdevice fpuType zz -icf x",
       {"37 warning refused-value: 'zz' is refused as the value | engine: "
        "UNKNOWN Parameter 'zz' for  option 'fpuType' | accepted: sp, dp"}},
      {"vpconnect lc -ipcport h:abc",
       {"24 warning not-a-number: 'abc' is no number: it gives 0"}},
      {"connect lc hdu -sim -ipcport h:",
       {"31 warning not-a-number: '' is no number: it gives 0"}},
      {"connect ppc sim -ipcport a:b:5",
       {"27 warning not-a-number: 'b:5' is no number: it gives 0"}},
      {"connect ppc sim -ipcport h:5x",
       {"27 warning not-a-number: '5x' is no number: it is read as '5'"}},
      {"vpconnect lc -ipcport h:99999999999",
       {"24 warning value-cut: '99999999999' does not fit: simIpcPort becomes "
        "1215752191"}},
      {"vpconnect lc -ipcport host", {}},
      {"vpconnect lc -ipcport h:010", {}},
      {"connect lc hdu -cable frequency 5 -quiet",
       {"32 warning frequency-without-cable: '5' is the frequency of no "
        "cable"}},
      {"connect lc hdu -cable type quorla_podusb frequency 5 -cable port X",
       {"53 warning option-repeated: '-cable' is given twice"}},
      {"connect lc sim fast", {"15 warning ignored-word: 'fast' is ignored"}},
      {"connect lc hdu -quiet -noattach -QUIET",
       {"32 warning option-repeated: '-QUIET' is given twice"}},
      {"connect lc hdu -debugdevice devicenr 1 devicenr 2",
       {"39 warning parameter-repeated: 'devicenr' is given twice in one "
        "clause"}},
  };
  for (const auto &row : rows) {
    const CheckedCommand checked = CheckCommand(row.command);
    std::vector<std::string> found;
    for (const CommandDiagnostic &one : checked.diagnostics)
      found.push_back(told(one));
    EXPECT_EQ(found, row.told) << row.command;
    const bool isRefused =
        !row.told.empty() && row.told[0].find(" error ") != std::string::npos;
    EXPECT_EQ(checked.accepted, !isRefused) << row.command;
    EXPECT_EQ(checked.result, isRefused ? 3 : 0) << row.command;
  }
}

TEST(CheckCommand, FindsEachFaultInItsPlace) {
  const Row rows[] = {
      {"connect lc hdu", ""},
      {"KCONNECT LC HDU -CABLE TYPE QUORLA_PODUSB", ""},
      {"", "0+0 error missing-head"},
      {"connect lc hdu -cabel x", "15+6 error unknown-option"},
      {"connect lc hdu -cable port -cable esn -debugdevice devicenr 1",
       "27+6 error missing-value; 27+6 warning option-repeated; "
       "38+12 error missing-value"},
      // Also where an option has one value only.
      {"connect lc hdu -comm -cable type foo",
       "21+6 error missing-value; 33+3 error refused-value"},
      {"connect lc stub -port -baud 9600 -timeout 5",
       "22+5 error missing-value"},
      {"connect lc hdu -baud -debugdevice devicenr 300",
       "21+12 error missing-value; 43+3 warning value-cut"},
      {"connect lc hdu -bscan -cable type foo",
       "22+6 error missing-value; 34+3 error refused-value"},
      {"connect lc hdu -debugdevice devicenr -cable type foo",
       "37+6 error missing-value; 49+3 error refused-value"},
      {"connect ppc sim -debugdevice devicenr -icf f -foo",
       "38+4 error missing-value; 45+4 error unknown-option"},
      {"connect lc hdu -cable typ x -foo -debugdevice devicenr 300 fpuType xp "
       "-bscan USER5",
       "22+3 error unknown-parameter; 28+4 error unknown-option; "
       "55+3 warning value-cut; 67+2 error refused-value; "
       "77+5 error refused-value"},
  };
  for (const Row &row : rows) {
    const CheckedCommand checked = CheckCommand(row.command);
    EXPECT_EQ(shown(checked.diagnostics), row.found) << row.command;
    EXPECT_EQ(checked.accepted, row.found.empty()) << row.command;
    EXPECT_EQ(checked.result, row.found.empty() ? 0 : 3) << row.command;
    EXPECT_EQ(checked.text, row.command);
  }
}

TEST(CheckCommand, WarnsOfWhatIsReadAndSurelyNotMeant) {
  const Row rows[] = {
      {"connect lc hdu -cable type quorla_podusb frequency 750000 -quiet", ""},
      {"connect lc hdu -cable frequency 3000000 -quiet",
       "32+7 warning frequency-without-cable"},
      {"connect lc hdu -debugdevice devicenr 127", ""},
      {"connect lc hdu -debugdevice devicenr 128", "37+3 warning value-cut"},
      {"connect lc hdu -debugdevice devicenr -128", ""},
      {"connect lc hdu -debugdevice devicenr -129", "37+4 warning value-cut"},
      {"connect lc hdu -debugdevice romemStartAdr 0xFFFFFFFF", ""},
      {"connect lc hdu -debugdevice romemStartAdr 0x100000000",
       "42+11 warning value-cut"},
      {"connect lc hdu -debugdevice devicenr 2nd", "37+3 warning not-a-number"},
      {"connect lc hdu -debugdevice devicenr 0", ""},
      // More than any number holds, and a number behind it that fits.
      {"connect lc hdu -configdevice devicenr 99999999999999999999 "
       "-configdevice devicenr 5",
       "38+20 warning value-cut"},
      {"connect lc hdu -debugdevice devicenr 0x10", ""},
      {"connect lc sim fast furious", "15+4 warning ignored-word"},
      {"connect lc hdu -configdevice devicenr 1 -configdevice devicenr 2", ""},
      {"connect lc stub -comm serial -baud 0", "35+1 warning baud-zero"},
      {"connect lc stub -comm serial -baud 1", ""},
      {"connect lc stub -comm jtag -baud 0", ""},
      {"connect lc stub -comm serial -baud 0 -baud 9600",
       "37+5 warning option-repeated"},
      {"connect lc stub -port -baud -quiet",
       "22+5 warning missing-value; 28+6 warning missing-value"},
      // What only a line of a file may not have.
      {"kconnect lc hdu", ""},
      {"connect lc hdu -cable port " + std::string(2000, 'x'), ""},
  };
  for (const Row &row : rows) {
    const CheckedCommand checked = CheckCommand(row.command);
    EXPECT_EQ(shown(checked.diagnostics), row.found) << row.command;
    EXPECT_TRUE(checked.accepted) << row.command;
    EXPECT_EQ(checked.result, 0) << row.command;
  }
}

TEST(CheckCommand, KnowsTheLinesOfAFile) {
  const std::string front = "connect lc hdu -cable port ";
  const Row rows[] = {
      {"connect lc hdu", ""},
      {"kconnect lc hdu", "0+8 warning not-in-option-file"},
      {"KVPCONNECT lc", "0+10 warning not-in-option-file"},
      {"connect hdu", "8+3 warning not-in-option-file"},
      {"connect dap hw", "8+3 warning not-in-option-file"},
      {"connect dcc", "8+3 warning not-in-option-file"},
      {"connect kmtc", "8+4 warning not-in-option-file"},
      {"connect r5 hw", ""},
      {"vpconnect lc", ""},
      {front + std::string(1023 - front.size(), 'x'), ""},
      {front + std::string(1025 - front.size(), 'x'),
       "1023+2 warning long-line"},
  };
  CheckOptions options;
  options.ofFile = true;
  for (const Row &row : rows)
    EXPECT_EQ(shown(CheckCommand(row.command, options).diagnostics), row.found)
        << row.command;
  EXPECT_EQ(told(CheckCommand("kvpconnect lc", options).diagnostics[0]),
            "0 warning not-in-option-file: 'kvpconnect' is not taken in an "
            "option file | accepted: connect, vpconnect | nearest: vpconnect");
  EXPECT_EQ(told(CheckCommand("connect hdu", options).diagnostics[0]),
            "8 warning not-in-option-file: 'hdu' is not taken in an option "
            "file | accepted: " +
                support::listed(support::targetsInFiles, ""));
}

TEST(CheckCommand, SaysWhatWouldBeAccepted) {
  const CheckedCommand checked = CheckCommand("connect lc hdu -cabel x");
  EXPECT_EQ(checked.error, "UNKNOWN Option '-cabel'");
  ASSERT_EQ(checked.diagnostics.size(), 1U);
  const CommandDiagnostic &one = checked.diagnostics[0];
  EXPECT_EQ(one.message, "'-cabel' is no option here");
  EXPECT_EQ(one.engineMessage, "UNKNOWN Option '-cabel'");
  EXPECT_EQ(one.suggestion, "-cable");
  EXPECT_THAT(one.accepted, testing::Contains("-cable"));
  EXPECT_EQ(CheckCommand("connect lc hdu -debugdevice devicenr 200")
                .diagnostics[0]
                .message,
            "'200' does not fit: debugDevice becomes -56");
  EXPECT_EQ(CheckCommand("connect lc hdu -debugdevice romemsize 0x100000001")
                .diagnostics[0]
                .message,
            "'0x100000001' does not fit: romemSize becomes 1");
}

TEST(CheckCommand, EscapesWhatCannotBeShown) {
  EXPECT_EQ(CheckCommand("connect lc \xed\xa0\x80\x1b").diagnostics[0].message,
            "'\\xed\\xa0\\x80\\x1b' is no way to connect to this target");
}

// --- For one processor ------------------------------------------------------

class CheckForProcessorTest : public testing::Test {
protected:
  CheckForProcessorTest() {
    design.processors = {"cpu0", "cpu1", "ppc0", "a9", "alone"};
    design.addDebugModule("dbg0", "hdu", {"cpu0", "cpu1"});
    design.addDebugModule("jtag0", "ppc_jtag_link", {"ppc0"});
    design.typeOf["ppc0"] = "ppc405_core";
    design.instancesOfType["soc_cortexa9"] = {"a9"};
    design.typeOf["alone"] = "soc_cortexr5";
  }

  CheckedCommand check(const std::string &processor,
                       const std::string &command) {
    const Board board(design, "etc");
    CheckOptions options;
    options.board = &board;
    options.processor = processor;
    return CheckCommand(command, options);
  }

  support::FakeDesign design;
};

TEST_F(CheckForProcessorTest, TellsWhatIsAnotherOnes) {
  const struct {
    const char *processor;
    const char *command;
    const char *found;
  } rows[] = {
      {"cpu0", "connect lc hdu", ""},
      {"cpu0", "connect lc hdu -debugdevice cpunr 1", ""},
      {"cpu0", "connect lc hdu -debugdevice cpunr 0x1", ""},
      {"cpu0", "connect lc hdu -debugdevice cpunr 2",
       "34+1 error number-differs"},
      {"cpu1", "connect lc hdu -debugdevice cpunr 2", ""},
      {"cpu0", "connect lc hdu -debugdevice cpunr 257",
       "34+3 warning value-cut; 34+3 error number-differs"},
      {"cpu0", "connect lc sim", ""},
      {"cpu0", "connect lc stub", "11+4 error connection-not-allowed"},
      {"cpu0", "vpconnect lc", "10+2 error connection-not-allowed"},
      {"cpu0", "connect ppc hw", "8+3 warning target-differs"},
      {"cpu0", "connect hdu", "8+3 warning target-differs"},
      {"cpu0", "connect dap hw", "8+3 warning target-differs"},
      {"ppc0", "connect ppc hw", ""},
      {"ppc0", "connect ppc hw -debugdevice proctype ppc405", ""},
      {"ppc0", "connect ppc hw -debugdevice proctype PPC440",
       "37+6 warning kind-differs"},
      {"a9", "connect arm hw", ""},
      {"a9", "connect r5 hw", "8+2 warning target-differs"},
      // What is written for every processor that is no Lumacore.
      {"a9", "connect ppc hw", ""},
      {"a9", "KCONNECT PPC HW -debugdevice cpunr 1", ""},
      {"a9", "connect ppc hw -debugdevice cpunr 2",
       "34+1 error number-differs"},
      {"a9", "connect ppc hw -debugdevice proctype ppc405",
       "37+6 warning kind-differs"},
      {"a9", "connect ppc sim", "12+3 error connection-not-allowed"},
      {"a9", "connect lc hdu", "8+2 warning target-differs"},
      {"a9", "connect dap hw", "8+3 warning target-differs"},
      {"a9", "connect dcc", "8+3 warning target-differs"},
      {"ppc0", "connect arm hw", "8+3 warning target-differs"},
      {"ppc0", "connect lc hdu", "8+2 warning target-differs"},
      // What is at fault anyway is not told again.
      {"cpu0", "connect ppc hdu", "12+3 error unknown-connection"},
      {"cpu0", "connect foo stub", "8+3 error unknown-target"},
      {"cpu0", "connect", "7+0 error missing-target"},
      {"cpu0", "", "0+0 error missing-head"},
  };
  for (const auto &row : rows) {
    const CheckedCommand checked = check(row.processor, row.command);
    EXPECT_EQ(shown(checked.diagnostics), row.found) << row.command;
    const bool isError =
        std::string(row.found).find("error") != std::string::npos;
    EXPECT_EQ(checked.accepted, !isError) << row.command;
    EXPECT_EQ(checked.result, isError ? 3 : 0) << row.command;
  }
}

TEST_F(CheckForProcessorTest, WarnsOfNoCommandThatIsWrittenForTheProcessor) {
  const Board board(design, "etc");
  for (const char *processor : {"cpu0", "cpu1", "ppc0", "a9"}) {
    const std::optional<std::string> command =
        Session(board, processor).State().command;
    ASSERT_TRUE(command) << processor;
    EXPECT_EQ(shown(check(processor, *command).diagnostics), "") << *command;
  }
}

TEST_F(CheckForProcessorTest, SaysWhatTheProcessorAllows) {
  CommandDiagnostic one = check("cpu0", "connect lc stub").diagnostics.front();
  EXPECT_EQ(one.message,
            "'stub' is a connection that the processor does not allow");
  EXPECT_THAT(one.accepted, testing::ElementsAre("sim", "hdu"));
  one =
      check("cpu1", "connect lc hdu -debugdevice cpunr 1").diagnostics.front();
  EXPECT_EQ(one.message, "'1' is the number of another processor: this one "
                         "has number 2");
  EXPECT_THAT(one.accepted, testing::ElementsAre("2"));
}

TEST_F(CheckForProcessorTest, RefusesAProcessorThatIsNotThere) {
  try {
    check("cpu2", "connect lc hdu");
    FAIL();
  } catch (const Refusal &refusal) {
    EXPECT_EQ(refusal.kind, RefusalKind::unknownProcessor);
    EXPECT_EQ(refusal.value, "cpu2");
    EXPECT_EQ(refusal.suggestion, "cpu0");
    EXPECT_STREQ(refusal.what(),
                 "'cpu2' is no processor of the design; there are 'cpu0', "
                 "'cpu1', 'ppc0', 'a9', 'alone'; did you mean 'cpu0'?");
  }
  try {
    check("alone", "connect lc hdu");
    FAIL();
  } catch (const Refusal &refusal) {
    EXPECT_EQ(refusal.kind, RefusalKind::notDebuggable);
  }
}

// --- The examples of the codes ----------------------------------------------

bool has(const CheckedCommand &checked, const std::string &code) {
  for (const CommandDiagnostic &one : checked.diagnostics)
    if (one.code == code)
      return true;
  return false;
}

TEST(CheckCommand, FindsInEachExampleWhatItIsAnExampleOf) {
  std::vector<std::string> elsewhere;
  for (const Code &row : GetCodes()) {
    if (row.severity == CodeSeverity::loss)
      continue;
    CheckOptions options;
    options.ofFile = row.where == "in an option file";
    if (options.ofFile || row.where.empty()) {
      EXPECT_TRUE(has(CheckCommand(row.example, options), row.code))
          << row.code;
    } else {
      elsewhere.push_back(row.code);
    }
  }
  EXPECT_THAT(elsewhere,
              testing::ElementsAre("connection-not-allowed", "missing-svf-file",
                                   "target-differs", "kind-differs",
                                   "number-differs"));
}

TEST_F(CheckForProcessorTest, FindsInEachExampleWhatItIsAnExampleOf) {
  design.instancesOfType["lumacore"] = {"soft"};
  const struct {
    const char *code;
    const char *processor;
  } rows[] = {{"connection-not-allowed", "soft"},
              {"target-differs", "cpu0"},
              {"kind-differs", "ppc0"},
              {"number-differs", "cpu0"}};
  for (const auto &row : rows)
    EXPECT_TRUE(
        has(check(row.processor, FindCode(row.code)->example), row.code))
        << row.code;
}

} // namespace
