#include "line/Number.h"

#include <charconv>

#include <fmt/format.h>

#include "output/Failure.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

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
                  shown(range.most, range.hexadecimal)),
      {"bad-value", what, std::string(text)});
}

} // namespace zeldebug
