// A file as it was, behind a change of several files that could not be ended.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_FILES_PUTBACK_H
#define ZELDEBUGDIALOG_PROJECTFILE_FILES_PUTBACK_H

#include <optional>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Files.h"

namespace ZelDebugDialog::project {

/// Gives the file of `lock` the text `before`, or removes it where there was
/// none. If that fails too, the file stays: the reason for the failure of the
/// change is told, and it is why this fails as well.
void putBack(const FileLock &lock, const std::string &file,
             const std::optional<std::string> &before) noexcept;

} // namespace ZelDebugDialog::project

#endif
