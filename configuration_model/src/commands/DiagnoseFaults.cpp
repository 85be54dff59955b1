#include "commands/Diagnose.h"

#include <set>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "codes/CodeRows.h"
#include "commands/WhyRefused.h"
#include "commands/WordsInFiles.h"
#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

CommandDiagnostic diagnosticOf(const TracedCommand &command, std::size_t word,
                               const char *code, const std::string &detail,
                               std::size_t start) {
  const CommandWord &place = command.trace().words[word];
  const Code &row = expectCode(code);
  CommandDiagnostic diagnostic;
  diagnostic.offset = place.offset + start;
  diagnostic.length = place.length - start;
  diagnostic.severity = row.severity;
  diagnostic.code = row.code;
  diagnostic.message = fmt::format(
      "'{}' {}{}{}", printable(command.wordText(word).substr(start)),
      row.summary, detail.empty() ? "" : ": ", detail);
  return diagnostic;
}

void diagnoseFaults(const TracedCommand &command,
                    std::vector<CommandDiagnostic> &found) {
  const CommandTrace &trace = command.trace();
  // What the engine reads all the same is worth a warning.
  const CodeSeverity severity = command.reading().accepted()
                                    ? CodeSeverity::warning
                                    : CodeSeverity::error;
  std::set<std::size_t> said;
  for (const CommandFault &fault : trace.faults) {
    // What follows from a word that is at fault already is no other fault.
    if (!said.insert(fault.word).second)
      continue;
    CommandDiagnostic diagnostic;
    diagnostic.offset = command.text().size();
    diagnostic.severity = severity;
    diagnostic.code = codeOf(fault.kind).code;
    diagnostic.message = shownFault(command.text(), trace, fault);
    diagnostic.engineMessage = fault.message;
    diagnostic.accepted = fault.accepted;
    if (fault.word < trace.words.size()) {
      diagnostic.offset = trace.words[fault.word].offset;
      diagnostic.length = trace.words[fault.word].length;
      diagnostic.suggestion =
          nearestMatch(command.wordText(fault.word), fault.accepted);
    }
    found.push_back(diagnostic);
  }
}

void diagnoseLine(const TracedCommand &command,
                  std::vector<CommandDiagnostic> &found) {
  const auto word = findWordNotInFiles(command.text(), command.trace());
  if (word) {
    found.push_back(
        diagnosticOf(command, word->word, "not-in-option-file", ""));
    found.back().accepted = word->accepted;
    found.back().suggestion =
        nearestMatch(command.wordText(word->word), word->accepted);
  }
  const std::size_t length = command.text().size();
  if (length <= longestOptionLine)
    return;
  const Code &row = expectCode("long-line");
  CommandDiagnostic diagnostic;
  diagnostic.offset = longestOptionLine;
  diagnostic.length = length - longestOptionLine;
  diagnostic.severity = row.severity;
  diagnostic.code = row.code;
  diagnostic.message = fmt::format("{}: {} characters, of which {} are read",
                                   row.summary, length, longestOptionLine);
  found.push_back(diagnostic);
}

} // namespace ZelDebugDialog::model
