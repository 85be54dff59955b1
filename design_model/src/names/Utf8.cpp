#include "names/Utf8.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace ZelDebugDialog {
namespace {

/// First bytes from `first` to `last` begin characters of `length` bytes, whose
/// second byte lies in [secondFirst, secondLast]: no longer form than needed,
/// no surrogates, nothing beyond U+10FFFF.
struct Lead {
  unsigned char first;
  unsigned char last;
  unsigned char length;
  unsigned char secondFirst;
  unsigned char secondLast;
};

constexpr std::array<Lead, 8> leads = {{
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

unsigned char byteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool fits(const Lead &lead, std::string_view text, std::size_t at) {
  if (at + lead.length > text.size())
    return false;
  const unsigned char second = byteAt(text, at + 1);
  if (second < lead.secondFirst || second > lead.secondLast)
    return false;
  for (std::size_t next = at + 2; next < at + lead.length; ++next)
    if ((byteAt(text, next) & 0xC0) != 0x80)
      return false;
  return true;
}

/// Many bytes at a time, as files are almost all ASCII.
std::size_t skipAscii(std::string_view text, std::size_t at) {
  std::array<std::uint64_t, 4> bytes{};
  for (; at + sizeof bytes <= text.size(); at += sizeof bytes) {
    std::memcpy(bytes.data(), text.data() + at, sizeof bytes);
    if (((bytes[0] | bytes[1] | bytes[2] | bytes[3]) & 0x8080808080808080) != 0)
      break;
  }
  return at;
}

} // namespace

std::size_t characterLength(std::string_view text, std::size_t at) {
  const unsigned char first = byteAt(text, at);
  if (first < 0x80)
    return 1;
  for (const Lead &lead : leads)
    if (first >= lead.first && first <= lead.last)
      return fits(lead, text, at) ? lead.length : 0;
  return 0;
}

std::size_t findNonUtf8(std::string_view text) {
  for (std::size_t at = skipAscii(text, 0); at < text.size();
       at = skipAscii(text, at)) {
    const std::size_t length = characterLength(text, at);
    if (length == 0)
      return at;
    at += length;
  }
  return std::string_view::npos;
}

} // namespace ZelDebugDialog
