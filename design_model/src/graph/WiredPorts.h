// What an interface is wired to, through the hierarchy.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_WIREDPORTS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_WIREDPORTS_H

#include <cstddef>
#include <vector>

#include "graph/ConnectionGraph.h"

namespace ZelDebugDialog {

/// The ports that one is wired to from outside, over no bridge or channel:
/// those of leaves, and those of hierarchies that nothing inside is wired to.
/// At most `most`, in the order of connections and ends.
std::vector<Index> findWiredPorts(const ConnectionGraph &graph, Index port,
                                  std::size_t most);

} // namespace ZelDebugDialog

#endif
