#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "commands/Diagnose.h"
#include "commands/TracedCommand.h"
#include "text/NearestMatch.h"

namespace ZelDebugDialog {

namespace {

constexpr int refused = 3;

Refusal unknownProcessor(const Board &board, const std::string &name) {
  for (const UndebuggableProcessor &processor : board.Undebuggable())
    if (processor.name == name) {
      Refusal refusal(
          RefusalKind::notDebuggable, "",
          fmt::format("'{}' cannot be debugged: {}", name, processor.reason));
      refusal.value = name;
      return refusal;
    }
  Refusal refusal(RefusalKind::unknownProcessor, "",
                  fmt::format("'{}' is no processor of the design; there are "
                              "{}{}",
                              name, model::quotedList(board.Names()),
                              model::didYouMean(name, board.Names())));
  refusal.value = name;
  refusal.accepted = board.Names();
  refusal.suggestion = model::nearestMatch(name, board.Names());
  return refusal;
}

const BoardProcessor &expectProcessor(const Board &board,
                                      const std::string &name) {
  for (const BoardProcessor &processor : board.Processors())
    if (processor.name == name)
      return processor;
  throw unknownProcessor(board, name);
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
