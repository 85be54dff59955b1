#include "commands/TracedCommand.h"

#include <algorithm>
#include <utility>

#include "commands/Replay.h"

namespace ZelDebugDialog::model {

namespace {

std::set<std::size_t> wordsAtFault(const CommandTrace &trace) {
  std::set<std::size_t> words;
  for (const CommandFault &fault : trace.faults)
    words.insert(fault.word);
  return words;
}

} // namespace

void keepChanges(const std::string &command, CommandTrace &trace) {
  const std::set<std::size_t> atFault = wordsAtFault(trace);
  Replay replay;
  for (std::size_t i = 0; i < trace.words.size(); ++i) {
    CommandWord &word = trace.words[i];
    word.fields = replay.changedBy(
        word, command.substr(word.offset, word.length), atFault.count(i) != 0);
  }
}

TracedCommand::TracedCommand(std::string text, AfterFault afterFault)
    : command(std::move(text)) {
  Desk desk;
  plainReading = desk.readCommand(command);
  desk.traceCommand(command, afterFault, read);
  final = desk.snapshot();
  keepChanges(command, read);
  atFault = wordsAtFault(read);
  std::size_t changes = 0;
  for (std::size_t i = 0; i < read.words.size(); ++i)
    for (const std::string &field : read.words[i].fields) {
      lastWords[field] = i;
      ++changes;
    }
  if (changes > lastWords.size())
    replayOverwritten();
}

void TracedCommand::replayOverwritten() {
  Replay replay;
  for (std::size_t i = 0; i < read.words.size(); ++i) {
    const CommandWord &word = read.words[i];
    const bool isLast = i + 1 == read.words.size();
    std::vector<NamedValue> values =
        replay.take(word, wordText(i), isLast ? "" : wordText(i + 1));
    const bool isOverwritten = std::any_of(
        word.fields.begin(), word.fields.end(),
        [this, i](const std::string &field) { return !isLastFor(field, i); });
    if (isOverwritten)
      overwritten[i] = std::move(values);
  }
}

std::string TracedCommand::wordText(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  return command.substr(found.offset, found.length);
}

bool TracedCommand::isLastFor(const std::string &field,
                              std::size_t word) const {
  return lastWords.at(field) == word;
}

std::vector<NamedValue> TracedCommand::changesOf(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  std::vector<NamedValue> values;
  for (std::size_t i = 0; i < found.fields.size(); ++i)
    values.push_back(
        isLastFor(found.fields[i], word)
            ? NamedValue{found.fields[i], fieldNamed(final, found.fields[i])}
            : overwritten.at(word)[i]);
  return values;
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
