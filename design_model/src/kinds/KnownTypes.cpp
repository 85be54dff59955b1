#include "kinds/KnownTypes.h"

#include <algorithm>
#include <array>

#include "kinds/BuiltInKinds.h"
#include "messages/Quote.h"
#include "names/NearMatch.h"

namespace ZelDebugDialog {
namespace {

constexpr std::array<std::string_view, 21> others = {
    "uart_mini_cedar",  "uart_mini_ember", "aux_fpu",
    "aux_fpu_gen5",     "ocm_ctl_amber",   "ocm_ctl_ember",
    "ocm_ctl_delta",    "ocm_ctl_birch",   "ocm_ctl_cedar",
    "ocm_iside_ctl",    "ocm_dside_ctl",   "soc_ocram",
    "multiport_memctl", "sdram_ctl_birch", "sdram_ctl_cedar_mc",
    "sdram_ctl_cedar",  "emc_ctl_delta",   "emc_ctl_ember_mc",
    "emc_ctl_cedar_mc", "emc_ctl_cedar",   "emc_ctl_birch",
};

std::string inLowerCase(std::string_view text) {
  std::string lower(text);
  for (char &c : lower)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

bool isKnown(DesignRole role, std::string_view typeName) {
  const auto has = [](const auto &list, std::string_view name) {
    return std::find(list.begin(), list.end(), name) != list.end();
  };
  if (has(knownTypes(role), typeName))
    return true;
  // Memories go by their names in any case, and by "ddr" in them.
  const std::string lower = inLowerCase(typeName);
  return role == DesignRole::other &&
         (lower.find("ddr") != std::string::npos || has(others, lower));
}

std::string_view wordOf(DesignRole role) {
  switch (role) {
  case DesignRole::processor:
    return "processor";
  case DesignRole::debugModule:
    return "debug module";
  case DesignRole::byTypeName:
  case DesignRole::other:
    break;
  }
  return "memory, floating-point unit or serial port";
}

} // namespace

std::vector<std::string_view> knownTypes(DesignRole role) {
  if (role == DesignRole::other)
    return {others.begin(), others.end()};
  return builtInTypes(role);
}

std::string findTypeFault(DesignRole role, std::string_view typeName) {
  if (isKnown(role, typeName))
    return "";
  std::string fault = "the debugger knows no " + std::string(wordOf(role)) +
                      " of type " + quote(typeName);
  const std::string_view meant = findNearMatch(typeName, knownTypes(role));
  if (!meant.empty())
    fault += "; did you mean " + quote(meant) + "?";
  return fault;
}

} // namespace ZelDebugDialog
