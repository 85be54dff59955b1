// What users and their machines do to a program.
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "ToolTest.h"
#include "support/Targets.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::HasSubstr;

class FaultsTest : public ToolTest {
protected:
  Result set(const std::vector<std::string> &settings = {},
             const Surroundings &surroundings = {}) {
    std::vector<std::string> line{"set", board, "lumacore_0"};
    line.insert(line.end(), settings.begin(), settings.end());
    return run(line, surroundings);
  }

  /// `set` and `show` must end with 3 and this problem, and leave the file
  /// alone.
  void expectUnreadable(const std::string &problem,
                        const Surroundings &surroundings = {}) {
    std::error_code ignored;
    const bool mayForce =
        fs::is_regular_file("etc/kvo_lumacore_0.opt", ignored);
    const std::string error = "etc/kvo_lumacore_0.opt" + problem;
    const Result changed = set({"--debug-device", "1"}, surroundings);
    EXPECT_EQ(changed.status, 3);
    EXPECT_EQ(changed.out, "");
    EXPECT_EQ(changed.err,
              "zeldebug: error: lumacore_0: " + error + "; it stays as it is" +
                  (mayForce ? " (--force starts from the defaults)\n" : "\n"));
    const Result shown = run({"show", board, "lumacore_0"}, surroundings);
    EXPECT_EQ(shown.status, 3);
    EXPECT_EQ(shown.err, "zeldebug: error: " + error + "\n");
  }
};

TEST_F(FaultsTest, AProcessorThatIsNotInTheDesign) {
  for (const char *subcommand : {"show", "set", "command"}) {
    const Result run = this->run({subcommand, board, "lumacore_O"});
    EXPECT_EQ(run.status, 2) << subcommand;
    EXPECT_EQ(
        run.err,
        "zeldebug: error: 'lumacore_O' is no processor of the design; there "
        "are 'lumacore_0', 'lumacore_1', 'lumacore_2', 'ppc405_0', "
        "'ppc440_0', 'a9_0', 'a9_1', 'r5_0'; did you mean 'lumacore_0'?\n");
  }
}

/// What a terminal would obey, a line end, and a byte that is no UTF-8.
const std::string hostile = "x\x1b[31m\n\x7f\xff\xc2\x9b";
const std::string escaped = "x\\x1b[31m\\x0a\\x7f\\xff\\xc2\\x9b";

TEST_F(FaultsTest, WhatIsNotPrintableIsEscaped) {
  const std::vector<std::vector<std::string>> lines = {
      {hostile},
      {"--" + hostile},
      {"list", hostile},
      {"list", board, hostile},
      {"list", board, "--" + hostile},
      {"list", board, "--library", hostile},
      {"list", board, "--kinds", hostile},
      {"list", board, "--view", hostile},
      {"list", board, "--max-instances", hostile},
      {"show", board, hostile},
      {"show", "--file", hostile},
      {"show", board, "lumacore_0", "-C", hostile},
      {"set", board, "lumacore_0", "--connection", hostile},
      {"set", board, "lumacore_0", "--cable", hostile},
      {"set", board, "lumacore_0", "--frequency", hostile},
      {"set", board, "lumacore_0", "--device", hostile},
      {"set", board, "lumacore_0", "--device", hostile + "=1"},
      {"set", board, "lumacore_0", "--rom", hostile},
      {"set", board, "lumacore_0", "--icache", hostile},
      {"set", board, "lumacore_0", "--port", hostile},
      {"set", board, "lumacore_0", "--from", hostile},
      {"command", board, "lumacore_0", "--from", "connect lc " + hostile},
      {"explain", hostile},
      {"explain-code", hostile},
      {"diff", hostile, "connect lc sim"},
      {"roundtrip", hostile},
      {"completion", hostile},
      {"design", board, "--under", hostile, "--graph"},
  };
  for (const std::vector<std::string> &line : lines) {
    const Result run = this->run(line);
    EXPECT_NE(run.status, 0) << testing::PrintToString(line);
    EXPECT_THAT(run.err, HasSubstr(escaped)) << testing::PrintToString(line);
    EXPECT_EQ(run.err.find_first_of("\x1b\x7f\xff"), std::string::npos)
        << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }
}

TEST_F(FaultsTest, WhatIsNotPrintableInADesignIsEscaped) {
  folder.write("odd.xml",
               "<design><componentInstances><componentInstance>"
               "<instanceName>u&#27;[31m&#10;&#x7f;&#x9b;</instanceName>"
               "</componentInstance></componentInstances></design>");
  for (const char *subcommand : {"design", "list"}) {
    const Result run = this->run({subcommand, "odd.xml"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ((run.out + run.err).find_first_of("\x1b\x7f"), std::string::npos);
    EXPECT_EQ((run.out + run.err).find("\xc2\x9b"), std::string::npos);
  }
  EXPECT_THAT(run({"design", "odd.xml"}).err,
              HasSubstr("instance 'u\\x1b[31m\\x0a\\x7f\\xc2\\x9b'"));
}

TEST_F(FaultsTest, AnEmptyArgumentIsNotAMissingOne) {
  const std::string processors =
      "'' is no processor of the design; there are 'lumacore_0', 'lumacore_1', "
      "'lumacore_2', 'ppc405_0', 'ppc440_0', 'a9_0', 'a9_1', 'r5_0'";
  const std::string noFile = "'': there is no such file";
  const struct {
    std::vector<std::string> line;
    int status;
    std::string problem;
  } rows[] = {
      {{"set", board, ""}, 2, processors},
      {{"show", board, ""}, 2, processors},
      {{"command", board, ""}, 2, processors},
      {{"set", board, "", "--all"}, 2, "set: give either a PROCESSOR or --all"},
      {{"roundtrip", ""}, 3, "'': No such file or directory"},
      {{"show", "--file", ""}, 3, noFile},
      {{"show", "--file="}, 3, noFile},
      {{"show", board, "lumacore_0", "--file", ""},
       2,
       "show: --file goes without a design and without settings"},
      {{"list", ""}, 3, noFile},
      {{"show", "", "lumacore_0"}, 3, noFile},
      {{"list", board, "--kinds", ""}, 3, noFile},
      {{"list", board, "--view", ""}, 2, "--view: '' is no name of a view"},
      {{"list", board, "--max-instances", ""},
       2,
       "--max-instances: '' is no number from 1 to 100000000 (decimal or 0x)"},
      {{"list", board, "--library", ""},
       3,
       "'': there is no such library folder or catalog"},
  };
  Surroundings surroundings;
  surroundings.input = "connect lc hdu\n";
  for (const auto &row : rows) {
    const Result run = this->run(row.line, surroundings);
    const std::string line = testing::PrintToString(row.line);
    EXPECT_EQ(run.status, row.status) << line;
    EXPECT_EQ(run.out, "") << line;
    EXPECT_EQ(run.err, "zeldebug: error: " + row.problem + "\n") << line;
    EXPECT_EQ(runJson(row.line, row.status)["failure"]["message"], row.problem)
        << line;
  }
  // All codes are listed; the first ones will do here.
  const Result code = this->run({"explain-code", ""});
  EXPECT_EQ(code.status, 2);
  EXPECT_EQ(code.out, "");
  EXPECT_THAT(code.err, testing::StartsWith(
                            "zeldebug: error: explain-code: '' is unknown; "
                            "there are 'missing-head', 'unknown-head', "));
}

TEST_F(FaultsTest, AProcessorThatCannotBeDebugged) {
  for (const char *subcommand : {"show", "set", "command"}) {
    const Result run = this->run({subcommand, board, "r5_0"});
    EXPECT_EQ(run.status, 1) << subcommand;
    EXPECT_EQ(run.err,
              "zeldebug: error: 'r5_0' cannot be debugged: no debug module or "
              "controller is connected to it, and processors of type "
              "'soc_cortexr5' need one\n");
  }
}

TEST_F(FaultsTest, AnOptionFileThatMayNotBeRead) {
  save("lumacore_0", "connect lc hdu");
  fs::permissions("etc/kvo_lumacore_0.opt", fs::perms::none);
  Surroundings surroundings;
  surroundings.obeysPermissions = true;
  expectUnreadable(": Permission denied", surroundings);
  fs::permissions("etc/kvo_lumacore_0.opt", fs::perms::owner_read);
  EXPECT_EQ(saved("lumacore_0"), "connect lc hdu");
}

TEST_F(FaultsTest, AnOptionFileThatIsAFolder) {
  fs::create_directories("etc/kvo_lumacore_0.opt");
  expectUnreadable(": is a folder, no file");
  const Result forced = set({"--force"});
  EXPECT_EQ(forced.status, 1);
  EXPECT_EQ(
      forced.err,
      "zeldebug: error: lumacore_0: etc/kvo_lumacore_0.opt: is a folder, no "
      "file\n");
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

TEST_F(FaultsTest, AnOptionFileThatIsALinkLoop) {
  fs::create_directory("etc");
  fs::create_symlink("kvo_lumacore_0.opt", "etc/kvo_lumacore_0.opt");
  expectUnreadable(": Too many levels of symbolic links");
  EXPECT_TRUE(fs::is_symlink("etc/kvo_lumacore_0.opt"));
  // It is no regular file, and is not replaced.
  EXPECT_EQ(set({"--force"}).status, 1);
  EXPECT_TRUE(fs::is_symlink("etc/kvo_lumacore_0.opt"));
}

TEST_F(FaultsTest, AnOptionFileThatIsALinkToNothing) {
  fs::create_directory("etc");
  fs::create_symlink("nowhere", "etc/kvo_lumacore_0.opt");
  expectUnreadable(": is a link to nothing");
}

TEST_F(FaultsTest, AnOptionFileThatIsAFifo) {
  fs::create_directory("etc");
  ASSERT_EQ(mkfifo("etc/kvo_lumacore_0.opt", 0600), 0);
  expectUnreadable(": is no regular file");
}

TEST_F(FaultsTest, AnOptionFileThatIsCut) {
  const std::string text =
      "connect lc hdu -cable port " + std::string(1500, 'x');
  save("lumacore_0", text);
  const std::string problem = "etc/kvo_lumacore_0.opt:1: the command has 1527 "
                              "characters, but only 1023 of "
                              "a line are read";
  const Result changed = set();
  EXPECT_EQ(changed.status, 3);
  EXPECT_EQ(changed.err,
            "zeldebug: error: lumacore_0: " + problem +
                "; it stays as it is (--force starts from the defaults)\n");
  EXPECT_EQ(saved("lumacore_0"), text);
  // What is read of it can be shown.
  const Result shown = this->run({"show", board, "lumacore_0"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.err, "zeldebug: warning: " + problem + "\n");
  // By force, what is thrown away is told.
  const std::string told = "zeldebug: warning: lumacore_0: " + problem +
                           "; what it says is not taken over\n";
  Result forced = set({"--debug-device", "1", "--force", "--dry-run"});
  EXPECT_EQ(forced.status, 0);
  EXPECT_THAT(forced.err, HasSubstr(told));
  EXPECT_EQ(set({"--debug-device", "1", "--force", "--strict"}).status, 1);
  EXPECT_EQ(saved("lumacore_0"), text);
  forced = set({"--debug-device", "1", "--force"});
  EXPECT_EQ(forced.status, 0);
  EXPECT_THAT(forced.err, HasSubstr(told));
  EXPECT_EQ(saved("lumacore_0"),
            "connect lc hdu -debugdevice deviceNr 1 cpunr 1");
}

TEST_F(FaultsTest, AnOptionFileWithBytesThatAreNoText) {
  save("lumacore_0", std::string("\nconnect lc hdu\0 -quiet", 23));
  expectUnreadable(":2: the command holds bytes that are no text");
  save("lumacore_0", "connect lc hdu -cable port \xff\x1b[31m");
  const Result shown = this->run({"show", board, "lumacore_0"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_THAT(shown.out,
              HasSubstr("connect lc hdu -cable port \\xff\\x1b[31m\n"));
  EXPECT_EQ(runJson({"show", board, "lumacore_0"})["cable"]["port"],
            "\xEF\xBF\xBD\x1b[31m");
}

TEST_F(FaultsTest, AnOptionFileThatIsRefused) {
  save("lumacore_0", "\nconect lc hdu\n");
  expectUnreadable(
      ":2: the command is refused: column 1: 'conect' is no head word");
  save("lumacore_0", "connect lc hdu -");
  expectUnreadable(":1: the command is refused: column 16: '-' is a lone '-'");
}

/// What a dialog reads as a command is not all that it reads from a file.
TEST_F(FaultsTest, AnOptionFileWithWordsThatFilesDoNotTake) {
  const std::string targets = support::listed(support::targetsInFiles);
  const struct {
    const char *command;
    std::string problem;
  } rows[] = {
      {"kconnect lc hdu",
       "column 1: 'kconnect' is not taken in an option file; accepted are "
       "'connect', 'vpconnect'"},
      {"KVPconnect lc",
       "column 1: 'KVPconnect' is not taken in an option file; accepted are "
       "'connect', 'vpconnect'"},
      {"connect hdu",
       "column 9: 'hdu' is not taken in an option file; accepted are " +
           targets},
      {"connect dap hw",
       "column 9: 'dap' is not taken in an option file; accepted are " +
           targets},
      {"connect  dcc",
       "column 10: 'dcc' is not taken in an option file; accepted are " +
           targets},
      {"connect kmtc -foo",
       "column 9: 'kmtc' is not taken in an option file; accepted are " +
           targets},
  };
  for (const auto &row : rows) {
    save("lumacore_0", row.command);
    expectUnreadable(":1: the command is refused: " + row.problem);
  }
}

TEST_F(FaultsTest, ARunThatIsKilled) {
  const std::string before = "connect lc hdu -debugdevice cpunr 1";
#ifdef SYS_rename
  constexpr long renaming = SYS_rename;
#else
  constexpr long renaming = SYS_renameat;
#endif
  // Before anything is written, before it is read back, before it takes its
  // place.
  for (const long call : {long{SYS_flock}, long{SYS_fsync}, renaming}) {
    save("lumacore_0", before);
    Surroundings surroundings;
    surroundings.fatalCall = call;
    const Result killed = set({"--debug-device", "1"}, surroundings);
    EXPECT_EQ(killed.status, 128 + SIGSYS) << call;
    EXPECT_EQ(saved("lumacore_0"), before);
    EXPECT_GT(etc().size(), 1U) << "nothing was left behind to clear away";
    // What it left behind is in nobody's way, and goes with the next run.
    EXPECT_EQ(this->run({"show", board, "lumacore_0"}).status, 0);
    EXPECT_EQ(set({"--debug-device", "2"}).status, 0);
    EXPECT_EQ(saved("lumacore_0"),
              "connect lc hdu -debugdevice deviceNr 2 cpunr 1");
    EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
  }
}

TEST_F(FaultsTest, NoSpaceLeft) {
  const std::string text = "connect lc hdu -debugdevice cpunr 1";
  save("lumacore_0", text);
  Surroundings surroundings;
  surroundings.fileSizeLimit = 10;
  const Result run = set({"--debug-device", "1"}, surroundings);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zeldebug: error: lumacore_0: etc: the option file could not "
            "be written whole: no space left, or a limit on the size of "
            "files\n");
  EXPECT_EQ(saved("lumacore_0"), text);
  EXPECT_THAT(etc(), ElementsAre("kvo_lumacore_0.opt"));
}

TEST_F(FaultsTest, AFolderThatMayNotBeWritten) {
  save("lumacore_0", "connect lc hdu");
  fs::permissions("etc", fs::perms::owner_read | fs::perms::owner_exec);
  Surroundings surroundings;
  surroundings.obeysPermissions = true;
  const Result run = set({"--debug-device", "1"}, surroundings);
  fs::permissions("etc", fs::perms::owner_all);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zeldebug: error: lumacore_0: etc: cannot write there: "
                     "Permission denied\n");
  EXPECT_EQ(saved("lumacore_0"), "connect lc hdu");
}

TEST_F(FaultsTest, AReaderThatLeavesEarly) {
  Surroundings surroundings;
  surroundings.readerLeaves = true;
  const Result run = this->run({"list", board}, surroundings);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
}

TEST_F(FaultsTest, OutputThatDoesNotWait) {
  Surroundings surroundings;
  surroundings.doesNotWait = true;
  const Result all = this->run({"language"});
  const Result run = this->run({"language"}, surroundings);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, all.out);
  EXPECT_GT(run.out.size(), 2 * Surroundings::roomThatIsLittle);
}

TEST_F(FaultsTest, OutputThatHasNoRoom) {
  Surroundings surroundings;
  surroundings.fullOutput = true;
  const Result run = this->run({"list", board}, surroundings);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "zeldebug: error: standard output: No space left on device\n");
}

constexpr const char *tableHead = "PROCESSOR   TYPE ";

TEST_F(FaultsTest, ColourIsNotForPipes) {
  EXPECT_THAT(this->run({"list", board}).out, testing::StartsWith(tableHead));
  EXPECT_THAT(this->run({"lst"}).err, testing::Not(HasSubstr("\x1b")));
}

TEST_F(FaultsTest, ColourIsForTerminalsThatWantIt) {
  if (!hasTerminals())
    GTEST_SKIP() << "there are no pseudo-terminals here";
  const std::string coloured = "\x1b[1m" + std::string(tableHead);
  Surroundings surroundings;
  surroundings.terminal = true;
  surroundings.terminalName = "xterm";
  EXPECT_THAT(this->run({"list", board}, surroundings).out,
              testing::StartsWith(coloured));
  EXPECT_THAT(this->run({"list", board, "--color=never"}, surroundings).out,
              testing::StartsWith(tableHead));
  surroundings.terminalName = "dumb";
  EXPECT_THAT(this->run({"list", board}, surroundings).out,
              testing::StartsWith(tableHead));
  EXPECT_THAT(this->run({"list", board, "--color=always"}, surroundings).out,
              testing::StartsWith(coloured));
  surroundings.terminalName = "xterm";
  surroundings.noColour = true;
  EXPECT_THAT(this->run({"list", board}, surroundings).out,
              testing::StartsWith(tableHead));
}

TEST_F(FaultsTest, TablesAndSentencesFitTheTerminal) {
  if (!hasTerminals())
    GTEST_SKIP() << "there are no pseudo-terminals here";
  Surroundings surroundings;
  surroundings.terminal = true;
  surroundings.noColour = true;
  const std::vector<std::vector<std::string>> lines{
      {"list", board},
      {"cables"},
      {"kinds", board},
      {"show", board, "lumacore_0", "--origin"}};
  for (const unsigned short columns :
       std::vector<unsigned short>{60, 80, 132}) {
    surroundings.columns = columns;
    for (const std::vector<std::string> &line : lines) {
      std::istringstream out(this->run(line, surroundings).out);
      std::string shown;
      for (std::string text; std::getline(out, text);) {
        text.erase(text.find_last_not_of('\r') + 1);
        EXPECT_LE(text.size(), columns) << text;
        shown += text + " ";
      }
      // Nothing of a cell is left out.
      EXPECT_THAT(shown, HasSubstr(line[0] == "cables" ? "digilent_plugin"
                                                       : "lumacore_0"));
    }
  }
  // Help has less of an indent where its second column has no room.
  surroundings.columns = 40;
  const std::string help = this->run({"list", "--help"}, surroundings).out;
  EXPECT_THAT(help, HasSubstr("\r\n  DESIGN\r\n"
                              "    IP-XACT design file, or the\r\n"
                              "    component file on top of a hierarchy\r\n"));
  // A pipe is as wide as it takes.
  EXPECT_THAT(this->run({"list", board}).out,
              HasSubstr("and processors of type 'soc_cortexr5' need one.\n"));
}

} // namespace
} // namespace tool
