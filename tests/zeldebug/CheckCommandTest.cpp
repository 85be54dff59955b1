#include <set>

#include <gmock/gmock.h>

#include "ToolTest.h"
#include "support/Cables.h"
#include "support/Targets.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::HasSubstr;

using CheckCommandTest = ToolTest;

const std::string cableTypes = support::quotedCableWords();
constexpr const char *heads =
    "'connect', 'kconnect', 'vpconnect', 'kvpconnect'";
constexpr const char *podFrequencies =
    "'750000', '1500000', '3000000', '6000000', '12000000', '24000000'";

TEST_F(CheckCommandTest, PassesWhatIsRead) {
  const Result run = this->run(
      {"check", "connect lc hdu", "KCONNECT LC HDU -CABLE TYPE QUORLA_PODUSB"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "2 commands checked, 0 refused\n");
  EXPECT_EQ(run.err, "");
}

// What is wrong with which command is the configuration model's to say.
TEST_F(CheckCommandTest, DrawsEachShapeOfFault) {
  const struct {
    const char *command;
    int status;
    std::string picture;
  } rows[] = {
      {" ", 1,
       std::string("2: error: the command is empty [missing-head]\n"
                   "   \n"
                   "   ^\n"
                   "  accepted: ") +
           heads + "\n"},
      {"connect lc", 1,
       "11: error: a connection word is missing here [missing-connection]\n"
       "  connect lc\n"
       "            ^\n"
       "  accepted: 'sim', 'stub', 'hdu'\n"},
      {"connect ppc sim -icff x", 1,
       "17: error: '-icff' is no option here [unknown-option]\n"
       "  connect ppc sim -icff x\n"
       "                  ^^^^^\n"
       "  engine: UNKNOWN PowerPC Sim Option ''\n"
       "  accepted: '-icf', '-ipcport', '-debugdevice'\n"
       "  did you mean '-icf'?\n"},
      {"connect lc hdu -quiet yes", 1,
       "23: error: 'yes' stands where an option word belongs [not-an-option]\n"
       "  connect lc hdu -quiet yes\n"
       "                        ^^^\n"},
      {"connect ppc hw -debugdevice icacheStartAdr 0x18000", 1,
       "44: error: '0x18000' is refused as the value [refused-value]\n"
       "  connect ppc hw -debugdevice icacheStartAdr 0x18000\n"
       "                                             ^^^^^^^\n"
       "  engine: Icache Start Address should be aligned at 64k boundry\n"},
      {"connect lc hdu -cable type quorla_podusb frequency 625000 -quiet", 0,
       std::string(
           "52: warning: '625000' is no frequency of this cable, and is read "
           "all "
           "the same [frequency-not-checked]\n"
           "  connect lc hdu -cable type quorla_podusb frequency 625000 "
           "-quiet\n"
           "                                                     ^^^^^^\n"
           "  engine: UnSupported Quorla PodUSB Cable Frequency - 625000 "
           "Supported "
           "Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
           "24000000\n"
           "  accepted: ") +
           podFrequencies + "\n"},
      {"connect lc stub -baud -port -timeout 5", 0,
       "23: warning: a value is missing here, in front of '-port' "
       "[missing-value]\n"
       "  connect lc stub -baud -port -timeout 5\n"
       "                        ^^^^^\n"
       "29: warning: a value is missing here, in front of '-timeout' "
       "[missing-value]\n"
       "  connect lc stub -baud -port -timeout 5\n"
       "                              ^^^^^^^^\n"},
      {"vpconnect lc -ipcport host", 0, ""},
  };
  for (const auto &row : rows) {
    const Result run = this->run({"check", row.command});
    EXPECT_EQ(run.status, row.status) << row.command;
    EXPECT_EQ(run.out, row.picture + "1 command checked, " +
                           (row.status == 0 ? "0" : "1") + " refused\n");
  }
}

TEST_F(CheckCommandTest, FindsEveryFaultInOnePass) {
  const json document = runJson(
      {"check", "connect lc hdu -cable typ x -foo -debugdevice devicenr "
                "300 fpuType xp -bscan USER5"},
      1);
  const json &diagnostics = document["commands"][0]["diagnostics"];
  std::vector<std::string> found;
  for (const json &diagnostic : diagnostics)
    found.push_back(std::to_string(diagnostic["offset"].get<int>()) + " " +
                    diagnostic["code"].get<std::string>());
  EXPECT_EQ(found,
            (std::vector<std::string>{"22 unknown-parameter",
                                      "28 unknown-option", "55 value-cut",
                                      "67 refused-value", "77 refused-value"}));
}

TEST_F(CheckCommandTest, TellsTheSameInJson) {
  const json document = runJson({"check", "connect lc hdu -cabel x"}, 1);
  const json &command = document["commands"][0];
  EXPECT_EQ(command["text"], "connect lc hdu -cabel x");
  EXPECT_EQ(command["line"], nullptr);
  EXPECT_EQ(command["result"], 3);
  EXPECT_EQ(command["error"], "UNKNOWN Option '-cabel'");
  const json &diagnostic = command["diagnostics"][0];
  EXPECT_EQ(diagnostic["offset"], 15);
  EXPECT_EQ(diagnostic["length"], 6);
  EXPECT_EQ(diagnostic["severity"], "error");
  EXPECT_EQ(diagnostic["code"], "unknown-option");
  EXPECT_EQ(diagnostic["message"], "UNKNOWN Option '-cabel'");
  EXPECT_EQ(diagnostic["summary"], "'-cabel' is no option here");
  EXPECT_EQ(diagnostic["suggestion"], "-cable");
  EXPECT_THAT(diagnostic["accepted"], Contains("-cable"));
  const json value = runJson({"check", "connect lc hdu -comm usb"}, 1);
  EXPECT_EQ(value["commands"][0]["diagnostics"][0]["accepted"],
            json({"jtag", "serial"}));
}

TEST_F(CheckCommandTest, ChecksTheLinesOfAFile) {
  folder.write("commands", "connect lc hdu\n\nconnect lc\n" +
                               std::string("connect lc hdu -quiet ") +
                               std::string(1100, ' ') + "-noattach\n");
  const Result run = this->run({"check", "--file", "commands"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("commands:3:11: error: a connection word is "
                                 "missing here [missing-connection]\n"));
  EXPECT_THAT(
      run.out,
      HasSubstr("commands:4:1024: warning: the line is longer than what "
                "is read of it: 1131 characters, of which 1023 are read "
                "[long-line]\n"));
  EXPECT_THAT(run.out, HasSubstr("3 commands checked, 1 refused\n"));
  EXPECT_EQ(runJson({"check", "--file", "commands"}, 1)["commands"][1]["line"],
            3);
}

TEST_F(CheckCommandTest, DrawsWhatOnlyALineOfAFileCanHave) {
  const std::string targets =
      "  accepted: " + support::listed(support::targetsInFiles) + "\n";
  const std::string headsInFiles = "  accepted: 'connect', 'vpconnect'\n";
  const std::string longest = "connect lc hdu -cable port ";
  const std::string port(1023 - longest.size(), 'x');
  const struct {
    std::string command;
    std::string picture;
  } rows[] = {
      {"kconnect lc hdu",
       "1: warning: 'kconnect' is not taken in an option file "
       "[not-in-option-file]\n"
       "  kconnect lc hdu\n"
       "  ^^^^^^^^\n" +
           headsInFiles + "  did you mean 'connect'?\n"},
      {"connect hdu", "9: warning: 'hdu' is not taken in an option file "
                      "[not-in-option-file]\n"
                      "  connect hdu\n"
                      "          ^^^\n" +
                          targets},
      {longest + port, ""},
      {longest + port + "yz",
       "1024: warning: the line is longer than what is read of it: 1025 "
       "characters, of which 1023 are read [long-line]\n"
       "  " +
           longest + port + "yz\n" + std::string(1025, ' ') + "^^\n"},
      {"vpconnect lc", ""},
  };
  for (const auto &row : rows) {
    folder.write("commands", row.command);
    const Result run = this->run({"check", "--file", "commands"});
    EXPECT_EQ(run.status, 0) << row.command;
    EXPECT_EQ(run.out,
              (row.picture.empty() ? "" : "commands:1:" + row.picture) +
                  "1 command checked, 0 refused\n");
    // As a command it is as good as any.
    EXPECT_EQ(this->run({"check", row.command}).out,
              "1 command checked, 0 refused\n");
  }
}

TEST_F(CheckCommandTest, AWordMayHoldBytesThatAreNoText) {
  const Result run = this->run({"check", "connect lc \xff\x01"});
  EXPECT_THAT(run.out, HasSubstr("'\\xff\\x01' is no way to connect"));
  EXPECT_THAT(run.out, HasSubstr("  connect lc \\xff\\x01\n"
                                 "             ^^^^^^^^\n"));
}

TEST_F(CheckCommandTest, ALongCommandIsShownAroundTheWord) {
  const auto said = [this](const std::string &command) {
    const Result run = this->run({"check", command});
    return run.out.substr(0, run.out.find("  engine:"));
  };
  const std::string lead = "connect lc hdu -cable port ";
  const std::string place = ": error: 'frequenzy' is no parameter of this "
                            "option [unknown-parameter]\n  ";
  // 27 + 4,047 + 12 + 10 characters are 4,096, which are shown.
  const std::string whole =
      lead + std::string(4047, 'a') + " frequenzy 1" + std::string(10, ' ');
  EXPECT_EQ(said(whole), "4076" + place + whole + "\n  " +
                             std::string(4075, ' ') + "^^^^^^^^^\n");

  const std::string longer =
      lead + std::string(4048, 'a') + " frequenzy 1" + std::string(100, ' ');
  EXPECT_EQ(said(longer), "4077" + place + "..." + std::string(79, 'a') +
                              " frequenzy 1" + std::string(78, ' ') +
                              "...\n  " + std::string(83, ' ') + "^^^^^^^^^\n");
}

TEST_F(CheckCommandTest, WantsCommandsOrAFile) {
  EXPECT_EQ(this->run({"check"}).err,
            "zeldebug: error: check: give either commands or --file\n");
  EXPECT_EQ(this->run({"check", "connect lc hdu", "--file", "x"}).status, 2);
  const Result unnamed = this->run({"check", "--file", ""});
  EXPECT_EQ(unnamed.status, 3);
  EXPECT_EQ(unnamed.err, "zeldebug: error: '': No such file or directory\n");
}

TEST_F(CheckCommandTest, EveryCodeIsExplained) {
  const json codes = runJson({"explain-code"})["codes"];
  EXPECT_GE(codes.size(), 64U);
  // What no command and no file has by itself.
  std::set<std::string> withoutExample{"overridden", "stale-option-file",
                                       "sync-unreadable", "adopt-changes"};
  std::set<std::string> names;
  for (const json &row : codes) {
    const std::string code = row["code"];
    names.insert(code);
    EXPECT_EQ(row["example"].is_null(), withoutExample.erase(code) == 1)
        << code;
    EXPECT_THAT(this->run({"explain-code", code}).out,
                testing::StartsWith(code + " ("));
  }
  EXPECT_EQ(names.size(), codes.size());
  EXPECT_THAT(withoutExample, testing::IsEmpty());
  // The reason of a loss that a command has anywhere, and of a setting.
  EXPECT_EQ(this->run({"explain-code", "rom-range"}).out,
            "rom-range (loss)\n\n"
            "A ROM range is written when it has a start and a size other than "
            "0.\n\n"
            "Example:\n  connect lc hdu -debugdevice romemStartAdr 0x100\n\n"
            "What to do: Give both.\n");
  EXPECT_EQ(this->run({"explain-code", "odd-values"}).out,
            "odd-values (loss)\n\n"
            "A stub type, a flag of the virtual platform or an FPU type that "
            "is none of the named values comes back as one of them.\n\n"
            "Example, written for an FPU type of 3:\n"
            "  connect ppc hw -debugdevice cpunr 1 fpuType dp\n\n"
            "What to do: Use the named values.\n");
}

TEST_F(CheckCommandTest, KnowsWhatAProcessorDoesNotAllow) {
  const auto check = [this](const std::string &processor,
                            const std::string &command) {
    return this->run(
        {"check", "--design", board, "--processor", processor, command});
  };
  EXPECT_EQ(check("lumacore_0", "connect lc stub").out,
            "1 command checked, 0 refused\n");
  Result run = check("lumacore_1", "connect lc stub");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "12: error: 'stub' is a connection that the processor "
                     "does not allow [connection-not-allowed]\n"
                     "  connect lc stub\n"
                     "             ^^^^\n"
                     "  accepted: 'sim', 'hdu'\n"
                     "1 command checked, 1 refused\n");
  EXPECT_EQ(check("lumacore_0", "connect lc hdu -debugdevice cpunr 2").status,
            1);
  run = check("ppc405_0", "connect lc hdu");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("9: warning: 'lc' is the target of another "
                                 "processor [target-differs]\n"));
  EXPECT_EQ(check("lumacore_9", "connect lc hdu").status, 2);
  EXPECT_EQ(check("r5_0", "connect lc hdu").status, 1);
  const json document = runJson({"check", "--design", board, "--processor",
                                 "lumacore_0", "connect lc hdu"});
  EXPECT_EQ(document["diagnostics"], json::array());
  EXPECT_EQ(document["commands"].size(), 1U);
}

TEST_F(CheckCommandTest, TakesADesignWithAProcessorOnly) {
  Result run = this->run({"check", "--design", board, "connect lc hdu"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "zeldebug: error: check: --design and --processor go together\n");
  // A project would do for the design.
  run = this->run({"check", "--processor", "lumacore_0", "connect lc hdu"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, testing::HasSubstr("zeldebug init DESIGN"));
}

TEST_F(CheckCommandTest, ExplainsACode) {
  const Result run = this->run({"explain-code", "octal-number"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "octal-number (warning)\n\n"
                     "A leading 0 makes a number octal.\n\n"
                     "Example:\n  connect lc hdu -debugdevice devicenr 010\n\n"
                     "What to do: Take the leading 0 off a decimal number.\n");
  EXPECT_THAT(this->run({"explain-code", "not-in-option-file"}).out,
              HasSubstr("\nExample, in an option file:\n  kconnect lc hdu\n"));
  const json elsewhere =
      runJson({"explain-code", "connection-not-allowed"})["codes"][0];
  EXPECT_EQ(elsewhere["where"], "for a processor without a debug module");
  const Result refused = this->run({"command", board, "lumacore_2", "--from",
                                    elsewhere["example"].get<std::string>()});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err,
              HasSubstr("is a connection that the processor does not allow"));
  const Result unknown = this->run({"explain-code", "octal-numbr"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("; did you mean 'octal-number'?\n"));
}

} // namespace
TEST_F(CheckCommandTest, WarningsAreFailuresWhereTheyAreAskedToBe) {
  const std::string doubtful = "connect lc hdu -quiet -quiet";
  EXPECT_EQ(run({"check", doubtful}).status, 0);
  const Result strict = run({"check", "--strict", doubtful});
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(strict.err,
            "zeldebug: error: a warning is a failure with --strict\n");
  EXPECT_EQ(run({"check", "--strict", "connect lc hdu -quiet"}).status, 0);
  const json document = runJson({"check", "--strict", doubtful}, 1);
  EXPECT_EQ(document["failure"]["status"], 1);
  EXPECT_EQ(document["commands"][0]["diagnostics"].size(), 1U);
}

} // namespace tool
