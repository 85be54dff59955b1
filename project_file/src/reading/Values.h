// Values of settings as the files write them.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_VALUES_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_VALUES_H

#include <optional>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ProjectFile/Project.h"
#include "reading/Faults.h"
#include "toml/Document.h"

namespace ZelDebugDialog::project {

/// A text that is none: a number, which has to stand in quotes, or another
/// type.
/// @return null after a fault
const std::string *expectText(const TomlNode &node, const std::string &name,
                              Faults &faults);

/// Reads the value of a setting.
/// @return nothing after a fault
std::optional<ProjectValue> readValue(const SettingInfo &setting,
                                      const TomlNode &node, Faults &faults);

} // namespace ZelDebugDialog::project

#endif
