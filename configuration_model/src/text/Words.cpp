#include "text/Words.h"

#include <cstddef>

#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog::model {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view whiteSpace = " \t\n\v\f\r";

bool hasAny(std::string_view text, std::string_view characters) {
  return text.find_first_of(characters) != std::string_view::npos;
}

} // namespace

std::optional<Why> whyNoOpaqueWord(std::string_view text, WordPlace place) {
  if (text.empty())
    return Why{"empty-text"};
  const bool isOfFile = place == WordPlace::optionFile && !hasAny(text, blanks);
  if (isOfFile && hasAny(text, "\n"))
    return Why{"lines-in-file",
               "it holds a line break, and the line of an option file ends "
               "there"};
  if (isOfFile && text.find('\0') != std::string_view::npos)
    return Why{"lines-in-file",
               "it holds a null byte, and the line of an option file ends "
               "there"};
  if (hasAny(text, whiteSpace))
    return Why{"white-space"};
  return std::nullopt;
}

std::optional<Why> whyNoWord(std::string_view text, WordPlace place) {
  if (const auto problem = whyNoOpaqueWord(text, place))
    return problem;
  // A lone minus sign is neither an option nor a value.
  if (IsOptionWord(text) || text == "-")
    return Why{"leading-minus"};
  return std::nullopt;
}

std::optional<Why> whyNoWords(std::string_view text, WordPlace place) {
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(';', start);
    const auto problem = whyNoWord(text.substr(start, end - start), place);
    if (problem || end == std::string_view::npos)
      return problem;
    start = end + 1;
  }
}

} // namespace ZelDebugDialog::model
