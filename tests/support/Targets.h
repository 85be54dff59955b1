// The words for a target of a connect command, in the order in which they are
// offered: the tests' one list, made by hand.
#ifndef TESTS_SUPPORT_TARGETS_H
#define TESTS_SUPPORT_TARGETS_H

#include <string>
#include <vector>

namespace support {

/// Those that option files know: processors of a design.
inline const std::vector<std::string> targetsInFiles{"lc", "ppc", "arm", "r5"};

/// Those that a command takes behind "connect".
inline const std::vector<std::string> targets{"lc",  "ppc", "arm", "r5",
                                              "hdu", "dap", "dcc", "kmtc"};

/// "'lc', 'ppc'", or with other marks around the words.
inline std::string listed(const std::vector<std::string> &words,
                          const std::string &mark = "'") {
  std::string text;
  for (const std::string &word : words)
    text += (text.empty() ? "" : ", ") + mark + word + mark;
  return text;
}

} // namespace support

#endif
