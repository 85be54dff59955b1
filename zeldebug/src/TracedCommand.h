// A command with what the engine's own reader says of each word.
#ifndef ZELDEBUG_TRACEDCOMMAND_H
#define ZELDEBUG_TRACEDCOMMAND_H

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
  /// The settings that a word decides, with the values that it gives them.
  std::vector<Setting> changesOf(std::size_t word) const;

private:
  std::string command;
  ZelDebugDialog::CommandTrace read;
  Reading plainReading;
  Configuration final;
  std::set<std::size_t> atFault;
};

/// The trace of a command in a session whose processor is selected.
/// @return false if a lone "-" ended it.
bool traceInto(Session &session, const std::string &command,
               ZelDebugDialog::AfterFault afterFault,
               ZelDebugDialog::CommandTrace &trace);

/// What the words of a command set where a processor of a design is selected.
ZelDebugDialog::CommandTrace traceOf(const std::string &command,
                                     const std::string &processor,
                                     HHSMHwManager *design);

/// "head", "target", ...
const char *shownRole(ZelDebugDialog::WordRole role);

} // namespace zeldebug

#endif
