#include "output/WholeFile.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "output/Failure.h"
#include "output/LockedFolder.h"
#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

std::string contentOf(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream),
          std::istreambuf_iterator<char>()};
}

/// @return 0, or the error number.
int writeAndFlush(const fs::path &file, const std::string &text) {
  constexpr mode_t readableByAll = 0666;
  const int descriptor = open(
      file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, readableByAll);
  if (descriptor < 0)
    return errno;
  std::string_view rest = text;
  int problem = 0;
  while (!rest.empty() && problem == 0) {
    const ssize_t written = write(descriptor, rest.data(), rest.size());
    if (written >= 0)
      rest.remove_prefix(static_cast<std::size_t>(written));
    else if (errno != EINTR)
      problem = errno;
  }
  if (problem == 0 && fsync(descriptor) != 0)
    problem = errno;
  close(descriptor);
  return problem;
}

} // namespace

bool writeWholeFile(const fs::path &file, const std::string &text,
                    Existing existing) {
  const Place place = lookAt(file, fs::file_type::regular);
  if (!place.problem.empty())
    refuse(file, place.problem);
  if (place.exists && contentOf(file) == text)
    return false;
  if (place.exists && existing == Existing::refuse)
    refuse(file, "there is a file of that name (--force replaces it)");
  std::error_code error;
  const fs::path target = place.exists ? fs::canonical(file, error) : file;
  if (error)
    refuse(file, error.message());
  const fs::path folder =
      target.has_parent_path() ? target.parent_path() : fs::path(".");
  try {
    const LockedFolder scratch(folder);
    const fs::path written = scratch.path() / "written";
    const int problem = writeAndFlush(written, text);
    if (problem != 0)
      refuse(file, std::generic_category().message(problem));
    if (place.exists)
      fs::permissions(written, fs::status(target).permissions(), error);
    fs::rename(written, target);
  } catch (const fs::filesystem_error &problem) {
    refuse(file, problem.code().message());
  }
  return true;
}

} // namespace zeldebug
