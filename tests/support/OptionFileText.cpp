#include "support/OptionFileText.h"

#include <strings.h>

#include <algorithm>

#include "support/Targets.h"

namespace support {
namespace {

constexpr std::size_t kLongestLine = 1023;

bool isWord(const std::string &text, const std::string &word) {
  return text.size() == word.size() &&
         strncasecmp(text.data(), word.data(), word.size()) == 0;
}

/// Takes the first word off `text`.
std::string takeWord(std::string &text) {
  const std::string space = " \t\n\v\f\r";
  text.erase(0, text.find_first_not_of(space));
  std::string word = text.substr(0, text.find_first_of(" \t"));
  text.erase(0, word.size());
  word.resize(word.find_last_not_of(space) + 1);
  return word;
}

} // namespace

std::string lineOf(const std::string &content) {
  for (std::size_t start = 0; start < content.size();) {
    const std::size_t end = std::min(content.find('\n', start), content.size());
    std::string line =
        content.substr(start, std::min(end - start, kLongestLine));
    line = line.substr(0, line.find('\0'));
    // Behind the longest line nothing is looked at, whatever stands in it.
    if (!line.empty() || end - start > kLongestLine)
      return line;
    start = end + 1;
  }
  return "";
}

bool isKnownInFiles(const std::string &command) {
  std::string rest = command;
  const std::string head = takeWord(rest);
  if (isWord(head, "vpconnect"))
    return true;
  if (!isWord(head, "connect"))
    return false;
  const std::string target = takeWord(rest);
  const std::vector<std::string> &known = targetsInFiles;
  return std::any_of(known.begin(), known.end(), [&](const std::string &word) {
    return isWord(target, word);
  });
}

} // namespace support
