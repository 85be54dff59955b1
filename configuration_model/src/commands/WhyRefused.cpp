#include "commands/WhyRefused.h"

#include <fmt/format.h>

#include "codes/CodeRows.h"
#include "commands/WordsInFiles.h"
#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace {

/// What the first fault of a trace says; without one, what the engine says.
std::string refusalIn(const CommandTrace &trace, const Reading &reading,
                      const std::string &command) {
  if (trace.faults.empty())
    return printable(reasonOf(reading.message));
  const CommandFault &fault = trace.faults.front();
  const std::size_t offset = fault.word < trace.words.size()
                                 ? trace.words[fault.word].offset
                                 : command.size();
  const std::string place = fmt::format("column {}: {}", offset + 1,
                                        shownFault(command, trace, fault));
  return fault.message.empty()
             ? place
             : fmt::format("{} ({})", place,
                           printable(reasonOf(fault.message)));
}

} // namespace

std::string shownFault(const std::string &command, const CommandTrace &trace,
                       const CommandFault &fault) {
  const std::string &summary = codeOf(fault.kind).summary;
  if (fault.word >= trace.words.size())
    return summary;
  const CommandWord &word = trace.words[fault.word];
  const std::string text = printable(command.substr(word.offset, word.length));
  return fault.kind == CommandFaultKind::missingValue
             ? fmt::format("{}, in front of '{}'", summary, text)
             : fmt::format("'{}' {}", text, summary);
}

std::string whyRefused(Desk &desk, const Reading &reading,
                       const std::string &command, WordPlace place) {
  CommandTrace trace;
  desk.traceCommand(command, AfterFault::stop, trace);
  const auto unknown = place == WordPlace::optionFile
                           ? findWordNotInFiles(command, trace)
                           : std::nullopt;
  if (!unknown)
    return refusalIn(trace, reading, command);
  const CommandWord &word = trace.words[unknown->word];
  return fmt::format("column {}: '{}' {}; accepted are {}", word.offset + 1,
                     command.substr(word.offset, word.length),
                     expectCode("not-in-option-file").summary,
                     quotedList(unknown->accepted));
}

} // namespace ZelDebugDialog::model
