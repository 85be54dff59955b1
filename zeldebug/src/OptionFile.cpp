#include "OptionFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include <ZelDebugDialog/CommandTables.h>
#include <strings.h>

#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

/// Looks for a word among the heads, or the targets of one.
template <class Rows>
auto findRow(const Rows &rows, const std::string &keyword) {
  return std::find_if(rows.begin(), rows.end(), [&keyword](const auto &row) {
    return strcasecmp(row.keyword.c_str(), keyword.c_str()) == 0;
  });
}

template <class Rows>
std::vector<std::string> keywordsInFiles(const Rows &rows) {
  std::vector<std::string> keywords;
  for (const auto &row : rows)
    if (row.inOptionFile)
      keywords.push_back(row.keyword);
  return keywords;
}

} // namespace

CommandFile readCommandFile(const fs::path &file) {
  CommandFile found;
  Place place = lookAt(file, fs::file_type::regular);
  found.exists = place.exists;
  found.problem = std::move(place.problem);
  if (!found.exists || !found.problem.empty())
    return found;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    found.problem = std::generic_category().message(errno);
    return found;
  }
  int line = 0;
  while (found.text.empty() && std::getline(stream, found.text))
    ++line;
  if (!found.text.empty())
    found.line = line;
  return found;
}

fs::path optionFilePath(const fs::path &folder, const std::string &processor) {
  return folder / "etc" / ("kvo_" + processor + ".opt");
}

std::optional<WordNotInFiles>
findWordNotInFiles(const std::string &command,
                   const ZelDebugDialog::CommandTrace &trace) {
  const auto wordText = [&](std::size_t word) {
    const ZelDebugDialog::CommandWord &found = trace.words[word];
    return command.substr(found.offset, found.length);
  };
  const auto heads = ZelDebugDialog::GetCommandTables().heads;
  if (trace.words.empty())
    return std::nullopt;
  const auto head = findRow(heads, wordText(0));
  if (head == heads.end())
    return std::nullopt;
  if (!head->inOptionFile)
    return WordNotInFiles{0, keywordsInFiles(heads)};
  if (trace.words.size() < 2)
    return std::nullopt;
  const auto target = findRow(head->targets, wordText(1));
  if (target == head->targets.end() || target->inOptionFile)
    return std::nullopt;
  return WordNotInFiles{1, keywordsInFiles(head->targets)};
}

} // namespace zeldebug
