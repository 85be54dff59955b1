#include "line/WorkingFolder.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "output/Failure.h"
#include "output/Output.h"
#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

std::error_code whyNotEntered(const fs::path &folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error))
    return error ? error : std::make_error_code(std::errc::not_a_directory);
  const bool mayEnter =
      faccessat(AT_FDCWD, folder.c_str(), X_OK, AT_EACCESS) == 0;
  return {mayEnter ? 0 : errno, std::generic_category()};
}

} // namespace

std::string optionFolder(const std::string &workingFolder) {
  std::error_code error;
  // The library finds an empty name not missing, but wrong.
  const fs::path folder =
      workingFolder.empty() ? fs::path() : fs::canonical(workingFolder, error);
  if (!error)
    error = whyNotEntered(folder);
  if (error)
    throw Failure(
        ExitStatus::unreadable,
        fmt::format("-C '{}': {}", printable(workingFolder), error.message()),
        {"", "-C", workingFolder, {}, "", workingFolder});
  return shownPath(folder / "etc");
}

} // namespace zeldebug
