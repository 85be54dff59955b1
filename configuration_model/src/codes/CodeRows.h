// The rows of the table of codes, and the code of each fault of the engine's
// reader.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_CODEROWS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_CODEROWS_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/ConfigurationModel/Codes.h"

namespace ZelDebugDialog::model {

/// Where an example has to stand to be answered so.
inline constexpr const char *inOptionFile = "in an option file";

std::vector<Code> makeDiagnosticCodes();
std::vector<Code> makeLossCodes();

/// Why something is as it is.
struct Why {
  const char *code; ///< Known to `FindCode`.
  /// A clause without a full stop; null: what the code's own row says is all.
  const char *words = nullptr;

  std::string text() const;
};

/// @throws std::logic_error for a code that is in no row.
const Code &expectCode(std::string_view code);

/// What is said of a fault.
const Code &codeOf(CommandFaultKind kind);

} // namespace ZelDebugDialog::model

#endif
