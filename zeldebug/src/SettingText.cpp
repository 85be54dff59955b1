#include "SettingText.h"

#include <fmt/format.h>

#include "Failure.h"

namespace zeldebug {

namespace {

constexpr const char *whiteSpace = " \t\n\v\f\r";

} // namespace

std::string whyNoWord(const std::string &text) {
  if (text.empty())
    return "it is empty, and a command cannot carry an empty value";
  if (text.find_first_of(whiteSpace) != std::string::npos)
    return "it holds white space, and a command ends its words there";
  const bool leadsWithDigit =
      text.size() > 1 && text[1] >= '0' && text[1] <= '9';
  if (text[0] == '-' && !leadsWithDigit)
    return "it begins with '-', and a command takes it for an option word";
  return "";
}

const std::string &expectWord(const std::string &what,
                              const std::string &text) {
  const std::string problem = whyNoWord(text);
  if (!problem.empty())
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("{}: '{}' is refused: {}", what, text, problem));
  return text;
}

} // namespace zeldebug
