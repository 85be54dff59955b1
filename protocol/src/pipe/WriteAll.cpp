#include "pipe/WriteAll.h"

#include <cerrno>
#include <cstddef>

#include <poll.h>
#include <unistd.h>

namespace ZelDebugDialog::protocol {

int writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EAGAIN) {
      pollfd end{descriptor, POLLOUT, 0};
      poll(&end, 1, -1);
      continue;
    }
    if (written < 0 && errno == EINTR)
      continue;
    if (written < 0)
      return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

} // namespace ZelDebugDialog::protocol
