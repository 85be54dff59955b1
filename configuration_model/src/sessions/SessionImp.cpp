#include "sessions/SessionImp.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "commands/WhyRefused.h"
#include "losses/Writing.h"
#include "sessions/Changes.h"
#include "settings/Values.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace {

constexpr const char *commandSetting = "command";
constexpr const char *byCommand = "the command says so";
constexpr const char *byCopying = "it was copied";

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

/// What a setting brought along when it went back to its default went back as
/// well, but for what has a value of its own.
void forgetReset(Step &step, const std::string &setting,
                 const SettingValues &values) {
  const auto isGiven = [&values](const std::string &id) {
    return std::any_of(values.begin(), values.end(),
                       [&id](const auto &value) { return value.first == id; });
  };
  if (isGiven(setting))
    return;
  forgetOrigin(step, setting);
  for (const std::string &brought : findRow(setting)->brought)
    if (!isGiven(brought))
      forgetOrigin(step, brought);
}

} // namespace

SessionImp::SessionImp(Board ofBoard,
                       std::shared_ptr<const BoardState> stateOfBoard,
                       const std::string &processor, Session::Hold hold)
    : shownBoard(std::move(ofBoard)), board(std::move(stateOfBoard)),
      identity(board->expectProcessor(processor)),
      file(optionFilePath(board->absolute, processor)),
      shownFile(optionFilePath(board->folder, processor).string()),
      desk(board->design, identity) {
  if (hold == Session::Hold::untilSaved)
    lock = std::make_unique<FileLock>(file);
  load();
  current = saved;
}

// --- What is saved -----------------------------------------------------------

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
                         loaded.text.size(), longestOptionLine);
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
    noteOrigins(step, lineOfFile(loaded.text), "file");
  analyseStep(step);
  saved = std::make_shared<const Step>(std::move(step));
}

void SessionImp::noteOrigins(Step &step, const std::string &command,
                             const std::string &origin) {
  step.origins.clear();
  CommandTrace trace;
  desk.traceCommand(command, AfterFault::stop, trace);
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields) {
      const std::string place = fmt::format("{}:{}", origin, word.offset + 1);
      step.origins[field] = place;
      if (isPartOfConnection(field))
        step.origins["connection"] = place;
      // The chain begins where its first device does.
      step.origins.emplace(settingOf(field), place);
    }
  step.origins["connectCommand"] = fmt::format("{}:1", origin);
}

// --- Steps -------------------------------------------------------------------

void SessionImp::analyseStep(Step &step) {
  step.analysis = analyse(desk, step.now);
}

Step SessionImp::startStep() const {
  Step next = *current;
  next.asked.clear();
  return next;
}

std::vector<Effect> SessionImp::take(Step next, const std::string &why,
                                     bool withAsked) {
  const std::vector<FieldDifference> differences =
      settingsThatDiffer(current->now, next.now);
  if (differences.empty()) {
    next.analysis = current->analysis;
    next.asked = current->asked;
    next.displaced = current->displaced;
  } else {
    analyseStep(next);
    noteDisplaced(*current, next);
    // It stays until the next change.
    if (next.editedCommand == current->editedCommand)
      next.editedCommand.reset();
  }
  if (next.editedCommand == next.analysis.command)
    next.editedCommand.reset();
  if (differences.empty() && !next.differsInTextsFrom(*current))
    return {};
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
  noteOrigins(step, command, commandSetting);
  for (const FieldDifference &asked :
       settingsThatDiffer(defaultsBeside(step.now, identity), step.now))
    step.asked.insert(asked.name);
  step.drafts.clear();
  step.commandDraft.reset();
  step.editedCommand = command;
  return true;
}

std::vector<Effect> SessionImp::change(const ChangeRequest &request,
                                       const Step *copied) {
  Step next = startStep();
  std::vector<std::string> left;
  if (copied != nullptr)
    left = takeCopy(next, *copied);
  if (request.command) {
    if (!takeCommand(next, *request.command))
      refuseCommand(*request.command,
                    whyRefused(desk, desk.selectFrom(*request.command),
                               *request.command));
    next.editedCommand.reset();
    left.clear();
  }
  const Snapshot before = next.now;
  const std::set<std::string> asked =
      applyValues(next.now, identity, request.values, request.reset);
  noteChanged(before, next);
  for (const std::string &setting : asked) {
    next.drafts.erase(setting);
    next.asked.insert(setting);
  }
  for (const std::string &setting : request.reset)
    forgetReset(next, setting, request.values);
  std::vector<Effect> effects =
      take(std::move(next), request.command ? byCommand : byCopying, false);
  for (const std::string &setting : left)
    if (asked.count(setting) == 0)
      effects.push_back(notCopied(setting));
  return effects;
}

std::vector<std::string> SessionImp::takeCopy(Step &step, const Step &copied) {
  const Snapshot before = step.now;
  std::vector<std::string> left = copySettings(step.now, copied.now);
  step.displaced.insert(copied.displaced.begin(), copied.displaced.end());
  step.drafts.clear();
  step.commandDraft.reset();
  noteChanged(before, step);
  return left;
}

Effect SessionImp::notCopied(const std::string &setting) const {
  const Value value = valueIn(current->now, *findRow(setting));
  return {setting, value, value,
          "this processor does not allow what was copied"};
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
  for (const FieldDifference &effect : settingsThatDiffer(before, next.now))
    forgetOrigin(next, effect.name);
  for (const std::string &id : settings)
    forgetOrigin(next, id);
  return take(std::move(next), "it is the default");
}

std::vector<Effect> SessionImp::copyFrom(const Step &other) {
  Step next = startStep();
  const std::vector<std::string> left = takeCopy(next, other);
  std::vector<Effect> effects = take(std::move(next), byCopying);
  for (const std::string &setting : left)
    effects.push_back(notCopied(setting));
  return effects;
}

// --- Questions ---------------------------------------------------------------

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
