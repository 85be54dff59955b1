#include "text/Numbers.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <limits>

namespace ZelDebugDialog::model {

namespace {

struct Unit {
  std::string_view name;
  std::uint64_t hertz;
};

// The longer names first: each ends with "Hz".
constexpr std::array<Unit, 3> units{
    {{"MHz", 1000000}, {"kHz", 1000}, {"Hz", 1}}};

constexpr std::uint64_t mostHertz = std::numeric_limits<std::uint32_t>::max();

std::optional<std::uint64_t> readDigits(std::string_view text, int base) {
  std::uint64_t number = 0;
  const char *end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, number, base);
  if (problem != std::errc() || stop != end)
    return std::nullopt;
  return number;
}

/// Takes the unit off the end of `text`, and the blanks in front of it.
std::uint64_t takeUnit(std::string_view &text) {
  for (const Unit &unit : units) {
    if (text.size() < unit.name.size() ||
        text.substr(text.size() - unit.name.size()) != unit.name)
      continue;
    text.remove_suffix(unit.name.size());
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    return unit.hertz;
  }
  return 1;
}

/// What the digits behind a decimal point are of `one`; nothing if it does not
/// come out even.
std::optional<std::uint64_t> readFraction(std::string_view digits,
                                          std::uint64_t one) {
  if (digits.empty() || !readDigits(digits.substr(0, 1), 10))
    return std::nullopt;
  const std::size_t last = digits.find_last_not_of('0');
  if (last == std::string_view::npos)
    return 0;
  digits = digits.substr(0, last + 1);
  std::uint64_t sum = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9' || one % 10 != 0)
      return std::nullopt;
    one /= 10;
    sum += static_cast<std::uint64_t>(c - '0') * one;
  }
  return sum;
}

} // namespace

std::optional<std::uint64_t> readNumber(std::string_view text) {
  const bool hexadecimal =
      text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  return hexadecimal ? readDigits(text.substr(2), 16) : readDigits(text, 10);
}

std::optional<std::uint32_t> readFrequency(std::string_view text) {
  const std::uint64_t one = takeUnit(text);
  const std::size_t point = text.find('.');
  const bool hasPoint = point != std::string_view::npos;
  const auto whole =
      hasPoint ? readDigits(text.substr(0, point), 10) : readNumber(text);
  const auto fraction =
      hasPoint ? readFraction(text.substr(point + 1), one) : 0;
  if (!whole || !fraction || *whole > mostHertz / one)
    return std::nullopt;
  const std::uint64_t hertz = *whole * one + *fraction;
  if (hertz > mostHertz)
    return std::nullopt;
  return static_cast<std::uint32_t>(hertz);
}

} // namespace ZelDebugDialog::model
