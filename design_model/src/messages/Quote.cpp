#include "messages/Quote.h"

#include <algorithm>

#include "names/Utf8.h"

namespace ZelDebugDialog {
namespace {

constexpr std::size_t longestQuote = 200;

/// Not inside a character of UTF-8.
std::size_t findCut(std::string_view text) {
  std::size_t cut = longestQuote;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
    --cut;
  return cut;
}

/// Those of ASCII, and those from U+0080 to U+009F, which some terminals obey
/// too.
bool isControl(std::string_view character) {
  const auto first = static_cast<unsigned char>(character.front());
  if (character.size() == 1)
    return first < ' ' || first == 0x7F;
  return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

std::string escape(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += "\\x";
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
  }
  return text;
}

} // namespace

std::string quote(std::string_view text) {
  const bool isLong = text.size() > longestQuote;
  const std::string_view shown = isLong ? text.substr(0, findCut(text)) : text;
  std::string quoted = "'";
  for (std::size_t at = 0; at < shown.size();) {
    const std::size_t length = characterLength(shown, at);
    const std::string_view character =
        shown.substr(at, std::max<std::size_t>(length, 1));
    if (length == 0 || isControl(character))
      quoted += escape(character);
    else
      quoted += character;
    at += character.size();
  }
  quoted += isLong ? "...'" : "'";
  return quoted;
}

} // namespace ZelDebugDialog
