#include "sessions/Step.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "settings/SettingTable.h"
#include "text/Front.h"

namespace ZelDebugDialog::model {

namespace {

/// A default that comes back as another value is missed by nobody, unless it
/// was asked for just now; nor is what a change has displaced that did not ask
/// for it.
bool isBlocking(const RawLoss &loss, const Step &step,
                const Snapshot &defaults) {
  if (loss.isRefusal)
    return true;
  const SettingRow &row = *findRow(loss.setting);
  if (row.isIdentity)
    return true;
  if (step.asked.count(loss.setting) != 0)
    return true;
  const bool isDefault = loss.value == valueIn(defaults, row);
  return !isDefault && step.displaced.count(loss.setting) == 0;
}

constexpr const char *changed = "changed";

/// Those of the devices from `first` on.
void eraseDevices(std::map<std::string, std::string> &origins,
                  std::size_t first) {
  for (auto origin = origins.begin(); origin != origins.end();) {
    const bool isDevice = origin->first.compare(0, 6, "chain[") == 0;
    const bool isErased = isDevice && std::strtoull(origin->first.c_str() + 6,
                                                    nullptr, 10) >= first;
    origin = isErased ? origins.erase(origin) : std::next(origin);
  }
}

/// A field of a device that has its old value keeps its origin.
void noteChangedDevices(const Snapshot &before, Step &after) {
  for (std::size_t i = 0; i < after.now.chain.size(); ++i)
    for (const SettingRow *const row : deviceRows())
      if (valueIn(before, *row, i) != valueIn(after.now, *row, i))
        after.origins[deviceName(i) + "." + row->deviceField()] = changed;
  eraseDevices(after.origins, after.now.chain.size());
}

constexpr std::string_view inFile = "file:";
constexpr std::string_view inEarlierFile = "earlier:";

/// Of a setting, or of a device's field.
void copyOrigin(const Step &from, Step &to, const std::string &name) {
  const auto found = from.origins.find(name);
  if (found == from.origins.end())
    to.origins.erase(name);
  else
    to.origins[name] = found->second;
}

/// It is no place in the file as that is now.
void forgetPlace(Step &step, const std::string &name) {
  const auto found = step.origins.find(name);
  if (found != step.origins.end() && startsWith(found->second, inFile))
    found->second.replace(0, inFile.size(), inEarlierFile);
}

bool hasReadableCommand(const Analysis &analysis) {
  return analysis.command &&
         std::none_of(analysis.losses.begin(), analysis.losses.end(),
                      [](const RawLoss &loss) { return loss.isRefusal; });
}

} // namespace

bool Step::differsInTextsFrom(const Step &other) const {
  return drafts != other.drafts || commandDraft != other.commandDraft ||
         editedCommand != other.editedCommand ||
         now.record.connectCommand != other.now.record.connectCommand;
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
  // Of a step without a command that can be read nobody knows what would come
  // back, so what did before stays in the list until there is one again.
  const bool isKnown = hasReadableCommand(after.analysis);
  std::set<std::string> displaced;
  for (const SettingRow &row : settingRows()) {
    const std::string &id = row.info.id;
    if (row.isIdentity || row.isOfDevice() || after.asked.count(id) != 0 ||
        (isKnown && after.analysis.findLoss(id) == nullptr))
      continue;
    const bool wasDisplaced = after.displaced.count(id) != 0;
    const bool cameBack = hasReadableCommand(before.analysis) &&
                          before.analysis.findLoss(id) == nullptr &&
                          valueIn(before.now, row) == valueIn(after.now, row);
    if (wasDisplaced || cameBack)
      displaced.insert(id);
  }
  after.displaced = std::move(displaced);
}

void noteChanged(const Snapshot &before, Step &after) {
  for (const FieldDifference &difference :
       settingsThatDiffer(before, after.now)) {
    after.origins[difference.name] = changed;
    if (difference.name == chainSetting)
      noteChangedDevices(before, after);
  }
}

void noteSavedOrigins(const Step &saved, Step &step) {
  const auto note = [&](const std::string &name, bool isShared) {
    if (isShared)
      copyOrigin(saved, step, name);
    else
      forgetPlace(step, name);
  };
  for (const SettingRow &row : settingRows())
    if (!row.isOfDevice())
      note(row.info.id, isSameIn(saved.now, step.now, row));
  for (std::size_t i = 0; i < step.now.chain.size(); ++i)
    for (const SettingRow *const row : deviceRows())
      note(deviceName(i) + "." + row->deviceField(),
           valueIn(saved.now, *row, i) == valueIn(step.now, *row, i));
}

void noteSavedSince(const Step &saved, Step &step) {
  noteSavedOrigins(saved, step);
  if (step.read.origin != "file" || step.read.text == saved.read.text)
    return;
  step.read.origin = "earlier";
  step.read.isWhole = false;
}

std::string shownOrigin(const Step &step, const std::string &name) {
  const auto found = step.origins.find(name);
  if (found == step.origins.end())
    return "";
  return startsWith(found->second, inEarlierFile) ? changed : found->second;
}

void noteStart(Step &step, const std::string &origin) {
  for (auto &[setting, place] : step.origins)
    place = origin;
  step.read = {};
  step.drafts.clear();
  step.commandDraft.reset();
  step.editedCommand.reset();
}

void forgetOrigin(Step &step, const std::string &setting) {
  step.origins.erase(setting);
  if (setting == chainSetting)
    eraseDevices(step.origins, 0);
}

} // namespace ZelDebugDialog::model
