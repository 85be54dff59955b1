#include "expressions/Numerals.h"

#include <array>
#include <limits>

namespace ZelDebugDialog {
namespace {

constexpr unsigned widest = 64;

struct Base {
  char letter;
  unsigned base;
};

constexpr std::array<Base, 4> bases = {
    {{'b', 2}, {'o', 8}, {'d', 10}, {'h', 16}}};

char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The lower-case first character; a null character for empty text.
char firstOf(std::string_view text) {
  return text.empty() ? '\0' : toLower(text.front());
}

/// 0 for a letter that means none.
unsigned findBase(char letter) {
  for (const Base &row : bases)
    if (row.letter == letter)
      return row.base;
  return 0;
}

/// 16 for what is no digit of any base.
unsigned digitOf(char c) {
  if (c >= '0' && c <= '9')
    return static_cast<unsigned>(c - '0');
  return c >= 'a' && c <= 'f' ? static_cast<unsigned>(c - 'a') + 10 : 16;
}

void skipBlanks(std::string_view &text) {
  while (firstOf(text) == ' ')
    text.remove_prefix(1);
}

struct Digits {
  std::uint64_t value = 0;
  bool any = false;
  bool fit = true; ///< In 64 bits.
};

/// Underscores stand anywhere but in front.
Digits takeDigits(std::string_view &text, unsigned base) {
  constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
  Digits digits;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (text.front() == '_' && digits.any)
      continue;
    const unsigned digit = digitOf(firstOf(text));
    if (digit >= base)
      break;
    digits.any = true;
    if (digits.value > (most - digit) / base)
      digits.fit = false;
    digits.value = digits.value * base + digit;
  }
  return digits;
}

Number toNumber(std::uint64_t bits) { return {bits, bits >> 63 == 0}; }

/// Cuts to the size, and repeats the sign of a signed number.
Number resize(std::uint64_t bits, std::uint64_t size, bool isSigned) {
  if (size >= widest)
    return isSigned ? Number{bits, true} : toNumber(bits);
  const std::uint64_t mask = (std::uint64_t{1} << size) - 1;
  const bool isNegative = isSigned && (bits >> (size - 1) & 1) != 0;
  return isNegative ? Number{bits | ~mask, true} : toNumber(bits & mask);
}

/// What follows the apostrophe: 'h1F, 'sb10. Too many digits for the size are
/// cut off, as hardware tools do; for 64 bits and more they are a fault.
NumeralFault takeBased(std::string_view &text, std::uint64_t size,
                       Number &number) {
  const bool isSigned = firstOf(text) == 's';
  if (isSigned)
    text.remove_prefix(1);
  const unsigned base = findBase(firstOf(text));
  if (base == 0)
    return NumeralFault::notOne;
  text.remove_prefix(1);
  skipBlanks(text);
  const Digits digits = takeDigits(text, base);
  const char next = firstOf(text);
  if (next == 'x' || next == 'z' || next == '?')
    return NumeralFault::unknown;
  if (!digits.any || size == 0)
    return NumeralFault::notOne;
  if (!digits.fit && size >= widest)
    return NumeralFault::tooWide;
  number = resize(digits.value, size, isSigned);
  return NumeralFault::none;
}

/// What follows the apostrophe: all bits are the digit.
bool takeFill(std::string_view &text, Number &number) {
  const char digit = firstOf(text);
  if (digit != '0' && digit != '1')
    return false;
  text.remove_prefix(1);
  number = toNumber(digit == '0' ? 0 : ~std::uint64_t{0});
  return true;
}

NumeralFault takeHexadecimal(std::string_view &text, Number &number) {
  text.remove_prefix(2);
  const Digits digits = takeDigits(text, 16);
  number = toNumber(digits.value);
  if (!digits.any)
    return NumeralFault::notOne;
  return digits.fit ? NumeralFault::none : NumeralFault::tooWide;
}

bool takeApostrophe(std::string_view &text) {
  std::string_view after = text;
  skipBlanks(after);
  if (firstOf(after) != '\'')
    return false;
  text = after.substr(1);
  return true;
}

} // namespace

NumeralFault takeNumeral(std::string_view &text, Number &number) {
  if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X")
    return takeHexadecimal(text, number);
  const Digits digits = takeDigits(text, 10);
  if (takeApostrophe(text)) {
    if (!digits.any && takeFill(text, number))
      return NumeralFault::none;
    // A size beyond 64 bits has the room of 64.
    const bool isSmall = digits.any && digits.fit && digits.value < widest;
    return takeBased(text, isSmall ? digits.value : widest, number);
  }
  if (!digits.any)
    return NumeralFault::notOne;
  number = toNumber(digits.value);
  return digits.fit ? NumeralFault::none : NumeralFault::tooWide;
}

} // namespace ZelDebugDialog
