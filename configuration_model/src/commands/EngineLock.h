// The one lock of the library, around everything that uses an engine or asks a
// design.
//
// Engines read with one string of the process, so that not even two of them may
// be used at once; and designs answer one question at a time. Whoever holds the
// lock calls nothing that takes it: outside of this room only whole operations
// take it, such as those of `Desk`, and none of them calls another. A fork
// waits for it as well, unless its own thread holds it, and leaves both
// processes with it as it was.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_ENGINELOCK_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_ENGINELOCK_H

namespace ZelDebugDialog::model {

/// Waits for the lock, and holds it as long as it lives.
class EngineLock {
public:
  EngineLock();
  EngineLock(const EngineLock &) = delete;
  EngineLock &operator=(const EngineLock &) = delete;
  ~EngineLock();
};

} // namespace ZelDebugDialog::model

#endif
