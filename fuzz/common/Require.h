// What must hold, whatever the input: a fuzzer ends where it does not.
#ifndef FUZZ_COMMON_REQUIRE_H
#define FUZZ_COMMON_REQUIRE_H

#include <string>

namespace fuzz {

/// Prints `what` and aborts unless it holds.
void require(bool holds, const char *what);
void require(bool holds, const std::string &what);

/// The same, and prints both texts where they differ.
void requireSame(const std::string &found, const std::string &wanted,
                 const char *what);

} // namespace fuzz

#endif
