#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

using CommandLineTest = ToolTest;

const std::vector<std::string> subcommands{
    "list",   "design",   "show",         "set",        "command",
    "check",  "explain",  "explain-code", "diff",       "roundtrip",
    "cables", "language", "serve",        "completion", "manual",
    "help",   "init",     "sync",         "adopt"};

TEST_F(CommandLineTest, EveryLevelHasHelpWithAnExample) {
  Result run = this->run({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("Example:\n  zeldebug list board.xml\n"));
  for (const std::string &name : subcommands) {
    EXPECT_THAT(run.out, HasSubstr("\n  " + name + " "));
    const Result help = this->run({name, "--help"});
    EXPECT_EQ(help.status, 0) << name;
    EXPECT_THAT(help.out, HasSubstr("Usage: zeldebug " + name)) << name;
    EXPECT_THAT(help.out, HasSubstr("Example:\n  ")) << name;
    EXPECT_EQ(help.err, "") << name;
  }
}

TEST_F(CommandLineTest, HelpSaysThatCpuJtagCannotBeReadBack) {
  EXPECT_THAT(this->run({"set", "--help"}).out,
              HasSubstr("no command with this mark can be read back"));
}

TEST_F(CommandLineTest, TellsItsVersion) {
  const Result run = this->run({"--version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out,
              testing::MatchesRegex("zeldebug [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLineTest, NamesWhatThereIsAndTheNearestMatch) {
  const std::string optionsOfSet =
      "'--help', '--json', '-C', '--color', '--quiet', '--strict', "
      "'--library', '--view', '--kinds', "
      "'--max-instances', '--all', "
      "'--dry-run', '--force', '--mkdir', '--into', '--project', "
      "'--no-project', '--probe', '--profile', '--from', '--settings', "
      "'--copy-from', '--connection', '--stub-port', '--stub-baud', "
      "'--debug-device', '--icache', '--dcache', '--itag', '--dtag', '--tlb', "
      "'--dcr', '--rom', '--cable', '--frequency', '--port', '--esn', "
      "'--module', '--module-arg', '--cpu-jtag', '--device', '--clear-chain', "
      "'--address-map', '--unset-address-map', '--unset'";
  const struct {
    std::vector<std::string> line;
    std::string message;
  } rows[] = {
      {{"lst", "x"},
       "unknown subcommand 'lst'; there are 'list', 'design', 'kinds', 'show', "
       "'set', "
       "'command', 'init', 'sync', 'adopt', 'check', 'explain', "
       "'explain-code', 'diff', 'roundtrip', "
       "'cables', 'language', 'serve', 'completion', 'manual', 'help'; did "
       "you mean "
       "'list'?"},
      {{"frobnicate"},
       "unknown subcommand 'frobnicate'; there are 'list', 'design', 'kinds', "
       "'show', "
       "'set', 'command', 'init', 'sync', 'adopt', 'check', 'explain', "
       "'explain-code', 'diff', "
       "'roundtrip', 'cables', 'language', 'serve', 'completion', 'manual', "
       "'help'"},
      {{"list", "--jsn", "x"},
       "unknown option '--jsn' of 'list'; there are '--help', '--json', '-C', "
       "'--color', '--quiet', '--strict', "
       "'--library', '--view', '--kinds', '--max-instances', '--project', "
       "'--no-project', '--probe', '--profile'; did you mean '--json'?"},
      {{"set", "x", "y", "--frequncy=3MHz"},
       "unknown option '--frequncy' of 'set'; there are " + optionsOfSet +
           "; did you mean '--frequency'?"},
      {{"set", "x", "y", "--zzz"},
       "unknown option '--zzz' of 'set'; there are " + optionsOfSet},
      {{"cables", "--foo"},
       "unknown option '--foo' of 'cables'; there are '--help', '--json', "
       "'-C', '--color', '--quiet', '--strict'"},
      {{"--foo"},
       "unknown option '--foo' of 'zeldebug'; there are '--help', '--version', "
       "'--json', '-C', '--color', '--quiet', '--strict'"},
      {{"--jsn", "list", "x"},
       "unknown option '--jsn' of 'list'; there are '--help', '--json', '-C', "
       "'--color', '--quiet', '--strict', "
       "'--library', '--view', '--kinds', '--max-instances', '--project', "
       "'--no-project', '--probe', '--profile'; did you mean '--json'?"},
      {{"check", "connect", "lc", "hdu", "-cable", "type", "x"},
       "unknown option '-cable' of 'check'; there are '--help', '--json', "
       "'-C', '--color', '--quiet', '--strict', '--file', '--design', "
       "'--library', '--view', '--kinds', "
       "'--max-instances', '--processor', '--project', '--no-project', "
       "'--probe', '--profile'; a connect command is one argument: put it in "
       "quotes"},
      {{"list", "x", "y"}, "'list' takes no more arguments, but 'y' is left"},
  };
  for (const auto &row : rows) {
    const Result run = this->run(row.line);
    EXPECT_EQ(run.status, 2) << row.message;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zeldebug: error: " + row.message + "\n");
  }
}

TEST_F(CommandLineTest, AnOptionIsNoValueOfTheOneInFrontOfIt) {
  const struct {
    std::vector<std::string> line;
    const char *message;
  } rows[] = {
      {{"--cable", "--frequency", "3MHz"},
       "--cable: a value is missing, in front of '--frequency'"},
      {{"--cable", "--frequency=3MHz"},
       "--cable: a value is missing, in front of '--frequency=3MHz'"},
      {{"--port", "--json"},
       "--port: a value is missing, in front of "
       "'--json'"},
      {{"--cable", "quorla_podusb", "--port", "--esn", "x"},
       "--port: a value is missing, in front of '--esn'"},
  };
  for (const auto &row : rows) {
    std::vector<std::string> line{"command", board, "lumacore_0"};
    line.insert(line.end(), row.line.begin(), row.line.end());
    const Result run = this->run(line);
    EXPECT_EQ(run.status, 2) << row.message;
    EXPECT_EQ(run.err, "zeldebug: error: " + std::string(row.message) + "\n");
  }
  // A text that only looks like one is a text, where it is written as one.
  const Result run = this->run({"command", board, "lumacore_0", "--cable",
                                "quorla_podusb", "--esn=-1--port"});
  EXPECT_EQ(run.status, 0);
}

TEST_F(CommandLineTest, HelpMayStandInFront) {
  EXPECT_EQ(this->run({"help", "list"}).out, this->run({"list", "--help"}).out);
  EXPECT_EQ(this->run({"help"}).out, this->run({"--help"}).out);
  const Result unknown = this->run({"help", "lst"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err,
              StartsWith("zeldebug: error: unknown subcommand 'lst'; there are "
                         "'list', "));
  EXPECT_THAT(unknown.err, HasSubstr("; did you mean 'list'?\n"));
}

TEST_F(CommandLineTest, FlagsTakeNoValue) {
  const std::vector<std::vector<std::string>> lines{
      {"set", board, "lumacore_0", "--dry-run=foo"},
      {"set", board, "lumacore_0", "--cpu-jtag=0"},
      {"set", board, "lumacore_0", "--clear-chain=1"},
      {"set", board, "lumacore_0", "--unset-address-map=true"},
      {"set", board, "--all=false"},
      {"show", board, "lumacore_0", "--origin="},
  };
  for (const std::vector<std::string> &line : lines) {
    const std::string &word = line.back();
    const Result run = this->run(line);
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_EQ(run.out, "") << word;
    EXPECT_EQ(run.err, "zeldebug: error: " + word.substr(0, word.find('=')) +
                           " takes no value: '" + word + "'\n");
  }
  for (const char *word : {"--json=true", "--json=1", "--json="}) {
    const json document = runJson({"list", board, word}, 2);
    EXPECT_EQ(document["command"], "list");
    EXPECT_EQ(document["failure"]["message"],
              std::string("--json takes no value: '") + word + "'");
  }
}

TEST_F(CommandLineTest, AFailureTellsItsParts) {
  const json unknown =
      runJson({"set", board, "lumacore_0", "--cable", "quorla_podusp"}, 2);
  const json &failure = unknown["failure"];
  EXPECT_EQ(failure["code"], "bad-value");
  EXPECT_EQ(failure["option"], "--cable");
  EXPECT_EQ(failure["value"], "quorla_podusp");
  EXPECT_EQ(failure["suggestion"], "quorla_podusb");
  EXPECT_THAT(failure["accepted"], testing::Contains(json("digilent_plugin")));
  EXPECT_THAT(failure["accepted"],
              testing::Not(testing::Contains(json("quorla_tcf"))));
  folder.write("broken.xml", "<?xml version=\"1.0\"?>\n<design>\n</desing>\n");
  const json broken = runJson({"list", "broken.xml"}, 3)["failure"];
  EXPECT_EQ(broken["code"], "unreadable");
  EXPECT_EQ(broken["file"], "broken.xml");
  EXPECT_EQ(broken["line"], 3);
  save("lumacore_0", "\nconnect nothing");
  const json saved = runJson({"command", board, "lumacore_0"}, 3)["failure"];
  EXPECT_EQ(saved["file"], "etc/kvo_lumacore_0.opt");
  EXPECT_EQ(saved["line"], 2);
}

TEST_F(CommandLineTest, ColourIsChosen) {
  EXPECT_THAT(this->run({"list", board, "--color", "always"}).out,
              StartsWith("\x1b[1m"));
  EXPECT_THAT(this->run({"lst", "--color=always"}).out, "");
  EXPECT_THAT(this->run({"list", board, "--color=never"}).out,
              StartsWith("PROCESSOR"));
  const Result run = this->run({"list", board, "--color", "allways"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "zeldebug: error: --color: 'allways' is unknown; accepted are "
            "'auto', 'always', 'never'; did you mean 'always'?\n");
}

TEST_F(CommandLineTest, AnEmptyFolderIsNone) {
  const Result run = this->run({"show", board, "lumacore_0", "-C", ""});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err, "zeldebug: error: -C '': No such file or directory\n");
}

TEST_F(CommandLineTest, NamesWhatIsMissing) {
  EXPECT_EQ(this->run({}).status, 2);
  EXPECT_EQ(this->run({}).err, "zeldebug: error: A subcommand is required\n");
  EXPECT_EQ(this->run({"init"}).err, "zeldebug: error: DESIGN is required\n");
  EXPECT_EQ(this->run({"set", "x", "y", "--port"}).status, 2);
}

TEST_F(CommandLineTest, ASubcommandsNameMayBeAProcessors) {
  const Result run = this->run({"show", board, "list"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err,
              StartsWith("zeldebug: error: 'list' is no processor of the "
                         "design; there are 'lumacore_0', "));
}

TEST_F(CommandLineTest, TextsAreDocumentsInJson) {
  const struct {
    std::vector<std::string> line;
    std::string command;
  } rows[] = {{{"--help"}, ""},
              {{"--version"}, ""},
              {{"set", "--help"}, "set"},
              {{"manual"}, "manual"},
              {{"completion", "bash"}, "completion"},
              {{"complete"}, "complete"}};
  for (const auto &row : rows) {
    SCOPED_TRACE(row.line[0]);
    const json document = runJson(row.line);
    EXPECT_EQ(document["command"], row.command);
    EXPECT_EQ(document["text"], this->run(row.line).out);
  }
}

TEST_F(CommandLineTest, NoOptionStandsBehindTwoDashes) {
  const Result run = this->run({"check", "--", "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("unknown-head"));
}

TEST_F(CommandLineTest, WrongUseIsADocumentInJson) {
  const json document = runJson({"list", "--jsn"}, 2);
  EXPECT_EQ(document["failure"]["status"], 2);
  EXPECT_EQ(document["failure"]["message"],
            "unknown option '--jsn' of 'list'; there are '--help', '--json', "
            "'-C', '--color', '--quiet', '--strict', '--library', '--view', "
            "'--kinds', '--max-instances', '--project', '--no-project', "
            "'--probe', '--profile'; did "
            "you mean '--json'?");
}

TEST_F(CommandLineTest, TheManualHoldsEveryOption) {
  const std::string manual = this->run({"manual"}).out;
  EXPECT_THAT(manual, StartsWith(".TH ZELDEBUG 1"));
  for (const std::string &name : subcommands)
    EXPECT_THAT(manual,
                HasSubstr("\n.SS " +
                          (name == "explain-code" ? "explain\\-code" : name) +
                          "\n"));
  for (const char *option : {"\\-\\-esn", "\\-\\-address\\-map", "\\-\\-origin",
                             "\\-\\-library", "\\-\\-json"})
    EXPECT_THAT(manual, HasSubstr(option));
  EXPECT_THAT(manual, HasSubstr(".SH EXIT STATUS"));
}

} // namespace
TEST_F(CommandLineTest, WhatIsUnknownIsAFailureWithItsParts) {
  const struct {
    std::vector<std::string> line;
    const char *option;
    const char *value;
    const char *suggestion;
  } rows[] = {
      {{"explain-code", "value-cutt"}, "CODE", "value-cutt", "value-cut"},
      {{"language", "quorla_podsub"}, "WORD", "quorla_podsub", "quorla_podusb"},
      {{"completion", "bsh"}, "SHELL", "bsh", "bash"},
      {{"cables", "--color", "nevr"}, "--color", "nevr", "never"},
  };
  for (const auto &row : rows) {
    const json failure = runJson(row.line, 2)["failure"];
    EXPECT_EQ(failure["code"], "bad-value") << row.value;
    EXPECT_EQ(failure["option"], row.option);
    EXPECT_EQ(failure["value"], row.value);
    EXPECT_EQ(failure["suggestion"], row.suggestion);
    EXPECT_THAT(failure["accepted"], testing::Contains(row.suggestion));
  }
  const json number = runJson({"list", board, "--max-instances", "x"}, 2);
  EXPECT_EQ(number["failure"]["option"], "--max-instances");
  EXPECT_EQ(number["failure"]["value"], "x");
  // A value that was not given is none.
  EXPECT_FALSE(runJson({"cables", "--foo"}, 2)["failure"].contains("value"));
  EXPECT_EQ(runJson({"cables", "--color", ""}, 2)["failure"]["value"], "");
}

TEST_F(CommandLineTest, ColourIsChosenForFaultsOfTheLineAsWell) {
  EXPECT_THAT(run({"--color", "always", "lst"}).err, HasSubstr("\x1b[31m"));
  EXPECT_THAT(run({"--color=never", "lst"}).err,
              testing::Not(HasSubstr("\x1b[")));
  EXPECT_THAT(run({"lst"}).err, testing::Not(HasSubstr("\x1b[")));
}

} // namespace tool
