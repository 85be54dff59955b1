// Numbers as users write them, checked against the field that they are for.
#ifndef ZELDEBUG_NUMBER_H
#define ZELDEBUG_NUMBER_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zeldebug {

/// What a number may be.
struct Range {
  std::uint64_t least;
  std::uint64_t most;
  bool hexadecimal; ///< how the limits are shown
};

/// Decimal or 0x, the whole of `text`; nothing for anything else, and for what
/// needs more than 64 bits.
std::optional<std::uint64_t> readNumber(std::string_view text);

/// @throws Failure (wrong use) that names `what` and the range.
std::uint64_t expectNumber(const std::string &what, std::string_view text,
                           const Range &range);

} // namespace zeldebug

#endif
