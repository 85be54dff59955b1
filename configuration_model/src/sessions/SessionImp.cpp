#include "sessions/SessionImp.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "commands/WhyRefused.h"
#include "files/Place.h"
#include "losses/Writing.h"
#include "sessions/Changes.h"
#include "settings/Values.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

constexpr const char *commandSetting = "command";
constexpr const char *byCommand = "the command says so";
constexpr const char *byCopying = "it was copied";
constexpr const char *byDefault = "it is the default";

[[noreturn]] void refuseCommand(const std::string &command,
                                const std::string &reason) {
  Refusal refusal(RefusalKind::badCommand, "",
                  fmt::format("the command is refused: {}", reason));
  refusal.setting = commandSetting;
  refusal.value = printable(command);
  throw refusal;
}

/// Those stand in the place of others of the same setting.
void addEffects(std::vector<Effect> &effects, const std::vector<Effect> &more) {
  const auto isReplaced = [&more](const Effect &effect) {
    return std::any_of(more.begin(), more.end(), [&](const Effect &other) {
      return other.setting == effect.setting;
    });
  };
  effects.erase(std::remove_if(effects.begin(), effects.end(), isReplaced),
                effects.end());
  effects.insert(effects.end(), more.begin(), more.end());
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

SessionImp::SessionImp(const Board &ofBoard,
                       std::shared_ptr<const BoardState> stateOfBoard,
                       const std::string &processor, Session::Hold hold)
    : shownBoard(ofBoard), board(std::move(stateOfBoard)),
      identity(board->expectProcessor(processor)),
      file(optionFilePath(board->absolute, processor)),
      shownFile(optionFilePath(board->folder, processor).string()),
      noFile(whyNoFile(processor)), desk(board->design, identity) {
  try {
    if (hold == Session::Hold::untilSaved && noFile.empty())
      lock = std::make_unique<LockFile>(target());
  } catch (const Refusal &refusal) {
    throw asGiven(refusal);
  }
  load();
  current = saved;
}

// --- What is saved -----------------------------------------------------------

OptionFile SessionImp::readFile() const {
  if (noFile.empty())
    return readOptionFile(file);
  OptionFile none;
  none.problem = noFile;
  return none;
}

fs::path SessionImp::target() const {
  return noFile.empty() ? behindLinks(file) : file;
}

Refusal SessionImp::asGiven(const Refusal &refusal) const {
  const auto about = [&refusal](const std::string &shown) {
    Refusal given(refusal.kind, printable(shown), refusal.problem);
    given.file = shown;
    return given;
  };
  if (refusal.file.empty() || !noFile.empty())
    return refusal;
  if (refusal.file == file || refusal.file == target())
    return about(shownFile);
  const fs::path folder = file.parent_path();
  if (refusal.file == folder || refusal.file == behindLinks(folder))
    return about(board->folder.empty() ? "." : board->folder);
  return refusal;
}

SessionImp::Saved SessionImp::read() {
  Saved read;
  read.file = readFile();
  const OptionFile &found = read.file;
  const auto problemOf = [&](const Reading &reading) -> std::string {
    if (!found.problem.empty())
      return found.problem;
    if (!found.isText())
      return "the command holds bytes that are no text";
    if (found.isCut())
      return fmt::format("the command has {} characters, but only {} of a line "
                         "are read",
                         found.text.size(), longestOptionLine);
    return reading.accepted()
               ? ""
               : fmt::format("the command is refused: {}",
                             whyRefused(desk, reading, found.text,
                                        WordPlace::optionFile));
  };
  const bool hasCommand = found.exists && found.line != 0;
  if (hasCommand)
    read.reading = desk.selectFile(file.string());
  else
    desk.startFromDefaults();
  read.values = desk.snapshot();
  read.problem = problemOf(read.reading);
  const bool isTaken = hasCommand && read.problem.empty();
  if (!isTaken)
    desk.startFromDefaults();
  Step step;
  step.now = desk.snapshot();
  if (isTaken)
    noteOrigins(step, lineOfFile(found.text), "file");
  analyseStep(step);
  read.step = std::make_shared<const Step>(std::move(step));
  return read;
}

void SessionImp::adopt(Saved &&read) noexcept {
  loaded = std::move(read.file);
  loadedReading = std::move(read.reading);
  loadedValues = std::move(read.values);
  problem = std::move(read.problem);
  saved = std::move(read.step);
}

void SessionImp::load() { adopt(read()); }

void SessionImp::noteSaved() {
  Step step = *current;
  const bool isRead = problem.empty();
  step.now.record.connectCommand =
      isRead ? saved->now.record.connectCommand : lineOfFile(loaded.text);
  noteSavedOrigins(*saved, step);
  step.origins["connectCommand"] = "file:1";
  step.read = saved->read;
  step.savings = ++savings;
  current = std::make_shared<const Step>(std::move(step));
}

StepPointer SessionImp::asSaved(const StepPointer &step) const {
  if (step->savings == savings)
    return step;
  Step told = *step;
  noteSavedSince(*saved, told);
  told.savings = savings;
  return std::make_shared<const Step>(std::move(told));
}

void SessionImp::noteOrigins(Step &step, const std::string &command,
                             const std::string &origin) {
  step.origins.clear();
  step.read = {command, origin};
  CommandTrace trace;
  desk.traceCommand(command, AfterFault::stop, trace);
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields) {
      const std::string place = fmt::format("{}:{}", origin, word.offset + 1);
      const std::string setting = settingOf(field);
      step.origins[field] = place;
      if (setting != chainSetting)
        step.origins[setting] = place;
      // The chain begins where its first device does.
      step.origins.emplace(setting, place);
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
  next.read.isWhole = false;
  return next;
}

std::vector<Effect> SessionImp::take(Step next, const std::string &why,
                                     bool withAsked, Counts counts) {
  const std::vector<FieldDifference> differences =
      settingsThatDiffer(current->now, next.now);
  if (differences.empty()) {
    next.analysis = current->analysis;
    next.asked = current->asked;
    next.displaced = current->displaced;
    if (next.read.text == current->read.text)
      next.read.isWhole = next.read.isWhole || current->read.isWhole;
  } else {
    analyseStep(next);
    noteDisplaced(*current, next);
    dropSettledDrafts(next, differences);
    // It stays until the next change.
    if (next.editedCommand == current->editedCommand)
      next.editedCommand.reset();
  }
  if (next.editedCommand == next.analysis.command)
    next.editedCommand.reset();
  const bool isOfOrigins =
      counts == Counts::textsAndOrigins && next.origins != current->origins;
  if (differences.empty() && !isOfOrigins && !next.differsInTextsFrom(*current))
    return {};
  static const std::set<std::string> none;
  std::vector<Effect> effects = effectsBetween(
      current->now, next.now, withAsked ? none : next.asked, why);
  next.savings = savings;
  past.push_back(current);
  future.clear();
  current = std::make_shared<const Step>(std::move(next));
  return effects;
}

void SessionImp::dropSettledDrafts(
    Step &step, const std::vector<FieldDifference> &differences) const {
  const Snapshot byDefaults = defaultsBeside(step.now, identity);
  for (const FieldDifference &difference : differences) {
    const auto draft = step.drafts.find(difference.name);
    if (draft == step.drafts.end())
      continue;
    try {
      if (expectValue(*findRow(difference.name), draft->second.text, step.now,
                      byDefaults) == difference.after)
        step.drafts.erase(draft);
    } catch (const Refusal &) {
      continue; // still no value
    }
  }
}

void SessionImp::restoreIdentity(Step &step) const {
  Snapshot discovered;
  discovered.record = identity;
  for (const SettingRow &row : settingRows()) {
    if (!row.isIdentity || isSameIn(discovered, step.now, row))
      continue;
    storeIn(step.now, row, valueIn(discovered, row));
    forgetOrigin(step, row.info.id);
  }
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
  const Snapshot given = next.now;
  if (!request.reset.empty())
    restoreIdentity(next);
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
  // What the command gave and something else that was asked for has replaced.
  std::vector<Effect> replaced;
  if (request.command)
    replaced = effectsBetween(given, next.now, asked, byDefault);
  for (const Effect &effect : replaced)
    next.asked.erase(effect.setting);
  std::vector<Effect> effects = take(std::move(next),
                                     request.command     ? byCommand
                                     : copied != nullptr ? byCopying
                                                         : byDefault,
                                     false);
  addEffects(effects, replaced);
  for (const std::string &setting : left)
    if (asked.count(setting) == 0)
      effects.push_back(notCopied(setting));
  return effects;
}

std::vector<std::string> SessionImp::takeCopy(Step &step, const Step &copied) {
  const Snapshot before = step.now;
  std::vector<std::string> left = copySettings(step.now, identity, copied.now);
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
  StepPointer step = asSaved(past.back());
  std::vector<Effect> effects =
      effectsBetween(current->now, step->now, {}, "undone");
  future.push_back(current);
  current = std::move(step);
  past.pop_back();
  return effects;
}

std::vector<Effect> SessionImp::redo() {
  if (future.empty())
    throw Refusal(RefusalKind::nothingToRedo, "", "there is nothing to redo");
  StepPointer step = asSaved(future.back());
  std::vector<Effect> effects =
      effectsBetween(current->now, step->now, {}, "done again");
  past.push_back(current);
  current = std::move(step);
  future.pop_back();
  return effects;
}

std::vector<Effect> SessionImp::revert() {
  Saved found = read();
  const bool isStart = start != nullptr && !found.file.exists;
  std::vector<Effect> effects =
      take(isStart ? *start : *found.step,
           isStart ? "it started so" : "it is saved so", true,
           Counts::textsAndOrigins);
  adopt(std::move(found));
  return effects;
}

std::vector<Effect> SessionImp::reset(std::vector<std::string> settings) {
  Step next = startStep();
  restoreIdentity(next);
  if (settings.empty()) {
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
  return take(std::move(next), byDefault, true, Counts::textsAndOrigins);
}

std::vector<Effect> SessionImp::copyFrom(const Step &other) {
  Step next = startStep();
  const std::vector<std::string> left = takeCopy(next, other);
  std::vector<Effect> effects = take(std::move(next), byCopying);
  for (const std::string &setting : left)
    effects.push_back(notCopied(setting));
  return effects;
}

void SessionImp::startAs(const Step &first, const std::string &origin) {
  const bool isUntouched =
      past.empty() && (current == saved || current == start);
  Step step = first;
  noteStart(step, origin);
  step.savings = savings;
  start = std::make_shared<const Step>(std::move(step));
  if (loaded.exists || !isUntouched)
    return;
  current = start;
  future.clear();
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
  return !readFile().isSameAs(loaded);
}

Value SessionImp::deviceField(const SettingRow &row,
                              const std::string &name) const {
  Value value = row.info.id == name ? Value() : fieldNamed(current->now, name);
  if (!value.IsNothing())
    return value;
  Refusal refusal(RefusalKind::unknownSetting, "",
                  fmt::format("'{}' is no setting: the chain has {} device{}",
                              name, current->now.chain.size(),
                              current->now.chain.size() == 1 ? "" : "s"));
  refusal.setting = name;
  throw refusal;
}

} // namespace ZelDebugDialog::model
