// list: the processors of a design that can be debugged, and why others cannot.
#include <algorithm>
#include <memory>

#include <fmt/format.h>

#include "ConnectionKind.h"
#include "Session.h"
#include "line/DesignOptions.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

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

struct Undebuggable {
  std::string name;
  std::string type;
  std::string reason;
};

std::vector<Undebuggable> undebuggableOf(DesignModel &design,
                                         const std::vector<std::string> &names,
                                         const Session &session) {
  const std::vector<std::string> debuggable = session.processorNames();
  std::vector<Undebuggable> found;
  for (const std::string &name : names)
    if (std::find(debuggable.begin(), debuggable.end(), name) ==
        debuggable.end())
      found.push_back(
          {name, design.getIpName(name), whyNotDebuggable(design, name)});
  return found;
}

void printTables(Output &output, DesignModel &design, const Session &session,
                 const std::vector<Undebuggable> &others) {
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

ExitStatus run(const DesignOptions &options, Output &output) {
  const std::unique_ptr<DesignModel> design = options.read(output);
  std::vector<std::string> names;
  design->getProcessorInstances(names, false);
  Session session(design.get());
  for (ProcessorInfoImp *record : session.state->processorList) {
    session.state->currentProcessor = record;
    session.state->GetFPUType();
  }
  const std::vector<Undebuggable> others =
      undebuggableOf(*design, names, session);
  if (!output.json()) {
    printTables(output, *design, session, others);
    return ExitStatus::done;
  }
  Json members{{"names", names},
               {"processors", Json::array()},
               {"undebuggable", Json::array()}};
  for (const ProcessorInfoImp *record : session.state->processorList)
    members["processors"].push_back(processorJson(*record));
  for (const Undebuggable &other : others)
    members["undebuggable"].push_back({{"instanceName", other.name},
                                       {"type", other.type},
                                       {"reason", other.reason}});
  output.document(members);
  return ExitStatus::done;
}

} // namespace

void addListCommand(CommandLine &line) {
  const auto options = std::make_shared<DesignOptions>();
  CLI::App &app = line.addSubcommand(
      "list", "List the processors of a design that can be debugged",
      "zeldebug list board.xml",
      [options](Output &output) { return run(*options, output); });
  options->addTo(line, app);
}

} // namespace zeldebug
