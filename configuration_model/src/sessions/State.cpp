// Everything that is known of a configuration, put together.
#include <algorithm>

#include <fmt/format.h>

#include "commands/Origins.h"
#include "commands/TracedCommand.h"
#include "losses/Applicability.h"
#include "sessions/SessionImp.h"
#include "settings/Values.h"

namespace ZelDebugDialog::model {

namespace {

/// The settings that stand in a word, by the names under which they are set.
std::vector<std::string> settingsIn(const WrittenWord &word) {
  std::vector<std::string> settings;
  for (const std::string &field : word.fields) {
    const bool isOfConnection =
        field == "connectionType" || field == "stubType";
    const std::string setting = isOfConnection ? "connection" : field;
    if (std::find(settings.begin(), settings.end(), setting) == settings.end())
      settings.push_back(setting);
  }
  return settings;
}

/// A word in which several settings stand is there for each of them.
std::vector<StateWord> wordsOf(const Analysis &analysis) {
  std::vector<StateWord> words;
  for (const WrittenWord &word : analysis.writing.words) {
    std::vector<std::string> settings = settingsIn(word);
    if (settings.empty())
      settings.emplace_back();
    for (const std::string &setting : settings)
      words.push_back(
          {word.offset, word.length, shownRole(word.role), setting});
  }
  return words;
}

/// The word that a setting has become in the command that would be written;
/// null for one that is not in it.
const WrittenWord *findWordOf(const Analysis &analysis,
                              const std::string &field) {
  for (const WrittenWord &word : analysis.writing.words)
    if (std::find(word.fields.begin(), word.fields.end(), field) !=
        word.fields.end())
      return &word;
  return nullptr;
}

/// The place of a warning about what was read, as `Step::origins` has it.
std::string placeOf(const ReadCommand &read,
                    const CommandDiagnostic &diagnostic) {
  return fmt::format("{}:{}", read.origin, diagnostic.offset + 1);
}

/// Takes what was wrong with a word that was read to the word that its setting
/// has become, or behind the command.
/// @return whether the setting still comes from there
bool moveToCommand(const Step &step, CommandDiagnostic &diagnostic) {
  const std::string place = placeOf(step.read, diagnostic);
  bool isStillThere = step.read.isWhole;
  const WrittenWord *word = nullptr;
  for (const auto &[field, origin] : step.origins) {
    isStillThere = isStillThere || origin == place;
    if (origin == place && word == nullptr)
      word = findWordOf(step.analysis, field);
  }
  diagnostic.offset =
      word != nullptr ? word->offset : step.analysis.command->size();
  diagnostic.length = word != nullptr ? word->length : 0;
  return isStillThere;
}

/// The warnings of what was read: a number that was cut is another one now, and
/// nothing is wrong with that.
void appendWarningsOfRead(std::vector<CommandDiagnostic> &found,
                          const Step &step) {
  if (step.read.text.empty() || step.read.text == step.analysis.command)
    return;
  CheckOptions options;
  options.ofFile = step.read.origin != "command";
  for (CommandDiagnostic &diagnostic :
       CheckCommand(step.read.text, options).diagnostics) {
    const bool isTold = std::any_of(found.begin(), found.end(),
                                    [&](const CommandDiagnostic &told) {
                                      return told.code == diagnostic.code &&
                                             told.message == diagnostic.message;
                                    });
    if (diagnostic.severity != CodeSeverity::error && !isTold &&
        moveToCommand(step, diagnostic))
      found.push_back(std::move(diagnostic));
  }
}

std::string originOf(const Step &step, const SettingRow &row,
                     const std::string &id) {
  const std::string place = shownOrigin(step, id);
  if (row.isIdentity)
    return originOfIdentity(row, step.now.record, place);
  return place.empty() ? "default" : place;
}

SettingState settingStateOf(const Step &step, const SettingRow &row,
                            const std::string &id, const Value &value,
                            const Value &defaultValue) {
  SettingState state;
  state.id = id;
  state.value = value;
  state.text = ShowValue(row.info, value);
  state.defaultValue = defaultValue;
  state.origin = originOf(step, row, id);
  return state;
}

std::vector<ChoiceState> choicesOf(const SettingRow &row,
                                   const ProcessorInfoImp &identity) {
  std::vector<ChoiceState> choices;
  for (const Choice &choice : row.info.choices)
    choices.push_back({choice, whyNotAllowed(row, choice, identity)});
  return choices;
}

/// Its fields are as applicable as the chain: it is changed whole.
std::vector<SettingState> deviceStateOf(const Step &step, std::size_t device,
                                        const SettingState &chain,
                                        const ProcessorInfoImp &identity) {
  static const ChainDevice fresh = deviceValue(JtagOption());
  std::vector<SettingState> fields;
  for (const SettingRow *const each : deviceRows()) {
    const SettingRow &row = *each;
    const auto known =
        std::find_if(fresh.begin(), fresh.end(), [&row](const auto &field) {
          return field.first == row.deviceField();
        });
    SettingState state =
        settingStateOf(step, row, deviceName(device) + "." + row.deviceField(),
                       valueIn(step.now, row, device), known->second);
    state.applicable = chain.applicable;
    state.reason = chain.reason;
    state.choices = choicesOf(row, identity);
    fields.push_back(std::move(state));
  }
  return fields;
}

} // namespace

/// A draft is what a person says of this processor. The command that would be
/// written is the engine's, which has one target for several families.
std::vector<CommandDiagnostic>
SessionImp::diagnosticsOf(const Step &step) const {
  CheckOptions options;
  if (step.commandDraft) {
    options.board = &shownBoard;
    options.processor = identity.instanceName;
    return CheckCommand(*step.commandDraft, options).diagnostics;
  }
  options.ofFile = true;
  if (!step.analysis.command)
    return {};
  std::vector<CommandDiagnostic> found =
      CheckCommand(*step.analysis.command, options).diagnostics;
  appendWarningsOfRead(found, step);
  return found;
}

SessionState SessionImp::state() {
  SessionState state;
  const Step &step = *current;
  const Snapshot byDefault = defaults();
  state.processor = identity.instanceName;
  state.file = shownFile;
  const OptionFile onDisk = readFile();
  state.exists = onDisk.exists;
  state.changedOnDisk = !onDisk.isSameAs(loaded);
  state.problem = problem;
  state.dirty = isDirty();
  state.canUndo = !past.empty();
  state.canRedo = !future.empty();
  state.command = step.analysis.command;
  state.commandError = step.analysis.error;
  state.editedCommand = step.editedCommand;
  state.draft = step.commandDraft;
  state.words = wordsOf(step.analysis);
  state.losses = lossesOf(step, byDefault);
  state.differences = differences();
  state.diagnostics = diagnosticsOf(step);
  for (const SettingRow &row : settingRows()) {
    if (row.isOfDevice())
      continue;
    SettingState setting =
        settingStateOf(step, row, row.info.id, valueIn(step.now, row),
                       valueIn(byDefault, row));
    Applicability applicability =
        findApplicability(desk, step.now, byDefault, row, step.analysis);
    setting.applicable = applicability.isApplicable;
    setting.reason = std::move(applicability.reason);
    const auto draft = step.drafts.find(row.info.id);
    if (draft != step.drafts.end()) {
      setting.draft = draft->second.text;
      setting.error = draft->second.error;
    }
    setting.choices = choicesOf(row, identity);
    state.settings.push_back(std::move(setting));
  }
  const auto chain = std::find_if(
      state.settings.begin(), state.settings.end(),
      [](const SettingState &setting) { return setting.id == chainSetting; });
  for (std::size_t i = 0; i < step.now.chain.size(); ++i)
    state.chain.push_back(deviceStateOf(step, i, *chain, identity));
  return state;
}

} // namespace ZelDebugDialog::model
