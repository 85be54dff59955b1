// A command with what the engine's own reader says of each word.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_TRACEDCOMMAND_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_TRACEDCOMMAND_H

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
  /// The settings that a word decides, with the values that it finds and gives.
  std::vector<FieldDifference> changesOf(std::size_t word) const;

private:
  std::string command;
  CommandTrace read;
  Reading plainReading;
  Snapshot final;
  std::set<std::size_t> atFault;
  std::map<std::string, std::size_t> lastWords; ///< setting → its last word
};

/// "head", "target", ...
const char *shownRole(WordRole role);

} // namespace ZelDebugDialog::model

#endif
