#include "graph/ConnectionGraph.h"

#include "names/Room.h"

namespace ZelDebugDialog {

Index ConnectionGraph::addInstance(Index component, Index parent) {
  const auto instance = static_cast<Index>(instances.size());
  const auto firstPort = static_cast<Index>(ports.size());
  const std::size_t interfaces = components[component].data.interfaces.size();
  makeRoom(ports, interfaces);
  makeRoom(instances, 1);
  for (Index interface = 0; interface < interfaces; ++interface) {
    GraphPort port;
    port.instance = instance;
    port.interface = interface;
    ports.push_back(port);
  }
  if (parent != noIndex)
    instances[parent].hasInside = true;
  instances.push_back({component, parent, firstPort, false});
  return instance;
}

Index ConnectionGraph::findPort(Index instance,
                                const std::string &interface) const {
  const GraphComponent &component = componentOf(instance);
  const auto found = component.interfaceByName.find(interface);
  if (found == component.interfaceByName.end())
    return noIndex;
  return instances[instance].firstPort + found->second;
}

void ConnectionGraph::connect(const std::vector<Index> &joined, Index within) {
  const auto connection = static_cast<Index>(connections.size());
  const auto first = static_cast<Index>(ends.size());
  makeRoom(ends, joined.size());
  makeRoom(connections, 1);
  for (const Index port : joined) {
    const bool inside = ports[port].instance == within;
    if (inside)
      instances[within].hasInside = true;
    const auto end = static_cast<Index>(ends.size());
    ends.push_back({port, connection, inside, noIndex});
    Index &last = ports[port].lastEnd.at(inside ? 1 : 0);
    if (last == noIndex)
      ports[port].firstEnd.at(inside ? 1 : 0) = end;
    else
      ends[last].next = end;
    last = end;
  }
  connections.push_back({first, static_cast<Index>(ends.size())});
}

} // namespace ZelDebugDialog
