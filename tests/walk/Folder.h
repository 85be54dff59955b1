// Where a walk has its files.
#ifndef TESTS_WALK_FOLDER_H
#define TESTS_WALK_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace walk {

/// A folder in memory, where there is one: a walk flushes often.
class Folder {
public:
  /// @param name  what its name begins with
  explicit Folder(const std::string &name) {
    const std::filesystem::path shared = "/dev/shm";
    std::string made = ((std::filesystem::is_directory(shared)
                             ? shared
                             : std::filesystem::temp_directory_path()) /
                        (name + "-XXXXXX"))
                           .string();
    if (mkdtemp(made.data()) == nullptr)
      throw std::runtime_error("no folder can be made: " + made);
    path = made;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  Folder(const Folder &) = delete;
  Folder &operator=(const Folder &) = delete;

  std::filesystem::path path;
};

} // namespace walk

#endif
