// One engine with its design, for as long as a subcommand needs it. It releases
// the records that the engine leaves to its caller.
#ifndef ZELDEBUG_SESSION_H
#define ZELDEBUG_SESSION_H

#include <memory>
#include <string>
#include <vector>

#include <HHSMHwManager.h>
#include <ZelDebugDialog/Engine.h>
#include <ZelDebugDialog/EngineImp.h>

#include "Configuration.h"

namespace zeldebug {

/// What reading a command or an option file gave.
struct Reading {
  int result;          ///< the engine's code; 3 for a lone "-", too
  std::string message; ///< the engine's; empty for a silent refusal

  bool accepted() const { return (result & ~4) == 0; }
};

class Session {
public:
  /// @param design  may be null: then commands alone decide.
  explicit Session(HHSMHwManager *design);
  ~Session();
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  ZelDebugDialog::Engine engine;
  /// Never null.
  ZelDebugDialog::EngineImp *state;

  std::string message();
  /// Names of the processors that can be debugged.
  std::vector<std::string> processorNames() const;
  /// The record of one of them as it stands: before it is selected, what the
  /// design says.
  const ZelDebugDialog::ProcessorInfoImp &
  recordOf(const std::string &processor) const;

  /// Selects a processor from its option file below the working directory.
  Reading selectSaved(const std::string &processor);
  /// Selects a processor from a command.
  Reading selectFrom(const std::string &processor, const std::string &command);
  /// Puts the current processor's settings back to the defaults.
  void startFromDefaults();

  /// Makes a fresh record current that is no processor of the list.
  void startRecord();
  /// Reads a command as the debugger does, into a record of its own, without
  /// regard to any processor of the list.
  Reading readCommand(const std::string &command);

private:
  void forgetChain();

  std::unique_ptr<ZelDebugDialog::ProcessorInfoImp> ownRecord;
};

/// Says what is known about a refusal: the engine's message on one line, or
/// that it gave none.
std::string reasonOf(const Reading &reading);

} // namespace zeldebug

#endif
