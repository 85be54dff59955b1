#include "text/Printable.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <fmt/format.h>

namespace ZelDebugDialog::model {

namespace {

/// How a character of more than one byte begins, and what its second byte may
/// be; those behind it are 0x80 to 0xBF. Narrower second bytes keep out longer
/// forms of shorter ones, surrogates, and what lies beyond the last character.
struct Sequence {
  unsigned char firstLeast;
  unsigned char firstMost;
  unsigned char secondLeast;
  unsigned char secondMost;
  std::size_t length;
};

// clang-format off
constexpr std::array<Sequence, 9> sequences{{
    {0xC2, 0xC2, 0xA0, 0xBF, 2}, // from 0x80 to 0x9F: the control characters C1
    {0xC3, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};
// clang-format on

bool lies(char c, unsigned char least, unsigned char most) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= least && byte <= most;
}

/// How many bytes at the front of `text` are a row's.
std::size_t matchingBytes(std::string_view text, const Sequence &row) {
  if (!lies(text[0], row.firstLeast, row.firstMost))
    return 0;
  std::size_t count = 1;
  while (count < row.length && count < text.size() &&
         lies(text[count], count == 1 ? row.secondLeast : 0x80,
              count == 1 ? row.secondMost : 0xBF))
    ++count;
  return count;
}

bool isSequence(std::string_view text, const Sequence &row) {
  return matchingBytes(text, row) == row.length;
}

/// A control character of C1, which is UTF-8 and not to be shown.
constexpr Sequence controls{0xC2, 0xC2, 0x80, 0x9F, 2};

/// Bytes of the character at the front of `text`; 0 if there is none to show.
std::size_t shownLength(std::string_view text) {
  if (lies(text[0], 0x20, 0x7E))
    return 1;
  for (const Sequence &row : sequences)
    if (isSequence(text, row))
      return row.length;
  return 0;
}

} // namespace

std::string printable(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    std::size_t length = shownLength(text);
    if (length != 0) {
      shown += text.substr(0, length);
    } else {
      length = 1;
      shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(text[0]));
    }
    text.remove_prefix(length);
  }
  return shown;
}

std::string wellFormed(std::string_view text) {
  static constexpr const char *replacement = "\xEF\xBF\xBD";
  std::string formed;
  while (!text.empty()) {
    std::size_t length = lies(text[0], 0x00, 0x7F) ? 1 : shownLength(text);
    if (length == 0 && isSequence(text, controls))
      length = controls.length;
    if (length != 0) {
      formed += text.substr(0, length);
    } else {
      length = 1;
      for (const Sequence &row : sequences)
        length = std::max(length, matchingBytes(text, row));
      formed += replacement;
    }
    text.remove_prefix(length);
  }
  return formed;
}

std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n' || c == '\t';
    if (!blank)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  if (!line.empty() && line.back() == ' ')
    line.pop_back();
  return line;
}

} // namespace ZelDebugDialog::model
