// What a change asks for, as it is to stand in a file.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDITING_WANTEDVALUES_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDITING_WANTEDVALUES_H

#include <string>

#include "ZelDebugDialog/ProjectFile/Edit.h"

namespace ZelDebugDialog::project {

/// The setting's own name.
/// @throws Refusal (unknownSetting, notSettable) for what no file says
const std::string &expectAccepted(const std::string &setting);

/// The values of a change, each once and as the model has it. The base of the
/// address map is left out where all regions are given: it follows from them.
/// @throws Refusal (unknownSetting, notSettable, badValue; excluded for a
///   setting with two values, or with one that is unset as well)
SettingValues wantedValues(const ProjectEdit &edit);

} // namespace ZelDebugDialog::project

#endif
