// Values as they are written into a file.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDITING_WRITTENVALUE_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDITING_WRITTENVALUE_H

#include <string>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace ZelDebugDialog::project {

/// The value of a setting, as `ExpectSetting` gives it.
/// @param before   the bytes that it replaces, whose notation it keeps where it
///   can; empty for none
/// @param lineEnd  between the devices of a chain
std::string writtenValue(const SettingInfo &setting, const Value &value,
                         const std::string &before, const std::string &lineEnd);

} // namespace ZelDebugDialog::project

#endif
