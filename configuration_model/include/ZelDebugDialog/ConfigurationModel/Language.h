// The connect language and the cables, as the engine's own tables have them.
//
// Plain data without ties to an engine, made once a process; usable from any
// thread.
//
//   for (const LanguageHead &head : GetLanguage().heads) ...
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LANGUAGE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LANGUAGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// A value: of a parameter, or of an option.
struct LanguageValue {
  /// "text", "number", "signed-number", "byte" (a number whose low 8 bits
  /// count), "word" (one of `words`), "host-and-port", or "unused": checked,
  /// not kept.
  std::string kind;
  std::vector<std::string> settings; ///< Those that it changes.
  std::vector<std::string> words;    ///< Those that are taken; empty for any.
};

/// A name in an option clause, and the value behind it.
struct LanguageParameter {
  std::string keyword; ///< The word.
  LanguageValue value; ///< What stands behind it.
};

/// An option. Behind its word stand any number of parameters, or one value, or
/// the options of another set to the end of the command, or nothing.
struct LanguageOption {
  std::string keyword;                       ///< With its '-'.
  std::vector<LanguageParameter> parameters; ///< Its names and values.
  std::optional<LanguageValue> value;        ///< Its value, where it takes one.
  std::string optionSet;             ///< Name of the other set; may be empty.
  std::vector<std::string> settings; ///< Those that the option word changes.
};

/// The options that may follow a connection or a target.
struct LanguageOptionSet {
  std::string name;                    ///< Its name.
  std::vector<LanguageOption> options; ///< Its options.
};

/// How to connect to a target.
struct LanguageConnection {
  std::string keyword;    ///< The word.
  std::uint32_t type = 0; ///< As `connectionType`.
  std::string optionSet;  ///< The options that may follow.
};

/// What to connect to. Either a connection follows, or the options of a set.
struct LanguageTarget {
  std::string keyword;       ///< The word.
  bool inOptionFile = false; ///< Whether option files know the word.
  std::vector<LanguageConnection>
      connections;       ///< How to connect to it; may be none.
  std::string optionSet; ///< Without connections: what may follow.
};

/// How a command begins. A target follows.
struct LanguageHead {
  std::string keyword;                 ///< The word.
  bool inOptionFile = false;           ///< Whether option files know the word.
  std::vector<LanguageTarget> targets; ///< What may stand behind it.
};

/// Every word that the readers know. Letter case does not count.
struct Language {
  std::vector<LanguageHead> heads; ///< In the order in which readers look.
  std::vector<LanguageOptionSet>
      optionSets; ///< Named by the targets and connections.
};

/// The whole language.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const Language &GetLanguage();

/// @return null for a name that no option set has.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const LanguageOptionSet *
FindOptionSet(std::string_view name);

/// A JTAG cable.
struct CableInfo {
  std::uint32_t type = 0;            ///< As `cable.cableType`; 0: no cable.
  std::vector<std::string> keywords; ///< Words that are read; may be none.
  std::string written;               ///< The word that is written; or empty.
  bool writable = false;             ///< Whether a command with it is written.
  /// Whether a command can be written once it is chosen. Without a cable one is
  /// written as well, in fewer words.
  bool offered = false;
  std::uint32_t defaultFrequency = 0; ///< In hertz.
  std::string defaultPort;            ///< That it starts with; may be empty.
  std::vector<std::uint32_t> offeredFrequencies;  ///< To offer, in hertz.
  std::vector<std::uint32_t> acceptedFrequencies; ///< That pass a check.
};

/// In the order of their types, "no cable" first.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const std::vector<CableInfo> &GetCables();

} // namespace ZelDebugDialog

#endif
