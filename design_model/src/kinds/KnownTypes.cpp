#include "kinds/KnownTypes.h"

#include <algorithm>
#include <array>

#include "kinds/BuiltInKinds.h"
#include "messages/Quote.h"
#include "names/NearMatch.h"

namespace ZelDebugDialog {
namespace {

constexpr std::array<std::string_view, 2> stubUarts = {"uart_mini_cedar",
                                                       "uart_mini_ember"};
constexpr std::array<std::string_view, 2> fpus = {"aux_fpu", "aux_fpu_gen5"};
/// Besides all that have "ddr" in their names.
constexpr std::array<std::string_view, 17> memories = {
    "ocm_ctl_amber",   "ocm_ctl_ember",      "ocm_ctl_delta",
    "ocm_ctl_birch",   "ocm_ctl_cedar",      "ocm_iside_ctl",
    "ocm_dside_ctl",   "soc_ocram",          "multiport_memctl",
    "sdram_ctl_birch", "sdram_ctl_cedar_mc", "sdram_ctl_cedar",
    "emc_ctl_delta",   "emc_ctl_ember_mc",   "emc_ctl_cedar_mc",
    "emc_ctl_cedar",   "emc_ctl_birch",
};

std::string inLowerCase(std::string_view text) {
  std::string lower(text);
  for (char &c : lower)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

template <typename List> bool has(const List &list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

bool isKnown(DesignRole role, std::string_view typeName) {
  return has(knownTypes(role), typeName) ||
         (role == DesignRole::other && isMemoryType(typeName));
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
  if (role != DesignRole::other)
    return builtInTypes(role);
  std::vector<std::string_view> names(stubUarts.begin(), stubUarts.end());
  names.insert(names.end(), fpus.begin(), fpus.end());
  names.insert(names.end(), memories.begin(), memories.end());
  return names;
}

bool isStubUart(std::string_view typeName) { return has(stubUarts, typeName); }

/// Memories go by their names in any case.
bool isMemoryType(std::string_view typeName) {
  const std::string lower = inLowerCase(typeName);
  return lower.find("ddr") != std::string::npos || has(memories, lower);
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
