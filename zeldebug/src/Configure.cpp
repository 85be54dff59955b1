#include "Configure.h"

#include <algorithm>

#include <fmt/format.h>

#include "CableKeyword.h"
#include "LossRules.h"
#include "Refusal.h"
#include "TracedCommand.h"
#include "output/Failure.h"

namespace zeldebug {

namespace {

/// The settings of --from: those that are not as they would be without it.
void noteSettingsOfCommand(SettingTarget &target) {
  const Configuration now = configurationOf(*target.session.state);
  const std::vector<Setting> defaults =
      settingsOf(defaultsBeside(now, target.designed));
  std::size_t position = 0;
  for (const Setting &setting : settingsOf(now))
    if (setting.value != defaults[position++].value)
      target.given.insert(setting.name);
}

bool isGiven(const std::set<std::string> &given, const std::string &field) {
  const bool ofChain = field.compare(0, 5, "chain") == 0;
  return given.count(field) != 0 || (ofChain && given.count("chain") != 0);
}

bool isDefault(const Configured &configured, const Loss &loss) {
  const std::vector<Setting> defaults =
      settingsOf(defaultsBeside(configured.wanted, configured.designed));
  const auto found = std::find_if(
      defaults.begin(), defaults.end(),
      [&loss](const Setting &setting) { return setting.name == loss.field; });
  return found != defaults.end() && found->value == loss.value;
}

/// Whether the command that was saved spells the setting out.
bool isSpelledOut(const Configured &configured, const Loss &loss) {
  return configured.spelled.count(loss.field) != 0 &&
         settingNamed(configured.loaded, loss.field).value == loss.value &&
         findLossRule(loss.field, configured.loaded) == nullptr;
}

/// The settings that a command has a value for.
std::set<std::string>
settingsSpelledOut(const ZelDebugDialog::CommandTrace &trace) {
  std::set<std::string> settings;
  for (const ZelDebugDialog::CommandWord &word : trace.words)
    if (word.role == ZelDebugDialog::WordRole::value && !word.fields.empty())
      settings.insert(word.fields.front());
  return settings;
}

} // namespace

void applyCommand(SettingTarget &target, const SettingOptions &settings) {
  if (settings.from() == nullptr)
    return;
  const std::string &command = *settings.from();
  const std::string &processor = target.designed.instanceName;
  const Reading reading = target.session.selectFrom(processor, command);
  if (!reading.accepted())
    throw Failure(
        ExitStatus::refused,
        fmt::format("--from: the command is refused: {}",
                    refusalOf(reading, command, target.session.state->hwManager,
                              processor)));
  noteSettingsOfCommand(target);
}

bool Configured::changed() const {
  return !saved.file.exists || saved.file.line == 0 || !saved.isWhole() ||
         !differencesBetween(loaded, wanted).empty();
}

Configured configure(Session &session, const std::string &processor,
                     const SettingOptions &settings,
                     const std::vector<SettingAction> &actions, bool force) {
  Configured configured;
  configured.designed = session.recordOf(processor);
  configured.saved = selectSaved(session, processor);
  if (!configured.saved.isWhole()) {
    if (!force)
      throw Failure(
          ExitStatus::unreadable,
          configured.saved.problem() +
              "; it stays as it is (--force starts from the defaults)");
    session.startFromDefaults();
  }
  configured.loaded = configurationOf(*session.state);
  if (configured.saved.isWhole())
    configured.spelled = settingsSpelledOut(traceOf(
        configured.saved.file.text, processor, session.state->hwManager));
  SettingTarget target{session, configured.designed, {}};
  applyCommand(target, settings);
  for (const SettingAction &apply : actions)
    apply(target);
  configured.given = target.given;
  configured.wanted = configurationOf(*session.state);
  if (!configured.changed()) {
    configured.command = configured.loaded.record.connectCommand;
    return configured;
  }
  if (session.engine.GenerateCmdString(configured.command) != 0)
    throw Failure(ExitStatus::refused,
                  fmt::format("no command can be written: {}",
                              reasonOf({1, session.message()})));
  return configured;
}

std::string doubtOf(const Configured &configured) {
  const ZelDebugDialog::CableOption &cable = configured.wanted.cable;
  const bool isWritten =
      configured.given.count("cable.frequency") != 0 && cable.esn.empty();
  if (!isWritten || acceptsFrequency(cable.cableType, cable.frequency))
    return "";
  return fmt::format(
      "cable.frequency {}: '{}' has only {}, and it is read unseen [frequency]",
      cable.frequency, shownCable(cable.cableType),
      fmt::join(acceptedFrequencies(cable.cableType), ", "));
}

Verdict judge(const Configured &configured, const std::vector<Loss> &losses) {
  Verdict verdict;
  for (const Loss &loss : losses) {
    const bool given = isGiven(configured.given, loss.field);
    if (!loss.blocking && !given && !isSpelledOut(configured, loss) &&
        isDefault(configured, loss))
      continue;
    const bool displaced = !given && !loss.displacedBy.empty() &&
                           configured.given.count(loss.displacedBy) != 0;
    if (displaced)
      verdict.dropped.push_back(loss);
    else
      verdict.lost.push_back(loss);
  }
  return verdict;
}

} // namespace zeldebug
