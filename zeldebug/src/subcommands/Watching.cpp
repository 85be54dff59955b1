#include "subcommands/Watching.h"

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <map>

#include <fmt/format.h>
#include <sys/stat.h>

#include "ZelDebugDialog/DesignModel/Libraries.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

// Looking so often, and one look more for the rest, stays below a second.
constexpr timespec betweenLooks{0, 200'000'000};

void lookAt(const std::string &file, std::map<std::string, std::string> &seen) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0)
    seen[file] = fmt::format("error {}", errno);
  else
    seen[file] = fmt::format("{} {} {}.{}", status.st_ino, status.st_size,
                             status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
}

void lookBelow(const std::string &folder,
               std::map<std::string, std::string> &seen) {
  std::error_code error;
  fs::recursive_directory_iterator entry(
      folder, fs::directory_options::skip_permission_denied, error);
  for (; !error && entry != fs::recursive_directory_iterator();
       entry.increment(error))
    if (const std::string file = entry->path().string();
        ZelDebugDialog::IsLibraryDocument(file))
      lookAt(file, seen);
}

} // namespace

Watching::Watching() {
  sigemptyset(&ending);
  sigaddset(&ending, SIGINT);
  sigaddset(&ending, SIGTERM);
  sigprocmask(SIG_BLOCK, &ending, &former);
}

Watching::~Watching() { sigprocmask(SIG_SETMASK, &former, nullptr); }

std::string Watching::look(const Watched &watched) {
  std::map<std::string, std::string> seen;
  for (const std::string &file : watched.files)
    lookAt(file, seen);
  for (const std::string &folder : watched.folders) {
    std::error_code error;
    if (fs::is_directory(folder, error)) {
      lookBelow(folder, seen);
      continue;
    }
    // A catalog names files that mostly lie below it.
    lookAt(folder, seen);
    const fs::path above = fs::path(folder).parent_path();
    lookBelow(above.empty() ? "." : above.string(), seen);
  }
  std::string text;
  for (const auto &[file, state] : seen)
    text += fmt::format("{}\t{}\n", file, state);
  return text;
}

bool Watching::pause() const {
  int signal = 0;
  do
    signal = sigtimedwait(&ending, nullptr, &betweenLooks);
  while (signal < 0 && errno == EINTR);
  return signal > 0;
}

bool Watching::waitForChange(const Watched &watched,
                             const std::string &before) const {
  std::string last = before;
  for (;;) {
    if (pause())
      return false;
    const std::string now = look(watched);
    if (now != before && now == last)
      return true;
    last = now;
  }
}

} // namespace zeldebug
