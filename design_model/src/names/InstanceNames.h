// Which names instances can have, and which instance a name means.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_INSTANCENAMES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_INSTANCENAMES_H

#include <string>
#include <string_view>

namespace ZelDebugDialog {

/// Why an instance can't have this name; empty when it can. Names become file
/// names, so they hold no separator and name no folder.
std::string findNameFault(std::string_view name);

} // namespace ZelDebugDialog

#endif
