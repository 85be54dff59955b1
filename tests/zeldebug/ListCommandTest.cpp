#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;

using ListCommandTest = ToolTest;

TEST_F(ListCommandTest, ShowsProcessorsInOrderOfDiscovery) {
  const Result run = this->run({"list", board});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(
      run.out,
      "PROCESSOR   TYPE          NUMBER  FPU  CONNECTIONS\n"
      "lumacore_0  lumacore      1       -    sim hw stub-serial stub-jtag\n"
      "lumacore_1  lumacore      2       -    sim hw\n"
      "ppc405_0    ppc405_core   1       sp   sim hw\n"
      "ppc440_0    ppc440_core   2       dp   sim hw\n"
      "lumacore_2  lumacore      3       -    sim\n"
      "a9_0        soc_cortexa9  1       -    hw\n"
      "a9_1        soc_cortexa9  2       -    hw\n"
      "\n"
      "'r5_0' (soc_cortexr5) cannot be debugged: no debug module or controller "
      "is connected to it, and processors of type 'soc_cortexr5' need one.\n");
}

TEST_F(ListCommandTest, TellsTheSameInJson) {
  const json document = runJson({"list", board});
  EXPECT_EQ(document["version"], 1);
  EXPECT_EQ(document["command"], "list");
  EXPECT_EQ(document["names"],
            json({"lumacore_0", "lumacore_1", "lumacore_2", "ppc405_0",
                  "ppc440_0", "a9_0", "a9_1", "r5_0"}));
  ASSERT_EQ(document["processors"].size(), 7U);
  EXPECT_EQ(document["processors"][0],
            json({{"instanceName", "lumacore_0"},
                  {"procFamily", 0},
                  {"procType", 0},
                  {"connectionMask", 0x87},
                  {"cpuNr", 1},
                  {"fpuType", 0},
                  {"connections", {"sim", "hw", "stub-serial", "stub-jtag"}}}));
  EXPECT_EQ(document["processors"][3], json({{"instanceName", "ppc440_0"},
                                             {"procFamily", 1},
                                             {"procType", 2},
                                             {"connectionMask", 3},
                                             {"cpuNr", 2},
                                             {"fpuType", 2},
                                             {"connections", {"sim", "hw"}}}));
  EXPECT_EQ(document["processors"][6]["connections"], json({"hw"}));
  ASSERT_EQ(document["undebuggable"].size(), 1U);
  EXPECT_EQ(document["undebuggable"][0]["instanceName"], "r5_0");
  EXPECT_EQ(document["undebuggable"][0]["type"], "soc_cortexr5");
}

TEST_F(ListCommandTest, RefusesADesignThatIsNotThere) {
  const Result run = this->run({"list", "nowhere.xml"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("zeldebug: error: nowhere.xml"));
}

TEST_F(ListCommandTest, NamesFileAndLineOfADesignThatIsNoXml) {
  folder.write("broken.xml", "<?xml version=\"1.0\"?>\n<design>\n</desing>\n");
  const Result run = this->run({"list", "broken.xml"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("broken.xml:3: "));
}

TEST_F(ListCommandTest, ReportsAFailureInJson) {
  const json document = runJson({"list", "nowhere.xml"}, 3);
  EXPECT_EQ(document["command"], "list");
  EXPECT_EQ(document["failure"]["status"], 3);
}

} // namespace
} // namespace tool
