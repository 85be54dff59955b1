#include "support/TemporaryDirectory.h"

#include <stdlib.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace support {
namespace {

std::filesystem::path makeFolder() {
  std::string name =
      (std::filesystem::temp_directory_path() / "zeldebugdialog-XXXXXX")
          .string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), name);
  // Without links in it, as the working directory reports itself.
  return std::filesystem::canonical(name);
}

} // namespace

TemporaryDirectory::TemporaryDirectory()
    : previous(std::filesystem::current_path()), folder(makeFolder()) {
  std::filesystem::current_path(folder);
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::current_path(previous, ignored);
  std::filesystem::remove_all(folder, ignored);
}

void TemporaryDirectory::write(const std::string &relativePath,
                               const std::string &content) const {
  const std::filesystem::path file = folder / relativePath;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  stream << content;
  stream.close();
  if (!stream)
    throw std::runtime_error("cannot write " + file.string());
}

std::string TemporaryDirectory::read(const std::string &relativePath) const {
  std::ifstream stream(folder / relativePath, std::ios::binary);
  if (!stream)
    throw std::runtime_error("cannot read " + relativePath);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

bool TemporaryDirectory::exists(const std::string &relativePath) const {
  return std::filesystem::exists(folder / relativePath);
}

} // namespace support
