#include "xml/ListFolder.h"

#include <dirent.h>

#include <cerrno>
#include <memory>
#include <string_view>

namespace ZelDebugDialog {

namespace fs = std::filesystem;

std::error_code listFolder(const fs::path &folder, std::size_t most,
                           std::vector<fs::path> &entries) {
  const std::unique_ptr<DIR, int (*)(DIR *)> open(opendir(folder.c_str()),
                                                  closedir);
  if (open == nullptr)
    return {errno, std::generic_category()};
  while (entries.size() < most) {
    errno = 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody else reads from this one.
    const dirent *const entry = readdir(open.get());
    if (entry == nullptr)
      return {errno, std::generic_category()};
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..")
      entries.push_back(folder / name);
  }
  return {};
}

bool isOwnFolder(const fs::path &path) {
  std::error_code error;
  return fs::is_directory(fs::symlink_status(path, error));
}

} // namespace ZelDebugDialog
