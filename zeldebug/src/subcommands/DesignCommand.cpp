// design: what the design model answers to the engine's questions.
#include <memory>

#include <fmt/format.h>

#include "Session.h"
#include "line/DesignOptions.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignDiagnostic;
using ZelDebugDialog::DesignModel;

using Severity = DesignDiagnostic::Severity;

const char *shownSeverity(Severity severity) {
  switch (severity) {
  case Severity::error:
    return "error";
  case Severity::warning:
    return "warning";
  case Severity::note:
    break;
  }
  return "note";
}

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

std::string joined(const std::vector<std::string> &words) {
  return words.empty() ? "-" : fmt::format("{}", fmt::join(words, " "));
}

Json documentOf(DesignModel &design, Session &session) {
  Json members{{"processors", processorsOf(design)},
               {"debugModules", Json::array()},
               {"instances", Json::array()},
               {"peripherals", Json::object()},
               {"diagnostics", Json::array()}};
  for (const std::string &module : modulesOf(design))
    members["debugModules"].push_back(
        {{"name", module},
         {"type", design.getIpName(module)},
         {"processors", connectedTo(design, module)}});
  for (const auto &instance : design.Instances()) {
    Json parameters = Json::object();
    for (const auto &[name, value] : instance.parameters)
      parameters[name] = value;
    members["instances"].push_back(
        {{"name", instance.name},
         {"type", instance.typeName},
         {"memoryClass", session.state->ClassifyMemory(instance.typeName)},
         {"parameters", parameters}});
  }
  for (const std::string &processor : processorsOf(design))
    members["peripherals"][processor] = peripheralsOf(design, processor);
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    members["diagnostics"].push_back(
        {{"file", diagnostic.file},
         {"line", diagnostic.line},
         {"severity", shownSeverity(diagnostic.severity)},
         {"message", diagnostic.message}});
  return members;
}

void printTables(DesignModel &design, Session &session, Output &output) {
  Table instances({"INSTANCE", "TYPE", "MEMORY CLASS", "PARAMETERS"});
  for (const auto &instance : design.Instances()) {
    std::vector<std::string> parameters;
    for (const auto &[name, value] : instance.parameters)
      parameters.push_back(fmt::format("{}={}", name, value));
    instances.addRow({instance.name, instance.typeName,
                      session.state->ClassifyMemory(instance.typeName),
                      joined(parameters)});
  }
  instances.print(output);
  output.print("\n");
  Table modules({"DEBUG MODULE", "TYPE", "PROCESSORS"});
  for (const std::string &module : modulesOf(design))
    modules.addRow({module, design.getIpName(module),
                    joined(connectedTo(design, module))});
  modules.print(output);
  output.print("\n");
  Table processors({"PROCESSOR", "TYPE", "PERIPHERALS"});
  for (const std::string &processor : processorsOf(design))
    processors.addRow({processor, design.getIpName(processor),
                       joined(peripheralsOf(design, processor))});
  processors.print(output);
}

ExitStatus run(const DesignOptions &options, Output &output) {
  const std::unique_ptr<DesignModel> design = options.read(output);
  Session session(design.get());
  if (output.json())
    output.document(documentOf(*design, session));
  else
    printTables(*design, session, output);
  return ExitStatus::done;
}

} // namespace

void addDesignCommand(CommandLine &line) {
  const auto options = std::make_shared<DesignOptions>();
  CLI::App &app = line.addSubcommand(
      "design",
      "Show what is known about a design: instances, debug modules, "
      "peripherals",
      "zeldebug design board.xml",
      [options](Output &output) { return run(*options, output); });
  options->addTo(line, app);
}

} // namespace zeldebug
