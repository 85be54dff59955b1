#include <gmock/gmock.h>

#include "ToolTest.h"
#include "support/Cables.h"

namespace tool {
namespace {

using nlohmann::json;

using CablesCommandTest = ToolTest;

/// A column of the table: a text and blanks up to the next one.
std::string column(const std::string &text, std::size_t width) {
  return text + std::string(width - text.size(), ' ');
}

std::string wordsOf(const support::Cable &cable) {
  std::string text;
  for (const std::string &word : cable.words)
    text += (text.empty() ? "" : " ") + word;
  return text.empty() ? "-" : text;
}

std::string lineOf(std::uint32_t number) {
  const support::Cable &cable = support::cableOf(number);
  const bool isWritten = cable.form != support::CableForm::none;
  return column(std::to_string(number), 6) + column(wordsOf(cable), 34) +
         column(isWritten ? cable.written : "-", 18) +
         column(isWritten ? "yes" : "no", 10) +
         column(std::to_string(cable.frequency), 12) +
         column(cable.port.empty() ? "-" : cable.port, 14) +
         (cable.accepted.empty() ? "-" : support::inOneText(cable.accepted)) +
         "\n";
}

TEST_F(CablesCommandTest, ShowsTheCatalogue) {
  const Result run = this->run({"cables"});
  EXPECT_EQ(run.status, 0);
  std::string lines =
      "TYPE  KEYWORD READ                      TEXT WRITTEN      WRITABLE  "
      "DEFAULT HZ  DEFAULT PORT  ACCEPTED HZ\n"
      "0     -                                 -                 no        "
      "0           -             -\n";
  for (const support::Cable &cable : support::cables())
    lines += lineOf(cable.number);
  EXPECT_EQ(run.out, lines);
  EXPECT_THAT(run.out,
              testing::HasSubstr(
                  "\n2     quorla_parallel quorla_parallel4  quorla_parallel   "
                  "yes       5000000     LPT1          200000 625000 2500000 "
                  "5000000\n"));
}

TEST_F(CablesCommandTest, TellsWhatCanBeWritten) {
  const json cables = runJson({"cables"})["cables"];
  ASSERT_EQ(cables.size(), 1 + support::cables().size());
  for (const support::Cable &cable : support::cables()) {
    const bool isWritten = cable.form != support::CableForm::none;
    EXPECT_EQ(cables[cable.number],
              json({{"type", cable.number},
                    {"keywords", cable.words},
                    {"written", isWritten ? json(cable.written) : json()},
                    {"writable", isWritten},
                    {"frequencies", cable.accepted},
                    {"offeredFrequencies", cable.offered},
                    {"defaultFrequency", cable.frequency},
                    {"defaultPort", cable.port}}));
  }
  EXPECT_EQ(cables[2],
            json({{"type", 2},
                  {"keywords", {"quorla_parallel", "quorla_parallel4"}},
                  {"written", "quorla_parallel"},
                  {"writable", true},
                  {"frequencies", {200000, 625000, 2500000, 5000000}},
                  {"offeredFrequencies", {200000, 625000, 2500000, 5000000}},
                  {"defaultFrequency", 5000000},
                  {"defaultPort", "LPT1"}}));
  // Read, and its frequencies checked, but neither offered nor written.
  EXPECT_EQ(cables[7]["keywords"], json({"quorla_tcf"}));
  EXPECT_EQ(cables[7]["written"], nullptr);
  EXPECT_EQ(cables[7]["writable"], false);
  EXPECT_EQ(cables[7]["frequencies"].size(), 17U);
  EXPECT_EQ(cables[7]["offeredFrequencies"], json::array());
  EXPECT_EQ(cables[1]["keywords"], json::array());
}

} // namespace
} // namespace tool
