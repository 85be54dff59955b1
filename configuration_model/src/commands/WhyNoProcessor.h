// Why a name is none of the processors that can be debugged.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WHYNOPROCESSOR_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WHYNOPROCESSOR_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"

namespace ZelDebugDialog::model {

/// notDebuggable for a processor of the design, unknownProcessor with the
/// nearest one for any other name.
Refusal whyNoProcessor(const std::string &name,
                       const std::vector<std::string> &names,
                       const std::vector<UndebuggableProcessor> &undebuggable);

} // namespace ZelDebugDialog::model

#endif
