// The designs that were opened last, with the libraries, the kind table and the
// view that they were opened with, in the settings of the program.
#ifndef ZELDEBUGDIALOG_DIALOG_RECENTDESIGNS_H
#define ZELDEBUGDIALOG_DIALOG_RECENTDESIGNS_H

#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog::dialog {

/// The newest first.
std::vector<DesignSources> recentDesigns();
/// Puts it in front, in the place of the same design with other libraries.
void noteRecentDesign(const DesignSources &sources);

} // namespace ZelDebugDialog::dialog

#endif
