#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;

using CablesCommandTest = ToolTest;

TEST_F(CablesCommandTest, ShowsTheCatalogue) {
  const Result run = this->run({"cables"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.out,
      "TYPE  KEYWORD READ                      TEXT WRITTEN      WRITABLE  "
      "DEFAULT HZ  DEFAULT PORT  FREQUENCIES IN HZ\n"
      "0     -                                 -                 no        "
      "0           -             -\n"
      "1     -                                 -                 no        "
      "0           -             -\n"
      "2     quorla_parallel quorla_parallel4  quorla_parallel   yes       "
      "5000000     LPT1          200000 625000 2500000 5000000\n"
      "3     quorla_podusb                     quorla_podusb     yes       "
      "6000000     USB21         750000 1500000 3000000 6000000 12000000 "
      "24000000\n"
      "4     quorla_parallel3                  quorla_parallel3  yes       "
      "200000      LPT1          200000\n"
      "5     quorla_plugin                     quorla_plugin     yes       "
      "0           -             -\n"
      "6     digilent_plugin                   digilent_plugin   yes       "
      "0           -             -\n"
      "7     quorla_tcf                        -                 no        "
      "0           -             125000 250000 500000 750000 1000000 "
      "1500000 2000000 3000000 4000000 5000000 6000000 7500000 10000000 "
      "12000000 15000000 24000000 30000000\n");
}

TEST_F(CablesCommandTest, TellsWhatCanBeWritten) {
  const json cables = runJson({"cables"})["cables"];
  ASSERT_EQ(cables.size(), 8U);
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
