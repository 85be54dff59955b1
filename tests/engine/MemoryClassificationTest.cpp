// The class of a memory controller, from its type name alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;

namespace {

class MemoryClassification : public support::RecordFixture {
protected:
  MemoryClassification() {
    state.hwManager = &design;
    engine.SetErrorStr("an old message");
    before = support::textOf(state);
  }
  ~MemoryClassification() override {
    EXPECT_EQ(support::textOf(state), before);
    EXPECT_TRUE(design.log.empty());
  }

  support::FakeDesign design;
  std::string before;
};

struct Controller {
  std::string typeName;
  std::string label;
};

const Controller controllers[] = {
    {"ocm_ctl_amber", "BRAM"},
    {"ocm_ctl_ember", "BRAM"},
    {"ocm_ctl_delta", "BRAM"},
    {"ocm_ctl_birch", "BRAM"},
    {"ocm_ctl_cedar", "BRAM"},
    {"ocm_iside_ctl", "BRAM"},
    {"ocm_dside_ctl", "BRAM"},
    {"soc_ocram", "BRAM"},
    {"multiport_memctl", "EXT_DRAM"},
    {"hardcore_ddr2_ctl", "EXT_DRAM"},
    {"sdram_ctl_birch", "EXT_DRAM"},
    {"ddr_ctl_birch", "EXT_DRAM"},
    {"ddr2_ctl_birch", "EXT_DRAM"},
    {"sdram_ctl_cedar_mc", "EXT_DRAM"},
    {"ddr_ctl_cedar_mc", "EXT_DRAM"},
    {"ddr2_ctl_cedar_mc", "EXT_DRAM"},
    {"ddr_ctl_cedar", "EXT_DRAM"},
    {"sdram_ctl_cedar", "EXT_DRAM"},
    {"emc_ctl_delta", "EXT_SRAM_FLASH"},
    {"emc_ctl_ember_mc", "EXT_SRAM_FLASH"},
    {"emc_ctl_cedar_mc", "EXT_SRAM_FLASH"},
    {"emc_ctl_cedar", "EXT_SRAM_FLASH"},
    {"emc_ctl_birch", "EXT_SRAM_FLASH"},
};

std::string upperCase(std::string text) {
  for (char &c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

/// What a name that is none of `controllers` is classified as.
std::string labelOfUnlisted(const std::string &typeName) {
  return typeName.find("ddr") == std::string::npos ? "OTHER" : "EXT_DRAM";
}

TEST_F(MemoryClassification, KnowsEachControllerInAnyLetterCase) {
  for (const Controller &controller : controllers) {
    SCOPED_TRACE(controller.typeName);
    EXPECT_EQ(state.ClassifyMemory(controller.typeName), controller.label);
    EXPECT_EQ(state.ClassifyMemory(upperCase(controller.typeName)),
              controller.label);
    std::string mixed = controller.typeName;
    mixed[1] = upperCase(mixed)[1];
    EXPECT_EQ(state.ClassifyMemory(mixed), controller.label);
  }
}

TEST_F(MemoryClassification, TakesWholeNamesOnly) {
  for (const Controller &controller : controllers) {
    const std::string &name = controller.typeName;
    std::string otherLetter = name;
    otherLetter.back() = '?';
    for (const std::string &nearMiss :
         {name.substr(0, name.size() - 1), name.substr(1), name + "x",
          "x" + name, name + " ", " " + name, name + "_v1", name + '\0',
          otherLetter}) {
      const bool listed = std::any_of(
          std::begin(controllers), std::end(controllers),
          [&](const Controller &other) { return other.typeName == nearMiss; });
      ASSERT_FALSE(listed) << nearMiss;
      SCOPED_TRACE(nearMiss);
      EXPECT_EQ(state.ClassifyMemory(nearMiss), labelOfUnlisted(nearMiss));
    }
  }
}

TEST_F(MemoryClassification, TakesDdrAnywhereForDynamicMemory) {
  for (const std::string &typeName :
       {std::string("ddr"), std::string("DDR"), std::string("dDr3_ctl"),
        std::string("my_ddr3_ctl"), std::string("controller_ddr"),
        std::string("emc_ctl_ddr"), std::string("ocm_ctl_amber_ddr"),
        std::string("ddress"), std::string("address"), std::string("a\0ddr", 5),
        std::string(100000, 'x') + "ddr"}) {
    SCOPED_TRACE(typeName);
    EXPECT_EQ(state.ClassifyMemory(typeName), "EXT_DRAM");
  }
}

TEST_F(MemoryClassification, TakesAnythingElseForOther) {
  for (const std::string &typeName :
       {std::string(), std::string(" "), std::string("dd"), std::string("drd"),
        std::string("d_dr"), std::string("dr"), std::string("uart_mini_cedar"),
        std::string("OTHER"), std::string("BRAM"),
        std::string("EXT_SRAM_FLASH"), std::string("d\0dr", 4),
        std::string("\xC4\xFF\x80"), std::string(100000, 'd')}) {
    SCOPED_TRACE(typeName);
    EXPECT_EQ(state.ClassifyMemory(typeName), "OTHER");
  }
}

} // namespace
