#include "files/WriteFile.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"

namespace ZelDebugDialog::project {

namespace fs = std::filesystem;

namespace {

// A thousand processors are synchronized in seconds: whoever takes longer has
// been stopped.
constexpr auto longestWait = std::chrono::seconds(60);
constexpr auto pause = std::chrono::milliseconds(5);

[[noreturn]] void refuse(RefusalKind kind, const fs::path &file,
                         const std::string &problem) {
  Refusal refusal(kind, ShowText(file.string()), problem);
  refusal.file = file.string();
  throw refusal;
}

[[noreturn]] void refuse(const fs::path &file, int problem) {
  refuse(problem == ENOENT || problem == ENOTDIR ? RefusalKind::noFolder
                                                 : RefusalKind::fileSystem,
         file, std::generic_category().message(problem));
}

/// Whether the name still leads to what was opened: whoever had the lock before
/// has taken the name away.
bool isStillThere(int descriptor, const fs::path &path) {
  struct stat opened = {};
  struct stat named = {};
  return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// @return 0, or the error number
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

/// The file that a name leads to, which may be missing.
fs::path behindLinks(const fs::path &path) {
  std::error_code error;
  fs::path target = fs::canonical(path, error);
  return error ? path : target;
}

/// A file beside the one that it is to replace, gone again unless it did. What
/// goes wrong with it is told of that one.
class Scratch {
public:
  explicit Scratch(fs::path replaced)
      : target(std::move(replaced)),
        path(target.parent_path() /
             ("." + target.filename().string() + ".new")) {
    unlink(path.c_str());
    descriptor =
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
             0666);
    if (descriptor < 0)
      refuse(target, errno);
  }
  ~Scratch() {
    if (descriptor >= 0)
      close(descriptor);
    if (!path.empty())
      unlink(path.c_str());
  }
  Scratch(const Scratch &) = delete;
  Scratch &operator=(const Scratch &) = delete;

  void write(const std::string &text) const {
    for (std::size_t at = 0; at < text.size();) {
      const ssize_t count =
          ::write(descriptor, text.data() + at, text.size() - at);
      if (count < 0 && errno == EINTR)
        continue;
      if (count <= 0)
        refuse(target, count < 0 ? errno : ENOSPC);
      at += static_cast<std::size_t>(count);
    }
    if (fsync(descriptor) != 0)
      refuse(target, errno);
  }
  void moveIntoPlace() {
    struct stat there = {};
    if (stat(target.c_str(), &there) == 0 &&
        fchmod(descriptor, there.st_mode & 07777U) != 0)
      refuse(target, errno);
    if (rename(path.c_str(), target.c_str()) != 0)
      refuse(target, errno);
    path.clear();
  }

private:
  fs::path target;
  fs::path path;
  int descriptor = -1;
};

} // namespace

Lock::Lock(fs::path file) : path(std::move(file)) {
  const auto end = std::chrono::steady_clock::now() + longestWait;
  for (;;) {
    descriptor =
        open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (descriptor < 0)
      refuse(path, errno);
    const int problem = waitForLock(descriptor, end);
    if (problem == 0 && isStillThere(descriptor, path))
      return;
    close(descriptor);
    if (problem == ETIMEDOUT)
      refuse(RefusalKind::fileSystem, path,
             "another program has been writing for too long");
    if (problem != 0)
      refuse(path, problem);
  }
}

Lock::~Lock() {
  unlink(path.c_str());
  close(descriptor);
}

fs::path lockOf(const fs::path &file) {
  const fs::path target = behindLinks(file);
  return target.parent_path() / ("." + target.filename().string() + ".lock");
}

void writeFile(const fs::path &file, const std::string &text) {
  const fs::path target = behindLinks(file);
  std::error_code error;
  const fs::file_status there = fs::symlink_status(target, error);
  if (fs::exists(there) && !fs::is_regular_file(there))
    refuse(RefusalKind::noRegularFile, target,
           fs::is_directory(there) ? "is a folder, no file"
           : fs::is_symlink(there) ? "is a link to nothing"
                                   : "is no regular file");
  Scratch scratch(target);
  scratch.write(text);
  scratch.moveIntoPlace();
}

} // namespace ZelDebugDialog::project
