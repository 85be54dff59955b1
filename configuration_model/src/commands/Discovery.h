// Which processors of a design can be debugged: asked once a board.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DISCOVERY_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DISCOVERY_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ProcessorInfo.h"

class HHSMHwManager;

namespace ZelDebugDialog::model {

struct DiscoveredProcessors {
  std::vector<std::string> names; ///< every processor, in design order
  std::vector<ProcessorInfoImp> debuggable; ///< in the order of discovery
};

/// Asks the design, under the lock of the library.
DiscoveredProcessors discoverProcessors(HHSMHwManager &design);

} // namespace ZelDebugDialog::model

#endif
