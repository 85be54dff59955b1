// help: the same as --help, for who writes it in front.
#include <memory>
#include <optional>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus run(CommandLine &line, const std::optional<std::string> &name,
               Output &output) {
  output.print(
      line.helpOf(name ? &line.expectSubcommand(*name) : nullptr, output));
  return ExitStatus::done;
}

CommandLine::Runner helpOptions(Options &app) {
  const auto name = std::make_shared<std::optional<std::string>>();
  app.addArgument("SUBCOMMAND", *name, "whose help; of all without it",
                  ValueKind::subcommand);
  return [&line = app.line(), name](Output &output) {
    return run(line, *name, output);
  };
}

} // namespace

void addHelpCommand(CommandLine &line) {
  line.addSubcommand("help", "Print the help of a subcommand",
                     "zeldebug help list", helpOptions);
}

} // namespace zeldebug
