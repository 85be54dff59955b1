#include "output/SettingText.h"
#include "output/Output.h"

#include <fmt/format.h>

#include "output/Failure.h"

namespace zeldebug {

namespace {

constexpr const char *whiteSpace = " \t\n\v\f\r";

} // namespace

std::optional<NoWord> whyNoWord(const std::string &text) {
  if (text.empty())
    return NoWord{"it is empty, and a command cannot carry an empty value",
                  "empty-text"};
  if (text.find_first_of(whiteSpace) != std::string::npos)
    return NoWord{"it holds white space, and a command ends its words there",
                  "white-space"};
  const bool leadsWithDigit =
      text.size() > 1 && text[1] >= '0' && text[1] <= '9';
  if (text[0] == '-' && !leadsWithDigit)
    return NoWord{
        "it begins with '-', and a command takes it for an option word",
        "leading-minus"};
  return std::nullopt;
}

const std::string &expectWord(const std::string &what,
                              const std::string &text) {
  const auto problem = whyNoWord(text);
  if (problem)
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("{}: '{}' is refused: {}", what, printable(text),
                              problem->reason));
  return text;
}

} // namespace zeldebug
