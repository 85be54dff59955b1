#include "messages/Quote.h"

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

} // namespace

std::string quote(std::string_view text) {
  const bool isLong = text.size() > longestQuote;
  std::string quoted = "'";
  for (const char c : isLong ? text.substr(0, findCut(text)) : text)
    quoted += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  quoted += isLong ? "...'" : "'";
  for (std::size_t at = findNonUtf8(quoted); at != std::string::npos;
       at = findNonUtf8(quoted))
    quoted[at] = '?';
  return quoted;
}

} // namespace ZelDebugDialog
