#include "files/LockFile.h"

#include <cerrno>
#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

constexpr auto pause = std::chrono::milliseconds(5);

// What most file systems allow, less the ending and the dot in front.
constexpr std::size_t longestName = 240;

/// Whether the name still leads to what was opened: whoever had the lock before
/// has taken the name away.
bool isStillThere(int descriptor, const fs::path &path) {
  struct stat opened = {};
  struct stat named = {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Waits for the lock of what was opened.
/// @return 0, or the error number.
int waitForLock(int descriptor, std::chrono::steady_clock::time_point end) {
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR)
      continue;
    if (errno != EWOULDBLOCK)
      return errno == ENOLCK || errno == EOPNOTSUPP ? 0 : errno;
    if (std::chrono::steady_clock::now() > end)
      return ETIMEDOUT;
    std::this_thread::sleep_for(pause);
  }
  return 0;
}

} // namespace

LockFile::LockFile(const fs::path &file, std::chrono::seconds patience)
    : path(besideFile(file, ".lock")) {
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    descriptor.emplace(path, O_RDWR | O_CREAT | O_NOFOLLOW, 0666);
    if (!descriptor->isOpen())
      refuseToWriteIn(file.parent_path(), errno);
    const int problem = waitForLock(descriptor->number(), end);
    if (problem == 0 && isStillThere(descriptor->number(), path))
      return;
    if (problem == ETIMEDOUT)
      refuseFile(file, "another program has been saving it for too long");
    if (problem != 0)
      refuseFile(file, std::generic_category().message(problem));
  }
}

LockFile::~LockFile() { unlink(path.c_str()); }

fs::path besideFile(const fs::path &file, const char *ending) {
  std::string name = file.filename().string();
  if (name.size() > longestName)
    name = fmt::format("{}~{:x}", name.substr(0, longestName - 20),
                       std::hash<std::string>()(name));
  const bool isHidden = !name.empty() && name.front() == '.';
  return file.parent_path() / ((isHidden ? "" : ".") + name + ending);
}

void refuseKind(RefusalKind kind, const fs::path &file,
                const std::string &problem) {
  Refusal refusal(kind, printable(file.string()), problem);
  refusal.file = file.string();
  throw refusal;
}

void refuseFile(const fs::path &file, const std::string &problem) {
  refuseKind(RefusalKind::fileSystem, file, problem);
}

void refuseToWriteIn(const fs::path &folder, int problem) {
  if (problem == ENOENT)
    refuseKind(RefusalKind::noFolder, folder, "there is no such folder");
  if (problem == ENOTDIR)
    refuseKind(RefusalKind::noFolder, folder, "is a file, no folder");
  refuseFile(folder, fmt::format("cannot write there: {}",
                                 std::generic_category().message(problem)));
}

} // namespace ZelDebugDialog::model
