#include "syncing/Remembered.h"

#include <algorithm>
#include <array>
#include <optional>

#include <fmt/format.h>

namespace ZelDebugDialog::project {

namespace {

// What may not stand in a line.
struct LineEscape {
  char letter;
  char meaning;
};
constexpr std::array<LineEscape, 3> lineEscapes{
    {{'n', '\n'}, {'0', '\0'}, {'\\', '\\'}}};

// Stands in front of a text with escapes: an editor ends the line of an option
// file.
constexpr char escapedMark = '\t';

bool canBeRemembered(const std::string &name) {
  return !name.empty() &&
         name.find_first_of(std::string("\n\0\t", 3)) == std::string::npos;
}

bool isMarked(const std::string &text) {
  return !text.empty() && text.front() == escapedMark;
}

bool isAsItStands(const std::string &text) {
  return text.find_first_of(std::string("\n\0", 2)) == std::string::npos &&
         !isMarked(text);
}

std::string asOneLine(const std::string &text) {
  if (isAsItStands(text))
    return text;
  std::string result(1, escapedMark);
  for (const char c : text) {
    const auto *const found =
        std::find_if(lineEscapes.begin(), lineEscapes.end(),
                     [c](const LineEscape &one) { return one.meaning == c; });
    result += found == lineEscapes.end() ? std::string(1, c)
                                         : std::string{'\\', found->letter};
  }
  return result;
}

/// @return none for what has an escape that is none
std::optional<std::string> fromOneLine(const std::string &text) {
  if (!isMarked(text))
    return text;
  std::string result;
  for (std::size_t at = 1; at < text.size(); ++at) {
    if (text[at] != '\\') {
      result += text[at];
      continue;
    }
    ++at;
    const auto *const found = std::find_if(
        lineEscapes.begin(), lineEscapes.end(), [&](const LineEscape &one) {
          return at < text.size() && one.letter == text[at];
        });
    if (found == lineEscapes.end())
      return std::nullopt;
    result += found->meaning;
  }
  return result;
}

} // namespace

ReadRemembered readRemembered(const std::string &text) {
  ReadRemembered read;
  std::size_t start = 0;
  for (int line = 1; start < text.size(); ++line) {
    const std::size_t end = text.find('\n', start);
    const std::size_t tab = text.find('\t', start);
    const bool isLine = end != std::string::npos && tab < end && tab > start;
    const auto content = isLine
                             ? fromOneLine(text.substr(tab + 1, end - tab - 1))
                             : std::nullopt;
    if (!content ||
        !read.texts.emplace(text.substr(start, tab - start), *content).second) {
      read.texts.clear();
      read.problem = fmt::format("line {} is no name, tab and text", line);
      return read;
    }
    start = end + 1;
  }
  return read;
}

std::string writtenRemembered(const Remembered &texts) {
  std::string text;
  for (const auto &[name, content] : texts)
    if (canBeRemembered(name))
      text += fmt::format("{}\t{}\n", name, asOneLine(content));
  return text;
}

} // namespace ZelDebugDialog::project
