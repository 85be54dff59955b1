#include "pipe/Frames.h"

#include <algorithm>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "server/Request.h"

namespace ZelDebugDialog::protocol {

namespace {

constexpr std::size_t longestHeader = 4096;
constexpr std::size_t mostDigits = 18; // of a length, which then fits 64 bits
constexpr std::string_view lengthField = "content-length";

[[noreturn]] void refuseHeader(std::string_view line) {
  throw BrokenFrame("a frame begins with 'Content-Length: N' and an empty "
                    "line, not with " +
                    quote(std::string(line)));
}

bool isNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         (c >= '0' && c <= '9') || c == '-';
}

bool isLengthField(std::string_view name) {
  return std::equal(name.begin(), name.end(), lengthField.begin(),
                    lengthField.end(), [](char a, char b) {
                      const bool isCapital = a >= 'A' && a <= 'Z';
                      return (isCapital ? static_cast<char>(a + ' ') : a) == b;
                    });
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t from = text.find_first_not_of(" \t");
  if (from == std::string_view::npos)
    return {};
  return text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

std::optional<std::uint64_t> readLength(std::string_view text) {
  if (text.empty() || text.size() > mostDigits)
    return std::nullopt;
  std::uint64_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9')
      return std::nullopt;
    number = number * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return number;
}

} // namespace

void FrameReader::readField(std::string_view field) {
  const std::size_t colon = field.find(':');
  const std::string_view name = field.substr(0, colon);
  if (colon == std::string_view::npos || name.empty() ||
      !std::all_of(name.begin(), name.end(), isNameCharacter))
    refuseHeader(field);
  if (!isLengthField(name))
    return;
  const bool isSecond = length.has_value();
  length = readLength(withoutBlanks(field.substr(colon + 1)));
  if (isSecond || !length)
    refuseHeader(field);
}

void FrameReader::feedHeader(std::string_view &bytes) {
  const std::size_t end = bytes.find('\n');
  const std::string_view part =
      bytes.substr(0, end == std::string_view::npos ? end : end + 1);
  headerSize += part.size();
  if (headerSize > longestHeader)
    throw BrokenFrame("the header of a frame has at most " +
                      std::to_string(longestHeader) + " bytes");
  line += part;
  bytes.remove_prefix(part.size());
  if (end == std::string_view::npos)
    return;
  line.pop_back();
  if (!line.empty() && line.back() == '\r')
    line.pop_back();
  if (!line.empty()) {
    readField(line);
    line.clear();
    return;
  }
  if (!length)
    refuseHeader(line);
  isInText = true;
  missing = *length;
  frame.isTooLong = *length > longestRequest;
}

void FrameReader::feedText(std::string_view &bytes) {
  const auto count =
      static_cast<std::size_t>(std::min<std::uint64_t>(missing, bytes.size()));
  if (!frame.isTooLong)
    frame.text += bytes.substr(0, count);
  bytes.remove_prefix(count);
  missing -= count;
}

void FrameReader::feed(std::string_view bytes) {
  // A text of no bytes is whole as soon as its header is.
  while (!bytes.empty()) {
    if (!isInText)
      feedHeader(bytes);
    if (!isInText)
      continue;
    feedText(bytes);
    if (missing > 0)
      continue;
    whole.push_back(std::move(frame));
    frame = Frame();
    length.reset();
    headerSize = 0;
    isInText = false;
  }
}

std::optional<Frame> FrameReader::next() {
  if (whole.empty())
    return std::nullopt;
  Frame first = std::move(whole.front());
  whole.pop_front();
  return first;
}

void FrameReader::expectEnd() const {
  if (isInText)
    throw BrokenFrame("the input ends inside a frame, " +
                      std::to_string(missing) + " of " +
                      std::to_string(*length) + " bytes are missing");
  if (headerSize > 0)
    throw BrokenFrame("the input ends inside the header of a frame");
}

std::string framed(const std::string &text) {
  return "Content-Length: " + std::to_string(text.size()) + "\r\n\r\n" + text;
}

} // namespace ZelDebugDialog::protocol
