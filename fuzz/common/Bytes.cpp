#include "common/Bytes.h"

#include <algorithm>
#include <array>

namespace fuzz {

std::uint8_t Bytes::byte() {
  if (atEnd())
    return 0;
  --left;
  return *at++;
}

std::uint32_t Bytes::number() {
  constexpr std::array<std::uint32_t, 20> known{
      0,      1,       2,       3,      4,       5,         6,
      7,      8,       0x84,    0x44,   0x42,    200,       256,
      0x8000, 0x10000, 0x50000, 625000, 6000000, 0xFFFFFFFF};
  constexpr std::uint8_t anyNumber = 0x80;
  const std::uint8_t which = byte();
  if (which < anyNumber)
    return known[which % known.size()];
  std::uint32_t number = 0;
  for (int i = 0; i < 4; ++i)
    number = number << 8U | byte();
  return number;
}

std::string Bytes::text() {
  const std::uint8_t *const end = std::find(at, at + left, '\n');
  std::string text(at, end);
  left -= text.size();
  at = end;
  byte();
  return text;
}

} // namespace fuzz
