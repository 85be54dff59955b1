#include "output/Wrap.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

namespace zeldebug {

namespace {

/// The C library's locale of UTF-8 for this thread, as long as it lives; the
/// program's own stays.
class Utf8Locale {
public:
  Utf8Locale() : before(uselocale(utf8())) {}
  Utf8Locale(const Utf8Locale &) = delete;
  Utf8Locale &operator=(const Utf8Locale &) = delete;
  ~Utf8Locale() { uselocale(before); }

private:
  static locale_t utf8() {
    static const locale_t made = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return made;
  }

  locale_t before;
};

/// Colour takes no columns.
std::size_t lengthOfColour(std::string_view text) {
  if (text.size() < 2 || text[0] != '\x1b' || text[1] != '[')
    return 0;
  const std::size_t end = text.find('m');
  return end == std::string_view::npos ? 0 : end + 1;
}

/// What stands at the front of a text.
struct Character {
  std::size_t bytes = 1;
  std::size_t columns = 1;
};

/// Most letters of East Asia take two columns, accents on their own none. A
/// byte that is no text takes one.
Character firstOf(std::string_view text) {
  if (const std::size_t colour = lengthOfColour(text); colour != 0)
    return {colour, 0};
  if (static_cast<unsigned char>(text.front()) < 0x80)
    return {};
  const Utf8Locale locale;
  std::mbstate_t state{};
  wchar_t wide = 0;
  const std::size_t bytes =
      std::mbrtowc(&wide, text.data(), text.size(), &state);
  if (bytes > text.size())
    return {};
  return {bytes, static_cast<std::size_t>(std::max(wcwidth(wide), 0))};
}

/// Bytes of the first `width` columns.
std::size_t bytesOf(std::string_view text, std::size_t width) {
  std::size_t bytes = 0;
  std::size_t columns = 0;
  while (bytes < text.size()) {
    const Character next = firstOf(text.substr(bytes));
    columns += next.columns;
    if (columns > width)
      break;
    bytes += next.bytes;
  }
  return bytes;
}

std::size_t indentOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

/// Takes from `rest` what fits into one line.
std::string takeLine(std::string_view &rest, std::size_t width,
                     bool breaksWords) {
  if (widthOf(rest) <= width) {
    std::string line(rest);
    rest = {};
    return line;
  }
  const std::size_t fitting = bytesOf(rest, width);
  std::size_t end = rest.rfind(' ', fitting);
  const bool isLong = end == std::string_view::npos || end < indentOf(rest);
  if (isLong)
    end = breaksWords ? std::max(fitting, firstOf(rest).bytes)
                      : std::min(rest.find(' ', fitting), rest.size());
  std::string line(rest.substr(0, end));
  line.erase(line.find_last_not_of(' ') + 1);
  rest.remove_prefix(end);
  rest.remove_prefix(indentOf(rest));
  return line;
}

/// One line of a text, what is broken off indented: by less where next to no
/// room would be left.
std::string wrappedLine(std::string_view text, std::size_t width,
                        std::size_t indent) {
  constexpr std::size_t leastRoom = 20;
  if (width == 0 || widthOf(text) <= width)
    return std::string(text);
  if (indent + leastRoom > width)
    indent = std::min(indentOf(text) + usualHanging, width / 4);
  std::string lines = takeLine(text, width, false);
  while (!text.empty())
    lines +=
        "\n" + std::string(indent, ' ') + takeLine(text, width - indent, false);
  return lines;
}

template <class Indent>
std::string eachLine(std::string_view text, std::size_t width,
                     const Indent &indentOf) {
  std::string lines;
  for (;;) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    lines += wrappedLine(line, width, indentOf(line));
    if (end == std::string_view::npos)
      return lines;
    lines += '\n';
    text.remove_prefix(end + 1);
  }
}

} // namespace

std::size_t widthOf(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    const Character next = firstOf(text);
    columns += next.columns;
    text.remove_prefix(next.bytes);
  }
  return columns;
}

std::vector<std::string> wrappedLines(std::string_view text, std::size_t width,
                                      bool breaksWords) {
  std::vector<std::string> lines;
  if (width == 0)
    return {std::string(text)};
  do
    lines.push_back(takeLine(text, width, breaksWords));
  while (!text.empty());
  return lines;
}

std::string wrapped(std::string_view text, std::size_t width,
                    std::size_t hanging) {
  return eachLine(text, width, [hanging](std::string_view line) {
    return indentOf(line) + hanging;
  });
}

std::string wrappedHelp(std::string_view text, std::size_t width,
                        std::size_t column) {
  return eachLine(text, width, [column](std::string_view line) {
    const std::size_t indent = indentOf(line);
    const bool isEntry = indent > 0 && widthOf(line) > column &&
                         line.substr(column - 1, 1) == " ";
    return isEntry ? column : indent;
  });
}

} // namespace zeldebug
