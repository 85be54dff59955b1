// A line that is being typed, as far as it goes.
#ifndef ZELDEBUG_TYPEDLINE_H
#define ZELDEBUG_TYPEDLINE_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "line/CommandLine.h"

namespace zeldebug {

struct TypedLine {
  std::vector<std::string> arguments;                     ///< of the subcommand
  std::map<std::string, std::vector<std::string>> values; ///< of options
  std::string last; ///< what is being typed, of an option the value alone

  /// What the last word is a value of; nothing for the name of a subcommand or
  /// an option, and where nothing fits.
  std::optional<ValueKind> kind;
  bool isSubcommand = false;        ///< the name of one is being typed
  std::vector<std::string> options; ///< that fit, where one is being typed
  /// What arguments of the subcommand may be that look like options.
  std::optional<ValueKind> dashedKind;

  /// Whether the first argument of the subcommand is a design.
  bool takesDesign = false;
  /// Whether the last word is that argument, or where a project names the
  /// design, a processor.
  bool mayBeProcessor = false;

  /// The last value of an option; empty without one.
  std::string value(const std::string &option) const;
};

/// @param words  behind the program's name; bash has "--name=value" as three
TypedLine readTypedLine(CommandLine &line,
                        const std::vector<std::string> &words);

} // namespace zeldebug

#endif
