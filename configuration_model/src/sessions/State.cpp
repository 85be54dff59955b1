// Everything that is known of a configuration, put together.
#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "commands/Origins.h"
#include "losses/Applicability.h"
#include "sessions/SessionImp.h"
#include "settings/Values.h"

namespace ZelDebugDialog::model {

namespace {

struct RoleWord {
  WordRole role;
  const char *word;
};

constexpr std::array<RoleWord, 8> roleWords{{
    {WordRole::head, "head"},
    {WordRole::target, "target"},
    {WordRole::connection, "connection"},
    {WordRole::option, "option"},
    {WordRole::name, "name"},
    {WordRole::value, "value"},
    {WordRole::ignored, "ignored"},
    {WordRole::lost, "lost"},
}};

const char *shownRole(WordRole role) {
  for (const RoleWord &row : roleWords)
    if (row.role == role)
      return row.word;
  return "";
}

std::vector<StateWord> wordsOf(const Analysis &analysis) {
  std::vector<StateWord> words;
  for (const WrittenWord &word : analysis.writing.words) {
    std::string setting = word.fields.empty() ? "" : word.fields.front();
    if (setting == "connectionType" || setting == "stubType")
      setting = "connection";
    words.push_back({word.offset, word.length, shownRole(word.role), setting});
  }
  return words;
}

std::string originOf(const Step &step, const SettingRow &row,
                     const std::string &id) {
  const auto found = step.origins.find(id);
  const std::string place =
      found == step.origins.end() ? std::string() : found->second;
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

std::vector<SettingState> deviceStateOf(const Step &step, std::size_t device) {
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
  return CheckCommand(*step.analysis.command, options).diagnostics;
}

SessionState SessionImp::state() {
  SessionState state;
  const Step &step = *current;
  const Snapshot byDefault = defaults();
  state.processor = identity.instanceName;
  state.file = shownFile;
  const OptionFile onDisk = readOptionFile(file);
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
    for (const Choice &choice : row.info.choices)
      setting.choices.push_back({choice, whyNotAllowed(row, choice, identity)});
    state.settings.push_back(std::move(setting));
  }
  for (std::size_t i = 0; i < step.now.chain.size(); ++i)
    state.chain.push_back(deviceStateOf(step, i));
  return state;
}

} // namespace ZelDebugDialog::model
