// A folder for a moment, in which a file is written before it takes its place.
//
// A run that is killed leaves its folder behind; the next one in the same place
// clears it away. Whose folder is still in use is told by a lock on it, which
// ends with the process that holds it.
#ifndef ZELDEBUG_LOCKEDFOLDER_H
#define ZELDEBUG_LOCKEDFOLDER_H

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

} // namespace zeldebug

#endif
