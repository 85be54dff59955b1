// design: what the design model answers to the engine's questions.
#include <memory>
#include <optional>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "output/Json.h"
#include "subcommands/DesignGraph.h"
#include "subcommands/DesignTables.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;

struct GraphOptions {
  DesignOptions design;
  ProjectOptions project;
  bool graph = false;
  std::optional<std::string> under;
};

ExitStatus run(const GraphOptions &options, const std::string &folder,
               Output &output) {
  if (options.under && !options.graph)
    throw Failure(ExitStatus::wrongUse,
                  "--under chooses a part of the graph: give --graph as well");
  const std::unique_ptr<DesignModel> design =
      options.project.sourcesFor(options.design, folder, output)
          .read(output, DesignOptions::Telling::whole);
  std::string graph;
  if (options.graph)
    graph = designGraph(
        *design, options.under ? std::optional<std::size_t>(
                                     expectInstance(*design, *options.under))
                               : std::nullopt);
  if (options.graph && !output.json()) {
    output.print(graph);
    return ExitStatus::done;
  }
  if (!output.json()) {
    printDesign(*design, output);
    return ExitStatus::done;
  }
  Json members = designJson(*design);
  if (options.graph)
    members["graph"] = graph;
  output.document(members);
  return ExitStatus::done;
}

CommandLine::Runner designOptions(Options &app) {
  const auto options = std::make_shared<GraphOptions>();
  options->design.addTo(app, false);
  options->project.addTo(app);
  app.addFlag("--graph", options->graph,
              "print text for Graphviz: who is wired to whom", "The graph");
  app.addOption("--under", "PATH", options->under,
                "only this instance and what is inside it (a.b.c)",
                ValueKind::instance, "The graph");
  return [options, &line = app.line()](Output &output) {
    return run(*options, line.workingFolder(), output);
  };
}

} // namespace

void addDesignCommand(CommandLine &line) {
  line.addSubcommand(
      "design",
      "Show what is known about a design: instances, debug modules, "
      "peripherals, connections",
      "zeldebug design board.xml\n"
      "  zeldebug design board.xml --graph | dot -Tsvg > board.svg",
      designOptions);
}

} // namespace zeldebug
