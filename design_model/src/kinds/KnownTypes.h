// The type names that a kind table can give to a component, as far as the
// debugger makes something of them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KNOWNTYPES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KNOWNTYPES_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

/// Those of one role: for `other` memories, floating-point units and the serial
/// ports of debug stubs.
std::vector<std::string_view> knownTypes(DesignRole role);

/// A serial port that a debug stub can use.
bool isStubUart(std::string_view typeName);

/// The debugger has a class for memories of this type.
bool isMemoryType(std::string_view typeName);

/// What is wrong with the type name of a role; empty: the debugger knows it.
std::string findTypeFault(DesignRole role, std::string_view typeName);

} // namespace ZelDebugDialog

#endif
