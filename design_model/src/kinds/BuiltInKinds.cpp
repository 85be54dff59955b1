#include "kinds/BuiltInKinds.h"

#include <array>

namespace ZelDebugDialog {
namespace {

struct Row {
  std::string_view typeName;
  DesignRole role;
};

constexpr std::array<Row, 8> table = {{
    {debugModuleTypes[1], DesignRole::debugModule},
    {debugModuleTypes[0], DesignRole::debugModule},
    {ppcControllerType, DesignRole::debugModule},
    {lumacoreTypeName, DesignRole::processor},
    {ppc405TypeName, DesignRole::processor},
    {ppc440TypeName, DesignRole::processor},
    {cortexA9TypeName, DesignRole::processor},
    {cortexR5TypeName, DesignRole::processor},
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
