#include "line/InputFile.h"

#include <array>
#include <cerrno>
#include <iostream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "output/Failure.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

class InputFile {
public:
  explicit InputFile(const std::string &file)
      : name(file), descriptor(open(file.c_str(), O_RDONLY | O_NONBLOCK |
                                                      O_NOCTTY | O_CLOEXEC)) {
    if (descriptor < 0)
      throw systemFailure();
  }
  ~InputFile() { close(descriptor); }
  InputFile(const InputFile &) = delete;
  InputFile &operator=(const InputFile &) = delete;

  std::string readAll() {
    struct stat about = {};
    if (fstat(descriptor, &about) != 0)
      throw systemFailure();
    if (S_ISDIR(about.st_mode))
      throw failure("is a folder, no file");
    bool isWritten = !S_ISFIFO(about.st_mode);
    std::string text;
    std::array<char, 65536> piece{};
    for (;;) {
      const ssize_t length = read(descriptor, piece.data(), piece.size());
      if (length == 0)
        break;
      isWritten = isWritten || length > 0 || errno == EAGAIN;
      if (length > 0)
        text.append(piece.data(), static_cast<std::size_t>(length));
      else if (errno == EAGAIN)
        waitFromNowOn();
      else if (errno != EINTR)
        throw systemFailure();
    }
    if (!isWritten)
      throw failure("is a pipe that nobody writes to");
    return text;
  }

private:
  void waitFromNowOn() {
    if (fcntl(descriptor, F_SETFL, 0) != 0)
      throw systemFailure();
  }

  Failure failure(const std::string &reason) const {
    return {ExitStatus::unreadable,
            fmt::format("{}: {}", shownName(name), reason),
            {"", "", "", {}, "", name}};
  }
  Failure systemFailure() const {
    return failure(std::generic_category().message(errno));
  }

  const std::string &name;
  int descriptor;
};

} // namespace

std::string expectText(const std::string &file) {
  if (file == "-")
    return {std::istreambuf_iterator<char>(std::cin), {}};
  return InputFile(file).readAll();
}

} // namespace zeldebug
