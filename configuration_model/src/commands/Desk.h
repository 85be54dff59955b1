// One engine for one processor, or for none: reads commands and option files
// into it and writes commands.
//
// A desk costs no discovery: it is given what discovery found. It owns its
// engine and all records, and refers to the design. Each operation takes the
// lock of the library; two threads do not use one desk at a time.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DESK_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DESK_H

#include <string>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "settings/Snapshot.h"

class HHSMHwManager;

namespace ZelDebugDialog::model {

/// What reading or writing gave.
struct Reading {
  int result;          ///< the engine's code; 3 for a lone "-", too
  std::string message; ///< the engine's; empty for a silent refusal

  /// True as well where there is nothing to read.
  bool accepted() const { return (result & ~4) == 0; }
};

/// What is known about a refusal: the engine's message on one line, or that it
/// gave none.
std::string reasonOf(const std::string &message);

class Desk {
public:
  /// Commands alone decide which processor they are for.
  Desk();
  /// @param design     may be null
  /// @param identity   as discovery found it
  Desk(HHSMHwManager *design, ProcessorInfoImp identity);
  ~Desk();
  Desk(const Desk &) = delete;
  Desk &operator=(const Desk &) = delete;

  // Each of these starts from the processor as it was given, with nothing set.

  /// Selects the processor as a dialog does, from a command.
  Reading selectFrom(const std::string &command);
  /// The same from an option file: of its first line that is not empty.
  Reading selectFile(const std::string &path);
  /// Selects it with nothing set.
  void startFromDefaults();
  /// Only reads, as the debugger does: the design has no say afterwards.
  Reading readCommand(const std::string &command);
  /// The same with a record of what each word was.
  /// @return false if a lone "-" ended it.
  bool traceCommand(const std::string &command, AfterFault afterFault,
                    CommandTrace &trace);

  /// The command for what is set.
  /// @param command  stays as it was where none can be written
  Reading writeCommand(std::string &command);

  /// What is set.
  Snapshot snapshot() const { return snapshotOf(*imp); }
  /// The engine's state; for a caller that holds the lock, or only looks.
  EngineImp &state() { return *imp; }

private:
  void begin();

  ProcessorInfoImp processor;
  ProcessorInfoImp record;
  Engine engine;
  EngineImp *imp; ///< the engine's
};

} // namespace ZelDebugDialog::model

#endif
