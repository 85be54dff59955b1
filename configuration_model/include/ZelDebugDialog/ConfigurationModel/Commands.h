// Connect commands as texts: what is wrong with one, what its words do, how two
// differ, and what survives writing.
//
// Functions without a state of their own; each reads with the engine's own
// readers, in an engine made for it. Offsets and lengths are bytes. Usable from
// any thread.
//
//   for (const CommandDiagnostic &d : CheckCommand(text).diagnostics)
//     underline(d.offset, d.length, d.message);
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Value.h"

namespace ZelDebugDialog {

/// Something that is wrong with a command, or surely not meant.
struct CommandDiagnostic {
  std::size_t offset = 0; ///< The end of the text for what is missing.
  std::size_t length = 0; ///< 0 for what is missing.
  CodeSeverity severity = CodeSeverity::error;
  std::string code;                  ///< Known to `FindCode`.
  std::string message;               ///< A sentence about the word.
  std::string engineMessage;         ///< As the engine words it; may be empty.
  std::vector<std::string> accepted; ///< What would be accepted instead.
  std::string suggestion;            ///< The nearest of them; may be empty.
};

/// How a command is to be looked at.
struct CheckOptions {
  bool ofFile = false; ///< it stands in a line of an option file
};

/// A command with what is wrong with it.
struct CheckedCommand {
  std::vector<CommandDiagnostic> diagnostics; ///< in the order of the text
};

ZELDEBUGDIALOG_CONFIGURATIONMODEL_API CheckedCommand
CheckCommand(const std::string &text, const CheckOptions &options = {});

} // namespace ZelDebugDialog

#endif
