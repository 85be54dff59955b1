#include "output/Wrap.h"

#include <algorithm>

namespace zeldebug {

namespace {

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Colour takes no columns.
std::size_t lengthOfColour(std::string_view text) {
  if (text.size() < 2 || text[0] != '\x1b' || text[1] != '[')
    return 0;
  const std::size_t end = text.find('m');
  return end == std::string_view::npos ? 0 : end + 1;
}

/// Bytes of the first `width` columns.
std::size_t bytesOf(std::string_view text, std::size_t width) {
  std::size_t bytes = 0;
  std::size_t columns = 0;
  while (bytes < text.size()) {
    const std::size_t colour = lengthOfColour(text.substr(bytes));
    if (colour != 0) {
      bytes += colour;
      continue;
    }
    if (!isContinuation(text[bytes]) && columns++ == width)
      break;
    ++bytes;
  }
  return bytes;
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
  const std::size_t indent = std::min(rest.find_first_not_of(' '), rest.size());
  std::size_t end = rest.rfind(' ', fitting);
  const bool isLong = end == std::string_view::npos || end < indent;
  if (isLong)
    end = breaksWords ? std::max<std::size_t>(fitting, 1)
                      : std::min(rest.find(' ', fitting), rest.size());
  std::string line(rest.substr(0, end));
  line.erase(line.find_last_not_of(' ') + 1);
  rest.remove_prefix(end);
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  return line;
}

/// One line of a text, what is broken off indented.
std::string wrappedLine(std::string_view text, std::size_t width,
                        std::size_t indent) {
  if (width == 0 || widthOf(text) <= width || indent + 10 > width)
    return std::string(text);
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

std::size_t indentOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

} // namespace

std::size_t widthOf(std::string_view text) {
  std::size_t columns = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t colour = lengthOfColour(text.substr(i));
    if (colour != 0)
      i += colour - 1;
    else if (!isContinuation(text[i]))
      ++columns;
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
