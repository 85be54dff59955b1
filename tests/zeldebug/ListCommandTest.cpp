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
      "is connected to it, and processors of type 'soc_cortexr5' need one.\n"
      "It is wired by bus: arm_bus.initiator_2.\n");
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
                  {"type", "lumacore"},
                  {"procFamily", 0},
                  {"procType", 0},
                  {"connectionMask", 0x87},
                  {"cpuNr", 1},
                  {"fpuType", 0},
                  {"connections", {"sim", "hw", "stub-serial", "stub-jtag"}}}));
  EXPECT_EQ(document["processors"][3], json({{"instanceName", "ppc440_0"},
                                             {"type", "ppc440_core"},
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
  EXPECT_EQ(document["undebuggable"][0]["wiredTo"],
            json({"bus: arm_bus.initiator_2"}));
  EXPECT_EQ(document["missing"], json::array());
  EXPECT_EQ(document["advice"], json::array());
}

std::string reference(const std::string &name) {
  return "vendor=\"v\" library=\"l\" name=\"" + name + "\" version=\"1\"";
}

std::string document(const std::string &root, const std::string &name,
                     const std::string &content) {
  return "<" + root + "><vendor>v</vendor><library>l</library><name>" + name +
         "</name><version>1</version>" + content + "</" + root + ">";
}

std::string designOf(const std::string &component) {
  return document("design", "d",
                  "<componentInstances><componentInstance><instanceName>core"
                  "</instanceName><componentRef " +
                      reference(component) +
                      "/></componentInstance></componentInstances>");
}

/// Each step is the one that the step before it names.
TEST_F(ListCommandTest, ShowsTheWayToAProcessorThatCanBeDebugged) {
  folder.write("so c/top.xml", designOf("own"));
  folder.write("ip/own.xml",
               document("component", "own", "<cpus><cpu/></cpus>"));
  const json first = runJson({"list", "so c/top.xml"});
  EXPECT_EQ(first["missing"],
            json::array({{{"type", "component"}, {"identity", "v:l:own:1"}}}));
  ASSERT_EQ(first["advice"].size(), 1U);
  EXPECT_EQ(first["advice"][0]["code"], "library");
  EXPECT_EQ(first["advice"][0]["command"],
            json({"zeldebug", "list", "so c/top.xml", "--library", "so c",
                  "--library", "ip"}));
  EXPECT_THAT(this->run({"list", "so c/top.xml"}).out,
              testing::EndsWith(
                  "\nNot found: component v:l:own:1. What is missing is in the "
                  "libraries of this line:\n"
                  "  zeldebug list 'so c/top.xml' --library 'so c' --library "
                  "ip\n"));
  const json second =
      runJson({"list", "so c/top.xml", "--library", "so c", "--library", "ip"});
  EXPECT_EQ(second["names"], json({"core"}));
  EXPECT_EQ(second["missing"], json::array());
  ASSERT_EQ(second["advice"].size(), 1U);
  EXPECT_EQ(second["advice"][0]["code"], "kinds");
  EXPECT_EQ(second["advice"][0]["command"],
            json({"zeldebug", "kinds", "so c/top.xml", "--library", "so c",
                  "--library", "ip"}));
  EXPECT_EQ(this->run({"kinds", "so c/top.xml", "--library", "so c",
                       "--library", "ip", "--write", "k"})
                .status,
            0);
  const json third = runJson({"list", "so c/top.xml", "--library", "so c",
                              "--library", "ip", "--kinds", "k"});
  EXPECT_EQ(third["processors"][0]["instanceName"], "core");
  EXPECT_EQ(third["advice"], json::array());
}

TEST_F(ListCommandTest, SaysWhereItHasLooked) {
  folder.write("a/b/c/d/e/f/g/top.xml", designOf("own"));
  const json alone = runJson({"list", "a/b/c/d/e/f/g/top.xml"});
  ASSERT_EQ(alone["advice"].size(), 2U);
  EXPECT_EQ(alone["advice"][0]["code"], "not-found");
  EXPECT_EQ(alone["advice"][0]["command"], json::array());
  EXPECT_EQ(alone["advice"][0]["message"],
            "Not found: component v:l:own:1. There are no other documents "
            "below a; '--library DIR' names the folder that holds it.");
  folder.write("a/b/other.xml", document("component", "other", ""));
  EXPECT_EQ(
      runJson({"list", "a/b/c/d/e/f/g/top.xml"})["advice"][0]["message"],
      "Not found: component v:l:own:1. Nothing of it is in the 1 document "
      "below a; '--library DIR' names the folder that holds it.");
  EXPECT_EQ(alone["advice"][1]["code"], "kinds");
}

/// A hierarchy whose design is elsewhere can't be read at all.
TEST_F(ListCommandTest, AdvisesWhereADesignCannotBeRead) {
  folder.write("soc/top.xml",
               document("component", "top",
                        "<model><views><view><name>v</name>"
                        "<designInstantiationRef>i</designInstantiationRef>"
                        "</view></views><instantiations><designInstantiation>"
                        "<name>i</name><designRef " +
                            reference("d") +
                            "/></designInstantiation></instantiations>"
                            "</model>"));
  folder.write("designs/d.xml", designOf("own"));
  folder.write("designs/own.xml",
               document("component", "own", "<cpus><cpu/></cpus>"));
  const Result run = this->run({"list", "soc/top.xml"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err,
              HasSubstr("Not found: design v:l:d:1. What is missing is in the "
                        "libraries of this line:\n"
                        "  zeldebug list soc/top.xml --library soc --library "
                        "designs\n"));
  EXPECT_EQ(runJson({"list", "soc/top.xml", "--library", "soc", "--library",
                     "designs"})["names"],
            json({"core"}));
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
