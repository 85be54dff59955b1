#include "settings/Snapshot.h"

#include <algorithm>
#include <memory>

#include "settings/SettingTable.h"

namespace ZelDebugDialog::model {

namespace {

/// No setting to compare: it follows from the others.
bool isCommand(const SettingRow &row) {
  static const std::size_t command = FindField("connectCommand");
  return row.field == command;
}

bool isField(const SettingRow &row) {
  return row.get == nullptr && !isCommand(row);
}

/// Calls `visit` with the rows of both, device fields apart.
template <class Visit> void forEachFixedField(const Visit &visit) {
  for (const SettingRow &row : settingRows())
    if (isField(row) && !row.isOfDevice())
      visit(row);
}

Value deviceIn(const Snapshot &snapshot, std::size_t position) {
  if (position >= snapshot.chain.size())
    return {};
  return Value::Chain{deviceValue(snapshot.chain[position])};
}

/// The fields of the devices that both chains have, then the devices that one
/// of them has more.
void appendDevicesThatDiffer(std::vector<FieldDifference> &differences,
                             const Snapshot &before, const Snapshot &after) {
  const std::size_t most = std::max(before.chain.size(), after.chain.size());
  for (std::size_t i = 0; i < most; ++i) {
    if (i >= before.chain.size() || i >= after.chain.size()) {
      differences.push_back(
          {deviceName(i), deviceIn(before, i), deviceIn(after, i)});
      continue;
    }
    for (const SettingRow &row : settingRows()) {
      if (!row.isOfDevice())
        continue;
      Value left = valueIn(before, row, i);
      Value right = valueIn(after, row, i);
      if (left != right)
        differences.push_back({deviceName(i) + "." + row.deviceField(),
                               std::move(left), std::move(right)});
    }
  }
}

} // namespace

Snapshot snapshotOf(const EngineImp &state) {
  Snapshot snapshot;
  snapshot.record = *state.currentProcessor;
  snapshot.cable = *state.cableOption;
  snapshot.cpuJtag = state.cpuJtag;
  snapshot.chain.reserve(state.jtagChain.size());
  for (const JtagOption *device : state.jtagChain)
    snapshot.chain.push_back(*device);
  return snapshot;
}

void restore(EngineImp &state, const Snapshot &snapshot) {
  *state.currentProcessor = snapshot.record;
  *state.cableOption = snapshot.cable;
  state.cpuJtag = snapshot.cpuJtag;
  ReleaseChainRecords(state.jtagChain);
  state.jtagChain.reserve(snapshot.chain.size());
  for (const JtagOption &device : snapshot.chain)
    state.jtagChain.push_back(std::make_unique<JtagOption>(device).release());
}

Snapshot defaultsBeside(const Snapshot &snapshot,
                        const ProcessorInfoImp &identity) {
  Snapshot defaults;
  const std::uint32_t fpu = identity.fpuType;
  defaults.record = identity;
  defaults.record.ProcessorInfoImpInit();
  defaults.record.fpuType = fpu;
  defaults.cable.CableOptionInit(snapshot.cable.cableType);
  defaults.cable.cableType = Engine::CABLE_NONE;
  return defaults;
}

std::vector<NamedValue> fieldsOf(const Snapshot &snapshot) {
  std::vector<NamedValue> fields;
  forEachFixedField([&](const SettingRow &row) {
    fields.push_back({row.info.id, valueIn(snapshot, row)});
  });
  for (std::size_t i = 0; i < snapshot.chain.size(); ++i)
    for (const SettingRow &row : settingRows())
      if (row.isOfDevice())
        fields.push_back({deviceName(i) + "." + row.deviceField(),
                          valueIn(snapshot, row, i)});
  return fields;
}

Value fieldNamed(const Snapshot &snapshot, const std::string &name) {
  const SettingRow *const row = findRow(name);
  if (row == nullptr)
    return {};
  const std::size_t bracket = name.find('[');
  if (!row->isOfDevice() || bracket == std::string::npos)
    return valueIn(snapshot, *row);
  std::size_t device = 0;
  for (std::size_t i = bracket + 1; i < name.size() && name[i] != ']'; ++i) {
    if (name[i] < '0' || name[i] > '9' || device > snapshot.chain.size())
      return {};
    device = device * 10 + static_cast<std::size_t>(name[i] - '0');
  }
  return valueIn(snapshot, *row, device);
}

std::vector<FieldDifference> fieldsThatDiffer(const Snapshot &before,
                                              const Snapshot &after) {
  std::vector<FieldDifference> differences;
  forEachFixedField([&](const SettingRow &row) {
    Value left = valueIn(before, row);
    Value right = valueIn(after, row);
    if (left != right)
      differences.push_back({row.info.id, std::move(left), std::move(right)});
  });
  appendDevicesThatDiffer(differences, before, after);
  return differences;
}

std::vector<FieldDifference> settingsThatDiffer(const Snapshot &before,
                                                const Snapshot &after) {
  std::vector<FieldDifference> differences;
  for (const SettingRow &row : settingRows()) {
    if (!row.isOfDevice() && !isCommand(row) && !isSameIn(before, after, row))
      differences.push_back(
          {row.info.id, valueIn(before, row), valueIn(after, row)});
  }
  return differences;
}

} // namespace ZelDebugDialog::model
