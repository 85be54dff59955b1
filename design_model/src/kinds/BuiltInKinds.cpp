#include "kinds/BuiltInKinds.h"

namespace ZelDebugDialog {
namespace {

struct Row {
  std::string_view typeName;
  DesignRole role;
};

/// Debug modules, then processors.
const std::vector<Row> &table() {
  static const std::vector<Row> rows = [] {
    std::vector<Row> made{{debugModuleTypes[1], DesignRole::debugModule},
                          {debugModuleTypes[0], DesignRole::debugModule},
                          {ppcControllerType, DesignRole::debugModule}};
    for (const std::string_view typeName : processorTypeNames)
      made.push_back({typeName, DesignRole::processor});
    return made;
  }();
  return rows;
}

} // namespace

DesignRole findBuiltInRole(std::string_view typeName) {
  for (const Row &row : table())
    if (row.typeName == typeName)
      return row.role;
  return DesignRole::other;
}

std::vector<std::string_view> builtInTypes(DesignRole role) {
  std::vector<std::string_view> names;
  for (const Row &row : table())
    if (row.role == role)
      names.push_back(row.typeName);
  return names;
}

} // namespace ZelDebugDialog
