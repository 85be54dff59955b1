// How the place of a file is shown.
#ifndef ZELDEBUG_PLACE_H
#define ZELDEBUG_PLACE_H

#include <filesystem>
#include <string>

namespace zeldebug {

constexpr const char *noSuchFile = "there is no such file";

/// A path as seen from where the program was started, if it lies below.
std::string shownPath(const std::filesystem::path &path);

} // namespace zeldebug

#endif
