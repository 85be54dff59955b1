// diff: the settings in which two commands differ.
#include <array>
#include <memory>

#include <fmt/format.h>

#include "Refusal.h"
#include "Session.h"
#include "line/CommandLine.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using Commands = std::array<std::string, 2>;

/// What a command is refused for goes to `refusals`, a line each.
Configuration readConfiguration(const std::string &command,
                                std::string &refusals) {
  Session session(nullptr);
  const Reading reading = session.readCommand(command);
  if (!reading.accepted())
    refusals +=
        fmt::format("{}'{}' is refused: {}", refusals.empty() ? "" : "\n",
                    printable(command), refusalOf(reading, command));
  return configurationOf(*session.state);
}

ExitStatus run(const Commands &commands, Output &output) {
  std::string refusals;
  const Configuration first = readConfiguration(commands[0], refusals);
  const Configuration second = readConfiguration(commands[1], refusals);
  if (!refusals.empty())
    throw Failure(ExitStatus::refused, refusals);
  const std::vector<Difference> differences = differencesBetween(first, second);
  if (output.json()) {
    output.document(
        {{"equal", differences.empty()}, {"differences", toJson(differences)}});
    return ExitStatus::done;
  }
  if (differences.empty()) {
    output.printLine("The commands have the same settings.");
    return ExitStatus::done;
  }
  Table table({"SETTING", "FIRST", "SECOND"});
  for (const Difference &difference : differences)
    table.addRow({difference.name,
                  shownSide(difference.before, difference.kind),
                  shownSide(difference.after, difference.kind)});
  table.print(output);
  return ExitStatus::done;
}

} // namespace

void addDiffCommand(CommandLine &line) {
  const auto commands = std::make_shared<Commands>();
  CLI::App &app = line.addSubcommand(
      "diff", "Compare the settings of two connect commands",
      "zeldebug diff 'connect lc hdu' 'connect lc hdu -debugdevice cpunr 2'",
      [commands](Output &output) { return run(*commands, output); });
  app.add_option("COMMAND1", (*commands)[0], "a connect command")
      ->type_name("")
      ->required();
  app.add_option("COMMAND2", (*commands)[1], "the one to compare it with")
      ->type_name("")
      ->required();
}

} // namespace zeldebug
