// A configuration as a command or a file, and back again.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_WRITING_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_WRITING_H

#include <optional>
#include <string>

#include "ZelDebugDialog/CommandWriting.h"
#include "commands/Desk.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// What writing gave.
struct Written {
  std::optional<std::string> command; ///< none: there is none
  std::string error;                  ///< why
  CommandWriting writing;
};

/// The command of a configuration.
Written writeSnapshot(Desk &desk, const Snapshot &snapshot);

/// The same without a record; nothing where there is no command.
std::optional<std::string> composeCommand(Desk &desk, const Snapshot &snapshot);

/// Writes it into a file, as the engine does.
/// @return 0, or why not
Reading writeSnapshotTo(Desk &desk, const Snapshot &snapshot,
                        const std::string &path);

/// What reading again gave.
struct ReadBack {
  std::optional<Snapshot> snapshot; ///< none: it was refused
  std::string refusal;              ///< why
};

/// Reads a written command as an option file with it is read.
ReadBack readBack(Desk &desk, const std::string &command);
/// The same of the file that it was written into.
ReadBack readBackFile(Desk &desk, const std::string &path,
                      const std::string &command);

/// What the engine reads of a command that is written into an option file: up
/// to the end of its line, a null byte, and the limit of a line.
std::string lineOfFile(const std::string &command);

} // namespace ZelDebugDialog::model

#endif
