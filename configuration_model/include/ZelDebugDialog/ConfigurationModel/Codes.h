// Every word that is ever shown in brackets: the codes of diagnostics, and of
// the reasons for which a setting does not survive.
//
// One row a code. Codes are stable: programs may rely on them. The table is
// made once and never changes; usable from any thread.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_CODES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_CODES_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// How much something matters.
enum class CodeSeverity : std::uint8_t {
  error,   ///< The command is refused.
  warning, ///< It is read, and surely not meant so.
  loss,    ///< The reason for which a setting does not survive.
};

/// The stable word for it: "error", "warning", "loss".
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const char *
ShowSeverity(CodeSeverity severity);

/// What a code stands for.
struct Code {
  std::string code;                            ///< The word in brackets.
  CodeSeverity severity = CodeSeverity::error; ///< How much it matters.
  /// What it says of a word, behind its quotation; of a setting, behind its
  /// value.
  std::string summary;
  std::string meaning; ///< Sentences.
  /// A command that has it; of a loss, one that has it when it is read, written
  /// and read again, or what is written for a setting that no command gives.
  std::string example;
  std::string where;  ///< Where the example has it; empty for anywhere.
  std::string advice; ///< What to do.
};

/// All of them, diagnostics first. The codes of losses are the anchors of
/// docs/round-trip.md.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const std::vector<Code> &GetCodes();

/// @return null for an unknown code.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const Code *
FindCode(std::string_view code);

} // namespace ZelDebugDialog

#endif
