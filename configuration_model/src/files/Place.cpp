#include "files/Place.h"

#include <fstream>
#include <ios>
#include <system_error>

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

std::string mismatch(fs::file_type found, fs::file_type wanted) {
  if (wanted == fs::file_type::directory)
    return found == fs::file_type::regular ? "is a file, no folder"
                                           : "is no folder";
  return found == fs::file_type::directory ? "is a folder, no file"
                                           : "is no regular file";
}

} // namespace

Place lookAt(const fs::path &path, fs::file_type wanted) {
  std::error_code error;
  const fs::file_status own = fs::symlink_status(path, error);
  if (own.type() == fs::file_type::not_found)
    return {false, ""};
  if (!fs::exists(own))
    return {false, error.message()};
  const fs::file_type target = fs::status(path, error).type();
  if (target == wanted)
    return {true, ""};
  if (target == fs::file_type::not_found)
    return {true, "is a link to nothing"};
  return {true, target == fs::file_type::none ? error.message()
                                              : mismatch(target, wanted)};
}

fs::path behindLinks(const fs::path &path) {
  std::error_code error;
  fs::path target = fs::canonical(path, error);
  if (!error)
    return target;
  const fs::path folder = fs::canonical(path.parent_path(), error);
  return error ? path : folder / path.filename();
}

bool holds(const fs::path &file, const std::string &text) {
  std::ifstream stream(file, std::ios::binary);
  // A character more, to see that there is none.
  std::string content(text.size() + 1, '\0');
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(stream.gcount()));
  return stream.is_open() && !stream.bad() && content == text;
}

} // namespace ZelDebugDialog::model
