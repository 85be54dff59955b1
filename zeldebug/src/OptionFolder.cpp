#include "OptionFolder.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

/// Whether it has to be made.
bool isMissing(const fs::path &path) {
  const Place place = lookAt(path, fs::file_type::directory);
  if (!place.problem.empty())
    refuse(path, place.problem);
  return !place.exists;
}

std::error_code findWriteError(const fs::path &folder) {
  const bool mayWrite =
      faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
  return {mayWrite ? 0 : errno, std::generic_category()};
}

} // namespace

OptionFolder::OptionFolder(fs::path path, bool mayMake)
    : folder(std::move(path)) {
  if (!isMissing(folder))
    return;
  if (!mayMake)
    refuse(folder, missingFolder);
  std::error_code error;
  isMade = fs::create_directory(folder, error);
  if (error)
    refuse(folder, error.message());
}

OptionFolder::~OptionFolder() {
  std::error_code ignored;
  if (isMade)
    fs::remove(folder, ignored);
}

bool isWritableOptionFolder(const fs::path &path) {
  const bool isToBeMade = isMissing(path);
  const std::error_code error =
      findWriteError(isToBeMade ? path.parent_path() : path);
  if (error && isToBeMade)
    refuse(path, error.message());
  if (error)
    refuseToWriteIn(path, error);
  return !isToBeMade;
}

void refuseToWriteIn(const fs::path &folder, const std::error_code &error) {
  refuse(folder, fmt::format("cannot write there: {}", error.message()));
}

} // namespace zeldebug
