// A folder for a moment, in which the engine writes and reads an option file
// before it takes its place.
//
// A run that is killed leaves its folder behind; the next one in the same place
// clears it away. Whose folder is still in use is told by a lock on it, which
// ends with the process that holds it.
#ifndef ZELDEBUG_SCRATCHFOLDER_H
#define ZELDEBUG_SCRATCHFOLDER_H

#include <filesystem>
#include <string>

namespace zeldebug {

/// A new folder with a name of its own, locked, and removed at the end.
class LockedFolder {
public:
  /// Clears away what dead processes have left in `parent`.
  /// @throws std::filesystem::filesystem_error
  explicit LockedFolder(const std::filesystem::path &parent);
  ~LockedFolder();
  LockedFolder(const LockedFolder &) = delete;
  LockedFolder &operator=(const LockedFolder &) = delete;

  const std::filesystem::path &path() const { return folder; }

private:
  std::filesystem::path folder;
  int lock = -1;
};

/// Makes the folder, with a folder etc/ in it, and is the working directory as
/// long as it lives; then goes back and leaves nothing behind.
class ScratchFolder {
public:
  /// @throws std::filesystem::filesystem_error
  explicit ScratchFolder(const std::filesystem::path &parent);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;

  const std::filesystem::path &path() const { return folder.path(); }

private:
  LockedFolder folder;
  std::filesystem::path before;
};

} // namespace zeldebug

#endif
