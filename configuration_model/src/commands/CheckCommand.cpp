#include <algorithm>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "commands/Diagnose.h"
#include "commands/TracedCommand.h"
#include "commands/WhyNoProcessor.h"

namespace ZelDebugDialog {

namespace {

constexpr int refused = 3;

const BoardProcessor &expectProcessor(const Board &board,
                                      const std::string &name) {
  for (const BoardProcessor &processor : board.Processors())
    if (processor.name == name)
      return processor;
  throw model::whyNoProcessor(name, board.Names(), board.Undebuggable());
}

bool isError(const CommandDiagnostic &diagnostic) {
  return diagnostic.severity == CodeSeverity::error;
}

} // namespace

CheckedCommand CheckCommand(const std::string &text,
                            const CheckOptions &options) {
  const BoardProcessor *const processor =
      options.board == nullptr
          ? nullptr
          : &expectProcessor(*options.board, options.processor);
  const model::TracedCommand traced(text, AfterFault::goOn);
  CheckedCommand checked;
  checked.text = text;
  checked.result = traced.reading().result;
  checked.error = traced.reading().message;
  std::vector<CommandDiagnostic> &found = checked.diagnostics;
  model::diagnoseFaults(traced, found);
  model::diagnoseWords(traced, found);
  if (options.ofFile)
    model::diagnoseLine(traced, found);
  if (processor != nullptr)
    model::diagnoseFor(*processor, traced, found);
  std::stable_sort(found.begin(), found.end(),
                   [](const CommandDiagnostic &a, const CommandDiagnostic &b) {
                     return a.offset < b.offset;
                   });
  const bool hasError = std::any_of(found.begin(), found.end(), isError);
  // What only the processor refuses, the engine refuses where it is selected.
  if (hasError && traced.reading().accepted())
    checked.result = refused;
  checked.accepted = traced.reading().accepted() && !hasError;
  return checked;
}

} // namespace ZelDebugDialog
