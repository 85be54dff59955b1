#include "graph/AttachedProcessors.h"

#include <algorithm>
#include <unordered_set>

#include "graph/WireSteps.h"

namespace ZelDebugDialog {
namespace {

bool attaches(InterfaceMode mode) {
  return mode == InterfaceMode::initiator ||
         mode == InterfaceMode::mirroredInitiator ||
         mode == InterfaceMode::mirroredTarget;
}

bool isAttached(InterfaceMode mode) {
  return mode == InterfaceMode::target ||
         mode == InterfaceMode::mirroredInitiator;
}

class AttachmentWalk {
public:
  explicit AttachmentWalk(const ConnectionGraph &walked)
      : graph(walked), steps(walked) {}

  void from(Index port) {
    push(port, false);
    while (!pending.empty()) {
      const FarEnd end = pending.back();
      pending.pop_back();
      if (end.leaves)
        push(end.port, false);
      else
        arrive(end.port);
    }
  }

  std::vector<Index> processors;

private:
  /// The first of what the side leads to comes off the stack first.
  void push(Index port, bool inside) {
    found.clear();
    steps.from(port, inside, found);
    pending.insert(pending.end(), found.rbegin(), found.rend());
  }

  void arrive(Index port) {
    const GraphPort &reached = graph.ports[port];
    const InterfaceMode mode = graph.interfaceOf(reached).mode;
    if (mode == InterfaceMode::monitor)
      return;
    if (graph.canEnter(reached.instance))
      push(port, true);
    if (graph.roleOf(reached.instance) == DesignRole::processor &&
        isAttached(mode) && seen.insert(reached.instance).second)
      processors.push_back(reached.instance);
  }

  const ConnectionGraph &graph;
  WireSteps steps;
  std::vector<FarEnd> pending;
  std::vector<FarEnd> found;
  std::unordered_set<Index> seen;
};

} // namespace

std::vector<Index> findAttachedProcessors(const ConnectionGraph &graph,
                                          Index module) {
  AttachmentWalk walk(graph);
  const auto &interfaces = graph.componentOf(module).data.interfaces;
  for (Index interface = 0; interface < interfaces.size(); ++interface)
    if (attaches(interfaces[interface].mode))
      walk.from(graph.instances[module].firstPort + interface);
  return walk.processors;
}

std::vector<Index> joinAttached(std::vector<Index> wired,
                                const std::vector<Index> &stated) {
  const std::unordered_set<Index> placed(stated.begin(), stated.end());
  wired.erase(std::remove_if(wired.begin(), wired.end(),
                             [&placed](Index processor) {
                               return placed.count(processor) != 0;
                             }),
              wired.end());
  wired.insert(wired.end(), stated.begin(), stated.end());
  return wired;
}

} // namespace ZelDebugDialog
