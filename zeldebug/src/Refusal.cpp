#include "Refusal.h"

#include <fmt/format.h>

#include "DiagnosticCode.h"
#include "OptionFile.h"
#include "TracedCommand.h"
#include "output/Output.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AfterFault;
using ZelDebugDialog::CommandFault;
using ZelDebugDialog::CommandFaultKind;
using ZelDebugDialog::CommandTrace;

CommandTrace traceOf(const std::string &command, HHSMHwManager *design,
                     const std::string &processor) {
  Session session(design);
  if (processor.empty())
    session.startRecord();
  else
    session.selectFrom(processor, "");
  CommandTrace trace;
  traceInto(session, command, AfterFault::stop, trace);
  return trace;
}

/// What the first fault of a trace says; without one, what the engine says.
std::string refusalIn(const CommandTrace &trace, const Reading &reading,
                      const std::string &command) {
  if (trace.faults.empty())
    return reasonOf(reading);
  const CommandFault &fault = trace.faults.front();
  const std::size_t offset = fault.word < trace.words.size()
                                 ? trace.words[fault.word].offset
                                 : command.size();
  const std::string place = fmt::format("column {}: {}", offset + 1,
                                        shownFault(command, trace, fault));
  return fault.message.empty()
             ? place
             : fmt::format("{} ({})", place, reasonOf({1, fault.message}));
}

} // namespace

std::string shownFault(const std::string &command, const CommandTrace &trace,
                       const CommandFault &fault) {
  const char *summary = codeOf(fault.kind).summary;
  if (fault.word >= trace.words.size())
    return summary;
  const ZelDebugDialog::CommandWord &word = trace.words[fault.word];
  const std::string text = printable(command.substr(word.offset, word.length));
  return fault.kind == CommandFaultKind::missingValue
             ? fmt::format("{}, in front of '{}'", summary, text)
             : fmt::format("'{}' {}", text, summary);
}

std::string refusalOf(const Reading &reading, const std::string &command,
                      HHSMHwManager *design, const std::string &processor) {
  return refusalIn(traceOf(command, design, processor), reading, command);
}

std::string refusalOfFile(const Reading &reading, const std::string &command,
                          HHSMHwManager *design, const std::string &processor) {
  const CommandTrace trace = traceOf(command, design, processor);
  const auto unknown = findWordNotInFiles(command, trace);
  if (!unknown)
    return refusalIn(trace, reading, command);
  const ZelDebugDialog::CommandWord &word = trace.words[unknown->word];
  return fmt::format("column {}: '{}' {}; accepted are {}", word.offset + 1,
                     command.substr(word.offset, word.length),
                     findDiagnosticCode("not-in-option-file")->summary,
                     quotedList(unknown->accepted));
}

} // namespace zeldebug
