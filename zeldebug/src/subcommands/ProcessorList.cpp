#include "subcommands/ProcessorList.h"

#include <unordered_map>
#include <unordered_set>

#include <fmt/format.h>

#include "ConnectionKind.h"
#include "line/DesignOptions.h"
#include "output/Table.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;
using ZelDebugDialog::ProcessorInfoImp;

const char *shownFpu(std::uint32_t fpuType) {
  return fpuType == 0 ? "-" : fpuType == 1 ? "sp" : "dp";
}

Json processorJson(const ProcessorInfoImp &record) {
  return {{"instanceName", record.instanceName},
          {"procFamily", record.procFamily},
          {"procType", record.procType},
          {"connectionMask", record.connectionMask},
          {"cpuNr", record.cpuNr},
          {"fpuType", record.fpuType},
          {"connections", allowedKinds(record.connectionMask)}};
}

constexpr std::size_t mostInterfaces = 8;
constexpr std::size_t mostEnds = 3;

std::vector<std::string> wiresOf(const DesignModel &design,
                                 std::size_t processor) {
  const auto interfacesOf = [&design](std::size_t instance) -> const auto & {
    return design.Component(design.Instances()[instance].component).interfaces;
  };
  std::vector<std::string> wires;
  const auto &interfaces = interfacesOf(processor);
  for (std::size_t at = 0;
       at < interfaces.size() && wires.size() < mostInterfaces; ++at)
    for (const ZelDebugDialog::DesignPort &far :
         design.WiredTo({processor, at}, mostEnds))
      wires.push_back(
          fmt::format("{}: {}.{}", interfaces[at].name,
                      design.Instances()[far.instance].name,
                      interfacesOf(far.instance)[far.interface].name));
  return wires;
}

} // namespace

ProcessorList::ProcessorList(DesignModel &listed, Session &found)
    : design(listed), session(found) {
  design.getProcessorInstances(allNames, false);
  for (ProcessorInfoImp *record : found.state->processorList) {
    found.state->currentProcessor = record;
    found.state->GetFPUType();
  }
  const std::vector<std::string> names = found.processorNames();
  const std::unordered_set<std::string> debuggable(names.begin(), names.end());
  std::unordered_map<std::string, std::size_t> byName;
  for (std::size_t at = 0; at < design.Instances().size(); ++at)
    byName.emplace(design.Instances()[at].name, at);
  for (const std::string &name : allNames)
    if (debuggable.count(name) == 0)
      others.push_back({name, design.getIpName(name),
                        whyNotDebuggable(design, name),
                        wiresOf(design, byName.at(name))});
}

Json ProcessorList::json() const {
  Json members{{"names", allNames},
               {"processors", Json::array()},
               {"undebuggable", Json::array()}};
  for (const ProcessorInfoImp *record : session.state->processorList)
    members["processors"].push_back(processorJson(*record));
  for (const Undebuggable &other : others)
    members["undebuggable"].push_back({{"instanceName", other.name},
                                       {"type", other.type},
                                       {"reason", other.reason},
                                       {"wiredTo", other.wiredTo}});
  return members;
}

void ProcessorList::print(Output &output) const {
  Table table({"PROCESSOR", "TYPE", "NUMBER", "FPU", "CONNECTIONS"});
  for (const ProcessorInfoImp *record : session.state->processorList)
    table.addRow(
        {record->instanceName, design.getIpName(record->instanceName),
         fmt::format("{}", record->cpuNr), shownFpu(record->fpuType),
         fmt::format("{}",
                     fmt::join(allowedKinds(record->connectionMask), " "))});
  if (table.empty())
    output.printLine("No processor of this design can be debugged.");
  else
    table.print(output);
  for (const Undebuggable &other : others) {
    output.printLine(fmt::format("\n'{}' ({}) cannot be debugged: {}.",
                                 printable(other.name), printable(other.type),
                                 printable(other.reason)));
    if (!other.wiredTo.empty())
      output.printLine(printable(
          fmt::format("It is wired by {}.", fmt::join(other.wiredTo, ", "))));
  }
}

} // namespace zeldebug
