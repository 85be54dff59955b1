#include "Diagnose.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <set>

#include <fmt/format.h>

#include "CableKeyword.h"
#include "OptionFile.h"
#include "Refusal.h"
#include "TracedCommand.h"
#include "output/Output.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AfterFault;
using ZelDebugDialog::CommandFault;
using ZelDebugDialog::CommandFaultKind;
using ZelDebugDialog::CommandTrace;
using ZelDebugDialog::CommandWord;
using ZelDebugDialog::ValueConversion;
using ZelDebugDialog::WordRole;

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return text;
}

bool looksLikeOption(const std::string &word) {
  return word.size() > 1 && word[0] == '-' &&
         !(word[1] >= '0' && word[1] <= '9');
}

/// Adds diagnostics for one command.
class Examiner {
public:
  Examiner(const TracedCommand &traced, std::vector<Diagnostic> &found)
      : command(traced), diagnostics(found) {}

  void examineFaults();
  void examineWords();
  void examineRepetitions();
  void examineLength();
  void examineForFiles();

private:
  void add(std::size_t word, const char *code, const std::string &detail,
           std::size_t start = 0);
  void examineNumber(std::size_t word, std::size_t start, int base);
  void examineNumbers(std::size_t word);
  void examineFrequency(std::size_t word, const std::string &text);

  const TracedCommand &command;
  std::vector<Diagnostic> &diagnostics;
};

/// @param start  where in the word it begins
void Examiner::add(std::size_t word, const char *code,
                   const std::string &detail, std::size_t start) {
  const CommandWord &place = command.trace().words[word];
  const DiagnosticCode *row = findDiagnosticCode(code);
  std::string summary = fmt::format(
      "'{}' {}", printable(command.wordText(word).substr(start)), row->summary);
  if (!detail.empty())
    summary += ": " + detail;
  diagnostics.push_back({place.offset + start,
                         place.length - start,
                         row,
                         row->severity,
                         summary,
                         "",
                         {},
                         ""});
}

void Examiner::examineFaults() {
  const CommandTrace &trace = command.trace();
  // What the engine reads all the same is worth a warning.
  const Severity severity =
      command.reading().accepted() ? Severity::warning : Severity::error;
  std::set<std::size_t> said;
  for (const CommandFault &fault : trace.faults) {
    // What follows from a word that is at fault already is no other fault.
    if (!said.insert(fault.word).second)
      continue;
    Diagnostic diagnostic{command.text().size(),
                          0,
                          &codeOf(fault.kind),
                          severity,
                          shownFault(command.text(), trace, fault),
                          fault.message,
                          fault.accepted,
                          ""};
    if (fault.word < trace.words.size()) {
      diagnostic.offset = trace.words[fault.word].offset;
      diagnostic.length = trace.words[fault.word].length;
      diagnostic.suggestion =
          nearestMatch(command.wordText(fault.word), fault.accepted);
    }
    diagnostics.push_back(diagnostic);
  }
}

/// What reading a number leaves unsaid: junk, another base, bits that are cut.
/// @param start  where in the word it begins
/// @param base   0 for what the number itself says
void Examiner::examineNumber(std::size_t word, std::size_t start, int base) {
  const std::string text = command.wordText(word).substr(start);
  char *stop = nullptr;
  errno = 0;
  const long long number = std::strtoll(text.c_str(), &stop, base);
  const bool isHuge = errno == ERANGE;
  const char *const end = stop;
  if (end == text.c_str()) {
    add(word, "not-a-number", "it gives 0", start);
    return;
  }
  if (end != text.c_str() + text.size())
    add(word, "not-a-number",
        fmt::format(
            "it is read as '{}'",
            text.substr(0, static_cast<std::size_t>(end - text.c_str()))),
        start);
  const bool isOctal = base == 0 && text.size() > 1 && text[0] == '0' &&
                       text[1] >= '0' && text[1] <= '7';
  if (isOctal)
    add(word, "octal-number", fmt::format("its value is {}", number), start);
  for (const Setting &setting : command.changesOf(word)) {
    const bool isStored =
        setting.value.is_number() && !isHuge && setting.value == Json(number);
    if (!isStored && setting.value.is_number()) {
      add(word, "value-cut",
          fmt::format("{} becomes {}", setting.name,
                      shownValue(setting.value, setting.kind)),
          start);
      return;
    }
  }
}

/// The numbers in a value, whatever is around them.
void Examiner::examineNumbers(std::size_t word) {
  const std::size_t colon = command.wordText(word).find(':');
  switch (command.trace().words[word].conversion) {
  case ValueConversion::number:
  case ValueConversion::signedNumber:
  case ValueConversion::lowByte:
    examineNumber(word, 0, 0);
    break;
  case ValueConversion::hostAndPort:
    if (colon != std::string::npos)
      examineNumber(word, colon + 1, 10);
    break;
  default:
    break;
  }
}

/// A frequency that only the end of a command would have refused.
void Examiner::examineFrequency(std::size_t word, const std::string &text) {
  const auto type = command.configuration().cable.cableType;
  Session session(nullptr);
  session.startRecord();
  CommandTrace alone;
  const std::string ofType = type == ZelDebugDialog::Engine::CABLE_NONE
                                 ? ""
                                 : " type " + shownCable(type);
  traceInto(session, "connect lc hdu -cable" + ofType + " frequency " + text,
            AfterFault::stop, alone);
  for (const CommandFault &fault : alone.faults) {
    if (fault.kind != CommandFaultKind::refusedFrequency)
      continue;
    add(word, "frequency-not-checked", "");
    diagnostics.back().engineMessage = fault.message;
    diagnostics.back().accepted = fault.accepted;
    diagnostics.back().suggestion = nearestMatch(text, fault.accepted);
  }
}

void Examiner::examineWords() {
  const std::vector<CommandWord> &words = command.trace().words;
  bool saidIgnored = false;
  bool hasFault = false; // in front of the word
  for (std::size_t i = 0; i < words.size(); ++i) {
    const CommandWord &word = words[i];
    const std::string text = command.wordText(i);
    const bool isValue = word.role == WordRole::value;
    if (command.isAtFault(i)) {
      hasFault = true;
      continue;
    }
    if (isValue && looksLikeOption(text)) {
      add(i, "option-as-value", "");
      continue;
    }
    if (word.role == WordRole::lost)
      add(i, "option-lost", "");
    if (word.role == WordRole::ignored && !saidIgnored && !hasFault) {
      add(i, "ignored-word", "");
      saidIgnored = true;
    }
    if (isValue)
      examineNumbers(i);
    if (isValue && !word.fields.empty() &&
        word.fields.front() == "cable.frequency")
      examineFrequency(i, text);
  }
}

/// Options and parameters that stand twice, apart from those that are made for
/// it.
void Examiner::examineRepetitions() {
  static const std::set<std::string> repeatable{"-CONFIGDEVICE", "MODULEARG"};
  std::set<std::string> options;
  std::set<std::string> names;
  const std::vector<CommandWord> &words = command.trace().words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string text = upper(command.wordText(i));
    if (repeatable.count(text) != 0 && words[i].role == WordRole::name)
      continue;
    if (words[i].role == WordRole::option) {
      names.clear();
      if (repeatable.count(text) == 0 && !options.insert(text).second)
        add(i, "option-repeated", "");
    }
    if (words[i].role == WordRole::name && !names.insert(text).second)
      add(i, "parameter-repeated", "");
  }
}

void Examiner::examineLength() {
  const std::size_t length = command.text().size();
  if (length <= optionLineLimit)
    return;
  const DiagnosticCode *row = findDiagnosticCode("long-line");
  diagnostics.push_back({optionLineLimit,
                         length - optionLineLimit,
                         row,
                         row->severity,
                         fmt::format("{}: {} characters, of which {} are read",
                                     row->summary, length, optionLineLimit),
                         "",
                         {},
                         ""});
}

/// What a command may hold, but an option file may not.
void Examiner::examineForFiles() {
  const auto found = findWordNotInFiles(command.text(), command.trace());
  if (!found)
    return;
  add(found->word, "not-in-option-file", "");
  diagnostics.back().accepted = found->accepted;
  diagnostics.back().suggestion =
      nearestMatch(command.wordText(found->word), found->accepted);
}

} // namespace

bool Diagnosis::hasError() const {
  return std::any_of(diagnostics.begin(), diagnostics.end(),
                     [](const Diagnostic &diagnostic) {
                       return diagnostic.severity == Severity::error;
                     });
}

Diagnosis diagnose(const std::string &command, bool ofFile) {
  const TracedCommand traced(command, AfterFault::goOn);
  Diagnosis diagnosis{command, traced.reading(), {}};
  Examiner examiner(traced, diagnosis.diagnostics);
  examiner.examineFaults();
  examiner.examineWords();
  examiner.examineRepetitions();
  if (ofFile) {
    examiner.examineForFiles();
    examiner.examineLength();
  }
  std::stable_sort(diagnosis.diagnostics.begin(), diagnosis.diagnostics.end(),
                   [](const Diagnostic &a, const Diagnostic &b) {
                     return a.offset < b.offset;
                   });
  return diagnosis;
}

} // namespace zeldebug
