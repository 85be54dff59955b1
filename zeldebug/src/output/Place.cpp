#include "output/Place.h"
#include "output/Output.h"

#include <system_error>

#include <fmt/format.h>

#include "output/Failure.h"

namespace zeldebug {

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

std::string shownPath(const fs::path &path) {
  std::error_code error;
  const fs::path start = fs::current_path(error);
  const std::string relative = path.lexically_relative(start).string();
  const bool isBelow = !relative.empty() && relative.compare(0, 2, "..") != 0;
  return isBelow ? relative : path.string();
}

void refuse(const fs::path &path, const std::string &problem) {
  throw Failure(ExitStatus::refused,
                fmt::format("{}: {}", printable(shownPath(path)), problem),
                {"", "", {}, {}, "", path.string()});
}

} // namespace zeldebug
