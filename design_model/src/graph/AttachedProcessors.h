// The processors that hang on a debug module.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_ATTACHEDPROCESSORS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_ATTACHEDPROCESSORS_H

#include <vector>

#include "graph/ConnectionGraph.h"

namespace ZelDebugDialog {

/// Processors wired to the module's initiator and mirrored interfaces at a
/// target or mirrored initiator, in the order of the module's interfaces. Wires
/// run through the hierarchy; bridges and channels end them.
std::vector<Index> findAttachedProcessors(const ConnectionGraph &graph,
                                          Index module);

/// `wired`, and behind them those that are stated, in their own order: to state
/// one that is wired as well gives it a place.
std::vector<Index> joinAttached(std::vector<Index> wired,
                                const std::vector<Index> &stated);

} // namespace ZelDebugDialog

#endif
