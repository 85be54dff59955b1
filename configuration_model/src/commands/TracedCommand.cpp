#include "commands/TracedCommand.h"

#include <algorithm>
#include <utility>

#include "settings/SettingTable.h"

namespace ZelDebugDialog::model {

namespace {

std::set<std::size_t> wordsAtFault(const CommandTrace &trace) {
  std::set<std::size_t> words;
  for (const CommandFault &fault : trace.faults)
    words.insert(fault.word);
  return words;
}

} // namespace

TracedCommand::TracedCommand(std::string text, AfterFault afterFault)
    : command(std::move(text)) {
  Desk desk;
  plainReading = desk.readCommand(command);
  desk.traceCommand(command, afterFault, read);
  final = desk.snapshot();
  atFault = wordsAtFault(read);
  for (std::size_t i = 0; i < read.words.size(); ++i)
    for (const std::string &field : read.words[i].fields)
      lastWords[field] = i;
}

std::string TracedCommand::wordText(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  return command.substr(found.offset, found.length);
}

bool TracedCommand::isLastFor(const std::string &field,
                              std::size_t word) const {
  return lastWords.at(field) == word;
}

/// A device that was dropped with its clause gives nothing.
std::vector<FieldDifference> TracedCommand::changesOf(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  std::vector<FieldDifference> differences;
  for (const FieldChange &change : found.changes) {
    const bool isDecided = std::find(found.fields.begin(), found.fields.end(),
                                     change.field) != found.fields.end();
    if (!isDecided)
      continue;
    const SettingRow &row = *findRow(change.field);
    const bool isDropped =
        row.isOfDevice() && fieldNamed(final, change.field).IsNothing();
    differences.push_back({change.field, valueOf(change.before, row),
                           isDropped ? Value() : valueOf(change.after, row)});
  }
  return differences;
}

const char *shownRole(WordRole role) {
  switch (role) {
  case WordRole::head:
    return "head";
  case WordRole::target:
    return "target";
  case WordRole::connection:
    return "connection";
  case WordRole::option:
    return "option";
  case WordRole::name:
    return "name";
  case WordRole::value:
    return "value";
  case WordRole::ignored:
    return "ignored";
  case WordRole::lost:
    return "lost";
  }
  return "";
}

} // namespace ZelDebugDialog::model
