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

TEST_F(DesignCommandTest, ShowsTables) {
  const Result run = this->run({"design", board});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out,
              HasSubstr("\nppc_jtag_0    ppc_jtag_link  ppc405_0 ppc440_0\n"));
}

TEST_F(DesignCommandTest, RefusesALibraryThatIsNotThere) {
  const Result run = this->run({"design", board, "--library", "nowhere"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("nowhere"));
}

} // namespace
} // namespace tool
