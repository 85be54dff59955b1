// Numbers as they are written in expressions.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_NUMERALS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_NUMERALS_H

#include <cstdint>
#include <string_view>

namespace ZelDebugDialog {

/// 64 bits that wrap.
struct Number {
  std::uint64_t bits = 0;
  bool isSigned = true; ///< What the uppermost bit means.
};

enum class NumeralFault {
  none,
  notOne,  ///< The text doesn't begin with a number.
  tooWide, ///< It doesn't fit 64 bits.
  unknown, ///< It has x, z or ? for digits.
};

/// Takes a number off the front of `text`. It is signed unless it is 2^63 or
/// more.
NumeralFault takeNumeral(std::string_view &text, Number &number);

} // namespace ZelDebugDialog

#endif
