#include "settings/Cables.h"

namespace ZelDebugDialog::model {

const std::vector<CommandCable> &cableCatalogue() {
  static const std::vector<CommandCable> table = [] {
    std::vector<CommandCable> rows = GetCommandTables().cables;
    // No word of a command speaks of it.
    rows.insert(rows.begin(), CommandCable());
    return rows;
  }();
  return table;
}

const CommandCable *findCable(std::uint32_t type) {
  for (const CommandCable &cable : cableCatalogue())
    if (cable.type == type)
      return &cable;
  return nullptr;
}

bool canBeWritten(const CommandCable &cable) {
  return cable.type == Engine::CABLE_NONE || !cable.written.empty();
}

} // namespace ZelDebugDialog::model
