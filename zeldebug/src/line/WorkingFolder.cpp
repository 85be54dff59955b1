#include "line/WorkingFolder.h"

#include <filesystem>

#include <fmt/format.h>

#include "output/Failure.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

const std::filesystem::path &startFolder() {
  static const std::filesystem::path folder = std::filesystem::current_path();
  return folder;
}

} // namespace

void enterWorkingFolder(const std::string &folder) {
  startFolder();
  std::error_code error;
  std::filesystem::current_path(folder, error);
  if (error)
    throw Failure(
        ExitStatus::unreadable,
        fmt::format("-C '{}': {}", printable(folder), error.message()));
}

std::string shownPath(const std::filesystem::path &path) {
  const std::string relative = path.lexically_relative(startFolder()).string();
  const bool isBelow = !relative.empty() && relative.compare(0, 2, "..") != 0;
  return isBelow ? relative : path.string();
}

} // namespace zeldebug
