#include "output/Place.h"

#include <system_error>

namespace zeldebug {

namespace fs = std::filesystem;

std::string shownPath(const fs::path &path) {
  std::error_code error;
  const fs::path start = fs::current_path(error);
  const std::string relative = path.lexically_relative(start).string();
  const bool isBelow = !relative.empty() && relative.compare(0, 2, "..") != 0;
  return isBelow ? relative : path.string();
}

} // namespace zeldebug
