// Replacing a file so that it is either wholly replaced or untouched, and a
// lock for whoever does.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_FILES_WRITEFILE_H
#define ZELDEBUGDIALOG_PROJECTFILE_FILES_WRITEFILE_H

#include <filesystem>
#include <string>

namespace ZelDebugDialog::project {

/// Held from its making to its end, across processes. The lock is a file of its
/// own, which is gone again afterwards; one that a killed program left behind
/// is in nobody's way.
class Lock {
public:
  /// Waits for whoever has it, some seconds at most.
  /// @throws Refusal (fileSystem, noFolder)
  explicit Lock(std::filesystem::path file);
  ~Lock();
  Lock(const Lock &) = delete;
  Lock &operator=(const Lock &) = delete;

private:
  std::filesystem::path path;
  int descriptor = -1;
};

/// The lock's name of a file that is to be replaced.
std::filesystem::path lockOf(const std::filesystem::path &file);

/// Writes beside the file, flushes, and renames; behind links.
/// @throws Refusal (fileSystem, noFolder, noRegularFile); then the file is
///   untouched
void writeFile(const std::filesystem::path &file, const std::string &text);

} // namespace ZelDebugDialog::project

#endif
