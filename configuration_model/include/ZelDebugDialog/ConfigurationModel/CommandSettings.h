// What one command makes of every setting: of a command in any file, without a
// design, and of the file that a session has loaded.
//
// Plain values; usable from any thread. A command that is refused is told up to
// its first fault, one that is cut up to where it is cut.
//
//   const CommandSettings read = ReadCommandFile("saved.opt");
//   for (const CommandSetting &setting : read.settings)
//     show(setting.id, setting.value, setting.origin);
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDSETTINGS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDSETTINGS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Value.h"

namespace ZelDebugDialog {

/// A setting as a command leaves it.
struct CommandSetting {
  std::string id;     ///< As of `GetSettings`; of a device: "chain[0].idcode".
  Value value;        ///< Of the kind that the setting has.
  std::string origin; ///< "default", "design" or "file:<column>".
};

/// What a command makes of every setting.
struct CommandSettings {
  std::string text; ///< The command; empty where there is none.
  int line = 0;     ///< Where it stands in its file, from 1; 0 without one.
  /// Of the engine's reader: 0 read, 3 refused, 4 nothing there.
  int result = 0;
  std::string error;   ///< As the engine words it; may be empty.
  std::string refusal; ///< Why it cannot be taken; empty if it can.
  std::string doubt;   ///< What is not read of it; empty for nothing.
  /// In the order of `GetSettings`, the chain and its devices apart.
  std::vector<CommandSetting> settings;
  std::vector<std::vector<CommandSetting>> chain; ///< A device's fields each.
};

/// Reads the first line of a file that is not empty, as any command is read:
/// whole, and without a design.
/// @throws Refusal (unreadable) for a file that cannot be read, or without a
///   command
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API CommandSettings
ReadCommandFile(const std::string &path);

} // namespace ZelDebugDialog

#endif
