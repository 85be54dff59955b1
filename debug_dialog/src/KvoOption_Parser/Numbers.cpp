#include "KvoOption_Parser/Numbers.h"

#include <array>
#include <charconv>
#include <cstdlib>

namespace ZelDebugDialog::kvo {

namespace {

template <class Number> void append(std::string &out, Number number, int base) {
  std::array<char, 24> digits;
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, base);
  out.append(digits.data(),
             static_cast<std::size_t>(written.ptr - digits.data()));
}

} // namespace

std::uint64_t toUnsigned(std::string_view word) {
  std::string_view digits = word;
  int base = 10;
  if (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
    digits.remove_prefix(2);
    base = 16;
  } else if (word.size() > 1 && word[0] == '0') {
    base = 8;
  }
  // Where nothing but digits that fit stands, from_chars gives the same number
  // as strtoull and needs no terminated copy of the word.
  std::uint64_t number = 0;
  const char *const last = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), last, number, base);
  if (read.ec == std::errc() && read.ptr == last)
    return number;
  return std::strtoull(std::string(word).c_str(), nullptr, 0);
}

std::int64_t toSigned(std::string_view word, int base) {
  return std::strtoll(std::string(word).c_str(), nullptr, base);
}

void appendDecimal(std::string &out, std::int64_t number) {
  append(out, number, 10);
}

void appendHexadecimal(std::string &out, std::uint32_t number) {
  out += "0x";
  append(out, number, 16);
}

} // namespace ZelDebugDialog::kvo
