#include "Tool.h"

#include <exception>

#include "line/CommandLine.h"
#include "output/Failure.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus fail(Output &output, ExitStatus status, const std::string &text) {
  output.error(text);
  if (output.json())
    output.failureDocument(status, text);
  return status;
}

} // namespace

ExitStatus runTool(int argc, const char *const *argv, Output &output) {
  CommandLine line;
  addListCommand(line);
  addDesignCommand(line);
  addKindsCommand(line);
  addShowCommand(line);
  addSetCommand(line);
  addCommandCommand(line);
  addCheckCommand(line);
  addExplainCommand(line);
  addExplainCodeCommand(line);
  addDiffCommand(line);
  addRoundtripCommand(line);
  addCablesCommand(line);
  addLanguageCommand(line);
  addCompletionCommand(line);
  addManualCommand(line);
  addHelpCommand(line);
  addCompleteCommand(line);
  try {
    return line.run(argc, argv, output);
  } catch (const Failure &failure) {
    return fail(output, failure.status(), failure.what());
  } catch (const std::exception &problem) {
    return fail(output, ExitStatus::refused, problem.what());
  }
}

} // namespace zeldebug
