// serve: requests of other programs on standard input, answers on standard
// output.
#include <memory>

#include <unistd.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "pipe/ServePipe.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus run(const std::string &directory, bool logs, Output &output) {
  output.leaveStandardOutput();
  ZelDebugDialog::protocol::Server server(directory);
  ZelDebugDialog::protocol::Log log;
  if (logs)
    log = [&output](const std::string &text) { output.log(text); };
  const std::string problem = ZelDebugDialog::protocol::servePipe(
      server, STDIN_FILENO, STDOUT_FILENO, log);
  if (!problem.empty())
    throw Failure(ExitStatus::refused, problem, {"bad-frame"});
  return ExitStatus::done;
}

CommandLine::Runner serveOptions(Options &app) {
  const auto logs = std::make_shared<bool>(false);
  app.addFlag("--log", *logs, "tell of each request on standard error");
  return [logs, &line = app.line()](Output &output) {
    return run(line.workingFolder(), *logs, output);
  };
}

} // namespace

void addServeCommand(CommandLine &line) {
  line.addSubcommand(
      "serve", "Answer the requests of another program (docs/protocol.md)",
      "zeldebug serve --log", serveOptions);
}

} // namespace zeldebug
