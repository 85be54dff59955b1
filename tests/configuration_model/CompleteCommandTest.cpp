// The words that fit where a command is being typed.
#include <string>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "support/Targets.h"

namespace {

using namespace ZelDebugDialog;
using testing::ElementsAre;

std::vector<std::string> words(const CommandCompletion &completion) {
  std::vector<std::string> found;
  for (const CompletionWord &word : completion.words) {
    EXPECT_NE(word.label, "") << word.text;
    found.push_back(word.text);
  }
  return found;
}

/// The cursor stands at '|'.
CommandCompletion complete(std::string text) {
  const std::size_t cursor = text.find('|');
  text.erase(cursor, 1);
  return CompleteCommand(text, cursor);
}

TEST(CompleteCommand, FollowsTheLanguage) {
  const struct {
    const char *text;
    std::vector<std::string> found;
  } rows[] = {
      {"|", {"connect", "kconnect", "vpconnect", "kvpconnect"}},
      {"K|", {"kconnect", "kvpconnect"}},
      {"connect|", {"connect"}},
      {"connects|", {}},
      {"connect |", support::targets},
      {"connect d|", {"dap", "dcc"}},
      {"vpconnect |", {"lc"}},
      {"connect lc |", {"sim", "stub", "hdu"}},
      {"connect ppc |", {"sim", "hw"}},
      {"connect lc hdu -c|", {"-cable", "-comm", "-configdevice"}},
      {"connect hdu -|",
       {"-uart", "-bscan", "-debugdevice", "-cable", "-configdevice"}},
      {"connect lc hdu -cable t|", {"type"}},
      {"connect lc hdu -cable type quorla_p|",
       {"quorla_parallel", "quorla_parallel4", "quorla_podusb",
        "quorla_parallel3", "quorla_plugin"}},
      {"connect lc hdu -cable type QUORLA_PODUSB frequency |",
       {"750000", "1500000", "3000000", "6000000", "12000000", "24000000"}},
      {"connect lc hdu -cable type quorla_podusb frequency 1|",
       {"1500000", "12000000"}},
      {"connect lc hdu -cable frequency |", {}},
      {"connect lc hdu -cable port |", {}},
      {"connect lc hdu -bscan |", {"USER1", "USER2", "USER3", "USER4"}},
      {"connect lc stub -comm |", {"jtag", "serial"}},
      {"connect ppc hw -debugdevice fputype |", {"sp", "dp"}},
      // Behind a complete clause come options; within one its names as well.
      {"connect lc hdu -bscan USER1 -b|", {"-baud", "-bscan"}},
      {"connect lc hdu -cable port A -q|", {"-quiet"}},
      {"connect lc hdu -cable port A p|", {"port"}},
      // An option word in place of a value begins the next clause.
      {"connect lc hdu -cable port -debugdevice n|", {"nCpu"}},
      {"connect lc hdu -foo -debugdevice n|", {"nCpu"}},
      {"connect lc hdu -cable foo -debugdevice n|", {"nCpu"}},
      // Nothing can follow what is unknown.
      {"foo |", {}},
      {"connect foo |", {}},
      {"connect lc foo |", {}},
  };
  for (const auto &row : rows)
    EXPECT_EQ(words(complete(row.text)), row.found) << row.text;
}

TEST(CompleteCommand, NamesThePieceThatAWordTakesThePlaceOf) {
  const struct {
    const char *text;
    std::size_t from;
    std::size_t to;
  } rows[] = {
      {"|", 0, 0},
      {"con|", 0, 3},
      {"con|nect lc", 0, 7},
      {"connect |", 8, 8},
      {"connect | lc", 8, 8},
      {"connect |lc", 8, 10},
      {"connect\t |lc x", 9, 11},
      {"  c|", 2, 3},
  };
  for (const auto &row : rows) {
    const CommandCompletion found = complete(row.text);
    EXPECT_EQ(found.from, row.from) << row.text;
    EXPECT_EQ(found.to, row.to) << row.text;
  }
  const CommandCompletion behind = CompleteCommand("con", 1000);
  EXPECT_EQ(behind.from, 0U);
  EXPECT_EQ(behind.to, 3U);
  EXPECT_THAT(words(behind), ElementsAre("connect"));
}

TEST(CompleteCommand, SaysWhatAWordIsFor) {
  const struct {
    const char *text;
    const char *label;
  } rows[] = {
      {"connec|", "head"},
      {"connect l|", "target"},
      {"connect lc si|", "Simulator"},
      {"connect lc hd|", "Hardware"},
      {"connect lc st|", "Stub over a serial line"},
      {"connect lc hdu -bsc|", "Boundary-scan register"},
      {"connect lc hdu -quie|", "option"},
      {"connect lc hdu -debugdevice devicen|", "Debug device"},
      {"connect lc hdu -bscan USER1|", "Boundary-scan register"},
      {"connect lc hdu -cable type quorla_podu|", "Cable, Port"},
      {"connect lc hdu -cable type quorla_podusb frequency 3|", "3 MHz"},
      {"connect lc stub -comm seria|", "Stub type"},
  };
  for (const auto &row : rows) {
    const CommandCompletion found = complete(row.text);
    ASSERT_FALSE(found.words.empty()) << row.text;
    EXPECT_EQ(found.words[0].label, row.label) << row.text;
  }
}

/// What is offered is what the readers take: no offered word makes a command
/// fail at that word.
TEST(CompleteCommand, OffersOnlyWhatIsRead) {
  std::vector<std::string> fronts{""};
  std::size_t tried = 0;
  for (int depth = 0; depth < 6; ++depth) {
    std::vector<std::string> next;
    for (const std::string &front : fronts)
      for (const std::string &word :
           words(CompleteCommand(front, front.size()))) {
        const std::string text = front + word;
        for (const CommandDiagnostic &one : CheckCommand(text).diagnostics) {
          const bool isMissing = one.length == 0;
          EXPECT_TRUE(isMissing || one.severity != CodeSeverity::error ||
                      one.offset < front.size())
              << text << ": " << one.code;
        }
        ++tried;
        if (next.size() < 60)
          next.push_back(text + " ");
      }
    fronts = next;
  }
  EXPECT_GT(tried, 500U);
}

} // namespace
