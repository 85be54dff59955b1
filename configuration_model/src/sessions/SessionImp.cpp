#include "sessions/SessionImp.h"

#include <algorithm>

#include <fmt/format.h>

#include "commands/OptionLine.h"
#include "commands/TracedCommand.h"
#include "commands/WhyRefused.h"
#include "losses/Writing.h"
#include "sessions/Changes.h"
#include "settings/Values.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace {

constexpr const char *fromDesign = "design";
constexpr const char *changed = "changed";
constexpr const char *commandSetting = "command";
constexpr const char *byCommand = "the command says so";

/// The setting that a field of the records belongs to.
std::string settingOf(const std::string &field) {
  return field.compare(0, 6, "chain[") == 0 ? "chain" : field;
}

bool isPartOfConnection(const std::string &field) {
  return field == "connectionType" || field == "stubType";
}

[[noreturn]] void refuseCommand(const std::string &command,
                                const std::string &reason) {
  Refusal refusal(RefusalKind::badCommand, "",
                  fmt::format("the command is refused: {}", reason));
  refusal.setting = commandSetting;
  refusal.value = printable(command);
  throw refusal;
}

/// Takes the identity that discovery gave.
void restoreIdentity(Snapshot &snapshot, const ProcessorInfoImp &identity) {
  Snapshot discovered;
  discovered.record = identity;
  for (const SettingRow &row : settingRows())
    if (row.isIdentity)
      storeIn(snapshot, row, valueIn(discovered, row));
}

} // namespace

SessionImp::SessionImp(std::shared_ptr<const BoardState> ofBoard,
                       const std::string &processor, Session::Hold hold)
    : board(std::move(ofBoard)), identity(board->expectProcessor(processor)),
      file(optionFilePath(board->absolute, processor)),
      shownFile(optionFilePath(board->folder, processor).string()),
      desk(board->design, identity) {
  if (hold == Session::Hold::untilSaved)
    lock = std::make_unique<FileLock>(file);
  load();
  current = saved;
}

// --- What is saved
// -------------------------------------------------------------

void SessionImp::load() {
  loaded = readOptionFile(file);
  Step step;
  const auto problemOf = [&](const Reading &reading) -> std::string {
    if (!loaded.problem.empty())
      return loaded.problem;
    if (!loaded.isText())
      return "the command holds bytes that are no text";
    if (loaded.isCut())
      return fmt::format("the command has {} characters, but only {} of a line "
                         "are read",
                         loaded.text.size(), optionLineLimit);
    return reading.accepted()
               ? ""
               : fmt::format("the command is refused: {}",
                             whyRefused(desk, reading, loaded.text,
                                        WordPlace::optionFile));
  };
  const bool hasCommand = loaded.exists && loaded.line != 0;
  Reading reading{};
  if (hasCommand)
    reading = desk.selectFile(file.string());
  problem = problemOf(reading);
  const bool isTaken = hasCommand && problem.empty();
  if (!isTaken)
    desk.startFromDefaults();
  step.now = desk.snapshot();
  if (isTaken)
    noteOrigins(step, lineOfFile(loaded.text), "file", nullptr);
  analyseStep(step);
  saved = std::make_shared<const Step>(std::move(step));
}

void SessionImp::noteOrigins(Step &step, const std::string &command,
                             const std::string &origin,
                             std::set<std::string> *asked) {
  step.origins.clear();
  CommandTrace trace;
  desk.traceCommand(command, AfterFault::stop, trace);
  keepChanges(command, trace);
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields) {
      const std::string place = fmt::format("{}:{}", origin, word.offset + 1);
      step.origins[field] = place;
      step.origins[settingOf(field)] = place;
      if (isPartOfConnection(field))
        step.origins["connection"] = place;
      if (asked != nullptr)
        asked->insert(isPartOfConnection(field) ? "connection"
                                                : settingOf(field));
    }
  step.origins["connectCommand"] = fmt::format("{}:1", origin);
}

// --- Steps
// ---------------------------------------------------------------------

void SessionImp::analyseStep(Step &step) {
  step.analysis = analyse(desk, step.now);
}

Step SessionImp::startStep() const {
  Step next = *current;
  next.asked.clear();
  next.editedCommand.reset();
  return next;
}

std::vector<Effect> SessionImp::take(Step next, const std::string &why,
                                     bool withAsked) {
  const bool hasOther = next.editedCommand != current->editedCommand;
  if (!next.differsFrom(*current) && !hasOther)
    return {};
  analyseStep(next);
  noteDisplaced(*current, next);
  if (next.editedCommand == next.analysis.command)
    next.editedCommand.reset();
  static const std::set<std::string> none;
  std::vector<Effect> effects = effectsBetween(
      current->now, next.now, withAsked ? none : next.asked, why);
  past.push_back(current);
  future.clear();
  current = std::make_shared<const Step>(std::move(next));
  return effects;
}

bool SessionImp::takeCommand(Step &step, const std::string &command) {
  const Reading reading = desk.selectFrom(command);
  if (!reading.accepted())
    return false;
  step.now = desk.snapshot();
  noteOrigins(step, command, commandSetting, &step.asked);
  step.drafts.clear();
  step.commandDraft.reset();
  step.editedCommand = command;
  return true;
}

std::vector<Effect> SessionImp::change(const ChangeRequest &request,
                                       const Step *copied) {
  Step next = startStep();
  if (copied != nullptr) {
    copySettings(next.now, copied->now);
    next.displaced.insert(copied->displaced.begin(), copied->displaced.end());
  }
  if (request.command) {
    if (!takeCommand(next, *request.command))
      refuseCommand(*request.command,
                    whyRefused(desk, desk.selectFrom(*request.command),
                               *request.command));
    next.editedCommand.reset();
  }
  const Snapshot before = next.now;
  const std::set<std::string> asked =
      applyValues(next.now, identity, request.values, request.reset);
  for (const Effect &effect : effectsBetween(before, next.now, {}, ""))
    next.origins[effect.setting] = changed;
  for (const std::string &setting : asked) {
    next.drafts.erase(setting);
    next.asked.insert(setting);
  }
  for (const std::string &setting : request.reset)
    next.origins.erase(setting);
  return take(std::move(next), byCommand, false);
}

std::vector<Effect> SessionImp::draft(const std::string &setting,
                                      const std::string &text) {
  if (setting == commandSetting)
    return edit(text);
  const SettingRow &row = expectSettable(setting);
  try {
    const Value value = expectValue(row, text, current->now, defaults());
    return change({nullptr, std::nullopt, {{setting, value}}, {}}, nullptr);
  } catch (const Refusal &refusal) {
    Step next = *current;
    next.drafts[setting] = {text, refusal.problem};
    return take(std::move(next), "", false);
  }
}

std::vector<Effect> SessionImp::dropDraft(const std::string &setting) {
  Step next = *current;
  if (setting == commandSetting)
    next.commandDraft.reset();
  else
    next.drafts.erase(expectSettable(setting).info.id);
  return take(std::move(next), "", false);
}

std::vector<Effect> SessionImp::edit(const std::string &command) {
  Step next = startStep();
  if (!takeCommand(next, command)) {
    next = *current;
    next.commandDraft = command;
  }
  return take(std::move(next), byCommand);
}

std::vector<Effect> SessionImp::undo() {
  if (past.empty())
    throw Refusal(RefusalKind::nothingToUndo, "", "there is nothing to undo");
  std::vector<Effect> effects =
      effectsBetween(current->now, past.back()->now, {}, "undone");
  future.push_back(current);
  current = past.back();
  past.pop_back();
  return effects;
}

std::vector<Effect> SessionImp::redo() {
  if (future.empty())
    throw Refusal(RefusalKind::nothingToRedo, "", "there is nothing to redo");
  std::vector<Effect> effects =
      effectsBetween(current->now, future.back()->now, {}, "done again");
  past.push_back(current);
  current = future.back();
  future.pop_back();
  return effects;
}

std::vector<Effect> SessionImp::revert() {
  load();
  return take(*saved, "it is saved so");
}

std::vector<Effect> SessionImp::reset(std::vector<std::string> settings) {
  Step next = startStep();
  restoreIdentity(next.now, identity);
  if (settings.empty()) {
    next.drafts.clear();
    next.commandDraft.reset();
    for (const SettingRow &row : settingRows())
      if (row.info.settable && !row.isOfDevice())
        settings.push_back(row.info.id);
  }
  const Snapshot before = next.now;
  for (const std::string &id : applyValues(next.now, identity, {}, settings))
    next.drafts.erase(id);
  for (const Effect &effect : effectsBetween(before, next.now, {}, ""))
    next.origins.erase(effect.setting);
  for (const std::string &id : settings)
    next.origins.erase(id);
  return take(std::move(next), "it is the default");
}

std::vector<Effect> SessionImp::copyFrom(const Step &other) {
  Step next = startStep();
  const std::vector<std::string> left = copySettings(next.now, other.now);
  next.displaced.insert(other.displaced.begin(), other.displaced.end());
  next.drafts.clear();
  next.commandDraft.reset();
  for (const Effect &effect : effectsBetween(current->now, next.now, {}, ""))
    next.origins[effect.setting] = changed;
  std::vector<Effect> effects = take(std::move(next), "it was copied");
  for (const std::string &id : left) {
    const Value value = valueIn(current->now, *findRow(id));
    effects.push_back(
        {id, value, value, "this processor does not allow what was copied"});
  }
  return effects;
}

// --- Questions
// -----------------------------------------------------------------

std::vector<Difference> SessionImp::differences() const {
  std::vector<Difference> differences;
  for (FieldDifference &found : settingsThatDiffer(saved->now, current->now))
    differences.push_back(
        {found.name, std::move(found.before), std::move(found.after)});
  return differences;
}

bool SessionImp::isDirty() const {
  return !problem.empty() || !differences().empty();
}

bool SessionImp::isChangedOnDisk() const {
  return !readOptionFile(file).isSameAs(loaded);
}

} // namespace ZelDebugDialog::model
