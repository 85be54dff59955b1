#include "TracedCommand.h"

#include <algorithm>
#include <array>
#include <stdexcept>

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

Setting settingNamed(const Configuration &configuration,
                     const std::string &name) {
  for (const Setting &setting : settingsOf(configuration))
    if (setting.name == name)
      return setting;
  return {name, FieldKind::text, Json()};
}

bool changes(const CommandWord &word, const std::string &field) {
  return std::find(word.fields.begin(), word.fields.end(), field) !=
         word.fields.end();
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

TracedCommand::TracedCommand(std::string text, AfterFault afterFault)
    : command(std::move(text)) {
  Session plain(nullptr);
  plainReading = plain.readCommand(command);
  final = tracedConfiguration(command, afterFault, read);
}

std::string TracedCommand::wordText(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  return command.substr(found.offset, found.length);
}

bool TracedCommand::isAtFault(std::size_t word) const {
  return std::any_of(read.faults.begin(), read.faults.end(),
                     [word](const ZelDebugDialog::CommandFault &fault) {
                       return fault.word == word;
                     });
}

/// Some values are stored before they are refused, others are not.
std::vector<Setting>
TracedCommand::changesOfRefused(const CommandWord &word) const {
  CommandTrace ignored;
  const Configuration before = tracedConfiguration(
      command.substr(0, word.offset), AfterFault::goOn, ignored);
  const Configuration after = tracedConfiguration(
      command.substr(0, word.offset + word.length), AfterFault::goOn, ignored);
  std::vector<Setting> settings;
  for (const std::string &field : word.fields) {
    const Setting setting = settingNamed(after, field);
    if (setting.value != settingNamed(before, field).value)
      settings.push_back(setting);
  }
  return settings;
}

bool TracedCommand::isLastFor(const std::string &field,
                              std::size_t word) const {
  return std::none_of(
      read.words.begin() + static_cast<std::ptrdiff_t>(word) + 1,
      read.words.end(),
      [&field](const CommandWord &later) { return changes(later, field); });
}

std::vector<Setting> TracedCommand::changesOf(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  std::vector<Setting> settings;
  if (isAtFault(word))
    return changesOfRefused(found);
  for (const std::string &field : found.fields) {
    if (isLastFor(field, word)) {
      settings.push_back(settingNamed(final, field));
      continue;
    }
    // A later word overwrites it: the command up to here tells what it was.
    CommandTrace ignored;
    settings.push_back(settingNamed(
        tracedConfiguration(command.substr(0, found.offset + found.length),
                            AfterFault::goOn, ignored),
        field));
  }
  return settings;
}

const char *shownRole(WordRole role) {
  for (const Role &row : roles)
    if (row.role == role)
      return row.name;
  return "";
}

} // namespace zeldebug
