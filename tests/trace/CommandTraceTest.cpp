// Tracing reads as reading does, and tells what was wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/Cables.h"
#include "support/StateText.h"
#include "support/Targets.h"
#include "trace/Corpus.h"

namespace ZelDebugDialog::test {

namespace {

/// An engine with one processor of its own.
class Dialog {
public:
  Dialog() : imp(*engine.GetProcessorList(nullptr)) {
    imp.currentProcessor = &record;
  }
  ~Dialog() {
    ReleaseChainRecords(imp.jtagChain);
    imp.currentProcessor = nullptr;
  }
  Dialog(const Dialog &) = delete;
  Dialog &operator=(const Dialog &) = delete;

  std::string error() {
    std::string text;
    engine.GetErrorStr(text);
    return text;
  }

  Engine engine;
  EngineImp &imp;
  ProcessorInfoImp record;
};

/// What reading leaves behind.
struct Outcome {
  std::optional<int> result; // none: it raised the out-of-range error
  std::map<std::string, std::string> settings;
  std::string error;
  std::string connectCommand;
  std::string currentOption;

  bool operator==(const Outcome &other) const {
    return result == other.result && settings == other.settings &&
           error == other.error && connectCommand == other.connectCommand &&
           currentOption == other.currentOption;
  }
};

template <class Read> Outcome outcomeOf(const Read &read) {
  Dialog dialog;
  dialog.engine.SetErrorStr("an earlier message");
  KvoOption_Parser::current_option = "-earlier";
  Outcome outcome;
  try {
    outcome.result = read(dialog.imp);
  } catch (const std::out_of_range &) {
  }
  outcome.settings = settingsOf(dialog.imp);
  outcome.error = dialog.error();
  outcome.connectCommand = dialog.record.connectCommand;
  outcome.currentOption = KvoOption_Parser::current_option;
  return outcome;
}

std::vector<std::string> allCommands() {
  std::vector<std::string> commands = acceptedCommands;
  commands.insert(commands.end(), refusedCommands.begin(),
                  refusedCommands.end());
  commands.insert(commands.end(), commandsWithLoneDash.begin(),
                  commandsWithLoneDash.end());
  return commands;
}

CommandTrace traceOf(const std::string &command,
                     AfterFault after = AfterFault::stop) {
  Dialog dialog;
  CommandTrace trace;
  try {
    TraceKvoCommand(command, dialog.imp, trace, after);
  } catch (const std::out_of_range &) {
  }
  return trace;
}

std::string wordAt(const std::string &command, const CommandTrace &trace,
                   std::size_t index) {
  if (index >= trace.words.size())
    return "<end>";
  return command.substr(trace.words[index].offset, trace.words[index].length);
}

} // namespace

TEST(CommandTrace, LeavesWhatReadingLeaves) {
  for (const std::string &command : allCommands()) {
    SCOPED_TRACE(command);
    CommandTrace trace;
    const Outcome read = outcomeOf([&](EngineImp &imp) {
      return KvoOption_Parser::ReadKvoCommand(command, imp);
    });
    const Outcome traced = outcomeOf([&](EngineImp &imp) {
      return TraceKvoCommand(command, imp, trace, AfterFault::stop);
    });
    EXPECT_TRUE(read == traced);
    EXPECT_EQ(read.error, traced.error);
    EXPECT_EQ(read.settings, traced.settings);
  }
}

TEST(CommandTrace, IgnoresWhatStandsBehindALoneDash) {
  for (const std::string head : {"connect lc hdu -quiet - ", "connect - ",
                                 "connect lc stub -comm serial -port - "}) {
    const std::string command = head + "-bar -cable type";
    const CommandTrace trace = traceOf(command);
    ASSERT_GE(trace.words.size(), 4U) << command;
    const std::size_t dash = trace.words.size() - 4;
    EXPECT_EQ(wordAt(command, trace, dash), "-");
    EXPECT_NE(trace.words[dash].role, WordRole::ignored);
    EXPECT_EQ(wordAt(command, trace, dash + 1), "-bar");
    EXPECT_EQ(wordAt(command, trace, dash + 3), "type");
    for (const std::size_t behind : {1U, 2U, 3U})
      EXPECT_EQ(trace.words[dash + behind].role, WordRole::ignored) << command;
    ASSERT_EQ(trace.faults.size(), 1U) << command;
    EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::loneDash);
  }
}

TEST(CommandTrace, LeavesAnEarlierMessageWhereReadingHasNone) {
  const auto keep = [](EngineImp &imp) {
    CommandTrace trace;
    return TraceKvoCommand("connect lc stub -comm can", imp, trace,
                           AfterFault::stop);
  };
  EXPECT_EQ(outcomeOf(keep).error, "an earlier message");
}

TEST(CommandTrace, WorksWithoutAnEngineForMessages) {
  EngineImp imp;
  ProcessorInfoImp record;
  imp.currentProcessor = &record;
  CommandTrace trace;
  EXPECT_EQ(
      TraceKvoCommand("connect lc hdu -foo", imp, trace, AfterFault::stop), 3);
  ASSERT_EQ(trace.faults.size(), 1U);
  EXPECT_EQ(trace.faults[0].message, "");
}

TEST(CommandTrace, DropsWhatATraceHeld) {
  Dialog dialog;
  CommandTrace trace;
  TraceKvoCommand("connect nothing", dialog.imp, trace, AfterFault::stop);
  TraceKvoCommand("connect lc hdu", dialog.imp, trace, AfterFault::stop);
  EXPECT_EQ(trace.words.size(), 3U);
  EXPECT_TRUE(trace.faults.empty());
}

TEST(CommandTrace, HasAFaultForEachRefusedCommandAndSaysWhichWord) {
  using Kind = CommandFaultKind;
  struct Row {
    const char *command;
    Kind kind;
    const char *word;
    const char *message;
    std::vector<std::string> accepted;
    std::size_t faults = 1;
  };
  const std::vector<std::string> heads{"connect", "kconnect", "vpconnect",
                                       "kvpconnect"};
  const std::vector<std::string> &targets = support::targets;
  const std::vector<std::string> registers{"USER1", "USER2", "USER3", "USER4"};
  const std::vector<std::string> processorOptions{
      "-debugdevice",  "-pfsl", "-quiet", "-noattach", "-writeonly",
      "-cable",        "-comm", "-port",  "-baud",     "-timeout",
      "-configdevice", "-sim",  "-bscan"};
  const std::vector<std::string> cableParameters{
      "type",      "port",  "esn",        "url",
      "frequency", "fname", "modulename", "modulearg"};
  const std::vector<Row> rows{
      {"", Kind::missingHead, "<end>", "", heads},
      {"reconnect lc", Kind::unknownHead, "reconnect", "", heads},
      {"connect", Kind::missingTarget, "<end>", "", targets},
      {"connect mips hw", Kind::unknownTarget, "mips", "", targets},
      {"connect lc",
       Kind::missingConnection,
       "<end>",
       "",
       {"sim", "stub", "hdu"}},
      {"connect ppc hdu", Kind::unknownConnection, "hdu", "", {"sim", "hw"}},
      {"connect arm sim", Kind::unknownConnection, "sim", "", {"hw"}},
      {"connect lc sim -mem 5", Kind::unknownOption, "-mem", "", {"-memsize"}},
      {"connect lc sim -memsize", Kind::missingValue, "<end>", "", {}},
      {"connect lc hdu value", Kind::notAnOption, "value", "", {}},
      {"connect lc hdu -foo 1", Kind::unknownOption, "-foo",
       "UNKNOWN Option '-foo'", processorOptions},
      {"connect lc stub -comm can",
       Kind::refusedValue,
       "can",
       "",
       {"jtag", "serial"}},
      {"connect lc stub -port -baud 5",
       Kind::missingValue,
       "-baud",
       "",
       {},
       2}, // the 5 is no option
      {"connect lc hdu -bscan USER5", Kind::refusedValue, "USER5", "",
       registers},
      {"connect lc hdu -bscan", Kind::missingValue, "<end>", "", registers},
      {"connect lc hdu -bscan -quiet", Kind::missingValue, "-quiet", "",
       registers},
      {"connect lc hdu -bscan -", Kind::loneDash, "-", "", {}},
      {"connect lc hdu -pfsl type x",
       Kind::refusedValue,
       "x",
       "UNKNOWN Parameter 'x' for  option 'type'",
       {"m", "s", "ms"}},
      {"connect lc hdu -pfsl speed 1",
       Kind::unknownParameter,
       "speed",
       "UNKNOWN Parameter 'speed' for  option '-pfsl'",
       {"port", "type"}},
      {"connect lc hdu -cable type quorla_svffile", Kind::refusedValue,
       "quorla_svffile",
       "Cable Type quorla_svffile is not supported in this release\n",
       support::cableWords()},
      {"connect lc hdu -cable kind 1", Kind::unknownParameter, "kind",
       "UNKNOWN Parameter 'kind' for  option '-cable'", cableParameters},
      {"connect lc hdu -cable port", Kind::missingValue, "<end>", "", {}},
      // An unknown name is not looked at before there is a value.
      {"connect lc hdu -cable colour", Kind::missingValue, "<end>", "", {}},
      {"connect lc hdu -configdevice colour",
       Kind::missingValue,
       "<end>",
       "",
       {}},
      {"connect lc hdu -debugdevice colour",
       Kind::missingValue,
       "<end>",
       "",
       {}},
      {"connect lc hdu -pfsl colour", Kind::missingValue, "<end>", "", {}},
      {"connect lc hdu -pfsl type",
       Kind::missingValue,
       "<end>",
       "",
       {"m", "s", "ms"}},
      {"vpconnect lc -config -ipcport",
       Kind::missingValue,
       "-ipcport",
       "",
       {"cycle_approximate"}},
      {"connect lc hdu -cable port -quiet",
       Kind::missingValue,
       "-quiet",
       "",
       {}},
      {"connect lc hdu -cable type quorla_plugin",
       Kind::missingModule,
       "<end>",
       "Plug-in Module NOT specified for Cable Type quorla_plugin",
       {}},
      {"connect lc hdu -cable frequency 7 type quorla_parallel3 port p",
       Kind::refusedFrequency,
       "7",
       "UnSupported Quorla Parallel3 Cable Frequency - 7\n\t Supported "
       "Frequencies: 200000",
       {"200000"}},
      {"connect lc hdu -cable type digilent_plugin frequency 1",
       Kind::refusedFrequency,
       "1",
       "",
       {}},
      {"connect lc hdu -configdevice jtagport fpga",
       Kind::refusedValue,
       "fpga",
       "",
       {"cpu"}},
      {"connect lc hdu -configdevice jtagpin cpujtag",
       Kind::unknownParameter,
       "jtagpin",
       "UNKNOWN Parameter 'jtagpin' for option '-configDevice'",
       {"jtagport", "devicenr", "idcode", "irlength", "partname", "isfpga",
        "hardppc", "nppc"}},
      {"connect lc hdu -sim -icf f",
       Kind::unknownOption,
       "-icf",
       "UNKNOWN  ModelSim Option ''",
       {"-ipcport", "-configdevice"}},
      {"connect lc hdu -debugdevice fpuType xp",
       Kind::refusedValue,
       "xp",
       "UNKNOWN Parameter 'xp' for  option 'fpuType'",
       {"sp", "dp"}},
      {"connect lc hdu -debugdevice proctype ppc603",
       Kind::refusedValue,
       "ppc603",
       "",
       {"ppc405", "ppc440"}},
      {"connect ppc hw -debugdevice tlbStartAdr 0x18000",
       Kind::refusedValue,
       "0x18000",
       "TLB Start Address should be aligned at 64k boundry",
       {}},
      {"connect ppc sim -ipcport h:1 -foo",
       Kind::unknownOption,
       "-foo",
       "UNKNOWN  PowerPC Sim Option 'h:1'",
       {"-icf", "-ipcport", "-debugdevice"}},
      {"connect ppc sim -icf -ipcport h:1", Kind::notAnOption, "h:1", "", {}},
      {"connect ppc sim -debugdevice devicenr 1 -ipcport h:1",
       Kind::notAnOption,
       "h:1",
       "",
       {}},
      {"connect hdu -uart -foo",
       Kind::unknownOption,
       "-foo",
       "UNKNOWN Option '-foo'",
       {"-uart", "-bscan", "-debugdevice", "-cable", "-configdevice"}},
      {"connect dcc -bscan USER1",
       Kind::unknownOption,
       "-bscan",
       "UNKNOWN Option ''",
       {"-uart", "-debugdevice", "-cable"}},
      {"connect kmtc -uart",
       Kind::unknownOption,
       "-uart",
       "UNKNOWN Option ''",
       {"-debugdevice", "-cable", "-configdevice"}},
      {"vpconnect", Kind::missingTarget, "<end>", "", {"lc"}},
      {"vpconnect ppc", Kind::unknownTarget, "ppc", "", {"lc"}},
      {"vpconnect lc -config exact",
       Kind::refusedValue,
       "exact",
       "",
       {"cycle_approximate"}},
      {"vpconnect lc -config",
       Kind::missingValue,
       "<end>",
       "",
       {"cycle_approximate"}},
      {"connect lc hdu -debugdevice fpuType -quiet",
       Kind::missingValue,
       "-quiet",
       "",
       {"sp", "dp"}},
      {"connect lc stub -comm",
       Kind::missingValue,
       "<end>",
       "",
       {"jtag", "serial"}},
      {"connect lc stub -comm -quiet",
       Kind::missingValue,
       "-quiet",
       "",
       {"jtag", "serial"}},
      {"vpconnect lc -ipcport", Kind::missingValue, "<end>", "", {}},
      {"vpconnect lc -foo",
       Kind::unknownOption,
       "-foo",
       "UNKNOWN virtual platform Option 'lc'",
       {"-config", "-ipcport"}},
      {"connect lc hdu -cable port -", Kind::loneDash, "-", "", {}},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    const CommandTrace trace = traceOf(row.command);
    ASSERT_EQ(trace.faults.size(), row.faults);
    const CommandFault &fault = trace.faults[0];
    EXPECT_EQ(fault.kind, row.kind);
    EXPECT_EQ(wordAt(row.command, trace, fault.word), row.word);
    EXPECT_EQ(fault.message, row.message);
    EXPECT_EQ(fault.accepted, row.accepted);
  }
}

TEST(CommandTrace, NamesAMissingSvfFile) {
  Dialog dialog;
  dialog.engine.SetCableType(Engine::QUORLA_SVFFILE);
  CommandTrace trace;
  EXPECT_EQ(TraceKvoCommand("connect lc hdu -cable port p", dialog.imp, trace,
                            AfterFault::stop),
            3);
  ASSERT_EQ(trace.faults.size(), 1U);
  EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::missingSvfFile);
  EXPECT_EQ(trace.faults[0].message,
            "SVF File NOT specified for Cable Type quorla_svffile");
}

TEST(CommandTrace, HasNoFaultInAnAcceptedCommandButThoseThatReadersOverlook) {
  const std::vector<std::string> overlooked{
      "connect lc stub -port",
      "connect lc stub -port -baud -quiet",
      "connect lc stub -comm -cable -debugdevice devicenr 3",
      "connect ppc sim -ipcport :5 -ipcport",
      "connect ppc sim -debugdevice fpuType none",
      "connect ppc sim -icf"};
  for (const std::string &command : acceptedCommands) {
    SCOPED_TRACE(command);
    const bool isOverlooked = std::find(overlooked.begin(), overlooked.end(),
                                        command) != overlooked.end();
    EXPECT_EQ(traceOf(command).faults.size(), isOverlooked ? 1U : 0U);
  }
}

TEST(CommandTrace, GoesOnAtTheNextOptionOfTheSetWithTheFault) {
  struct Row {
    const char *command;
    std::vector<std::string> wordsAtFault;
  };
  const std::vector<Row> rows{
      {"connect lc hdu -debugdevice foo 1 devicenr -cable type xx -uart "
       "-configdevice devicenr 3 idcode 5 - -baud x -bscan user5 - q",
       {"foo", "xx", "-uart", "-", "user5", "-"}},
      {"connect lc hdu value value -foo value -quiet", {"value", "-foo"}},
      {"connect hdu value -foo -uart value -bscan USER9 -cable type z",
       {"value", "-foo", "value", "USER9", "z"}},
      {"connect ppc sim value -foo -icf f g -ipcport h:1",
       {"value", "-foo", "g"}},
      {"vpconnect lc -foo 1 -config x -ipcport -ipcport h:1",
       {"-foo", "x", "-ipcport"}},
      {"connect lc hdu -sim -foo -configdevice x 1 -ipcport a", {"-foo", "x"}},
      {"connect foo hdu -foo", {"foo"}},
      {"connect lc foo -foo", {"foo"}},
      // The option word in a value's place begins the next clause.
      {"connect lc hdu -cable port -cable esn -debugdevice devicenr 1",
       {"-cable", "-debugdevice"}},
      {"connect lc hdu -debugdevice devicenr -foo -cable type",
       {"-foo", "-foo", "<end>"}},
      {"connect hdu -debugdevice devicenr -uart -foo", {"-uart", "-foo"}},
      {"vpconnect lc -config -config -ipcport h:1", {"-config", "-ipcport"}},
      // So it does in the place of an option's only value.
      {"connect lc hdu -comm -cable type foo", {"-cable", "foo"}},
      {"connect lc stub -port -baud 9600 -timeout 5", {"-baud"}},
      {"connect lc stub -baud -timeout -comm can",
       {"-timeout", "-comm", "can"}},
      {"connect lc hdu -baud -debugdevice devicenr 300", {"-debugdevice"}},
      {"connect lc stub -timeout -foo -port", {"-foo", "-foo", "<end>"}},
      {"connect lc stub -port -quiet yes", {"-quiet", "yes"}},
      {"connect lc stub -port - 5 -comm can", {"-", "can"}},
      {"connect lc hdu -bscan -cable type foo", {"-cable", "foo"}},
      {"connect lc hdu -bscan -bscan USER5", {"-bscan", "USER5"}},
      {"connect lc hdu -bscan - USER5 -foo", {"-", "-foo"}},
      {"connect hdu -bscan -cable type foo", {"-cable", "foo"}},
      // The simulators overlook what is wrong in the clauses that they borrow.
      {"connect ppc sim -debugdevice devicenr -icf f -foo", {"-icf", "-foo"}},
      {"connect ppc sim -debugdevice devicenr -ipcport", {"-ipcport", "<end>"}},
      {"connect ppc sim -debugdevice foo 1 devicenr 2 -icf f g", {"foo", "g"}},
      {"connect ppc sim -debugdevice fpuType none -icf f", {"none"}},
      {"connect lc hdu -sim -configdevice devicenr -ipcport h:3 x",
       {"-ipcport", "x"}},
      {"connect lc hdu -sim -configdevice foo 1 idcode 2 -icf f",
       {"foo", "-icf"}},
      // Behind a whole clause of theirs it is lost, and its value left over.
      {"connect ppc sim -debugdevice devicenr 1 -ipcport h:1", {"h:1"}},
      {"connect lc hdu -quiet", {}},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    Dialog dialog;
    CommandTrace trace;
    const int result =
        TraceKvoCommand(row.command, dialog.imp, trace, AfterFault::goOn);
    EXPECT_EQ(result, row.wordsAtFault.empty() ? 0 : 3);
    std::vector<std::string> words;
    for (const CommandFault &fault : trace.faults)
      words.push_back(wordAt(row.command, trace, fault.word));
    EXPECT_EQ(words, row.wordsAtFault);
  }
}

TEST(CommandTrace, ReadsLaterOptionsAfterAFault) {
  Dialog dialog;
  CommandTrace trace;
  TraceKvoCommand("connect lc hdu -foo -debugdevice devicenr 7", dialog.imp,
                  trace, AfterFault::goOn);
  EXPECT_EQ(dialog.record.debugDevice, 7);
}

TEST(CommandTrace, ReadsTheClauseOfAnOptionThatStandsInAValuesPlace) {
  for (const std::string lacking :
       {"connect lc hdu -cable port", "connect lc stub -comm",
        "connect lc stub -port", "connect lc stub -baud",
        "connect lc stub -timeout", "connect lc hdu -bscan",
        "connect hdu -bscan", "connect hdu -configdevice devicenr",
        "connect ppc sim -debugdevice cpunr"}) {
    SCOPED_TRACE(lacking);
    Dialog dialog;
    CommandTrace trace;
    const std::string command = lacking + " -debugdevice devicenr 7";
    TraceKvoCommand(command, dialog.imp, trace, AfterFault::goOn);
    EXPECT_EQ(dialog.record.debugDevice, 7);
    ASSERT_EQ(trace.faults.size(), 1U);
    EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::missingValue);
    const CommandWord &word = trace.words[trace.faults[0].word];
    EXPECT_EQ(command.substr(word.offset, word.length), "-debugdevice");
    EXPECT_EQ(word.role, WordRole::option);
    // Plain reading loses it, and its clause with it.
    dialog.record.debugDevice = 0;
    TraceKvoCommand(command, dialog.imp, trace, AfterFault::stop);
    EXPECT_EQ(trace.words[trace.faults[0].word].role, WordRole::lost);
    EXPECT_EQ(dialog.record.debugDevice, 0);
  }
}

class EmptyDesign : public HHSMHwManager {
public:
  void getProcessorInstances(std::vector<std::string> &, bool) override {}
  void getIpInstances(std::vector<std::string> &, HwIpType) override {}
  void getIpInstances(std::vector<std::string> &,
                      const std::string &) override {}
  std::string getIpName(const std::string &) override { return {}; }
  void getHduConnectedProcessorList(std::vector<std::string> &,
                                    const std::string &) override {}
  void getPeripherals(std::vector<std::string> &,
                      const std::string &) override {}
  std::string getParameterValue(const std::string &,
                                const std::string &) override {
    return {};
  }
};

TEST(CommandTrace, SaysWhenTheDesignForbidsTheConnection) {
  EmptyDesign design;
  Dialog dialog;
  dialog.imp.hwManager = &design;
  dialog.record.connectionMask = 1;
  for (const char *const command :
       {"connect lc hdu", "connect ppc hw", "vpconnect lc"}) {
    SCOPED_TRACE(command);
    CommandTrace trace;
    EXPECT_EQ(TraceKvoCommand(command, dialog.imp, trace, AfterFault::stop), 3);
    ASSERT_EQ(trace.faults.size(), 1U);
    EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::connectionNotAllowed);
    EXPECT_EQ(trace.faults[0].word, trace.words.size() - 1);
  }
}

/// What a processor is, the design has said.
TEST(CommandTrace, NamesOnlyTheConnectionWhereThereIsADesign) {
  EmptyDesign design;
  Dialog dialog;
  dialog.imp.hwManager = &design;
  dialog.record.connectionMask = 0xF;
  using Fields = std::vector<std::string>;
  for (const char *const command :
       {"connect lc hdu", "connect ppc hw", "vpconnect lc"}) {
    SCOPED_TRACE(command);
    CommandTrace trace;
    EXPECT_EQ(TraceKvoCommand(command, dialog.imp, trace, AfterFault::stop), 0);
    EXPECT_EQ(trace.words.back().fields, Fields{"connectionType"});
    const std::size_t before = trace.words.size() - 2;
    EXPECT_EQ(trace.words[before].fields, Fields());
  }
}

} // namespace ZelDebugDialog::test
