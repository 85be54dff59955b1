#include "ZelDebugDialog/ConfigurationModel/Text.h"

#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog {

std::string ShowText(std::string_view text) { return model::printable(text); }

std::string ShowOnOneLine(std::string_view text) {
  return model::printable(model::onOneLine(text));
}

std::string ShellWord(const std::string &word) {
  const bool isPlain =
      !word.empty() &&
      word.find_first_not_of("abcdefghijklmnopqrstuvwxyz"
                             "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                             "0123456789-_./:=+,%@") == std::string::npos;
  if (isPlain)
    return word;
  std::string quoted = "'";
  for (const char c : word)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string FindNearest(std::string_view word,
                        const std::vector<std::string> &candidates) {
  return model::nearestMatch(word, candidates);
}

} // namespace ZelDebugDialog
