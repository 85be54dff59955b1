#include "TracedCommand.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <utility>

#include <ZelDebugDialog/CommandTables.h>
#include <strings.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::AfterFault;
using ZelDebugDialog::CommandTrace;
using ZelDebugDialog::CommandWord;
using ZelDebugDialog::WordRole;

struct Role {
  WordRole role;
  const char *name;
};

constexpr std::array<Role, 8> roles{{
    {WordRole::head, "head"},
    {WordRole::target, "target"},
    {WordRole::connection, "connection"},
    {WordRole::option, "option"},
    {WordRole::name, "name"},
    {WordRole::value, "value"},
    {WordRole::ignored, "ignored"},
    {WordRole::lost, "lost"},
}};

Configuration tracedConfiguration(const std::string &text,
                                  AfterFault afterFault, CommandTrace &trace) {
  Session session(nullptr);
  session.startRecord();
  traceInto(session, text, afterFault, trace);
  return configurationOf(*session.state);
}

/// Whether an option leads to options of another set, up to the end.
bool opensOptionSet(const std::string &word) {
  static const std::vector<std::string> keywords = [] {
    std::vector<std::string> found;
    for (const auto &set : ZelDebugDialog::GetCommandTables().optionSets)
      for (const ZelDebugDialog::CommandOption &option : set.options)
        if (!option.optionSet.empty())
          found.push_back(option.keyword);
    return found;
  }();
  return std::any_of(keywords.begin(), keywords.end(),
                     [&word](const std::string &keyword) {
                       return strcasecmp(keyword.c_str(), word.c_str()) == 0;
                     });
}

/// Gives a field any value but the one that it has.
template <class Record>
void makeOther(Record &record, const FieldTable<Record> &fields,
               std::string_view name) {
  for (const Field<Record> &field : fields)
    if (field.name == name)
      std::visit(
          [&record](auto member) {
            auto &value = record.*member;
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::string>)
              value += '?';
            else
              value = value == Value() ? static_cast<Value>(1) : Value();
          },
          field.member);
}

/// The same for a setting of the processor or the cable, or the mark.
void makeOther(ZelDebugDialog::EngineImp &state, const std::string &setting) {
  constexpr std::string_view ofCable = "cable.";
  if (setting == "cpuJtag")
    state.cpuJtag = state.cpuJtag == 0 ? 1 : 0;
  else if (setting.compare(0, ofCable.size(), ofCable) == 0)
    makeOther(*state.cableOption, cableFields(),
              std::string_view(setting).substr(ofCable.size()));
  else
    makeOther(*state.currentProcessor, processorFields(), setting);
}

/// Reads the words of a command again, one after the other, into one state:
/// each with no more of the command than it takes to know what the word is for,
/// so that a long command takes no longer than its words.
class Replay {
public:
  Replay() : session(nullptr) { session.startRecord(); }

  /// The settings of a word, with the values that it gives them.
  /// @param behind  the word behind it
  std::vector<Setting> take(const CommandWord &word, const std::string &text,
                            const std::string &behind);
  /// Those of the settings of a word that its value does not leave as they are.
  std::vector<std::string> changedBy(const CommandWord &word,
                                     const std::string &text, bool isAtFault);

private:
  std::string pieceWith(const CommandWord &word, const std::string &text);
  std::vector<Setting> read(const std::string &piece,
                            const std::vector<std::string> &fields);

  Session session;
  std::string front;      ///< up to the option set
  bool isSetOpen = false; ///< the last one, which goes on to the end
  std::string option;     ///< of the clause
  std::string name;       ///< in front of the value
};

std::vector<Setting> Replay::take(const CommandWord &word,
                                  const std::string &text,
                                  const std::string &behind) {
  std::string piece = pieceWith(word, text);
  // A target is not taken without a connection.
  if (word.role == WordRole::target)
    piece += behind;
  return word.fields.empty() ? std::vector<Setting>()
                             : read(piece, word.fields);
}

std::vector<std::string> Replay::changedBy(const CommandWord &word,
                                           const std::string &text,
                                           bool isAtFault) {
  const std::string piece = pieceWith(word, text);
  const bool mayLeave = word.fields.size() > 1 || isAtFault;
  if (word.role != WordRole::value || word.fields.empty() || !mayLeave)
    return word.fields;
  const std::vector<Setting> once = read(piece, word.fields);
  for (const std::string &field : word.fields)
    makeOther(*session.state, field);
  const std::vector<Setting> again = read(piece, word.fields);
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < word.fields.size(); ++i)
    if (once[i].value == again[i].value)
      changed.push_back(word.fields[i]);
  return changed;
}

/// Puts the word in its place, and what is needed of the command around it.
std::string Replay::pieceWith(const CommandWord &word,
                              const std::string &text) {
  switch (word.role) {
  case WordRole::head:
  case WordRole::target:
  case WordRole::connection:
    front += text + ' ';
    return front;
  case WordRole::option:
    option = text + ' ';
    name.clear();
    if (isSetOpen || !opensOptionSet(text))
      return front + option;
    isSetOpen = true;
    front += option;
    option.clear();
    return front;
  case WordRole::name:
    name = text + ' ';
    break;
  default:
    break;
  }
  return front + option + name + text;
}

std::vector<Setting> Replay::read(const std::string &piece,
                                  const std::vector<std::string> &fields) {
  // At the end of a command a clause would be finished: not here.
  static const std::string nextOption = " -next";
  CommandTrace ignored;
  traceInto(session, piece + nextOption, AfterFault::goOn, ignored);
  const Configuration now = configurationOf(*session.state);
  ReleaseChainRecords(session.state->jtagChain);
  std::vector<Setting> settings;
  for (const std::string &field : fields) {
    // Each device is the first one here.
    const bool ofChain = field.compare(0, 6, "chain[") == 0;
    const std::string here =
        ofChain ? "chain[0]" + field.substr(field.find('.')) : field;
    settings.push_back(settingNamed(now, here));
    settings.back().name = field;
  }
  return settings;
}

std::set<std::size_t> wordsAtFault(const CommandTrace &trace) {
  std::set<std::size_t> words;
  for (const ZelDebugDialog::CommandFault &fault : trace.faults)
    words.insert(fault.word);
  return words;
}

} // namespace

bool traceInto(Session &session, const std::string &command,
               AfterFault afterFault, CommandTrace &trace) {
  try {
    TraceKvoCommand(command, *session.state, trace, afterFault);
    return true;
  } catch (const std::out_of_range &) {
    return false;
  }
}

void keepChanges(const std::string &command, CommandTrace &trace) {
  const std::set<std::size_t> atFault = wordsAtFault(trace);
  Replay replay;
  for (std::size_t i = 0; i < trace.words.size(); ++i) {
    CommandWord &word = trace.words[i];
    word.fields = replay.changedBy(
        word, command.substr(word.offset, word.length), atFault.count(i) != 0);
  }
}

CommandTrace traceOf(const std::string &command, const std::string &processor,
                     HHSMHwManager *design) {
  Session session(design);
  session.selectFrom(processor, "");
  CommandTrace trace;
  traceInto(session, command, AfterFault::stop, trace);
  keepChanges(command, trace);
  return trace;
}

TracedCommand::TracedCommand(std::string text, AfterFault afterFault)
    : command(std::move(text)) {
  Session plain(nullptr);
  plainReading = plain.readCommand(command);
  final = tracedConfiguration(command, afterFault, read);
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
    std::vector<Setting> settings =
        replay.take(word, wordText(i), isLast ? "" : wordText(i + 1));
    const bool isOverwritten = std::any_of(
        word.fields.begin(), word.fields.end(),
        [this, i](const std::string &field) { return !isLastFor(field, i); });
    if (isOverwritten)
      overwritten[i] = std::move(settings);
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

std::vector<Setting> TracedCommand::changesOf(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  std::vector<Setting> settings;
  for (std::size_t i = 0; i < found.fields.size(); ++i)
    settings.push_back(isLastFor(found.fields[i], word)
                           ? settingNamed(final, found.fields[i])
                           : overwritten.at(word)[i]);
  return settings;
}

const char *shownRole(WordRole role) {
  for (const Role &row : roles)
    if (row.role == role)
      return row.name;
  return "";
}

} // namespace zeldebug
