// Who is wired to whom: the interfaces of all instances, and the connections
// between them, level by level of the hierarchy.
//
// A port is one interface of one instance. A connection lies inside one
// hierarchical instance (or the design itself) and joins ports of the
// instances there ("outside" ends, seen from those instances) with ports of
// the enclosing instance ("inside" ends, seen from that one).
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_CONNECTIONGRAPH_H
#define ZELDEBUGDIALOG_DESIGNMODEL_CONNECTIONGRAPH_H

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

using Index = std::uint32_t;
constexpr Index noIndex = static_cast<Index>(-1);

/// A component with the names in it resolved.
struct GraphComponent {
  DesignComponent data;
  std::unordered_map<std::string, Index> interfaceByName;
  /// For each interface those that it is bridged to.
  std::vector<std::vector<Index>> bridges;
  std::vector<std::vector<Index>> channels;
  /// For each interface the channels that it is in.
  std::vector<std::vector<Index>> channelsOf;
};

struct GraphInstance {
  Index component = 0;
  Index parent = noIndex;
  Index firstPort = 0;
  bool hasInside = false; ///< There are instances or connections in it.
};

/// An end of a connection; the ends on one side of a port form a list.
struct GraphEnd {
  Index port = 0;
  Index connection = 0;
  bool inside = false;
  Index next = noIndex;
};

struct GraphPort {
  Index instance = 0;
  Index interface = 0;
  std::array<Index, 2> firstEnd = {noIndex, noIndex}; ///< Outside, inside.
  std::array<Index, 2> lastEnd = {noIndex, noIndex};
};

/// The ends [first, last) of a connection.
struct GraphConnection {
  Index first = 0;
  Index last = 0;
};

class ConnectionGraph {
public:
  std::vector<GraphComponent> components;
  std::vector<GraphInstance> instances;
  std::vector<GraphPort> ports;
  std::vector<GraphEnd> ends;
  std::vector<GraphConnection> connections;

  /// The new instance's index. Inside `parent`, or `noIndex` for the design.
  Index addInstance(Index component, Index parent);
  /// The port, or `noIndex` if the instance has no such interface.
  Index findPort(Index instance, const std::string &interface) const;
  /// Joins the ports; those of `within` with their inside.
  void connect(const std::vector<Index> &joined, Index within);

  const GraphComponent &componentOf(Index instance) const {
    return components[instances[instance].component];
  }
  DesignRole roleOf(Index instance) const {
    return componentOf(instance).data.role;
  }
  const DesignInterface &interfaceOf(const GraphPort &port) const {
    return componentOf(port.instance).data.interfaces[port.interface];
  }
  /// A processor is a leaf for every walk, whatever is in it.
  bool canEnter(Index instance) const {
    return instances[instance].hasInside &&
           roleOf(instance) != DesignRole::processor;
  }
};

} // namespace ZelDebugDialog

#endif
