// What stands at a path, told apart before anything is opened or made there.
#ifndef ZELDEBUG_PLACE_H
#define ZELDEBUG_PLACE_H

#include <filesystem>
#include <string>

namespace zeldebug {

struct Place {
  bool exists = false; ///< a link to nothing is something
  std::string problem; ///< why it is not what is wanted, or empty
};

/// @param wanted  `regular` or `directory`, behind links as well
Place lookAt(const std::filesystem::path &path,
             std::filesystem::file_type wanted);

constexpr const char *noSuchFile = "there is no such file";

/// The name of a file as messages have it: an empty one is seen, and what is
/// not printable is escaped.
std::string shownName(const std::string &name);

/// @throws Failure (refused): "path: problem"
[[noreturn]] void refuse(const std::filesystem::path &path,
                         const std::string &problem);

} // namespace zeldebug

#endif
