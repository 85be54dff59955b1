// A command with what the engine's own reader says of each word.
#ifndef ZELDEBUG_TRACEDCOMMAND_H
#define ZELDEBUG_TRACEDCOMMAND_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include <ZelDebugDialog/CommandTrace.h>

#include "Configuration.h"
#include "Session.h"

namespace zeldebug {

class TracedCommand {
public:
  TracedCommand(std::string text, ZelDebugDialog::AfterFault afterFault);

  const std::string &text() const { return command; }
  const ZelDebugDialog::CommandTrace &trace() const { return read; }
  /// What reading it without a trace gives, up to its first fault.
  const Reading &reading() const { return plainReading; }
  const Configuration &configuration() const { return final; }

  std::string wordText(std::size_t word) const;
  bool isAtFault(std::size_t word) const { return atFault.count(word) != 0; }
  /// The settings that a word changes, with the values that it gives them; null
  /// for one that was dropped with its clause.
  std::vector<Setting> changesOf(std::size_t word) const;

private:
  bool isLastFor(const std::string &field, std::size_t word) const;
  void replayOverwritten();

  std::string command;
  ZelDebugDialog::CommandTrace read;
  Reading plainReading;
  Configuration final;
  std::set<std::size_t> atFault;
  std::map<std::string, std::size_t> lastWords; ///< setting → its last word
  /// What words gave to settings that later words overwrite.
  std::map<std::size_t, std::vector<Setting>> overwritten;
};

/// The trace of a command in a session whose processor is selected.
/// @return false if a lone "-" ended it.
bool traceInto(Session &session, const std::string &command,
               ZelDebugDialog::AfterFault afterFault,
               ZelDebugDialog::CommandTrace &trace);

/// Takes from the words of a trace the settings that their values leave as they
/// are.
void keepChanges(const std::string &command,
                 ZelDebugDialog::CommandTrace &trace);

/// What the words of a command set where a processor of a design is selected.
ZelDebugDialog::CommandTrace traceOf(const std::string &command,
                                     const std::string &processor,
                                     HHSMHwManager *design);

/// "head", "target", ...
const char *shownRole(ZelDebugDialog::WordRole role);

} // namespace zeldebug

#endif
