// A project as it would be with a change, before anything is written.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_ADOPTING_WITHEDIT_H
#define ZELDEBUGDIALOG_PROJECTFILE_ADOPTING_WITHEDIT_H

#include "ZelDebugDialog/ProjectFile/Edit.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog::project {

/// What the files would say. The values of the change have their file and no
/// line.
/// @param edit  of one processor; a profile that it names is there
Project withEdit(Project project, const ProjectEdit &edit);

} // namespace ZelDebugDialog::project

#endif
