// A limit on the size of files, which fails a write as a full disk does.
#ifndef ZELDEBUGDIALOG_TESTS_SUPPORT_FILESIZELIMIT_H
#define ZELDEBUGDIALOG_TESTS_SUPPORT_FILESIZELIMIT_H

#include <cerrno>
#include <csignal>
#include <system_error>

#include <sys/resource.h>

namespace support {

/// While it is there, no file of this program grows beyond so many bytes.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes)
      : handler(std::signal(SIGXFSZ, SIG_IGN)) {
    expect(getrlimit(RLIMIT_FSIZE, &before));
    rlimit small = before;
    small.rlim_cur = bytes;
    expect(setrlimit(RLIMIT_FSIZE, &small));
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
  }
  FileSizeLimit(const FileSizeLimit &) = delete;
  FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
  static void expect(int result) {
    if (result != 0)
      throw std::system_error(errno, std::generic_category(), "RLIMIT_FSIZE");
  }

  void (*handler)(int);
  rlimit before = {};
};

} // namespace support

#endif
