// Numbers in the formats that values have up to 2009, beside those of
// expressions.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_FORMATSOF2009_H
#define ZELDEBUGDIALOG_DESIGNMODEL_FORMATSOF2009_H

#include <string_view>

#include "expressions/Numerals.h"

namespace ZelDebugDialog {

// False: the text is no such number, or doesn't fit 64 bits.

/// ["+" | "-"] ["#"] number ["K" | "M" | "G" | "T"], in either case: after "#"
/// the digits are hexadecimal, and the letters stand for 2^10 to 2^40.
bool readScaled(std::string_view text, Number &number);

/// Digits 0 and 1 in quotes.
bool readBits(std::string_view text, Number &number);

} // namespace ZelDebugDialog

#endif
