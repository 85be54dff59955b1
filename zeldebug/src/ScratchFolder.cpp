#include "ScratchFolder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace zeldebug {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder(const fs::path &parent)
    : before(fs::current_path()) {
  std::string name = (parent / ".zeldebug-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw fs::filesystem_error("cannot make a folder", parent,
                               std::error_code(errno, std::generic_category()));
  folder = name;
  fs::create_directory(folder / "etc");
  fs::current_path(folder);
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::current_path(before, ignored);
  fs::remove_all(folder, ignored);
}

} // namespace zeldebug
