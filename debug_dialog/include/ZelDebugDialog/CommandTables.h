// What the engine knows of the connect command: every word that it takes, and
// what the word leads to. For hints, completion and documents.
//
// Made from the tables that the readers walk, so it is never behind them. Plain
// data without ties to an engine; usable from any thread.
//
//   for (const CommandOptionSet &set : GetCommandTables().optionSets) ...
#ifndef ZELDEBUGDIALOG_COMMANDTABLES_H
#define ZELDEBUGDIALOG_COMMANDTABLES_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// A value: of a parameter, or of an option.
struct CommandValue {
  ValueConversion conversion = ValueConversion::none; ///< How it is read.
  /// The settings that it changes, named as in `CommandWord`; "chain[n]."
  /// stands for the device of the clause.
  std::vector<std::string> fields;
  /// The words that are taken, without regard to letter case; empty for any.
  std::vector<std::string> words;
};

/// A name in an option clause and the value behind it.
struct CommandParameter {
  std::string keyword; ///< The name.
  CommandValue value;  ///< What stands behind it.
};

/// An option clause. Behind the option word stand any number of `parameters`,
/// or one value, or the options of another set to the end of the command, or
/// nothing.
struct CommandOption {
  std::string keyword;                      ///< With its '-'.
  std::vector<CommandParameter> parameters; ///< Names that may follow.
  bool takesValue = false;                  ///< Whether one value follows.
  CommandValue value;                       ///< Where `takesValue`.
  std::string optionSet;            ///< Name of the other set; may be empty.
  std::vector<std::string> changes; ///< Settings that the option word changes.
};

/// The options that may follow a connection or target word.
struct CommandOptionSet {
  std::string name;                   ///< What `optionSet` refers to.
  std::vector<CommandOption> options; ///< In the order of the search.
};

/// How to connect to a target.
struct CommandConnection {
  std::string keyword; ///< The word behind the target.
  Engine::ConnectionType type = Engine::CONNECT_HW; ///< What it chooses.
  std::string optionSet; ///< The options that may follow.
};

/// What to connect to. Either connections follow, or the options of a set.
struct CommandTarget {
  std::string keyword;       ///< The word behind the head.
  bool inOptionFile = false; ///< Whether option files know the word.
  std::vector<CommandConnection> connections; ///< One must follow, if any.
  std::string optionSet; ///< Without connections: what may follow.
};

/// How a command begins. A target follows.
struct CommandHead {
  std::string keyword;                ///< The first word.
  bool inOptionFile = false;          ///< Whether option files know the word.
  std::vector<CommandTarget> targets; ///< One must follow.
};

/// A cable type.
struct CommandCable {
  Engine::CableType type = Engine::CABLE_NONE; ///< Its enumerator.
  std::vector<std::string>
      keywords;        ///< Words that are read as it; may be none.
  std::string written; ///< The word written for it; may be empty.
  /// The fields beside the type that a written command can carry for it.
  std::vector<std::string> carried;
  std::uint32_t defaultFrequency = 0;             ///< In hertz.
  std::string defaultPort;                        ///< What it starts with.
  std::vector<std::uint32_t> offeredFrequencies;  ///< To offer, in hertz.
  std::vector<std::uint32_t> acceptedFrequencies; ///< That a check lets pass.
};

/// What the readers know.
struct CommandTables {
  std::vector<CommandHead> heads;           ///< How a command begins.
  std::vector<CommandOptionSet> optionSets; ///< What follows, by name.
  std::vector<CommandCable> cables;         ///< In the order of their types.
};

/// All of it, made anew for each call.
ZELDEBUGDIALOG_API CommandTables GetCommandTables();

} // namespace ZelDebugDialog

#endif
