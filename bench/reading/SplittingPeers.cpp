#include <tcl.h>

#include <cstring>
#include <string>
#include <vector>

#include <absl/strings/str_split.h>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/algorithm/string/trim.hpp>

#include "Peers.h"
#include "common/Words.h"

namespace bench {

namespace {

constexpr const char *separators = " \t";

template <class Words> bool readWords(const Words &words, Command &command) {
  WordReader reader(command);
  for (const auto &word : words)
    if (!reader.take(word))
      return false;
  return reader.isComplete();
}

} // namespace

bool readByStrSplit(const Input &input, Command &command) {
  WordReader reader(command);
  for (const absl::string_view word : absl::StrSplit(
           input.text, absl::ByAnyChar(separators), absl::SkipEmpty()))
    if (!reader.take({word.data(), word.size()}))
      return false;
  return reader.isComplete();
}

bool readByStrtok(const Input &input, Command &command) {
  std::string text = input.text;
  WordReader reader(command);
  char *rest = nullptr;
  for (const char *word = strtok_r(text.data(), separators, &rest);
       word != nullptr; word = strtok_r(nullptr, separators, &rest))
    if (!reader.take(word))
      return false;
  return reader.isComplete();
}

bool readByTcl(const Input &input, Command &command) {
  int count = 0;
  const char **words = nullptr;
  if (Tcl_SplitList(nullptr, input.text.c_str(), &count, &words) != TCL_OK)
    return false;
  WordReader reader(command);
  bool isRead = true;
  for (int index = 0; isRead && index < count; ++index)
    isRead = reader.take(words[index]);
  Tcl_Free(reinterpret_cast<char *>(words));
  return isRead && reader.isComplete();
}

bool readByBoostSplit(const Input &input, Command &command) {
  std::vector<std::string> words;
  boost::split(words, input.text, boost::is_any_of(separators),
               boost::token_compress_on);
  return readWords(words, command);
}

bool readByTextbook(const Input &input, Command &command) {
  std::string rest = input.text;
  WordReader reader(command);
  for (;;) {
    boost::trim(rest);
    if (rest.empty())
      return reader.isComplete();
    std::vector<std::string> pieces;
    boost::split(pieces, rest, boost::is_any_of(separators));
    const std::string word = pieces.front();
    rest.erase(0, word.size());
    if (!reader.take(word))
      return false;
  }
}

bool readByErasing(const Input &input, Command &command) {
  std::string rest = input.text;
  WordReader reader(command);
  for (;;) {
    boost::trim(rest);
    if (rest.empty())
      return reader.isComplete();
    const std::string word = rest.substr(0, rest.find_first_of(separators));
    rest.erase(0, word.size());
    if (!reader.take(word))
      return false;
  }
}

} // namespace bench
