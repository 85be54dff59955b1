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

/// What a code stands for.
struct Code {
  std::string code;
  CodeSeverity severity = CodeSeverity::error;
  std::string summary; ///< What it says of a word, behind its quotation.
  std::string meaning; ///< Sentences.
  std::string example; ///< A command that has it.
  std::string where;   ///< Where the example has it; empty for anywhere.
  std::string advice;  ///< What to do.
};

/// All of them, diagnostics first.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const std::vector<Code> &GetCodes();

/// @return null for an unknown code.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const Code *
FindCode(std::string_view code);

} // namespace ZelDebugDialog

#endif
