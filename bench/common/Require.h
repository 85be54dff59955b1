// What is measured is checked first.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_REQUIRE_H
#define ZELDEBUGDIALOG_BENCH_COMMON_REQUIRE_H

#include <cstdlib>
#include <iostream>
#include <string>

namespace bench {

/// Ends the program: what gives a wrong result is not timed.
inline void require(bool holds, const std::string &what) {
  if (holds)
    return;
  std::cerr << "wrong result: " << what << '\n';
  std::exit(EXIT_FAILURE);
}

} // namespace bench

#endif
