#include "subcommands/DesignTables.h"

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <fmt/format.h>

#include "documents/Designs.h"
#include "output/Json.h"
#include "output/Table.h"
#include "subcommands/Wiring.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignComponent;
using ZelDebugDialog::DesignInstance;
using ZelDebugDialog::DesignInterface;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignPort;
using ZelDebugDialog::documents::diagnosticsJson;

std::vector<std::string> processorsOf(DesignModel &design) {
  std::vector<std::string> names;
  design.getProcessorInstances(names, false);
  return names;
}

std::vector<std::string> connectedTo(DesignModel &design,
                                     const std::string &module) {
  std::vector<std::string> names;
  design.getHduConnectedProcessorList(names, module);
  return names;
}

std::vector<std::string> modulesOf(DesignModel &design) {
  std::vector<std::string> names;
  design.getIpInstances(names, HW_IP_DEBUG);
  return names;
}

std::vector<std::string> peripheralsOf(DesignModel &design,
                                       const std::string &processor) {
  std::vector<std::string> names;
  design.getPeripherals(names, processor);
  return names;
}

Json farEndsJson(const DesignModel &design, const Wiring &wiring,
                 const FarEnds &ends) {
  Json list = Json::array();
  for (const DesignPort &end : ends.shown)
    list.push_back({{"instance", design.Instances()[end.instance].name},
                    {"interface", wiring.interfaceOf(end).name}});
  return list;
}

/// Every interface, those that nothing is wired to as well.
Json connectionsJson(const DesignModel &design, const Wiring &wiring,
                     std::size_t instance) {
  Json list = Json::array();
  const std::vector<DesignInterface> &interfaces =
      wiring.interfacesOf(instance);
  for (std::size_t at = 0; at < interfaces.size(); ++at) {
    const FarEnds outer = wiring.of(instance, at, Side::outside);
    const FarEnds inner = wiring.of(instance, at, Side::inside);
    list.push_back({{"interface", interfaces[at].name},
                    {"mode", shownMode(interfaces[at].mode)},
                    {"busType", interfaces[at].busType},
                    {"to", farEndsJson(design, wiring, outer)},
                    {"inside", farEndsJson(design, wiring, inner)},
                    {"others", outer.others + inner.others}});
  }
  return list;
}

Json instanceJson(const DesignModel &design, const Wiring &wiring,
                  std::size_t at) {
  const DesignInstance &instance = design.Instances()[at];
  const DesignComponent &component = design.Component(instance.component);
  Json parameters = Json::object();
  for (const auto &[name, value] : instance.parameters)
    parameters[name] = value;
  return {{"name", instance.name},
          {"type", instance.typeName},
          {"identity", component.identity},
          {"view", orNull(instance.view)},
          {"views", component.views},
          {"memoryClass", ZelDebugDialog::MemoryClassOf(instance.typeName)},
          {"parameters", parameters},
          {"connections", connectionsJson(design, wiring, at)}};
}

/// "rtl (or sim, tlm)"
std::string shownViews(const DesignInstance &instance,
                       const std::vector<std::string> &views) {
  std::vector<std::string> others;
  for (const std::string &view : views)
    if (view != instance.view)
      others.push_back(view);
  const std::string taken = dashIfEmpty(instance.view);
  return others.empty()
             ? taken
             : fmt::format("{} (or {})", taken, fmt::join(others, ", "));
}

std::string shownEnds(const Wiring &wiring, const FarEnds &ends) {
  std::vector<std::string> names;
  for (const DesignPort &end : ends.shown)
    names.push_back(wiring.nameOf(end));
  return ends.others == 0
             ? dashIfEmpty(joined(names))
             : fmt::format("{} and {} more", dashIfEmpty(joined(names)),
                           ends.others);
}

void printInstances(const DesignModel &design, Output &output) {
  Table instances(
      {"INSTANCE", "TYPE", "COMPONENT", "VIEW", "MEMORY CLASS", "PARAMETERS"});
  for (const DesignInstance &instance : design.Instances()) {
    const DesignComponent &component = design.Component(instance.component);
    std::vector<std::string> parameters;
    for (const auto &[name, value] : instance.parameters)
      parameters.push_back(fmt::format("{}={}", name, value));
    instances.addRow({instance.name, instance.typeName,
                      dashIfEmpty(component.identity),
                      shownViews(instance, component.views),
                      ZelDebugDialog::MemoryClassOf(instance.typeName),
                      dashIfEmpty(joined(parameters))});
  }
  instances.print(output);
}

void printConnections(const DesignModel &design, Output &output) {
  const Wiring wiring(design);
  Table connections({"INTERFACE", "SIDE", "WIRED TO"});
  for (std::size_t at = 0; at < design.Instances().size(); ++at) {
    const std::vector<DesignInterface> &interfaces = wiring.interfacesOf(at);
    for (std::size_t interface = 0; interface < interfaces.size(); ++interface)
      for (const Side side : {Side::outside, Side::inside}) {
        const FarEnds ends = wiring.of(at, interface, side);
        if (!ends.empty())
          connections.addRow(
              {wiring.nameOf({at, interface}),
               fmt::format("{}{}", shownMode(interfaces[interface].mode),
                           side == Side::inside ? ", inside" : ""),
               shownEnds(wiring, ends)});
      }
  }
  connections.print(output);
}

} // namespace

Json designJson(DesignModel &design) {
  const Wiring wiring(design);
  Json members{{"processors", processorsOf(design)},
               {"debugModules", Json::array()},
               {"instances", Json::array()},
               {"peripherals", Json::object()},
               {"diagnostics", diagnosticsJson(design)}};
  for (const std::string &module : modulesOf(design))
    members["debugModules"].push_back(
        {{"name", module},
         {"type", design.getIpName(module)},
         {"processors", connectedTo(design, module)}});
  for (std::size_t at = 0; at < design.Instances().size(); ++at)
    members["instances"].push_back(instanceJson(design, wiring, at));
  for (const std::string &processor : processorsOf(design))
    members["peripherals"][processor] = peripheralsOf(design, processor);
  return members;
}

void printDesign(DesignModel &design, Output &output) {
  printInstances(design, output);
  output.print("\n");
  Table modules({"DEBUG MODULE", "TYPE", "PROCESSORS"});
  for (const std::string &module : modulesOf(design))
    modules.addRow({module, design.getIpName(module),
                    dashIfEmpty(joined(connectedTo(design, module)))});
  modules.print(output);
  output.print("\n");
  Table processors({"PROCESSOR", "TYPE", "PERIPHERALS"});
  for (const std::string &processor : processorsOf(design))
    processors.addRow({processor, design.getIpName(processor),
                       dashIfEmpty(joined(peripheralsOf(design, processor)))});
  processors.print(output);
  output.print("\n");
  printConnections(design, output);
}

} // namespace zeldebug
