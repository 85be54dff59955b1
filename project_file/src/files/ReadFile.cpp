#include "files/ReadFile.h"

#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"

namespace ZelDebugDialog::project {

namespace {

// More than any project has; a larger file is something else.
constexpr std::size_t mostBytes = std::size_t{4} * 1024 * 1024;

[[noreturn]] void refuse(const std::string &path, const std::string &problem) {
  Refusal refusal(RefusalKind::unreadable, ShowText(path), problem);
  refusal.file = path;
  throw refusal;
}

class Descriptor {
public:
  explicit Descriptor(const std::string &path)
      : number(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~Descriptor() {
    if (number >= 0)
      close(number);
  }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;
  const int number;
};

} // namespace

std::optional<std::string> findFile(const std::string &path) {
  const Descriptor file(path);
  if (file.number < 0) {
    if (errno != ENOENT)
      refuse(path, std::generic_category().message(errno));
    struct stat link = {};
    if (lstat(path.c_str(), &link) == 0)
      refuse(path, "is a link to nothing");
    return std::nullopt;
  }
  struct stat status = {};
  if (fstat(file.number, &status) != 0)
    refuse(path, std::generic_category().message(errno));
  if (!S_ISREG(status.st_mode))
    refuse(path, S_ISDIR(status.st_mode) ? "is a folder, no file"
                                         : "is no regular file");
  std::string text;
  std::array<char, 16384> buffer{};
  for (;;) {
    const ssize_t count = read(file.number, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      refuse(path, std::generic_category().message(errno));
    if (count == 0)
      return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
    if (text.size() > mostBytes)
      refuse(path, "has more than 4 MiB");
  }
}

std::string expectFile(const std::string &path) {
  auto text = findFile(path);
  if (!text)
    refuse(path, "there is no such file");
  return std::move(*text);
}

} // namespace ZelDebugDialog::project
