// Where the settings of a command come from.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_ORIGINS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_ORIGINS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/ConfigurationModel/CommandSettings.h"
#include "settings/SettingTable.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// Of what says which processor it is. Selecting it takes the name, the number
/// and a PowerPC's floating-point unit from the design, whatever a command says
/// of them.
/// @param byCommand  the place in the command that says it; may be empty
std::string originOfIdentity(const SettingRow &row,
                             const ProcessorInfoImp &selected,
                             const std::string &byCommand);

/// Fills in the settings of a command.
/// @param trace   of its words
/// @param design  whether it was read for a processor of a design
void appendSettings(CommandSettings &read, const Snapshot &snapshot,
                    const CommandTrace &trace, bool design);

} // namespace ZelDebugDialog::model

#endif
