// The designs and projects that were opened last, with the libraries, the kind
// table and the view that they were opened with, and of a project the probe and
// the profile, in the settings of the program.
#ifndef ZELDEBUGDIALOG_DIALOG_RECENTDESIGNS_H
#define ZELDEBUGDIALOG_DIALOG_RECENTDESIGNS_H

#include <vector>

#include "program/WhatToOpen.h"

namespace ZelDebugDialog::dialog {

/// The newest first.
std::vector<WhatToOpen> recentDesigns();
/// Puts it in front, in the place of the same design with other libraries.
void noteRecentDesign(const WhatToOpen &sources);

} // namespace ZelDebugDialog::dialog

#endif
