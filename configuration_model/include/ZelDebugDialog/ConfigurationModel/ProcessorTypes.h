// The types of processors that the debugger knows.
//
// What a design has of them is `BoardProcessor::type` (Board.h). The table
// never changes; usable from any thread.
//
//   for (const std::string &type : GetProcessorTypes()) offer(type);
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_PROCESSORTYPES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_PROCESSORTYPES_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// The IP type names by which a design tells that a component is a processor:
/// "lumacore", "ppc405_core", ... A design may have others, which cannot be
/// debugged.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const std::vector<std::string> &
GetProcessorTypes();

} // namespace ZelDebugDialog

#endif
