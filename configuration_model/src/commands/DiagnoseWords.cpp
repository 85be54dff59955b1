#include "commands/Diagnose.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "commands/Keywords.h"
#include "settings/Cables.h"
#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace {

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return text;
}

bool sets(const CommandWord &word, const char *field) {
  return std::find(word.fields.begin(), word.fields.end(), field) !=
         word.fields.end();
}

/// Adds diagnostics for one command.
class Examiner {
public:
  Examiner(const TracedCommand &traced, std::vector<CommandDiagnostic> &found)
      : command(traced), diagnostics(found) {}

  void examineWords();
  void examineRepetitions();

private:
  void add(std::size_t word, const char *code, const std::string &detail,
           std::size_t start = 0) {
    diagnostics.push_back(diagnosticOf(command, word, code, detail, start));
  }
  void examineNumber(std::size_t word, std::size_t start, int base);
  void examineFit(std::size_t word, std::size_t start, long long number,
                  bool isHuge);
  void examineNumbers(std::size_t word);
  void examineFrequency(std::size_t word);
  void examineBaud(std::size_t word);

  const TracedCommand &command;
  std::vector<CommandDiagnostic> &diagnostics;
};

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
        fmt::format("it is read as '{}'",
                    printable(text.substr(
                        0, static_cast<std::size_t>(end - text.c_str())))),
        start);
  const bool isOctal = base == 0 && text.size() > 1 && text[0] == '0' &&
                       text[1] >= '0' && text[1] <= '7';
  if (isOctal)
    add(word, "octal-number", fmt::format("its value is {}", number), start);
  examineFit(word, start, number, isHuge);
}

void Examiner::examineFit(std::size_t word, std::size_t start, long long number,
                          bool isHuge) {
  for (const FieldDifference &setting : command.changesOf(word)) {
    if (!setting.after.IsNumber())
      continue;
    if (!isHuge && setting.after == Value(number))
      continue;
    const SettingInfo *const info = FindSetting(setting.name);
    add(word, "value-cut",
        fmt::format("{} becomes {}", setting.name,
                    info == nullptr ? std::string()
                                    : ShowStored(*info, setting.after)),
        start);
    return;
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
void Examiner::examineFrequency(std::size_t word) {
  const CommandCable *const cable =
      findCable(command.snapshot().cable.cableType);
  if (cable == nullptr || cable->type == Engine::CABLE_NONE) {
    add(word, "frequency-without-cable", "");
    return;
  }
  if (cable->keywords.empty())
    return;
  Desk desk;
  CommandTrace alone;
  const std::string text = command.wordText(word);
  desk.traceCommand("connect lc hdu -cable type " + cable->keywords.front() +
                        " frequency " + text,
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

/// A serial line without a rate.
void Examiner::examineBaud(std::size_t word) {
  const ProcessorInfoImp &record = command.snapshot().record;
  const bool isSerialStub = record.connectionType == Engine::CONNECT_STUB &&
                            record.stubType != Engine::STUB_JTAG;
  if (isSerialStub && record.stubBaudRate == 0 &&
      command.isLastFor("stubBaudRate", word))
    add(word, "baud-zero", "");
}

void Examiner::examineWords() {
  const std::vector<CommandWord> &words = command.trace().words;
  bool saidIgnored = false;
  bool hasFault = false; // in front of the word
  for (std::size_t i = 0; i < words.size(); ++i) {
    const CommandWord &word = words[i];
    const bool isValue = word.role == WordRole::value;
    if (command.isAtFault(i)) {
      hasFault = true;
      continue;
    }
    if (isValue && IsOptionWord(command.wordText(i))) {
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
    if (isValue && sets(word, "cable.frequency"))
      examineFrequency(i);
    if (isValue && sets(word, "stubBaudRate"))
      examineBaud(i);
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

} // namespace

void diagnoseWords(const TracedCommand &command,
                   std::vector<CommandDiagnostic> &found) {
  Examiner examiner(command, found);
  examiner.examineWords();
  examiner.examineRepetitions();
}

} // namespace ZelDebugDialog::model
