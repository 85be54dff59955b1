// explain: what every word of a command is, and what it changes.
#include <memory>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <fmt/format.h>

#include "documents/Commands.h"
#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/Table.h"
#include "output/Values.h"
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

} // namespace

void addExplainCommand(CommandLine &line) {
  const auto text = std::make_shared<std::string>();
  Options app = line.addSubcommand(
      "explain", "Explain every word of a connect command",
      "zeldebug explain 'connect lc hdu -debugdevice devicenr 1'",
      [text](Output &output) { return run(*text, output); });
  app.addRequired("COMMAND", *text, "a connect command, in quotes",
                  ValueKind::text);
}

} // namespace zeldebug
