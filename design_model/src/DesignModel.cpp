#include "ZelDebugDialog/DesignModel/DesignModel.h"

#include <utility>

#include "graph/AttachedProcessors.h"
#include "graph/DesignContents.h"
#include "graph/PeripheralWalk.h"
#include "graph/ResolveComponent.h"
#include "graph/WiredPorts.h"
#include "kinds/BuiltInKinds.h"
#include "messages/Quote.h"
#include "names/InstanceNames.h"

namespace ZelDebugDialog {

using Severity = DesignDiagnostic::Severity;

namespace {

Index toIndex(DesignModel::InstanceId instance) {
  return instance == DesignModel::top ? noIndex : static_cast<Index>(instance);
}

} // namespace

DesignModel::DesignModel() : contents(std::make_unique<DesignContents>()) {}
DesignModel::DesignModel(DesignModel &&other) noexcept = default;
DesignModel &DesignModel::operator=(DesignModel &&other) noexcept = default;
DesignModel::~DesignModel() = default;

DesignModel::ComponentId DesignModel::AddComponent(DesignComponent component) {
  if (component.role == DesignRole::byTypeName)
    component.role = findBuiltInRole(component.typeName);
  contents->graph.components.push_back(
      resolveComponent(std::move(component), contents->diagnostics));
  return contents->graph.components.size() - 1;
}

std::optional<DesignModel::InstanceId>
DesignModel::AddInstance(const std::string &name, ComponentId component,
                         InstanceId parent, const DesignOrigin &origin) {
  const std::string fault = findNameFault(name);
  if (!fault.empty()) {
    contents->report(Severity::error, origin, origin.line,
                     "instance " + quote(name) + " is left out: " + fault);
    return std::nullopt;
  }
  std::string fullName =
      parent == top ? name : contents->instances[parent].name + "." + name;
  if (contents->isTaken(name, fullName, toIndex(parent))) {
    contents->report(Severity::error, origin, origin.line,
                     "instance " + quote(name) +
                         " is left out: another has that name");
    return std::nullopt;
  }
  return contents->addInstance(name, std::move(fullName),
                               static_cast<Index>(component), toIndex(parent),
                               origin);
}

void DesignModel::AddParameter(InstanceId instance, std::string name,
                               std::string value) {
  contents->instances[instance].parameters.push_back(
      {std::move(name), std::move(value)});
}

bool DesignModel::Connect(const DesignConnection &connection,
                          InstanceId within) {
  std::vector<Index> joined;
  joined.reserve(connection.ends.size());
  for (const DesignEnd &end : connection.ends) {
    const Index port = contents->findEnd(end, connection, toIndex(within));
    if (port != noIndex)
      joined.push_back(port);
  }
  contents->graph.connect(joined, toIndex(within));
  return joined.size() == connection.ends.size();
}

void DesignModel::SetView(InstanceId instance, std::string view) {
  contents->instances[instance].view = std::move(view);
}

bool DesignModel::Attach(InstanceId processor, InstanceId debugModule,
                         const DesignOrigin &origin) {
  const auto nameOf = [&](InstanceId instance) {
    return instance == top
               ? std::string("the design itself")
               : "instance " + quote(contents->instances[instance].name);
  };
  std::string fault;
  const Index core = toIndex(processor);
  const Index module = toIndex(debugModule);
  if (!contents->hasRole(core, DesignRole::processor))
    fault = nameOf(processor) + " is no processor";
  else if (!contents->hasRole(module, DesignRole::debugModule))
    fault = nameOf(debugModule) + " is no debug module";
  if (!fault.empty()) {
    contents->report(Severity::error, origin, origin.line, std::move(fault));
    return false;
  }
  if (contents->state(core, module))
    return true;
  contents->report(Severity::warning, origin, origin.line,
                   "processor " + quote(contents->instances[core].name) +
                       " is stated twice to be on " +
                       quote(contents->instances[module].name) +
                       "; the first counts");
  return false;
}

void DesignModel::AddMissing(const MissingDocument &document) {
  contents->missing.add(document);
}

const std::vector<MissingDocument> &DesignModel::Missing() const {
  return contents->missing.all();
}

void DesignModel::Report(DesignDiagnostic diagnostic) {
  contents->diagnostics.add(std::move(diagnostic));
}

const std::vector<DesignInstance> &DesignModel::Instances() const {
  return contents->instances;
}

const DesignComponent &DesignModel::Component(ComponentId component) const {
  return contents->graph.components[component].data;
}

std::vector<DesignWire> DesignModel::Connections() const {
  const ConnectionGraph &graph = contents->graph;
  std::vector<DesignWire> wires;
  wires.reserve(graph.connections.size());
  for (const GraphConnection &connection : graph.connections) {
    DesignWire wire;
    wire.ends.reserve(connection.last - connection.first);
    for (Index at = connection.first; at < connection.last; ++at) {
      const GraphEnd &end = graph.ends[at];
      const GraphPort &port = graph.ports[end.port];
      const Index around =
          end.inside ? port.instance : graph.instances[port.instance].parent;
      wire.within = around == noIndex ? top : around;
      wire.ends.push_back({port.instance, port.interface});
    }
    if (!wire.ends.empty())
      wires.push_back(std::move(wire));
  }
  return wires;
}

std::vector<DesignPort> DesignModel::WiredTo(const DesignPort &port,
                                             std::size_t most) const {
  const ConnectionGraph &graph = contents->graph;
  const Index start = graph.instances[port.instance].firstPort +
                      static_cast<Index>(port.interface);
  std::vector<DesignPort> found;
  for (const Index reached : findWiredPorts(graph, start, most))
    found.push_back(
        {graph.ports[reached].instance, graph.ports[reached].interface});
  return found;
}

std::vector<std::string> DesignModel::DebugModules() const {
  std::vector<std::string> names;
  contents->appendNames(contents->debugModules, names);
  return names;
}

std::vector<std::string> DesignModel::Views() const {
  return {contents->views.begin(), contents->views.end()};
}

const std::vector<DesignDiagnostic> &DesignModel::Diagnostics() const {
  return contents->diagnostics.all();
}

void DesignModel::getProcessorInstances(std::vector<std::string> &names,
                                        bool /*flag*/) {
  contents->appendNames(contents->processors, names);
}

void DesignModel::getIpInstances(std::vector<std::string> &names,
                                 HwIpType kind) {
  if (kind == HW_IP_DEBUG)
    contents->appendNames(contents->debugModules, names);
}

void DesignModel::getIpInstances(std::vector<std::string> &names,
                                 const std::string &typeName) {
  const auto found = contents->byTypeName.find(typeName);
  if (found != contents->byTypeName.end())
    contents->appendNames(found->second, names);
}

std::string DesignModel::getIpName(const std::string &instance) {
  const Index found = contents->find(instance);
  return found == noIndex ? "" : contents->instances[found].typeName;
}

void DesignModel::getHduConnectedProcessorList(std::vector<std::string> &names,
                                               const std::string &instance) {
  const Index module = contents->find(instance);
  if (!contents->hasRole(module, DesignRole::debugModule))
    return;
  const auto stated = contents->stated.find(module);
  std::vector<Index> attached = findAttachedProcessors(contents->graph, module);
  if (stated != contents->stated.end())
    attached = joinAttached(std::move(attached), stated->second);
  contents->appendNames(attached, names);
}

void DesignModel::getPeripherals(std::vector<std::string> &names,
                                 const std::string &processor) {
  const Index found = contents->find(processor);
  if (contents->hasRole(found, DesignRole::processor))
    contents->appendNames(findPeripherals(contents->graph, found), names);
}

std::string DesignModel::getParameterValue(const std::string &instance,
                                           const std::string &parameter) {
  const Index found = contents->find(instance);
  if (found == noIndex)
    return "";
  for (const DesignParameter &candidate : contents->instances[found].parameters)
    if (candidate.name == parameter)
      return candidate.value;
  return "";
}

} // namespace ZelDebugDialog
