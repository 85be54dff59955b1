#include "subcommands/ProcessorList.h"

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
  for (const std::string &name : allNames)
    if (debuggable.count(name) == 0)
      others.push_back(
          {name, design.getIpName(name), whyNotDebuggable(design, name)});
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
                                       {"reason", other.reason}});
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
  for (const Undebuggable &other : others)
    output.printLine(fmt::format("\n'{}' ({}) cannot be debugged: {}.",
                                 printable(other.name), printable(other.type),
                                 printable(other.reason)));
}

} // namespace zeldebug
