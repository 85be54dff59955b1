// Files as they lie on the disk.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_FILES_READFILE_H
#define ZELDEBUGDIALOG_PROJECTFILE_FILES_READFILE_H

#include <optional>
#include <string>

namespace ZelDebugDialog::project {

/// The content of a regular file; nothing where there is none.
/// @throws Refusal (unreadable) for one that cannot be read, or is too long,
///   and for a link to nothing
std::optional<std::string> findFile(const std::string &path);

/// @throws Refusal (unreadable), also where there is none
std::string expectFile(const std::string &path);

} // namespace ZelDebugDialog::project

#endif
