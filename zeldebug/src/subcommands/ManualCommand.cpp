// manual: the manual page.
#include "line/ManualPage.h"
#include "line/Options.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

CommandLine::Runner manualOptions(Options &app) {
  return [&line = app.line()](Output &output) {
    output.print(manualPage(line));
    return ExitStatus::done;
  };
}

} // namespace

void addManualCommand(CommandLine &line) {
  line.addSubcommand("manual", "Print the manual page",
                     "zeldebug manual | man -l -", manualOptions);
}

} // namespace zeldebug
