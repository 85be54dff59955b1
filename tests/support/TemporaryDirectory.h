// An empty folder of its own that is the working directory while it lives;
// afterwards the old one is restored and the folder is gone.
#ifndef TESTS_SUPPORT_TEMPORARYDIRECTORY_H
#define TESTS_SUPPORT_TEMPORARYDIRECTORY_H

#include <filesystem>
#include <string>

namespace support {

class TemporaryDirectory {
public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory &) = delete;
  TemporaryDirectory &operator=(const TemporaryDirectory &) = delete;

  /// Writes a file below the folder, with the folders that lead to it.
  void write(const std::string &relativePath, const std::string &content) const;
  /// The content of a file below the folder; throws when it is not there.
  std::string read(const std::string &relativePath) const;
  bool exists(const std::string &relativePath) const;

  const std::filesystem::path &path() const { return folder; }

private:
  std::filesystem::path previous;
  std::filesystem::path folder;
};

} // namespace support

#endif
