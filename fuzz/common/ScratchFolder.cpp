#include "common/ScratchFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "common/Require.h"

namespace fuzz {
namespace {

namespace fs = std::filesystem;

/// Memory, where there is a folder in it.
fs::path parent() {
  std::error_code error;
  const fs::path shared = "/dev/shm";
  return fs::is_directory(shared, error) && access(shared.c_str(), W_OK) == 0
             ? shared
             : fs::temp_directory_path();
}

} // namespace

ScratchFolder::ScratchFolder() : folder((parent() / "fuzz-XXXXXX").string()) {
  require(mkdtemp(folder.data()) != nullptr, "a scratch folder can be made");
  folder = fs::canonical(folder).string();
}

ScratchFolder::~ScratchFolder() {
  std::error_code error;
  fs::remove_all(folder, error);
}

Visit::Visit(const ScratchFolder &folder)
    : home(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
  require(home >= 0 && chdir(folder.path().c_str()) == 0,
          "the scratch folder can be entered");
}

Visit::~Visit() {
  require(fchdir(home) == 0, "there is a way back");
  close(home);
}

void fill(const std::string &path, const std::string &content) {
  const int file =
      open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  require(file >= 0 && write(file, content.data(), content.size()) ==
                           static_cast<ssize_t>(content.size()),
          "a scratch file can be filled");
  close(file);
}

std::string contentOf(const std::string &path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0)
    return "";
  std::string content;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 0;
       (count = read(file, buffer.data(), buffer.size())) > 0;)
    content.append(buffer.data(), static_cast<std::size_t>(count));
  close(file);
  return content;
}

} // namespace fuzz
