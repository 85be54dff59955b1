#include <csignal>
#include <exception>

#include "CommandLine.h"
#include "Failure.h"
#include "Output.h"
#include "Subcommands.h"

namespace {

using zeldebug::ExitStatus;
using zeldebug::Output;

ExitStatus fail(Output &output, ExitStatus status, const std::string &text) {
  output.error(text);
  if (output.json())
    output.failureDocument(status, text);
  return status;
}

ExitStatus run(int argc, const char *const *argv, Output &output) {
  zeldebug::CommandLine line;
  zeldebug::addListCommand(line);
  zeldebug::addDesignCommand(line);
  zeldebug::addShowCommand(line);
  zeldebug::addSetCommand(line);
  zeldebug::addCommandCommand(line);
  zeldebug::addCheckCommand(line);
  zeldebug::addExplainCommand(line);
  zeldebug::addExplainCodeCommand(line);
  zeldebug::addDiffCommand(line);
  zeldebug::addRoundtripCommand(line);
  zeldebug::addCablesCommand(line);
  zeldebug::addCompletionCommand(line);
  zeldebug::addManualCommand(line);
  zeldebug::addCompleteCommand(line);
  try {
    return line.run(argc, argv, output);
  } catch (const zeldebug::Failure &failure) {
    return fail(output, failure.status(), failure.what());
  } catch (const std::exception &problem) {
    return fail(output, ExitStatus::refused, problem.what());
  }
}

} // namespace

int main(int argc, char **argv) {
  // A pipe that is closed and a file that gets too long are errors of the write
  // that meets them, not the end of the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  Output output;
  const ExitStatus status = run(argc, argv, output);
  return static_cast<int>(output.finish(status));
}
