// A folder for a moment, in which the engine writes and reads an option file
// before it takes its place.
#ifndef ZELDEBUG_SCRATCHFOLDER_H
#define ZELDEBUG_SCRATCHFOLDER_H

#include <filesystem>
#include <string>

namespace zeldebug {

/// Makes the folder, with a folder etc/ in it, and is the working directory as
/// long as it lives; then goes back and leaves nothing behind.
class ScratchFolder {
public:
  /// @throws std::filesystem::filesystem_error
  explicit ScratchFolder(const std::filesystem::path &parent);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;

  const std::filesystem::path &path() const { return folder; }

private:
  std::filesystem::path folder;
  std::filesystem::path before;
};

} // namespace zeldebug

#endif
