// The connect command language of the target debugger: words, clauses, whole
// commands and option files, read into and written from an `EngineImp`.
//
// Only static members. Readers consume the text that they read: afterwards the
// string holds what is left. Writers append unless said otherwise. Both work on
// the current record (`EngineImp::currentProcessor`, a precondition of all but
// the tokenizer), the cable and the chain, and put messages into the error
// string of `EngineImp::engine`. What was stored before a refusal or an
// exception stays stored; std::bad_alloc may leave part of a clause appended.
//
// Two threads must not read commands at the same time, not even with two
// engines: `current_option` is one for the process. A program that reads in
// several threads takes one lock around all readers.
//
//   std::string text = "connect lc hdu -debugdevice devicenr 1";
//   if (KvoOption_Parser::ReadKvoCommand(text, state) != 0) ...
//
// Results of readers: 0 read; 1 stopped after an option word, which is in
// `current_option`; 2 refused; 3 the text is used up. Every reader raises
// std::out_of_range for a word that is a lone "-".
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_H

#include <string>

#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// Readers and writers of the connect command language.
class ZELDEBUGDIALOG_API KvoOption_Parser {
public:
  // --- Words ----------------------------------------------------------------

  /// The last option word that was read: '-' and no digit behind it. Some
  /// readers read a plain value into it, too. Never cleared.
  static std::string current_option;

  /// Takes the next word off `input`, which is first trimmed at both ends by
  /// the global locale's white space. Words end at a blank or a tab.
  /// @return 0 a value; 1 an option word, also copied to `current_option`;
  ///   3 nothing left, `token` as it was.
  /// @throws std::out_of_range for a lone "-", taken off `input` before.
  static int get_token(std::string &input, std::string &token);
  /// Takes a name and its value. @return 0; 1 an option word stands in `first`;
  ///   2 no value: the text ended, or an option word stands in `second`;
  ///   3 nothing left.
  static int get_tokenpair(std::string &input, std::string &first,
                           std::string &second);

  // --- Whole commands and files ---------------------------------------------

  /// Reads a connect command; the text is stored in `connectCommand` first.
  /// @return 0; 3 refused.
  static int ReadKvoCommand(std::string command, EngineImp &imp);
  /// Builds the connect command into `out` and `connectCommand`.
  /// @return 0; 1 refused, both as they were.
  static int WriteKvoCmdString(EngineImp &imp, std::string &out);
  /// Reads the first line that is not empty of a processor's option file; at
  /// most 1,023 characters, up to a null byte. Sets no message of its own.
  /// @return 0; 3 refused; 4 no such regular file, or nothing in it.
  static int ReadKvoOptFile(std::string processorName, EngineImp &imp);
  /// Saves the connect command of the current record in its option file, as
  /// `Engine::Generate` does.
  /// @return 0; 1 no command, the file is untouched; 4 "Error Opening File",
  ///   the command is stored in the record.
  static int WriteKvoOptFile(EngineImp &imp);
  /// As `ReadKvoOptFile`, from the file at `path`: the working directory counts
  /// only where `path` is relative.
  /// @return 0; 3 refused; 4 no such regular file, or nothing in it.
  static int ReadKvoOptFileFrom(const std::string &path, EngineImp &imp);
  /// As `WriteKvoOptFile`, into the file at `path`. Its folder is not made.
  /// @return 0; 1 no command, the file is untouched; 4 "Error Opening File",
  ///   the command is stored in the record.
  static int WriteKvoOptFileTo(const std::string &path, EngineImp &imp);

  // --- Targets: what follows the target word. 0 read, 2 refused -------------

  /// What follows "lc": a Lumacore. @return 0; 2.
  static int parse_lcoptions(std::string &command, EngineImp &imp);
  /// What follows "ppc": a PowerPC. @return 0; 2.
  static int parse_ppcoptions(std::string &command, EngineImp &imp);
  /// What follows "arm": a Cortex-A9. @return 0; 2.
  static int parse_armoptions(std::string &command, EngineImp &imp);
  /// What follows "r5": a Cortex-R5. @return 0; 2.
  static int parse_armr5options(std::string &command, EngineImp &imp);
  /// What follows "dap": the debug access port. @return 0; 2.
  static int parse_dapoptions(std::string &command, EngineImp &imp);
  /// What follows "hdu": the debug module itself. @return 0; 2.
  static unsigned parse_hduoptions(std::string &command, EngineImp &imp);
  /// What follows "dcc": the debug communication channel. @return 0; 2.
  static unsigned parse_dccoptions(std::string &command, EngineImp &imp);
  /// What follows "kmtc". @return 0; 2.
  static unsigned parse_kmtcoptions(std::string &command, EngineImp &imp);
  /// What follows "vpconnect": a virtual platform of a Lumacore; the mode and
  /// the address that its options name. @return 0; 2.
  static unsigned parse_vpoptions(std::string &command, EngineImp &imp);

  /// Appends " lc", the connection word and its clauses. @return 0; 2, with
  /// "Invalid Connect Type for Lumacore Target" or "Invalid Cable Type".
  static int write_lcoptions(std::string &out, EngineImp &imp);
  /// Appends " ppc", the connection word and its clauses. @return 0; 2, with
  /// "Invalid Connect Type for PowerPC Target" or "Invalid Cable Type".
  static int write_ppcoptions(std::string &out, EngineImp &imp);
  /// Replaces `out` with "vpconnect lc ...". @return 0; 2 without a message for
  ///   a processor that is no Lumacore, `out` is then "vpconnect".
  static int write_vpoptions(std::string &out, EngineImp &imp);

  // --- Option clauses: what follows the option word -------------------------

  /// All option clauses up to the end. @return 0; 2.
  static int parse_options(std::string &command, EngineImp &imp);
  /// The value of the stub option `option` ("-comm", "-port", "-baud",
  /// "-timeout"). @return 0; 2; or 1 or 3 without a value, nothing stored.
  static int parse_commoptions(std::string &command, std::string &option,
                               EngineImp &imp);
  /// Appends port, baud rate and time-out of the serial stub. @return 0
  static int write_commoptions(std::string &out, EngineImp &imp);

  /// What follows "-debugdevice": names and values, up to the next option word,
  /// into the fields of the record that they name. @return 1; 2; 3.
  static unsigned parse_debugdevice(std::string &command, EngineImp &imp);
  /// Appends " -debugdevice" with the numbers, regions and ranges of the record
  /// that are set; nothing if none is. @return 0
  static int write_debugdeviceoptions(std::string &out, EngineImp &imp);

  /// What follows "-cable": names and values, up to the next option word, into
  /// the cable. A type brings its port. Where the clause ends the text, the
  /// cable gets the frequency that its type starts with, or the one that was
  /// given is checked.
  /// @return 1 (frequency neither defaulted nor checked); 2; 3.
  static int parse_cable(std::string &command, EngineImp &imp);
  /// What follows "-configdevice": names and values of one device, which joins
  /// the chain as a new record; or the mark of the processor's own JTAG pins.
  /// @return 1; 2, also for a name without a value, where the record is kept;
  ///   3.
  static int parse_configdevice(std::string &command, EngineImp &imp);
  /// What follows "-bscan": the name of a boundary-scan user register.
  /// @return 0; 2.
  static unsigned parse_hdubscan(std::string &command, EngineImp &imp);
  /// Checks "-pfsl" and keeps nothing. @return 1; 2; 3.
  static unsigned parse_lcfsloptions(std::string &command, EngineImp &imp);
  /// Writes nothing: there is nothing to write. @return 0
  static int write_lcfsloptions(std::string &out, EngineImp &imp);

  /// What follows "ppc sim": the simulator's file or its host and port, and the
  /// debug device clause. @return 0; 2.
  static unsigned parse_ppcsim_options(std::string &command, EngineImp &imp);
  /// Appends the options of the PowerPC simulator. @return 0
  static int write_ppcsim_options(std::string &out, EngineImp &imp);
  /// What follows "-sim": the host and port of a ModelSim co-simulation, up to
  /// the end of the text. @return 2; 3.
  static unsigned parse_modelsim_options(std::string &command, EngineImp &imp);

  // --- Cable, chain and debug device on their own ---------------------------

  /// Reads "-cable", "-configdevice", "-debugdevice" and "-bscan" clauses, and
  /// no others, into the cable, the chain and the record.
  /// @return 0; 3 refused.
  static int ReadJtagCableOptions(std::string &text, EngineImp &imp);
  /// Appends cable, boundary scan, chain and debug device.
  /// @return 0; 1 "Invalid Cable Type", with " -cable" appended.
  static int WriteJtagCableOptionsString(EngineImp &imp, std::string &out);
  /// Appends cable, boundary scan and chain.
  /// @return 0; 2 "Invalid Cable Type", with " -cable" appended.
  static int write_jtagoptions(std::string &out, EngineImp &imp);
  /// Appends the serial number of `cable`, or else port and frequency (in
  /// hertz). @return 0
  static int write_quorla_cableoptions(std::string &out, CableOption cable);
  /// Appends the module of `cable` and its arguments. @return 0
  static int write_plugin_cableoptions(std::string &out, CableOption cable);
  /// Writes nothing: the cable has no parameters. @return 0
  static int write_digilent_cableoptions(std::string &out, CableOption cable);
  /// Gives the cable its default frequency, or (`useDefault` 0) checks the one
  /// that it has.
  /// @return 0; 2: refused with a message for the types 2, 3, 4 and 7, without
  ///   one for the others, which have no frequencies.
  static int setcable_frequency(EngineImp &imp, int useDefault);
};

} // namespace ZelDebugDialog

#endif
