#include "files/PutBack.h"

#include <exception>
#include <filesystem>

namespace ZelDebugDialog::project {

void putBack(const FileLock &lock, const std::string &file,
             const std::optional<std::string> &before) noexcept {
  try {
    if (before)
      WriteWholeFile(lock, *before, ExistingFile::replace);
    else
      std::filesystem::remove(file);
  } catch (const std::exception &) {
    return;
  }
}

} // namespace ZelDebugDialog::project
