// One text read into one engine, and all that came of it.
#ifndef FUZZ_COMMON_READING_H
#define FUZZ_COMMON_READING_H

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "support/RoundTripDesk.h"

namespace fuzz {

/// The processor that a text is read for.
struct Owner {
  bool inDesign; ///< Otherwise the command says what the processor is.
  std::uint32_t family;
  std::uint32_t type;
  std::uint32_t mask;
};

/// Of each kind that reading tells apart.
constexpr std::array<Owner, 4> owners{{
    {false, 0, 0, 1},
    {true, 0, 0, 0x8F},
    {true, 1, 1, 0x0B},
    {true, 2, 4, 2},
}};

/// What a reading leaves behind.
struct Reading {
  int code = 0; ///< Of the reader; `support::kLoneMinus` if it raised that.
  support::Configuration settings;
  std::string command; ///< `connectCommand`
  std::string error;
  std::string option; ///< `current_option`
};

using Reader =
    std::function<int(const std::string &text, ZelDebugDialog::EngineImp &)>;

/// Reads `text` for `owner` on a desk that is cleared before.
Reading readFor(const Owner &owner, const std::string &text,
                const Reader &reader, support::RoundTripDesk &desk);

/// All of both but the command.
void requireSame(const Reading &found, const Reading &wanted, const char *what);

/// A desk whose design must not be asked anything.
support::RoundTripDesk &desk();

/// Writes the settings of a reading and reads them again.
void goAround(const Owner &owner, const Reading &reading);

/// Reads a command that option files do not know, as far as its target: there a
/// lone "-" counts. @return 3
int readUnknownInFiles(const std::string &line);

/// Whether a word of the text is a lone "-".
bool hasLoneMinus(const std::string &text);

} // namespace fuzz

#endif
