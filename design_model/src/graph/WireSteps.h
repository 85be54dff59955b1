// One step along the wires: from a side of a port to all that is connected
// there.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_WIRESTEPS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_WIRESTEPS_H

#include <unordered_map>
#include <vector>

#include "graph/ConnectionGraph.h"

namespace ZelDebugDialog {

/// Where a step along a wire ends.
struct FarEnd {
  Index port = 0;
  /// The port belongs to the instance around the wire: the way goes on outside
  /// it. Otherwise the way has come to the port from outside.
  bool leaves = false;
};

/// The steps of one walk. A connection is crossed once, however many ways lead
/// to it, so that a walk takes time in proportion to what it crosses.
class WireSteps {
public:
  explicit WireSteps(const ConnectionGraph &walked) : graph(walked) {}

  /// Appends what the port's side leads to, in the order of the connections and
  /// of their ends.
  void from(Index port, bool inside, std::vector<FarEnd> &farEnds);

private:
  void across(Index start, std::vector<FarEnd> &farEnds);
  void append(Index end, std::vector<FarEnd> &farEnds) const;

  const ConnectionGraph &graph;
  /// The end from which a connection was crossed first; `noIndex` when it has
  /// been crossed from two, which is when all its ends have been met.
  std::unordered_map<Index, Index> crossedFrom;
};

} // namespace ZelDebugDialog

#endif
