// What is said of connect commands, as documents.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_COMMANDS_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_COMMANDS_H

#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>

#include "documents/JsonForward.h"

namespace ZelDebugDialog::documents {

/// {"offset", "length", "severity", "code", "message", "summary", "accepted",
/// "suggestion"}
Json diagnosticJson(const CommandDiagnostic &diagnostic);

/// {"text", "line", "result", "error", "diagnostics"}
/// @param line  where the command stands in its file, from 1; 0 without one
Json checkedJson(const CheckedCommand &checked, int line);

/// {"text", "result", "error", "words"}
Json explainedJson(const ExplainedCommand &command);

/// {"equal", "differences"}
Json differencesJson(const std::vector<CommandDifference> &differences);

} // namespace ZelDebugDialog::documents

#endif
