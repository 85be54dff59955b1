// Which file has the profile that a change goes to.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDITING_TARGETPROFILE_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDITING_TARGETPROFILE_H

#include <string>

#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog::project {

/// Whether the local file has it: only where the project file has none of that
/// name.
/// @throws Refusal (badValue) for what is no name of one, and for a profile
///   that neither has
bool isProfileLocal(const Project &project, const std::string &profile);

} // namespace ZelDebugDialog::project

#endif
