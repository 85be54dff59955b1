#include "output/LockedFolder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view namePrefix = ".zeldebug-";
constexpr std::string_view namePattern = ".zeldebug-XXXXXX";

int openFolder(const fs::path &folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

/// Whether the name still leads to what was opened.
bool isStillThere(int descriptor, const fs::path &folder) {
  struct stat opened = {};
  struct stat named = {};
  return fstat(descriptor, &opened) == 0 &&
         lstat(folder.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

void clearAwayUnlessLocked(const fs::path &folder) {
  const int descriptor = openFolder(folder);
  if (descriptor < 0)
    return;
  std::error_code ignored;
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0 &&
      isStillThere(descriptor, folder))
    fs::remove_all(folder, ignored);
  close(descriptor);
}

/// What cannot be cleared away does not matter: it is in nobody's way.
void clearAwayLeftovers(const fs::path &parent) {
  std::error_code error;
  fs::directory_iterator entry(parent, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.size() == namePattern.size() &&
        name.compare(0, namePrefix.size(), namePrefix) == 0)
      clearAwayUnlessLocked(entry->path());
  }
}

fs::path makeFolder(const fs::path &parent) {
  std::string name = (parent / namePattern).string();
  if (mkdtemp(name.data()) == nullptr)
    throw fs::filesystem_error("cannot make a folder", parent,
                               std::error_code(errno, std::generic_category()));
  return name;
}

} // namespace

LockedFolder::LockedFolder(const fs::path &parent) {
  clearAwayLeftovers(parent);
  // Between making and locking it, another run may take it for a leftover.
  do {
    if (lock >= 0)
      close(lock);
    folder = makeFolder(parent);
    lock = openFolder(folder);
    // Without a lock, where the file system has none, nobody else gets one.
    if (lock >= 0)
      flock(lock, LOCK_EX);
  } while (lock >= 0 ? !isStillThere(lock, folder) : !fs::exists(folder));
}

LockedFolder::~LockedFolder() {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  if (lock >= 0)
    close(lock);
}

} // namespace zeldebug
