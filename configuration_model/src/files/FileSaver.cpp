#include "files/FileSaver.h"

#include <cerrno>
#include <map>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/FileDescriptor.h"
#include "files/LockFile.h"
#include "files/Place.h"

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

/// Without writing anything: a user who may write everything is told all the
/// same that the file is not meant to be written.
bool isReadOnly(const fs::path &file) {
  constexpr fs::perms write =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code error;
  const fs::perms permissions = fs::status(file, error).permissions();
  return (permissions & write) == fs::perms::none ||
         faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0;
}

} // namespace

ScratchFile::ScratchFile(fs::path target)
    : place(std::move(target)), scratch(besideFile(place, ".new")) {
  unlink(scratch.c_str());
  // Made here, so that the engine cannot be led elsewhere by a link.
  const FileDescriptor made(scratch, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                            0666);
  if (!made.isOpen())
    refuseToWriteIn(place.parent_path(), errno);
}

ScratchFile::~ScratchFile() {
  if (!isMoved)
    unlink(scratch.c_str());
}

ScratchFile::ScratchFile(ScratchFile &&other) noexcept
    : place(std::move(other.place)), scratch(std::move(other.scratch)),
      isMoved(std::exchange(other.isMoved, true)) {}

void ScratchFile::expectContent(const std::string &text) const {
  if (!holds(scratch, text))
    refuseFile(place.parent_path(),
               "the option file could not be written whole: no space left, or "
               "a limit on the size of files");
}

void ScratchFile::moveIntoPlace() {
  std::error_code error;
  const fs::file_status there = fs::status(place, error);
  if (fs::is_regular_file(there))
    fs::permissions(scratch, there.permissions(), error);
  fs::rename(scratch, place, error);
  if (error)
    refuseFile(place, error.message());
  isMoved = true;
}

void expectReplaceable(const fs::path &target, bool force) {
  const fs::path folder = target.parent_path();
  const Place around = lookAt(folder, fs::file_type::directory);
  if (!around.problem.empty())
    refuseKind(RefusalKind::noFolder, folder, around.problem);
  if (!around.exists)
    refuseKind(RefusalKind::noFolder, folder, "there is no such folder");
  const Place place = lookAt(target, fs::file_type::regular);
  if (!place.problem.empty())
    refuseKind(RefusalKind::noRegularFile, target, place.problem);
  if (place.exists && !force && isReadOnly(target))
    refuseKind(RefusalKind::readOnly, target, "it may not be written");
}

void expectWritable(const fs::path &folder, bool mayMake) {
  const bool isThere = lookAt(folder, fs::file_type::directory).exists;
  if (!isThere && !mayMake)
    return;
  const fs::path place = isThere ? folder : folder.parent_path();
  if (faccessat(AT_FDCWD, place.c_str(), W_OK | X_OK, AT_EACCESS) == 0)
    return;
  const std::string problem = std::generic_category().message(errno);
  refuseFile(folder, isThere ? "cannot write there: " + problem : problem);
}

void flushFiles(const std::vector<const ScratchFile *> &files) {
  std::map<dev_t, std::vector<const ScratchFile *>> byFileSystem;
  for (const ScratchFile *const file : files) {
    struct stat status = {};
    if (lstat(file->path().c_str(), &status) != 0)
      refuseFile(file->path(), std::generic_category().message(errno));
    byFileSystem[status.st_dev].push_back(file);
  }
  for (const auto &[device, together] : byFileSystem) {
    const fs::path &one = together.front()->path();
    const FileDescriptor opened(one, O_RDONLY);
    const auto flush = together.size() == 1 ? fsync : syncfs;
    if (!opened.isOpen() || flush(opened.number()) != 0)
      refuseFile(one, std::generic_category().message(errno));
  }
}

void flushFolder(const fs::path &folder) {
  const FileDescriptor opened(folder, O_RDONLY | O_DIRECTORY);
  static_cast<void>(fsync(opened.number()));
}

} // namespace ZelDebugDialog::model
