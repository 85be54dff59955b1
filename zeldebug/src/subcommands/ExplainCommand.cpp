// explain: what every word of a command is, and what it changes; with a
// project, of the one that its files give a processor.
#include <memory>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <fmt/format.h>

#include "documents/Commands.h"
#include "line/CommandLine.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "output/Json.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/ShowProject.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ExplainedCommand;
using ZelDebugDialog::ExplainedWord;
using ZelDebugDialog::WordChange;

void printWords(const ExplainedCommand &command, Output &output) {
  Table table({"COLUMN", "WORD", "ROLE", "CHANGES"});
  for (const ExplainedWord &word : command.words) {
    std::vector<std::string> changes;
    for (const WordChange &change : word.changes)
      changes.push_back(change.setting + " = " +
                        shownField(change.setting, change.after));
    table.addRow({fmt::format("{}", word.offset + 1), word.text, word.role,
                  fmt::format("{}", fmt::join(changes, ", "))});
  }
  table.print(output);
}

struct ExplainLine {
  std::string text;
  ProjectOptions project;
};

ExitStatus run(const std::string &text, Output &output) {
  const ExplainedCommand command = ZelDebugDialog::ExplainCommand(text);
  if (output.json())
    output.document(ZelDebugDialog::documents::explainedJson(command));
  else
    printWords(command, output);
  if (command.accepted)
    return ExitStatus::done;
  const Failure failure(
      ExitStatus::refused,
      fmt::format("the command is refused: {} ('zeldebug check' tells more)",
                  command.refusal),
      {"bad-command", "COMMAND", text});
  output.fail(failure);
  return failure.status();
}

CommandLine::Runner explainOptions(Options &app) {
  const auto options = std::make_shared<ExplainLine>();
  app.addRequired("COMMAND", options->text,
                  "a connect command, in quotes; with a project, or the "
                  "instance name of a processor, whose command it gives",
                  ValueKind::processor);
  options->project.addTo(app);
  return [options, &line = app.line()](Output &output) {
    const std::string &folder = line.workingFolder();
    if (!options->project.takeProcessorAlone(options->text, folder))
      return run(options->text, output);
    const LineProject project =
        options->project.open(DesignOptions(), folder, output);
    return explainProject(project, options->text, output);
  };
}

} // namespace

void addExplainCommand(CommandLine &line) {
  line.addSubcommand(
      "explain", "Explain every word of a connect command",
      "zeldebug explain 'connect lc hdu -debugdevice devicenr 1'\n"
      "  zeldebug explain cpu0",
      explainOptions);
}

} // namespace zeldebug
