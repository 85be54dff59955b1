// help: the same as --help, for who writes it in front.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/TextOption.h"
#include "output/Suggestion.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus run(const CommandLine &line, const std::optional<std::string> &name,
               Output &output) {
  if (!name) {
    // `App::help` would be that of the subcommand "help".
    const CLI::App &app = line.application();
    output.print(app.get_formatter()->make_help(&app, app.get_name(),
                                                CLI::AppFormatMode::Normal));
    return ExitStatus::done;
  }
  std::vector<std::string> names;
  for (const CommandLine::Subcommand &subcommand : line.visible()) {
    names.push_back(subcommand.app->get_name());
    if (*name != names.back())
      continue;
    output.print(subcommand.app->help("zeldebug"));
    return ExitStatus::done;
  }
  throw Failure(ExitStatus::wrongUse,
                fmt::format("unknown subcommand '{}'; there are {}{}", *name,
                            quotedList(names), didYouMean(*name, names)));
}

} // namespace

void addHelpCommand(CommandLine &line) {
  const auto name = std::make_shared<std::optional<std::string>>();
  CLI::App &app = line.addSubcommand(
      "help", "Print the help of a subcommand", "zeldebug help list",
      [&line, name](Output &output) { return run(line, *name, output); });
  line.completeWith(
      addTextOption(app, "SUBCOMMAND", *name, "whose help; of all without it")
          ->type_name(""),
      ValueKind::subcommand);
}

} // namespace zeldebug
