#include "commands/WordsInFiles.h"

#include <algorithm>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "commands/Keywords.h"

namespace ZelDebugDialog::model {

namespace {

template <class Rows>
std::vector<std::string> keywordsInFiles(const Rows &rows) {
  std::vector<std::string> keywords;
  for (const auto &row : rows)
    if (row.inOptionFile)
      keywords.push_back(row.keyword);
  return keywords;
}

} // namespace

std::optional<WordNotInFiles> findWordNotInFiles(const std::string &command,
                                                 const CommandTrace &trace) {
  const auto wordText = [&](std::size_t word) {
    const CommandWord &found = trace.words[word];
    return command.substr(found.offset, found.length);
  };
  const std::vector<LanguageHead> &heads = GetLanguage().heads;
  if (trace.words.empty())
    return std::nullopt;
  const LanguageHead *const head = findKeyword(heads, wordText(0));
  if (head == nullptr)
    return std::nullopt;
  if (!head->inOptionFile)
    return WordNotInFiles{0, keywordsInFiles(heads)};
  if (trace.words.size() < 2)
    return std::nullopt;
  const LanguageTarget *const target = findKeyword(head->targets, wordText(1));
  if (target == nullptr || target->inOptionFile)
    return std::nullopt;
  return WordNotInFiles{1, keywordsInFiles(head->targets)};
}

} // namespace ZelDebugDialog::model
