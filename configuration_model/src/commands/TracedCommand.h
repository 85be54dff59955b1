// A command with what the engine's own reader says of each word.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "commands/Desk.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

class TracedCommand {
public:
  TracedCommand(std::string text, AfterFault afterFault);

  const std::string &text() const { return command; }
  const CommandTrace &trace() const { return read; }
  /// What reading it without a trace gives, up to its first fault.
  const Reading &reading() const { return plainReading; }
  /// What is set at the end.
  const Snapshot &snapshot() const { return final; }

  std::string wordText(std::size_t word) const;
  bool isAtFault(std::size_t word) const { return atFault.count(word) != 0; }
  /// Whether no later word gives the setting another value.
  bool isLastFor(const std::string &field, std::size_t word) const;
  /// The settings that a word changes, with the values that it gives them;
  /// nothing for one that was dropped with its clause.
  std::vector<NamedValue> changesOf(std::size_t word) const;

private:
  void replayOverwritten();

  std::string command;
  CommandTrace read;
  Reading plainReading;
  Snapshot final;
  std::set<std::size_t> atFault;
  std::map<std::string, std::size_t> lastWords; ///< setting → its last word
  /// What words gave to settings that later words overwrite.
  std::map<std::size_t, std::vector<NamedValue>> overwritten;
};

/// Takes from the words of a trace the settings that their values leave as they
/// are.
void keepChanges(const std::string &command, CommandTrace &trace);

/// "head", "target", ...
const char *shownRole(WordRole role);

} // namespace ZelDebugDialog::model
