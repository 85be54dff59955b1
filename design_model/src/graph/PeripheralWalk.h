// What answers to a processor.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_PERIPHERALWALK_H
#define ZELDEBUGDIALOG_DESIGNMODEL_PERIPHERALWALK_H

#include <vector>

#include "graph/ConnectionGraph.h"

namespace ZelDebugDialog {

/// The instances that a walk from the processor's initiators reaches and that
/// answer there, in the order in which they are reached.
std::vector<Index> findPeripherals(const ConnectionGraph &graph,
                                   Index processor);

} // namespace ZelDebugDialog

#endif
