#include "documents/Bytes.h"

#include <algorithm>
#include <cstdint>

#include "documents/Json.h"

namespace ZelDebugDialog::documents {

namespace {

constexpr std::string_view digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::uint32_t byteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80;
  });
}

/// The JSON of a text, with U+FFFD for what is no UTF-8.
std::string shown(std::string_view text) {
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

// JSON's own writer says what is UTF-8: it is what counts here.
bool isUtf8(std::string_view text) {
  if (isPlain(text))
    return true;
  try {
    Json(text).dump();
    return true;
  } catch (const Json::type_error &) {
    return false;
  }
}

std::size_t shownOffset(std::string_view text, std::size_t offset) {
  if (isUtf8(text))
    return offset;
  const std::string front =
      Json::parse(shown(text.substr(0, offset))).get<std::string>();
  return front.size();
}

std::string encodeBytes(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    const std::uint32_t group = byteAt(bytes, at) << 16 |
                                byteAt(bytes, at + 1) << 8 |
                                byteAt(bytes, at + 2);
    for (unsigned shift : {18U, 12U, 6U, 0U})
      text += digits[group >> shift & 0x3F];
  }
  for (std::size_t missing = (3 - bytes.size() % 3) % 3; missing > 0; --missing)
    text[text.size() - missing] = '=';
  return text;
}

std::optional<std::string> decodeBytes(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); at += 4) {
    std::uint32_t group = 0;
    for (const char c : text.substr(at, 4)) {
      const std::size_t digit = digits.find(c);
      group = group << 6 |
              static_cast<std::uint32_t>(digit == digits.npos ? 0 : digit);
    }
    for (unsigned shift : {16U, 8U, 0U})
      bytes += static_cast<char>(group >> shift & 0xFF);
  }
  const std::size_t end = text.find('=');
  bytes.resize(bytes.size() - std::min(bytes.size(), end == text.npos
                                                         ? 0
                                                         : text.size() - end));
  // What was written so is the same when it is written again.
  if (encodeBytes(bytes) != text)
    return std::nullopt;
  return bytes;
}

} // namespace ZelDebugDialog::documents
