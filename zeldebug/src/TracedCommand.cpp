#include "TracedCommand.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <variant>

#include <ZelDebugDialog/SettingFields.h>

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

template <class Record>
std::optional<Setting>
settingIn(const FieldTable<Record> &fields, const std::string &name,
          std::string_view field, const ZelDebugDialog::FieldValue &value) {
  for (const Field<Record> &known : fields) {
    if (known.name != field)
      continue;
    const auto *const number = std::get_if<std::int64_t>(&value);
    if (number == nullptr)
      return Setting{name, known.kind, std::get<std::string>(value)};
    const bool isFlag = known.kind == FieldKind::flag;
    return Setting{name, known.kind,
                   isFlag ? Json(*number != 0) : Json(*number)};
  }
  return std::nullopt;
}

/// A value as the records have it.
Setting settingOf(const std::string &name,
                  const ZelDebugDialog::FieldValue &value) {
  const std::string_view field =
      std::string_view(name).substr(name.find('.') + 1);
  for (const std::optional<Setting> &setting :
       {settingIn(processorFields(), name, name, value),
        settingIn(cableFields(), name, field, value),
        settingIn(chainFields(), name, field, value)})
    if (setting)
      return *setting;
  return {name, FieldKind::number, std::get<std::int64_t>(value)};
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

CommandTrace traceOf(const std::string &command, const std::string &processor,
                     HHSMHwManager *design) {
  Session session(design);
  session.selectFrom(processor, "");
  CommandTrace trace;
  traceInto(session, command, AfterFault::stop, trace);
  return trace;
}

TracedCommand::TracedCommand(std::string text, AfterFault afterFault)
    : command(std::move(text)) {
  Session plain(nullptr);
  plainReading = plain.readCommand(command);
  final = tracedConfiguration(command, afterFault, read);
  atFault = wordsAtFault(read);
}

std::string TracedCommand::wordText(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  return command.substr(found.offset, found.length);
}

std::vector<Setting> TracedCommand::changesOf(std::size_t word) const {
  const CommandWord &found = read.words.at(word);
  std::vector<Setting> settings;
  for (const std::string &field : found.fields)
    for (const ZelDebugDialog::FieldChange &change : found.changes)
      if (change.field == field)
        settings.push_back(settingOf(field, change.after));
  return settings;
}

const char *shownRole(WordRole role) {
  for (const Role &row : roles)
    if (row.role == role)
      return row.name;
  return "";
}

} // namespace zeldebug
