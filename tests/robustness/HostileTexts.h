// Commands of any size, each large in another way.
#ifndef TESTS_ROBUSTNESS_HOSTILETEXTS_H
#define TESTS_ROBUSTNESS_HOSTILETEXTS_H

#include <cstddef>
#include <string>
#include <vector>

namespace robustness {

/// A command that is made large by repeating a piece of it.
struct HostileText {
  std::string name;
  std::string front;
  std::string piece; ///< What is repeated.
  std::string back;
  int result; ///< What reading it gives.

  /// With about `bytes` bytes.
  std::string make(std::size_t bytes) const {
    std::string text = front;
    text.reserve(bytes + piece.size() + back.size());
    while (text.size() < bytes)
      text += piece;
    return text + back;
  }
};

inline const std::vector<HostileText> hostileTexts = {
    // Words of any length, in each place.
    {"head", "connect", "t", " lc hdu", 3},
    {"target", "connect l", "c", " hdu", 3},
    {"connection", "connect lc h", "u", "", 3},
    {"option", "connect lc hdu -", "q", "", 3},
    {"parameter", "connect lc hdu -cable p", "o", " USB21", 3},
    {"value", "connect lc hdu -cable port ", "v", "", 0},
    {"refused-value", "connect lc hdu -debugdevice fpuType ", "s", "", 3},
    {"cable-type", "connect lc hdu -cable type quorla_", "p", "", 3},
    {"number", "connect lc hdu -debugdevice romemSize ", "1", "", 0},
    {"octal-number", "connect lc hdu -debugdevice romemSize ", "0", "", 0},
    {"hexadecimal-number", "connect lc hdu -debugdevice romemSize 0x", "f", "",
     0},
    {"signed-number", "connect lc hdu -debugdevice nCpu -", "9", "", 0},
    {"host", "connect ppc sim -ipcport ", "h", ":1", 0},
    {"ipc-port", "connect ppc sim -ipcport host:", "1", "", 0},
    {"colons", "connect ppc sim -ipcport ", ":", "", 0},
    {"null-bytes", "connect lc hdu -cable port ", std::string(1, '\0'), "", 0},
    {"high-bytes", "connect lc hdu -cable port ", "\xff\xfe", "", 0},
    {"dashes", "connect lc hdu -cable port 1", "-", "", 0},
    {"lines-in-a-word", "connect lc hdu -cable port v", "\n", "v", 0},
    {"semicolons",
     "connect lc hdu -cable type quorla_plugin modulename m modulearg ", ";",
     "", 0},
    // White space.
    {"blanks", "connect lc", " ", "hdu", 0},
    {"tabs", "connect lc", "\t", "hdu", 0},
    {"blanks-behind", "connect lc hdu", " ", "", 0},
    {"lines-behind", "connect lc hdu", "\n", "", 0},
    {"lines-before-blanks", "connect lc hdu", "\n ", "-quiet", 0},
    // Many words.
    {"flags", "connect lc hdu", " -quiet", "", 0},
    {"lines-behind-words", "connect lc hdu", " -quiet\n", "", 0},
    {"pairs", "connect lc hdu -debugdevice", " romemSize 5", "", 0},
    {"texts", "connect lc hdu -cable", " port p", "", 0},
    {"module-arguments",
     "connect lc hdu -cable type quorla_plugin modulename m", " modulearg a",
     "", 0},
    {"links", "connect lc hdu -pfsl", " port 1 type ms", "", 0},
    {"stub-options", "connect lc stub", " -baud 9600", "", 0},
    {"stub-options-without-values", "connect lc stub", " -port", " -quiet", 0},
    {"bare-devices", "connect lc hdu", " -configdevice", "", 0},
    {"devices", "connect lc hdu",
     " -configdevice devicenr 1 partname pk9ab100 irlength 6 idcode 0x1234093",
     "", 0},
    {"clauses", "connect lc hdu", " -cable port p -debugdevice devicenr 1", "",
     0},
    {"module-options", "connect hdu", " -uart -bscan USER1", "", 0},
    {"simulator-options", "connect ppc sim", " -icf f -ipcport h:1", "", 0},
    {"platform-options", "vpconnect lc", " -ipcport h:1", "", 0},
    {"ignored-words", "connect lc sim -memsize 5", " word", "", 0},
};

} // namespace robustness

#endif
