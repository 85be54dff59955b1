// A second way to write a connect command: with a record of which setting each
// word carries, and of what the command does not say.
//
// `TraceKvoWriting` writes with the code of
// `KvoOption_Parser::WriteKvoCmdString` and leaves the same state and error
// string behind; beside that the writers tell what becomes of every setting. It
// keeps nothing; the record belongs to the caller. The thread rules of
// `KvoOption_Parser` hold.
//
//   CommandWriting writing;
//   TraceKvoWriting(state, command, writing);
//   for (const Omission &lost : writing.omissions) ...
//
// Each setting but `connectCommand` is in exactly one of three places: a word
// carries it, leaving it out means its value, or it is omitted. A command
// without unreadable settings is accepted by a reader without a design, and
// gives each setting back that is not omitted.
#ifndef ZELDEBUGDIALOG_COMMANDWRITING_H
#define ZELDEBUGDIALOG_COMMANDWRITING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// Why a setting is not what a reader of the command gets.
enum class OmissionReason : std::uint8_t {
  // Omitted whatever its value is.
  noWriter,              ///< no command that is written holds it
  otherConnection,       ///< this kind of connection does not use it
  otherCable,            ///< this cable does not have it
  serialNumber,          ///< the serial number takes its place
  simulatorFile,         ///< the simulator file takes its place
  configurationMode,     ///< the configuration mode takes its place
  withConfigurationMode, ///< it is written with the configuration mode only
  portWithoutHost,       ///< a port is written behind its host only
  powerPcOnly,           ///< it is written for a PowerPC only
  ppc405Only,            ///< it is written for a ppc405 only
  identity,              ///< it tells which processor this is

  // Omitted because of its value.
  processorKind,       ///< the kind of a processor is not written
  writtenAsPpc,        ///< it is written as the target "ppc"
  writtenAsProcessor,  ///< a debug module is written as a processor
  followsIcache,       ///< the base of the map is read from the icache region
  regionWithoutStart,  ///< a region without a start is not written
  incompleteRange,     ///< a range without start or size is not written
  registerWithoutWord, ///< only USER1 and USER2 can be written
  betweenNamedValues,  ///< it is no value that has a word

  // No command can be written because of it.
  connectionWithoutCommand, ///< the processor has no text for the connection
  cableWithoutCommand,      ///< the cable has no text

  // Written, and unreadable.
  connectionNotAllowed,   ///< by the mask; a reader with the design refuses it
  cpuJtagMarker,          ///< no reader knows the words of the marker
  oneWord,                ///< host and port are one word that no reader knows
  configurationModeAlone, ///< the mode has no value without the other flag
  moduleMissing,          ///< a plug-in cable needs a module
  frequencyChecked, ///< not the cable's, and the clause that ends a command is
                    ///< checked
  misalignedRegion, ///< not on a 64 KiB boundary
  emptyText,        ///< the next word is read in its place
  whiteSpace,       ///< it falls apart, or loses an end
  leadingMinus,     ///< it is read as an option
  colonInHost,      ///< the first colon separates host and port
};

/// One word of a written command.
struct WrittenWord {
  std::size_t offset = 0;            ///< In bytes from the begin of the text.
  std::size_t length = 0;            ///< In bytes; 0 for an empty text.
  WordRole role = WordRole::ignored; ///< What it is for.
  /// The settings that it carries, named as in `CommandWord`. A text with white
  /// space in it is one word here.
  std::vector<std::string> fields;
};

/// A setting that a reader does not get, and why.
struct Omission {
  std::string field; ///< Named as in `CommandWord`.
  OmissionReason reason = OmissionReason::noWriter; ///< The reason.
  std::string displacedBy; ///< What takes its place; empty for nothing.
};

/// What was seen while a command was written. A list names a setting once.
struct CommandWriting {
  std::vector<WrittenWord> words;   ///< In the order of the text.
  std::vector<std::string> implied; ///< Left out: that says their values.
  std::vector<Omission> omissions;  ///< Not written, or as another value.
  /// Settings among those that the words carry: because of each of them a
  /// reader refuses the command, or may read something else.
  std::vector<Omission> unreadable;
};

/// Builds the connect command into `out` and `connectCommand`, as
/// `KvoOption_Parser::WriteKvoCmdString` does, and fills `writing`, whose
/// earlier contents are dropped.
/// @return 0; 1 refused, both texts as they were. `writing` then names only the
///   setting for which there is no command, among the omissions.
ZELDEBUGDIALOG_API int TraceKvoWriting(EngineImp &imp, std::string &out,
                                       CommandWriting &writing);

} // namespace ZelDebugDialog

#endif
