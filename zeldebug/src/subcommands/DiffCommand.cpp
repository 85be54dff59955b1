// diff: the settings in which two commands differ.
#include <array>
#include <memory>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <ZelDebugDialog/ConfigurationModel/Refusal.h>
#include <fmt/format.h>

#include "documents/Commands.h"
#include "line/CommandLine.h"
#include "line/Options.h"
#include "line/Refused.h"
#include "output/Json.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CommandDifference;

using Commands = std::array<std::string, 2>;
using Differences = std::vector<CommandDifference>;

Differences expectDifferences(const Commands &commands) {
  try {
    return ZelDebugDialog::DiffCommands(commands[0], commands[1]);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    throw failureOf(refusal);
  }
}

void print(const Differences &differences, Output &output) {
  Table table({"SETTING", "FIRST", "SECOND"});
  for (const CommandDifference &one : differences)
    table.addRow({one.setting, shownField(one.setting, one.first),
                  shownField(one.setting, one.second)});
  table.print(output);
  for (const CommandDifference &one : differences)
    if (!one.reason.empty())
      output.note(fmt::format("{}: {}", one.setting, one.reason));
}

ExitStatus run(const Commands &commands, Output &output) {
  const Differences differences = expectDifferences(commands);
  if (output.json())
    output.document(ZelDebugDialog::documents::differencesJson(differences));
  else if (differences.empty())
    output.printSentence("The commands have the same settings.");
  else
    print(differences, output);
  return ExitStatus::done;
}

CommandLine::Runner diffOptions(Options &app) {
  const auto commands = std::make_shared<Commands>();
  app.addRequired("COMMAND1", (*commands)[0], "a connect command",
                  ValueKind::text);
  app.addRequired("COMMAND2", (*commands)[1], "the one to compare it with",
                  ValueKind::text);
  return [commands](Output &output) { return run(*commands, output); };
}

} // namespace

void addDiffCommand(CommandLine &line) {
  line.addSubcommand(
      "diff", "Compare the settings of two connect commands",
      "zeldebug diff 'connect lc hdu' 'connect lc hdu -debugdevice cpunr 2'",
      diffOptions);
}

} // namespace zeldebug
