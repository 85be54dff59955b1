// Connect commands as texts: what is wrong with one, what its words do, how two
// differ, what survives writing, and how one may go on.
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
#include <cstdint>
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
  CodeSeverity severity = CodeSeverity::error; ///< How much it matters.
  std::string code;                            ///< Known to `FindCode`.
  std::string message;                         ///< A sentence about the word.
  std::string engineMessage;         ///< As the engine words it; may be empty.
  std::vector<std::string> accepted; ///< What would be accepted instead.
  std::string suggestion;            ///< The nearest of them; may be empty.
};

/// What a command is checked for.
struct CheckOptions {
  /// It is a line of an option file, whose length counts, and where fewer words
  /// are taken.
  bool ofFile = false;
  /// With `processor`: what that one does not allow is told as well.
  const Board *board = nullptr;
  std::string processor; ///< One of the board's.
};

/// A command, and all that is to be said of it.
struct CheckedCommand {
  std::string text;      ///< The command, as it was given.
  int result = 0;        ///< Of the engine's reader: 0 read, 3 refused.
  std::string error;     ///< As the engine words it; may be empty.
  bool accepted = false; ///< By the reader, and for the processor.
  std::vector<CommandDiagnostic> diagnostics; ///< In the order of the text.
};

/// Finds every fault of a command in one pass, and what is read but surely not
/// meant.
/// @throws Refusal (unknownProcessor, notDebuggable) for a processor that is
///   none of the board's
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API CheckedCommand
CheckCommand(const std::string &text, const CheckOptions &options = {});

/// A setting that a word gives another value, or the value that it had.
struct WordChange {
  std::string setting; ///< Its name.
  Value before;        ///< Of a new device: its default.
  Value after;         ///< Nothing for one that was dropped with its clause.
};

/// One word of a command.
struct ExplainedWord {
  std::size_t offset = 0; ///< In bytes.
  std::size_t length = 0; ///< In bytes.
  std::string text;       ///< The word itself.
  /// "head", "target", "connection", "option", "name", "value", "ignored" or
  /// "lost".
  std::string role;
  std::vector<WordChange> changes; ///< What it changes.
  bool atFault = false;            ///< The command is refused because of it.
};

/// A command word by word, up to its first fault.
struct ExplainedCommand {
  std::string text;      ///< The command, as it was given.
  int result = 0;        ///< As of `CheckedCommand`, as the next two are.
  std::string error;     ///< May be empty.
  bool accepted = false; ///< Otherwise `refusal` says why not.
  std::string refusal;   ///< With the column, also where `error` is empty.
  std::vector<ExplainedWord> words; ///< In the order of the text.
};

/// Tells what every word of a command is, and what it changes.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API ExplainedCommand
ExplainCommand(const std::string &text);

/// A setting in which two commands differ. A device that only one chain has
/// stands for itself ("chain[2]").
struct CommandDifference {
  std::string setting; ///< Its name.
  Value first;         ///< What the first one means.
  Value second;        ///< What the second one means.
  /// Why the same words mean another thing here; empty where the words differ.
  std::string reason;
};

/// Compares two commands by what they mean.
/// @throws Refusal (badCommand) that names each command that is refused
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::vector<CommandDifference>
DiffCommands(const std::string &first, const std::string &second);

/// What becomes of a command that is read, written and read again.
enum class RoundtripOutcome : std::uint8_t {
  same,    ///< every setting comes back, as the command asked for it
  changed, ///< some come back as something else
  refused, ///< one of the three steps is refused
};

/// "same", "changed", "refused"
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const char *
ShowOutcome(RoundtripOutcome outcome);

/// A setting that does not come back.
struct RoundtripField {
  std::string name;   ///< "connectCommand" for the command as a whole.
  Value before;       ///< Of a number that does not fit: the text.
  Value after;        ///< Nothing where nothing comes back.
  std::string reason; ///< A clause without a full stop.
  std::string code;   ///< Known to `FindCode`; an anchor of docs/round-trip.md.
  std::string displacedBy; ///< The setting in its place; may be empty.
};

/// What became of one command.
struct RoundtripResult {
  RoundtripOutcome outcome = RoundtripOutcome::refused; ///< What became of it.
  std::string written; ///< Empty if nothing could be written.
  std::string message; ///< Of the step that is refused; empty otherwise.
  std::vector<RoundtripField> fields; ///< What does not come back.
};

/// Reads, writes and reads a command again.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API RoundtripResult
RoundtripCommand(const std::string &text);

/// A word that fits where a command is being typed.
struct CompletionWord {
  std::string text;  ///< What to put there.
  std::string label; ///< What it is for.
};

/// The words that fit, in place of what stands from `from` to `to`.
struct CommandCompletion {
  std::size_t from = 0; ///< Where the word that is being typed begins.
  std::size_t to = 0;   ///< Where it ends, behind the offset or at it.
  std::vector<CompletionWord> words; ///< Those that begin as it does.
};

/// @param text    the command, as far as it has been typed
/// @param offset  where the cursor stands, up to the end of the text
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API CommandCompletion
CompleteCommand(const std::string &text, std::size_t offset);

} // namespace ZelDebugDialog

#endif
