// Settings of one desk in the file that everybody has.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_DESKSETTINGS_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_DESKSETTINGS_H

#include <vector>

#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog::project {

/// Whether a value belongs to a desk.
/// @param cable  the cable that is in use with it; null if it is not known
bool isOfDesk(const std::string &setting, const Value &value,
              const Value *cable);

/// Warns of those in blocks. A probe is chosen by its name: it may have them.
void addDeskSettings(const ProjectLayer &project,
                     std::vector<ProjectFault> &faults);

} // namespace ZelDebugDialog::project

#endif
