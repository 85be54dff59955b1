#include "graph/WireSteps.h"

namespace ZelDebugDialog {

void WireSteps::from(Index port, bool inside, std::vector<FarEnd> &farEnds) {
  for (Index end = graph.ports[port].firstEnd.at(inside ? 1 : 0);
       end != noIndex; end = graph.ends[end].next)
    across(end, farEnds);
}

void WireSteps::across(Index start, std::vector<FarEnd> &farEnds) {
  const Index connection = graph.ends[start].connection;
  const auto [crossed, isNew] = crossedFrom.emplace(connection, start);
  if (isNew) {
    const GraphConnection &wire = graph.connections[connection];
    for (Index end = wire.first; end < wire.last; ++end)
      if (end != start)
        append(end, farEnds);
    return;
  }
  if (crossed->second == noIndex || crossed->second == start)
    return;
  append(crossed->second, farEnds);
  crossed->second = noIndex;
}

void WireSteps::append(Index end, std::vector<FarEnd> &farEnds) const {
  farEnds.push_back({graph.ends[end].port, graph.ends[end].inside});
}

} // namespace ZelDebugDialog
