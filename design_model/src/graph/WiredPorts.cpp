#include "graph/WiredPorts.h"

#include <unordered_set>

#include "graph/WireSteps.h"

namespace ZelDebugDialog {

std::vector<Index> findWiredPorts(const ConnectionGraph &graph, Index port,
                                  std::size_t most) {
  WireSteps steps(graph);
  std::vector<Index> reached;
  std::unordered_set<Index> seen{port};
  std::vector<FarEnd> pending;
  const auto push = [&](Index from, bool inside) {
    std::vector<FarEnd> found;
    steps.from(from, inside, found);
    pending.insert(pending.end(), found.rbegin(), found.rend());
  };
  push(port, false);
  while (!pending.empty() && reached.size() < most) {
    const FarEnd end = pending.back();
    pending.pop_back();
    if (end.leaves) {
      push(end.port, false);
      continue;
    }
    const GraphPort &arrived = graph.ports[end.port];
    if (!seen.insert(end.port).second)
      continue;
    const bool leadsInside =
        graph.canEnter(arrived.instance) && arrived.firstEnd[1] != noIndex;
    if (leadsInside)
      push(end.port, true);
    else
      reached.push_back(end.port);
  }
  return reached;
}

} // namespace ZelDebugDialog
