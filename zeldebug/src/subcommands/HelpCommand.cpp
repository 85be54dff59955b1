// help: the same as --help, for who writes it in front.
#include <memory>
#include <optional>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus run(const CommandLine &line, const std::optional<std::string> &name,
               Output &output) {
  output.print(
      line.helpOf(name ? &line.expectSubcommand(*name) : nullptr, output));
  return ExitStatus::done;
}

} // namespace

void addHelpCommand(CommandLine &line) {
  const auto name = std::make_shared<std::optional<std::string>>();
  Options app = line.addSubcommand(
      "help", "Print the help of a subcommand", "zeldebug help list",
      [&line, name](Output &output) { return run(line, *name, output); });
  app.addArgument("SUBCOMMAND", *name, "whose help; of all without it",
                  ValueKind::subcommand);
}

} // namespace zeldebug
