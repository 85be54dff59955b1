#include "OptionFolder.h"

#include <system_error>
#include <utility>

#include "Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

/// Whether it has to be made.
bool isMissing(const fs::path &path, bool mayMake) {
  const Place place = lookAt(path, fs::file_type::directory);
  if (!place.problem.empty())
    refuse(path, place.problem);
  if (!place.exists && !mayMake)
    refuse(path, "there is no such folder (--mkdir makes it)");
  return !place.exists;
}

} // namespace

OptionFolder::OptionFolder(fs::path path, bool mayMake)
    : folder(std::move(path)) {
  if (!isMissing(folder, mayMake))
    return;
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

} // namespace zeldebug
