// The type names that the engine knows, and what they are to a debugger.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_BUILTINKINDS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_BUILTINKINDS_H

#include <string_view>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

/// `other` for a type name that the table doesn't hold.
DesignRole findBuiltInRole(std::string_view typeName);

/// A serial port that a debug stub can use.
bool isStubUart(std::string_view typeName);

/// The debugger has a class for memories of this type.
bool isMemoryType(std::string_view typeName);

} // namespace ZelDebugDialog

#endif
