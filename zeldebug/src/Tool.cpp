#include "Tool.h"

#include <exception>

#include "line/CommandLine.h"
#include "line/Refused.h"
#include "output/Failure.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

ExitStatus end(Output &output, const Failure &failure) {
  if (output.json())
    output.dropResult();
  return failure.status();
}

ExitStatus fail(Output &output, const Failure &failure) {
  output.fail(failure);
  return end(output, failure);
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
  addInitCommand(line);
  addSyncCommand(line);
  addAdoptCommand(line);
  addCheckCommand(line);
  addExplainCommand(line);
  addExplainCodeCommand(line);
  addDiffCommand(line);
  addRoundtripCommand(line);
  addCablesCommand(line);
  addLanguageCommand(line);
  addServeCommand(line);
  addCompletionScriptCommand(line);
  addManualCommand(line);
  addHelpCommand(line);
  addCompletionWordsCommand(line);
  try {
    return line.run(argc, argv, output);
  } catch (const ToldFailure &failure) {
    output.keepFailure(failure);
    return end(output, failure);
  } catch (const Failure &failure) {
    return fail(output, failure);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    return fail(output, failureOf(refusal));
  } catch (const std::exception &problem) {
    return fail(output, Failure(ExitStatus::refused, problem.what()));
  }
}

} // namespace zeldebug
