// Who saves a file has it alone, across processes.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_LOCKFILE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_LOCKFILE_H

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "files/FileDescriptor.h"

namespace ZelDebugDialog::model {

/// Held from its making to its end. The lock is a file of its own beside the
/// option file, which is gone again afterwards; one that a killed program left
/// behind is in nobody's way.
class LockFile {
public:
  /// Waits for whoever has it; a save takes milliseconds: whoever takes longer
  /// than some seconds has been stopped.
  /// @throws Refusal (noFolder, fileSystem)
  explicit LockFile(const std::filesystem::path &file,
                    std::chrono::seconds patience = std::chrono::seconds(20));
  ~LockFile();
  LockFile(const LockFile &) = delete;
  LockFile &operator=(const LockFile &) = delete;

private:
  std::filesystem::path path;
  std::optional<FileDescriptor> descriptor;
};

/// The name of a file beside another one: hidden, and short enough for the file
/// system.
std::filesystem::path besideFile(const std::filesystem::path &file,
                                 const char *ending);

/// @throws Refusal about a file
[[noreturn]] void refuseKind(RefusalKind kind,
                             const std::filesystem::path &file,
                             const std::string &problem);
/// @throws Refusal (fileSystem) for what the file system said of a file
[[noreturn]] void refuseFile(const std::filesystem::path &file,
                             const std::string &problem);
/// @throws Refusal (noFolder, fileSystem) for an error number of making a file
[[noreturn]] void refuseToWriteIn(const std::filesystem::path &folder,
                                  int problem);

} // namespace ZelDebugDialog::model

#endif
