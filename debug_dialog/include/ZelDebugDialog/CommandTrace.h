// A second way to read a connect command: with a record of what each word was.
//
// `TraceKvoCommand` reads with the code of `KvoOption_Parser::ReadKvoCommand`
// and leaves the same state, error string and `current_option` behind; beside
// that it tells for every word its place, its role, the settings that it
// changed and what was wrong with it. For hints, highlighting and checks. It
// keeps nothing; the trace belongs to the caller. The thread rules of
// `KvoOption_Parser` hold.
//
//   CommandTrace trace;
//   TraceKvoCommand(text, scratchState, trace, AfterFault::goOn);
//   for (const CommandFault &fault : trace.faults) ...
#ifndef ZELDEBUGDIALOG_COMMANDTRACE_H
#define ZELDEBUGDIALOG_COMMANDTRACE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/Export.h"
#include "ZelDebugDialog/SettingFields.h"

namespace ZelDebugDialog {

/// What a word is for.
enum class WordRole : std::uint8_t {
  head,       ///< "connect" and its like
  target,     ///< what is connected to
  connection, ///< how
  option,     ///< begins an option clause
  name,       ///< names a parameter of the clause
  value,      ///< the value of a parameter or an option
  ignored,    ///< not looked at
  lost,       ///< an option word that was read where its clause cannot begin
};

/// How a value becomes a setting.
enum class ValueConversion : std::uint8_t {
  none,         ///< it is not converted, or not kept
  text,         ///< taken as it stands
  number,       ///< unsigned, decimal, 0x or leading 0; the low 32 bits
  signedNumber, ///< the same with a sign, the low 32 bits
  lowByte,      ///< as `number`, the low 8 bits
  namedValue,   ///< one of a few words
  hostAndPort,  ///< "host:port"
};

/// What can be wrong with a word.
enum class CommandFaultKind : std::uint8_t {
  missingHead,
  unknownHead,
  missingTarget,
  unknownTarget,
  missingConnection,
  unknownConnection,
  connectionNotAllowed, ///< by the mask of the processor in the design
  unknownOption,
  notAnOption, ///< a value where an option belongs
  unknownParameter,
  missingValue, ///< the text ended, or an option word stands in its place
  refusedValue,
  missingSvfFile,
  missingModule,
  refusedFrequency,
  loneDash, ///< a word that is "-"; raises std::out_of_range
};

/// A setting that a word changed. Module arguments, which are joined, are told
/// whole up to a million characters in all the changes of a command; behind
/// that `before` is empty and `after` the argument alone.
struct FieldChange {
  std::string field; ///< Named as in `CommandWord::fields`.
  FieldValue before; ///< What it was.
  FieldValue after;  ///< What it became; may be the same.
};

/// One word of the command.
struct CommandWord {
  std::size_t offset = 0;            ///< In bytes from the begin of the text.
  std::size_t length = 0;            ///< In bytes.
  WordRole role = WordRole::ignored; ///< What it is for.
  /// The settings that it decides: those that it changed, without what the
  /// target, the connection or the end of a cable clause replaced. Fields of
  /// `ProcessorInfoImp` by their names, "cable." and a field of `CableOption`,
  /// "chain[0]." and a field of a `JtagOption`, or "cpuJtag". A later word may
  /// decide the same setting.
  std::vector<std::string> fields;
  /// All that was stored because of it, each setting once, also where it was
  /// the same before, where the word is at fault, where a later word replaced
  /// it, and where its clause was dropped: "chain[n]." is then a device that
  /// the chain never had.
  std::vector<FieldChange> changes;
  ValueConversion conversion = ValueConversion::none; ///< How it was read.
};

/// Something wrong with the command.
struct CommandFault {
  CommandFaultKind kind = CommandFaultKind::unknownHead; ///< What it is.
  /// Index of the word at fault; the number of words where one is missing at
  /// the end of the text.
  std::size_t word = 0;
  std::string message;               ///< The engine's own; may be empty.
  std::vector<std::string> accepted; ///< What would have been accepted here.
};

/// What was seen while a command was read.
struct CommandTrace {
  std::vector<CommandWord> words;   ///< In the order of the text.
  std::vector<CommandFault> faults; ///< In the order of the text.
};

/// What to do after a fault.
enum class AfterFault : std::uint8_t {
  stop, ///< as `ReadKvoCommand`; the words behind are `ignored`
  /// at the next option word, in the option set of the fault; at the word
  /// itself where an option word stands in the place of a value
  goOn,
};

/// Reads a connect command into the current record, as
/// `KvoOption_Parser::ReadKvoCommand` does, and fills `trace`, whose earlier
/// contents are dropped.
/// @return 0; 3 refused. With `AfterFault::goOn` 3 for every command with a
///   fault; what later options say is then read as well, so give it a state
///   that may be spoiled.
/// @throws std::out_of_range for a lone "-" with `AfterFault::stop`; `trace`
///   holds all words then as well.
ZELDEBUGDIALOG_API int TraceKvoCommand(std::string command, EngineImp &imp,
                                       CommandTrace &trace,
                                       AfterFault afterFault);

} // namespace ZelDebugDialog

#endif
