// One whole configuration by value: what an engine holds for its current
// processor, free of the engine.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_SNAPSHOT_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_SNAPSHOT_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/ConfigurationModel/Value.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog::model {

struct Snapshot {
  ProcessorInfoImp record;
  CableOption cable;
  std::uint32_t cpuJtag = 0;
  std::vector<JtagOption> chain;
};

/// What the engine holds for its current processor.
Snapshot snapshotOf(const EngineImp &state);

/// Gives the engine's current processor the whole of a snapshot. The records of
/// the chain that the engine had are released; those it gets are new.
void restore(EngineImp &state, const Snapshot &snapshot);

/// The processor of `identity` with nothing set: no cable and no chain, but
/// what the cable of `snapshot` brings along.
Snapshot defaultsBeside(const Snapshot &snapshot,
                        const ProcessorInfoImp &identity);

/// One field by its full name, such as "debugDevice", "cable.port" or
/// "chain[0].partname".
struct NamedValue {
  std::string name;
  Value value;
};

/// Every field, in the order of the records; the command text is none.
std::vector<NamedValue> fieldsOf(const Snapshot &snapshot);

/// A field by its full name; nothing for a device that is not there and for a
/// name that is none.
Value fieldNamed(const Snapshot &snapshot, const std::string &name);

/// A field that two snapshots do not share. A device that only one of them has
/// stands for itself ("chain[2]"), with nothing on the other side.
struct FieldDifference {
  std::string name;
  Value before;
  Value after;
};

std::vector<FieldDifference> fieldsThatDiffer(const Snapshot &before,
                                              const Snapshot &after);

/// The settings that differ: the chain is one, "chain".
std::vector<FieldDifference> settingsThatDiffer(const Snapshot &before,
                                                const Snapshot &after);

} // namespace ZelDebugDialog::model

#endif
