// list: the processors of a design that can be debugged, and why others cannot.
#include <memory>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "output/Json.h"
#include "subcommands/ListAdvice.h"
#include "subcommands/ProcessorList.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;

struct ListLine {
  DesignOptions design;
  ProjectOptions project;
};

ExitStatus run(const DesignOptions &options, Output &output) {
  const std::unique_ptr<DesignModel> design = options.read(output);
  const ProcessorList list(*design);
  const std::vector<Advice> advice = adviceFor(options, *design, list);
  if (output.json()) {
    Json members = list.json();
    members.update(adviceJson(*design, advice));
    output.document(members);
    return ExitStatus::done;
  }
  list.print(output);
  printAdvice(advice, output);
  return ExitStatus::done;
}

CommandLine::Runner listOptions(Options &app) {
  const auto options = std::make_shared<ListLine>();
  options->design.addTo(app, false);
  options->project.addTo(app);
  return [options, &line = app.line()](Output &output) {
    return run(options->project.sourcesFor(options->design,
                                           line.workingFolder(), output),
               output);
  };
}

} // namespace

void addListCommand(CommandLine &line) {
  line.addSubcommand("list",
                     "List the processors of a design that can be debugged",
                     "zeldebug list board.xml", listOptions);
}

} // namespace zeldebug
