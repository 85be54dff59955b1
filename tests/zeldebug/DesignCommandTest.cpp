#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;

using DesignCommandTest = ToolTest;

const json *instanceNamed(const json &document, const std::string &name) {
  for (const json &instance : document["instances"])
    if (instance["name"] == name)
      return &instance;
  return nullptr;
}

TEST_F(DesignCommandTest, TellsWhatTheEngineWouldBeTold) {
  const json document = runJson({"design", board});
  EXPECT_EQ(document["processors"],
            json({"lumacore_0", "lumacore_1", "lumacore_2", "ppc405_0",
                  "ppc440_0", "a9_0", "a9_1", "r5_0"}));
  EXPECT_EQ(document["debugModules"],
            json({{{"name", "hdu_0"},
                   {"type", "hdu"},
                   {"processors", {"lumacore_0", "lumacore_1"}}},
                  {{"name", "ppc_jtag_0"},
                   {"type", "ppc_jtag_link"},
                   {"processors", {"ppc405_0", "ppc440_0"}}}}));
  const json &peripherals = document["peripherals"]["ppc405_0"];
  EXPECT_NE(std::find(peripherals.begin(), peripherals.end(), "fpu_0"),
            peripherals.end());
  EXPECT_EQ(document["diagnostics"], json::array());
}

TEST_F(DesignCommandTest, ClassifiesMemory) {
  const json document = runJson({"design", board});
  const struct {
    const char *instance;
    const char *memoryClass;
  } rows[] = {{"block_memory_0", "BRAM"},
              {"dram_0", "EXT_DRAM"},
              {"flash_0", "EXT_SRAM_FLASH"},
              {"fuses_0", "OTHER"}};
  for (const auto &row : rows) {
    const json *instance = instanceNamed(document, row.instance);
    ASSERT_NE(instance, nullptr) << row.instance;
    EXPECT_EQ((*instance)["memoryClass"], row.memoryClass) << row.instance;
  }
}

TEST_F(DesignCommandTest, GivesParametersByName) {
  const json document = runJson({"design", board});
  const json *uart = instanceNamed(document, "uart_0");
  ASSERT_NE(uart, nullptr);
  EXPECT_EQ((*uart)["parameters"]["C_BAUDRATE"], "115200");
}

TEST_F(DesignCommandTest, GivesIdentityViewsAndConnections) {
  const json document = runJson({"design", board});
  const json *core = instanceNamed(document, "lumacore_0");
  ASSERT_NE(core, nullptr);
  EXPECT_EQ((*core)["identity"], "example.org:board:lumacore:1.0");
  EXPECT_EQ((*core)["view"], nullptr);
  EXPECT_EQ((*core)["views"], json::array());
  EXPECT_EQ((*core)["connections"][2],
            json({{"interface", "debug"},
                  {"mode", "target"},
                  {"busType", "example.org:bus:debug_link:1.0"},
                  {"to", {{{"instance", "hdu_0"}, {"interface", "debug_0"}}}},
                  {"inside", json::array()},
                  {"others", 0}}));
  // What nothing is wired to is shown as well.
  const json *unwired = instanceNamed(document, "lumacore_2");
  ASSERT_NE(unwired, nullptr);
  ASSERT_EQ((*unwired)["connections"].size(), 3U);
  EXPECT_EQ((*unwired)["connections"][1]["to"], json::array());
}

/// A connection may have more ends than a document should list for each.
TEST_F(DesignCommandTest, CountsTheEndsThatItDoesNotList) {
  std::string instances;
  std::string ends;
  for (int i = 0; i < 150; ++i) {
    const std::string name = "i" + std::to_string(i);
    instances += "<componentInstance><instanceName>" + name +
                 "</instanceName><componentRef vendor=\"v\" library=\"l\" "
                 "name=\"c\" version=\"1\"/></componentInstance>";
    ends += "<activeInterface componentRef=\"" + name + "\" busRef=\"p\"/>";
  }
  folder.write("c.xml", "<component><vendor>v</vendor><library>l</library>"
                        "<name>c</name><version>1</version><busInterfaces>"
                        "<busInterface><name>p</name><target/></busInterface>"
                        "</busInterfaces></component>");
  folder.write("top.xml",
               "<design><vendor>v</vendor><library>l</library><name>d</name>"
               "<version>1</version><componentInstances>" +
                   instances +
                   "</componentInstances><interconnections><interconnection>"
                   "<name>w</name>" +
                   ends + "</interconnection></interconnections></design>");
  const json document = runJson({"design", "top.xml"});
  for (const json &instance : document["instances"]) {
    const json &connection = instance["connections"][0];
    EXPECT_EQ(connection["to"].size(), 100U);
    EXPECT_EQ(connection["others"], 49);
    for (const json &end : connection["to"])
      EXPECT_NE(end["instance"], instance["name"]);
  }
}

TEST_F(DesignCommandTest, ShowsTables) {
  const Result run = this->run({"design", board});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out,
              HasSubstr("\nppc_jtag_0    ppc_jtag_link  ppc405_0 ppc440_0\n"));
  EXPECT_THAT(run.out, HasSubstr("\nlumacore_0.debug      target             "
                                 "hdu_0.debug_0\n"));
  EXPECT_THAT(run.out,
              HasSubstr("hdu               example.org:board:hdu:1.0      "));
}

TEST_F(DesignCommandTest, RefusesALibraryThatIsNotThere) {
  const Result run = this->run({"design", board, "--library", "nowhere"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("nowhere"));
}

} // namespace
} // namespace tool
