#include "kinds/BuiltInKinds.h"

#include <array>

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

} // namespace

DesignRole findBuiltInRole(std::string_view typeName) {
  for (const Row &row : table)
    if (row.typeName == typeName)
      return row.role;
  return DesignRole::other;
}

std::vector<std::string_view> builtInTypes(DesignRole role) {
  std::vector<std::string_view> names;
  for (const Row &row : table)
    if (row.role == role)
      names.push_back(row.typeName);
  return names;
}

} // namespace ZelDebugDialog
