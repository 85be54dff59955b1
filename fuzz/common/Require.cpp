#include "common/Require.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void require(bool holds, const char *what) {
  if (holds)
    return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

void require(bool holds, const std::string &what) {
  require(holds, what.c_str());
}

void requireSame(const std::string &found, const std::string &wanted,
                 const char *what) {
  if (found == wanted)
    return;
  std::fprintf(stderr, "--- found\n%s\n--- wanted\n%s\n", found.c_str(),
               wanted.c_str());
  require(false, what);
}

} // namespace fuzz
