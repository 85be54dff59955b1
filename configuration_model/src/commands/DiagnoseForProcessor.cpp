#include "commands/Diagnose.h"

#include <cstdlib>
#include <optional>
#include <sstream>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "commands/Desk.h"
#include "commands/Keywords.h"
#include "text/NearestMatch.h"

namespace ZelDebugDialog::model {

namespace {

constexpr std::size_t headWord = 0;
constexpr std::size_t targetWord = 1;
constexpr std::size_t connectionWord = 2;

/// What a command says of its processor, in its first words.
class Front {
public:
  explicit Front(const TracedCommand &traced) : command(traced) {
    const LanguageHead *const head =
        findKeyword(GetLanguage().heads, textOf(headWord));
    if (head != nullptr)
      target = findKeyword(head->targets, textOf(targetWord));
  }

  /// The words of the target that lead to a connection that a mask allows.
  std::vector<std::string> connectionsAllowedBy(std::uint32_t mask) const {
    std::vector<std::string> words;
    if (target != nullptr)
      for (const LanguageConnection &connection : target->connections)
        if ((connection.type & mask) != 0)
          words.push_back(connection.keyword);
    return words;
  }
  /// The word that chooses a connection, where a mask does not allow it.
  std::optional<std::size_t> wordAgainst(std::uint32_t mask) const {
    const std::uint32_t chosen = command.snapshot().record.connectionType;
    if (target == nullptr || isModule() || (chosen & mask) != 0)
      return std::nullopt;
    return target->connections.empty() ? targetWord : connectionWord;
  }
  /// The readers give a debug module a mask of its own.
  bool isModule() const {
    return IsModuleMask(command.snapshot().record.connectionMask);
  }
  bool isWhole() const { return target != nullptr; }
  bool hasTarget(std::string_view keyword) const {
    return sameKeyword(target->keyword, keyword);
  }

private:
  std::string textOf(std::size_t word) const {
    return word < command.trace().words.size() ? command.wordText(word) : "";
  }

  const TracedCommand &command;
  const LanguageTarget *target = nullptr;
};

/// The target of the commands that are written for a processor, which may be
/// the one of another family.
std::string targetWrittenFor(const BoardProcessor &processor) {
  ProcessorInfoImp identity;
  identity.procFamily = processor.family;
  identity.procType = processor.procType;
  identity.connectionMask = processor.mask;
  Desk desk(nullptr, identity);
  desk.startFromDefaults();
  std::string command;
  desk.writeCommand(command);
  std::istringstream words(command);
  std::string target;
  words >> target >> target; // behind the head
  return target;
}

bool isOtherTarget(const BoardProcessor &processor, const Front &front,
                   const ProcessorInfoImp &read) {
  if (front.isModule())
    return true;
  const bool isOther =
      read.procFamily != processor.family ||
      (processor.family == familyArm && read.procType != processor.procType);
  return isOther && !front.hasTarget(targetWrittenFor(processor));
}

/// As the reader compares it with a design: all 32 bits of it.
bool isNumberOf(const BoardProcessor &processor, const std::string &text) {
  const auto number = std::strtoull(text.c_str(), nullptr, 0);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number)) ==
         processor.number;
}

/// A value that says which processor it is.
void diagnoseValue(const BoardProcessor &processor,
                   const TracedCommand &command, std::size_t word,
                   std::vector<CommandDiagnostic> &found) {
  for (const FieldDifference &change : command.changesOf(word)) {
    if (change.name == "cpuNr" &&
        !isNumberOf(processor, command.wordText(word))) {
      found.push_back(diagnosticOf(
          command, word, "number-differs",
          fmt::format("this one has number {}", processor.number)));
      found.back().accepted = {fmt::format("{}", processor.number)};
    }
    if (change.name == "procType" && change.after != Value(processor.procType))
      found.push_back(diagnosticOf(command, word, "kind-differs", ""));
  }
}

} // namespace

void diagnoseFor(const BoardProcessor &processor, const TracedCommand &command,
                 std::vector<CommandDiagnostic> &found) {
  const Front front(command);
  const std::vector<CommandWord> &words = command.trace().words;
  if (!front.isWhole() || command.isAtFault(connectionWord))
    return;
  if (const auto word = front.wordAgainst(processor.mask);
      word && *word < words.size()) {
    found.push_back(diagnosticOf(command, *word, "connection-not-allowed", ""));
    found.back().accepted = front.connectionsAllowedBy(processor.mask);
  } else if (isOtherTarget(processor, front, command.snapshot().record)) {
    found.push_back(diagnosticOf(command, targetWord, "target-differs", ""));
  }
  for (std::size_t i = 0; i < words.size(); ++i)
    if (words[i].role == WordRole::value && !command.isAtFault(i))
      diagnoseValue(processor, command, i, found);
}

} // namespace ZelDebugDialog::model
