// The type names that the engine knows, and what they are to a debugger.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_BUILTINKINDS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_BUILTINKINDS_H

#include <string_view>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/TypeNames.h"

namespace ZelDebugDialog {

/// `other` for a type name that the table doesn't hold.
DesignRole findBuiltInRole(std::string_view typeName);

/// The type names of a role.
std::vector<std::string_view> builtInTypes(DesignRole role);

} // namespace ZelDebugDialog

#endif
