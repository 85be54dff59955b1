// Numbers of the command language, free of any locale.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_NUMBERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_NUMBERS_H

#include <cstdint>
#include <string>
#include <string_view>

namespace ZelDebugDialog::kvo {

/// Converts as strtoull does in base 0: 0x hexadecimal, leading 0 octal, else
/// decimal; trailing junk is ignored, no number gives 0, a sign negates, what
/// is over 64 bits gives the largest number.
std::uint64_t toUnsigned(std::string_view word);

/// Converts as strtoll does in `base`.
std::int64_t toSigned(std::string_view word, int base);

/// Keeps the low bits of a number that a field has room for.
template <class Field, class Number> constexpr Field lowBits(Number number) {
  return static_cast<Field>(number);
}

void appendDecimal(std::string &out, std::int64_t number);

/// In lower case, with "0x" and without leading zeros.
void appendHexadecimal(std::string &out, std::uint32_t number);

} // namespace ZelDebugDialog::kvo

#endif
