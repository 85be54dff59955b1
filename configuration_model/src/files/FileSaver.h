// Replacing an option file so that the one that is there is either wholly
// replaced or untouched.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_FILESAVER_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_FILESAVER_H

#include <filesystem>
#include <string>
#include <vector>

namespace ZelDebugDialog::model {

/// A file beside the one that it is to replace. It is gone again unless it was
/// moved into place.
class ScratchFile {
public:
  /// Nothing is there yet but the name; what an ended program left behind under
  /// it is removed. The lock of `target` is held.
  explicit ScratchFile(std::filesystem::path target);
  ~ScratchFile();
  ScratchFile(ScratchFile &&other) noexcept;
  ScratchFile &operator=(ScratchFile &&) = delete;
  ScratchFile(const ScratchFile &) = delete;
  ScratchFile &operator=(const ScratchFile &) = delete;

  const std::filesystem::path &path() const { return scratch; }

  /// @throws Refusal (fileSystem) unless the file holds exactly `text`: the
  ///   engine does not report a disk that is full
  void expectContent(const std::string &text) const;

  /// Puts it in the place of the target, with the permissions of the file that
  /// is there. @throws Refusal (fileSystem)
  void moveIntoPlace();

private:
  std::filesystem::path place;
  std::filesystem::path scratch;
  bool isMoved = false;
};

/// @throws Refusal (noFolder, noRegularFile, readOnly unless `force`) where no
///   file can take the place, or may not
void expectReplaceable(const std::filesystem::path &target, bool force);

/// A folder that files are to be written into, or that is to be made.
/// @throws Refusal (fileSystem) if the file system would not have it
void expectWritable(const std::filesystem::path &folder, bool mayMake);

/// Asks the file system to keep what was written before names are moved: once
/// for all files of one file system. @throws Refusal (fileSystem)
void flushFiles(const std::vector<const ScratchFile *> &files);

/// Asks the file system to keep the names that were moved in a folder. They are
/// moved already: what it cannot keep is nobody's refusal.
void flushFolder(const std::filesystem::path &folder);

} // namespace ZelDebugDialog::model

#endif
