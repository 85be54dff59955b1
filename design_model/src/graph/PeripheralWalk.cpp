#include "graph/PeripheralWalk.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "graph/WireSteps.h"

namespace ZelDebugDialog {
namespace {

bool canAnswer(InterfaceMode mode) {
  return mode == InterfaceMode::target ||
         mode == InterfaceMode::mirroredInitiator ||
         mode == InterfaceMode::mirroredTarget;
}

/// A depth-first walk with its own stack, so that no design is too deep for it.
class PeripheralWalk {
public:
  explicit PeripheralWalk(const ConnectionGraph &walked)
      : graph(walked), steps(walked) {}

  void from(Index port) {
    pending.push_back({Step::Kind::leave, port});
    while (!pending.empty()) {
      const Step step = pending.back();
      pending.pop_back();
      take(step);
    }
  }

  std::vector<Index> peripherals();

private:
  struct Step {
    enum class Kind {
      leave,     ///< Out of an instance by one of its ports.
      leaveFrom, ///< The same, having come from inside the instance.
      arrive,    ///< At a port from outside.
      finish,    ///< All behind the port entered last has been walked.
    } kind;
    Index port;
  };

  struct Answer {
    Index port;
    bool isHierarchy; ///< Holds only if the inside doesn't answer instead.
  };

  void take(const Step &step);
  void leave(Index port);
  void arrive(Index port);
  void enter(Index port);
  void passOn(const GraphPort &reached, Index port);
  void crossChannel(const GraphPort &reached, Index port, Index channel);
  void pushWires(Index port, bool inside);
  void leadSomewhere();
  bool isPassage(const GraphPort &reached) const;
  void settleHierarchies();
  void markAround(Index instance);

  const ConnectionGraph &graph;
  WireSteps steps;
  std::vector<Step> pending;
  std::vector<FarEnd> found;
  std::unordered_set<Index> arrived;
  std::unordered_set<Index> left;
  /// For a channel of an instance the port by which it was entered, `noIndex`
  /// once that one has been left too.
  std::unordered_map<std::uint64_t, Index> channelEntries;
  /// The ports by which the way went into hierarchies, outermost first.
  std::vector<Index> open;
  /// Ports whose inside led out again.
  std::unordered_set<Index> led;
  std::vector<Answer> answers;
  /// Instances with something inside that answers.
  std::unordered_set<Index> answeredInside;
};

void PeripheralWalk::take(const Step &step) {
  switch (step.kind) {
  case Step::Kind::leaveFrom:
    leadSomewhere();
    return leave(step.port);
  case Step::Kind::leave:
    return leave(step.port);
  case Step::Kind::arrive:
    return arrive(step.port);
  case Step::Kind::finish:
    open.pop_back();
    return;
  }
}

void PeripheralWalk::leave(Index port) {
  if (left.insert(port).second)
    pushWires(port, false);
  else
    leadSomewhere();
}

void PeripheralWalk::arrive(Index port) {
  const GraphPort &reached = graph.ports[port];
  const DesignInterface &interface = graph.interfaceOf(reached);
  if (interface.mode == InterfaceMode::monitor)
    return;
  const bool isPassage = this->isPassage(reached);
  const bool canEnter = graph.canEnter(reached.instance);
  if (!arrived.insert(port).second) {
    if (isPassage || canEnter)
      leadSomewhere();
    return;
  }
  if (canAnswer(interface.mode) && (!isPassage || interface.answers) &&
      graph.roleOf(reached.instance) != DesignRole::processor)
    answers.push_back({port, canEnter});
  passOn(reached, port);
  if (canEnter)
    enter(port);
}

/// Is taken before what `passOn` has pushed, the stack being what it is.
void PeripheralWalk::enter(Index port) {
  open.push_back(port);
  pending.push_back({Step::Kind::finish, port});
  pushWires(port, true);
}

void PeripheralWalk::passOn(const GraphPort &reached, Index port) {
  const GraphComponent &component = graph.componentOf(reached.instance);
  const std::size_t base = pending.size();
  const Index firstPort = graph.instances[reached.instance].firstPort;
  for (const Index bridged : component.bridges[reached.interface])
    pending.push_back({Step::Kind::leave, firstPort + bridged});
  for (const Index channel : component.channelsOf[reached.interface])
    crossChannel(reached, port, channel);
  std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(base),
               pending.end());
}

void PeripheralWalk::crossChannel(const GraphPort &reached, Index port,
                                  Index channel) {
  const std::uint64_t key = std::uint64_t{reached.instance} << 32 | channel;
  const auto [entry, isNew] = channelEntries.emplace(key, port);
  if (isNew) {
    const Index firstPort = graph.instances[reached.instance].firstPort;
    for (const Index other :
         graph.componentOf(reached.instance).channels[channel])
      if (other != reached.interface)
        pending.push_back({Step::Kind::leave, firstPort + other});
    return;
  }
  if (entry->second == noIndex)
    return;
  pending.push_back({Step::Kind::leave, entry->second});
  entry->second = noIndex;
}

/// The first of what the side of the port leads to comes off the stack first.
void PeripheralWalk::pushWires(Index port, bool inside) {
  found.clear();
  steps.from(port, inside, found);
  for (auto end = found.rbegin(); end != found.rend(); ++end)
    pending.push_back(
        {end->leaves ? Step::Kind::leaveFrom : Step::Kind::arrive, end->port});
}

/// What was entered on the way here goes on elsewhere, or joins a way that has
/// been walked. Those further out than a marked one were marked with it.
void PeripheralWalk::leadSomewhere() {
  for (auto port = open.rbegin(); port != open.rend(); ++port)
    if (!led.insert(*port).second)
      return;
}

bool PeripheralWalk::isPassage(const GraphPort &reached) const {
  const GraphComponent &component = graph.componentOf(reached.instance);
  return !component.bridges[reached.interface].empty() ||
         !component.channelsOf[reached.interface].empty();
}

void PeripheralWalk::markAround(Index instance) {
  for (Index around = graph.instances[instance].parent;
       around != noIndex && answeredInside.insert(around).second;
       around = graph.instances[around].parent) {
  }
}

/// Marks what is around each that answers or might. One that does not, because
/// something inside it does, stands inside nothing that this hasn't marked too.
void PeripheralWalk::settleHierarchies() {
  for (const Answer &answer : answers)
    if (!answer.isHierarchy || led.count(answer.port) == 0)
      markAround(graph.ports[answer.port].instance);
}

std::vector<Index> PeripheralWalk::peripherals() {
  settleHierarchies();
  std::vector<Index> instances;
  std::unordered_set<Index> listed;
  for (const Answer &answer : answers) {
    const Index instance = graph.ports[answer.port].instance;
    if (answer.isHierarchy &&
        (led.count(answer.port) != 0 || answeredInside.count(instance) != 0))
      continue;
    if (listed.insert(instance).second)
      instances.push_back(instance);
  }
  return instances;
}

} // namespace

std::vector<Index> findPeripherals(const ConnectionGraph &graph,
                                   Index processor) {
  PeripheralWalk walk(graph);
  const auto &interfaces = graph.componentOf(processor).data.interfaces;
  for (Index interface = 0; interface < interfaces.size(); ++interface)
    if (interfaces[interface].mode == InterfaceMode::initiator)
      walk.from(graph.instances[processor].firstPort + interface);
  return walk.peripherals();
}

} // namespace ZelDebugDialog
