#include "kinds/BuiltInKinds.h"

#include <algorithm>
#include <array>
#include <string>

namespace ZelDebugDialog {
namespace {

struct Row {
  std::string_view typeName;
  DesignRole role;
};

constexpr std::array<Row, 8> table = {{
    {"hdu", DesignRole::debugModule},
    {"hdu_cedar", DesignRole::debugModule},
    {"ppc_jtag_link", DesignRole::debugModule},
    {"lumacore", DesignRole::processor},
    {"ppc405_core", DesignRole::processor},
    {"ppc440_core", DesignRole::processor},
    {"soc_cortexa9", DesignRole::processor},
    {"soc_cortexr5", DesignRole::processor},
}};

constexpr std::array<std::string_view, 2> stubUarts = {"uart_mini_cedar",
                                                       "uart_mini_ember"};

/// Besides all that have "ddr" in their names.
constexpr std::array<std::string_view, 17> memories = {
    "ocm_ctl_amber",   "ocm_ctl_ember",      "ocm_ctl_delta",
    "ocm_ctl_birch",   "ocm_ctl_cedar",      "ocm_iside_ctl",
    "ocm_dside_ctl",   "soc_ocram",          "multiport_memctl",
    "sdram_ctl_birch", "sdram_ctl_cedar_mc", "sdram_ctl_cedar",
    "emc_ctl_delta",   "emc_ctl_ember_mc",   "emc_ctl_cedar_mc",
    "emc_ctl_cedar",   "emc_ctl_birch",
};

/// Memory types are compared without regard to case.
std::string inLowerCase(std::string_view text) {
  std::string lower(text);
  for (char &c : lower)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

} // namespace

DesignRole findBuiltInRole(std::string_view typeName) {
  for (const Row &row : table)
    if (row.typeName == typeName)
      return row.role;
  return DesignRole::other;
}

bool isStubUart(std::string_view typeName) {
  return std::find(stubUarts.begin(), stubUarts.end(), typeName) !=
         stubUarts.end();
}

bool isMemoryType(std::string_view typeName) {
  const std::string name = inLowerCase(typeName);
  return name.find("ddr") != std::string::npos ||
         std::find(memories.begin(), memories.end(), name) != memories.end();
}

} // namespace ZelDebugDialog
