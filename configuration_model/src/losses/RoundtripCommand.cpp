// What becomes of a command that is read, written and read again, without a
// design and without the limits of an option file.
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "codes/CodeRows.h"
#include "commands/Diagnose.h"
#include "commands/WhyRefused.h"
#include "losses/Reasons.h"
#include "losses/Writing.h"

namespace ZelDebugDialog {

namespace {

using Fields = std::vector<RoundtripField>;

/// What a diagnostic of the reading means for the way back.
struct UnlikeItsText {
  const char *diagnostic;
  const char *code;
};

constexpr std::array<UnlikeItsText, 2> unlikeTheirText{
    {{"value-cut", "eight-bit-numbers"}, {"not-a-number", "no-number"}}};

const Omission *findFor(const std::vector<Omission> &omissions,
                        const std::string &field) {
  for (const Omission &omission : omissions)
    if (omission.field == field)
      return &omission;
  return nullptr;
}

RoundtripField fieldOf(const std::string &name, const Value &before,
                       const Value &after, const Omission &omission) {
  const model::Why &why = model::reasonRow(omission.reason).why;
  return {name, before, after, why.text(), why.code, omission.displacedBy};
}

/// The settings because of which the reader refuses, of which there is one at
/// least, and those that the command does not even carry.
Fields fieldsOfRefusal(const model::Snapshot &wanted,
                       const CommandWriting &writing) {
  Fields fields;
  model::Snapshot unset = model::defaultsBeside(wanted, wanted.record);
  unset.chain.resize(wanted.chain.size());
  const std::vector<model::NamedValue> defaults = model::fieldsOf(unset);
  std::size_t position = 0;
  for (const model::NamedValue &field : model::fieldsOf(wanted)) {
    const bool isDefault = defaults[position++].value == field.value;
    const Omission *const unreadable = findFor(writing.unreadable, field.name);
    const Omission *const omitted = findFor(writing.omissions, field.name);
    if (unreadable != nullptr)
      fields.push_back(fieldOf(field.name, field.value, {}, *unreadable));
    else if (omitted != nullptr && !isDefault)
      fields.push_back(fieldOf(field.name, field.value, {}, *omitted));
  }
  return fields;
}

/// The settings that come back as something else.
Fields fieldsThatChange(const model::Snapshot &wanted,
                        const model::Snapshot &after,
                        const CommandWriting &writing) {
  Fields fields;
  for (const model::FieldDifference &difference :
       model::fieldsThatDiffer(wanted, after)) {
    const Omission *const omission =
        findFor(writing.omissions, difference.name);
    if (omission != nullptr)
      fields.push_back(fieldOf(difference.name, difference.before,
                               difference.after, *omission));
    else
      fields.push_back({difference.name, difference.before, difference.after,
                        model::expectCode("read-differently").summary,
                        "read-differently", ""});
  }
  return fields;
}

/// The number that a word gives to a setting that no later word overwrites.
const model::FieldDifference *
lastNumber(const model::TracedCommand &command, std::size_t word,
           const std::vector<model::FieldDifference> &changes) {
  for (const model::FieldDifference &change : changes)
    if (change.after.IsNumber() && command.isLastFor(change.name, word))
      return &change;
  return nullptr;
}

/// Numbers that are no longer what the command says.
Fields fieldsUnlikeTheirText(const std::string &text) {
  const model::TracedCommand command(text, AfterFault::stop);
  std::vector<CommandDiagnostic> found;
  model::diagnoseWords(command, found);
  Fields fields;
  const std::vector<CommandWord> &words = command.trace().words;
  for (std::size_t i = 0; i < words.size(); ++i)
    for (const CommandDiagnostic &diagnostic : found) {
      const std::size_t start = diagnostic.offset - words[i].offset;
      if (diagnostic.offset < words[i].offset || start > words[i].length)
        continue;
      const std::vector<model::FieldDifference> changes = command.changesOf(i);
      const model::FieldDifference *const number =
          lastNumber(command, i, changes);
      for (const UnlikeItsText &row : unlikeTheirText)
        if (number != nullptr && diagnostic.code == row.diagnostic)
          fields.push_back({number->name, command.wordText(i).substr(start),
                            number->after, model::expectCode(row.code).summary,
                            row.code, ""});
    }
  return fields;
}

} // namespace

const char *ShowOutcome(RoundtripOutcome outcome) {
  switch (outcome) {
  case RoundtripOutcome::same:
    return "same";
  case RoundtripOutcome::changed:
    return "changed";
  case RoundtripOutcome::refused:
    return "refused";
  }
  return "";
}

RoundtripResult RoundtripCommand(const std::string &text) {
  RoundtripResult trip;
  model::Desk desk;
  const model::Reading first = desk.readCommand(text);
  if (!first.accepted()) {
    trip.message = "reading: " + model::whyRefused(desk, first, text);
    return trip;
  }
  const model::Snapshot before = desk.snapshot();
  const model::Written written = model::writeSnapshot(desk, before);
  if (!written.command) {
    trip.message = "writing: " + written.error;
    for (const Omission &omission : written.writing.omissions)
      trip.fields.push_back(fieldOf(omission.field,
                                    model::fieldNamed(before, omission.field),
                                    {}, omission));
    return trip;
  }
  trip.written = *written.command;
  const model::Reading second = desk.readCommand(trip.written);
  if (!second.accepted()) {
    trip.fields = fieldsOfRefusal(before, written.writing);
    trip.message =
        "reading again: " + model::whyRefused(desk, second, trip.written);
    return trip;
  }
  trip.fields = fieldsThatChange(before, desk.snapshot(), written.writing);
  for (RoundtripField &field : fieldsUnlikeTheirText(text))
    trip.fields.push_back(std::move(field));
  trip.outcome =
      trip.fields.empty() ? RoundtripOutcome::same : RoundtripOutcome::changed;
  return trip;
}

} // namespace ZelDebugDialog
