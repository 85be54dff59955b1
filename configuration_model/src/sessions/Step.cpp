#include "sessions/Step.h"

#include "settings/SettingTable.h"

namespace ZelDebugDialog::model {

namespace {

/// A default that comes back as another value is missed by nobody, unless it
/// was asked for just now; nor is what a later change has displaced.
bool isBlocking(const RawLoss &loss, const Step &step,
                const Snapshot &defaults) {
  if (loss.isRefusal)
    return true;
  const SettingRow *const row = findRow(loss.setting);
  if (row == nullptr || row->isIdentity)
    return true;
  if (step.asked.count(loss.setting) != 0)
    return true;
  const bool isDefault = loss.value == valueIn(defaults, *row);
  return !isDefault && step.displaced.count(loss.setting) == 0;
}

} // namespace

bool Step::differsFrom(const Step &other) const {
  return drafts != other.drafts || commandDraft != other.commandDraft ||
         editedCommand != other.editedCommand ||
         now.record.connectCommand != other.now.record.connectCommand ||
         !settingsThatDiffer(now, other.now).empty();
}

std::vector<Loss> lossesOf(const Step &step, const Snapshot &defaults) {
  std::vector<Loss> losses;
  for (const RawLoss &raw : step.analysis.losses)
    losses.push_back({raw.setting, raw.value, raw.readBack, raw.reason,
                      raw.code, raw.code, raw.displacedBy,
                      isBlocking(raw, step, defaults)});
  return losses;
}

void noteDisplaced(const Step &before, Step &after) {
  std::set<std::string> displaced;
  for (const RawLoss &loss : after.analysis.losses) {
    const SettingRow *const row = findRow(loss.setting);
    if (row == nullptr || after.asked.count(loss.setting) != 0)
      continue;
    const bool wasDisplaced = after.displaced.count(loss.setting) != 0;
    const bool cameBack = before.analysis.command &&
                          before.analysis.findLoss(loss.setting) == nullptr;
    const bool isUnchanged =
        valueIn(before.now, *row) == valueIn(after.now, *row);
    if (wasDisplaced || (cameBack && isUnchanged))
      displaced.insert(loss.setting);
  }
  after.displaced = std::move(displaced);
}

} // namespace ZelDebugDialog::model
