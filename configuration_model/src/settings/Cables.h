// The cables as the engine's catalogue has them, made once a process.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_CABLES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_CABLES_H

#include <cstdint>
#include <vector>

#include "ZelDebugDialog/CommandTables.h"

namespace ZelDebugDialog::model {

/// Every cable by its number, "no cable" first.
const std::vector<CommandCable> &cableCatalogue();

/// Null for a number that is no cable.
const CommandCable *findCable(std::uint32_t type);

/// Whether the writer knows it. Without a cable there is nothing to write.
bool canBeWritten(const CommandCable &cable);

} // namespace ZelDebugDialog::model

#endif
