#include "line/Number.h"

#include <array>
#include <charconv>

#include <fmt/format.h>

#include "output/Failure.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

struct Unit {
  std::string_view name;
  std::uint64_t hertz;
};

// The longer names first: each ends with "Hz".
constexpr std::array<Unit, 3> units{
    {{"MHz", 1000000}, {"kHz", 1000}, {"Hz", 1}}};

constexpr std::uint64_t mostHertz = 0xFFFFFFFF;

bool endsWith(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() &&
         text.substr(text.size() - ending.size()) == ending;
}

std::string shown(std::uint64_t number, bool hexadecimal) {
  return hexadecimal ? fmt::format("{:#x}", number) : fmt::format("{}", number);
}

} // namespace

std::optional<std::uint64_t> readNumber(std::string_view text) {
  const bool hexadecimal =
      text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  if (hexadecimal)
    text.remove_prefix(2);
  std::uint64_t number = 0;
  const char *end = text.data() + text.size();
  const auto [stop, problem] =
      std::from_chars(text.data(), end, number, hexadecimal ? 16 : 10);
  if (problem != std::errc() || stop != end)
    return std::nullopt;
  return number;
}

std::uint64_t expectNumber(const std::string &what, std::string_view text,
                           const Range &range) {
  const std::optional<std::uint64_t> number = readNumber(text);
  if (number && *number >= range.least && *number <= range.most)
    return *number;
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("{}: '{}' is no number from {} to {} (decimal or 0x)", what,
                  printable(text), shown(range.least, range.hexadecimal),
                  shown(range.most, range.hexadecimal)));
}

std::uint32_t expectFrequency(const std::string &what, std::string_view text) {
  std::string_view digits = text;
  std::uint64_t hertz = 1;
  for (const Unit &unit : units)
    if (endsWith(digits, unit.name)) {
      digits.remove_suffix(unit.name.size());
      hertz = unit.hertz;
      break;
    }
  const std::optional<std::uint64_t> number = readNumber(digits);
  if (number && *number <= mostHertz / hertz)
    return static_cast<std::uint32_t>(*number * hertz);
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format(
          "{}: '{}' is no whole number (decimal or 0x) with Hz, kHz, MHz "
          "or nothing behind it, up to {} Hz",
          what, printable(text), mostHertz));
}

} // namespace zeldebug
