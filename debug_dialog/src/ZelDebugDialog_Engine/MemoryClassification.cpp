#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <string_view>

#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog {

namespace {

enum class Match { whole, anywhere };

struct MemoryRule {
  Match match;
  std::string_view name; // in lower case
  std::string_view label;
};

constexpr std::string_view bram = "BRAM";
constexpr std::string_view dram = "EXT_DRAM";
constexpr std::string_view sramFlash = "EXT_SRAM_FLASH";
constexpr std::string_view other = "OTHER";

// The first rule that matches decides. The names with "ddr" behind the rule for
// "ddr" are there to make the list of controllers complete.
constexpr std::array<MemoryRule, 24> rules{{
    {Match::whole, "ocm_ctl_amber", bram},
    {Match::whole, "ocm_ctl_ember", bram},
    {Match::whole, "ocm_ctl_delta", bram},
    {Match::whole, "ocm_ctl_birch", bram},
    {Match::whole, "ocm_ctl_cedar", bram},
    {Match::whole, "ocm_iside_ctl", bram},
    {Match::whole, "ocm_dside_ctl", bram},
    {Match::whole, "soc_ocram", bram},
    {Match::anywhere, "ddr", dram},
    {Match::whole, "multiport_memctl", dram},
    {Match::whole, "hardcore_ddr2_ctl", dram},
    {Match::whole, "sdram_ctl_birch", dram},
    {Match::whole, "ddr_ctl_birch", dram},
    {Match::whole, "ddr2_ctl_birch", dram},
    {Match::whole, "sdram_ctl_cedar_mc", dram},
    {Match::whole, "ddr_ctl_cedar_mc", dram},
    {Match::whole, "ddr2_ctl_cedar_mc", dram},
    {Match::whole, "ddr_ctl_cedar", dram},
    {Match::whole, "sdram_ctl_cedar", dram},
    {Match::whole, "emc_ctl_delta", sramFlash},
    {Match::whole, "emc_ctl_ember_mc", sramFlash},
    {Match::whole, "emc_ctl_cedar_mc", sramFlash},
    {Match::whole, "emc_ctl_cedar", sramFlash},
    {Match::whole, "emc_ctl_birch", sramFlash},
}};

std::string inLowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) {
                   return static_cast<char>(std::tolower(character));
                 });
  return text;
}

bool matches(const MemoryRule &rule, const std::string &typeName) {
  return rule.match == Match::whole
             ? typeName == rule.name
             : typeName.find(rule.name) != std::string::npos;
}

} // namespace

std::string EngineImp::ClassifyMemory(const std::string &typeName) {
  const std::string name = inLowerCase(typeName);
  for (const MemoryRule &rule : rules)
    if (matches(rule, name))
      return std::string(rule.label);
  return std::string(other);
}

} // namespace ZelDebugDialog
