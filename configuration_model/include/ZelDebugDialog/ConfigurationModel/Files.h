// Writing a file so that it is there wholly or not at all.
//
// A function without a state; usable from any thread, and by several programs
// at once.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_H

#include <cstdint>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"

namespace ZelDebugDialog {

/// What becomes of a file that is there.
enum class ExistingFile : std::uint8_t {
  refuse,  ///< it stays
  replace, ///< it is replaced, with its permissions
};

/// Writes `text` beside the file and moves it into its place, which nobody else
/// does meanwhile. Nothing but a regular file is ever replaced, also behind a
/// link. After a refusal, or in a program that is killed, what was there is
/// there.
/// @return false where the file holds just this text; it is left alone then.
/// @throws Refusal (fileExists with `refuse`, noRegularFile, noFolder,
///   fileSystem)
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API bool
WriteWholeFile(const std::string &path, const std::string &text,
               ExistingFile existing);

} // namespace ZelDebugDialog

#endif
