#include "expressions/FormatsOf2009.h"

#include <string>

#include "expressions/Arithmetic.h"

namespace ZelDebugDialog {
namespace {

/// Each means 2^10 times more than the one before.
constexpr std::string_view scales = "kKmMgGtT";

} // namespace

bool readScaled(std::string_view text, Number &number) {
  const char sign = text.empty() ? '\0' : text.front();
  if (sign == '-' || sign == '+')
    text.remove_prefix(1);
  std::string marked;
  if (!text.empty() && text.front() == '#') {
    marked = "0x" + std::string(text.substr(1));
    text = marked;
  }
  if (takeNumeral(text, number) != NumeralFault::none)
    return false;
  const std::size_t scale = text.empty() ? scales.size() : scales.find(text[0]);
  if (scale < scales.size()) {
    const std::size_t shift = 10 * (scale / 2 + 1);
    if (number.bits >> (63 - shift) != 0)
      return false;
    number.bits <<= shift;
    text.remove_prefix(1);
  }
  if (sign == '-')
    number = negate(number);
  return text.empty();
}

bool readBits(std::string_view text, Number &number) {
  if (text.size() < 3 || text.front() != '"' || text.back() != '"')
    return false;
  const std::string based = "'b" + std::string(text.substr(1, text.size() - 2));
  std::string_view rest = based;
  return takeNumeral(rest, number) == NumeralFault::none && rest.empty();
}

} // namespace ZelDebugDialog
