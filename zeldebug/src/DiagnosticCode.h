// What can be said about a command: one row each, with a code that stays.
#ifndef ZELDEBUG_DIAGNOSTICCODE_H
#define ZELDEBUG_DIAGNOSTICCODE_H

#include <string>
#include <vector>

#include <ZelDebugDialog/CommandTrace.h>

namespace zeldebug {

enum class Severity { error, warning };

struct DiagnosticCode {
  const char *code;
  Severity severity;
  const char *summary; ///< what it says about the word, behind its quotation
  const char *meaning;
  std::string example; ///< a command with this fault
  const char *advice;
  /// Where the example has the fault; empty for anywhere.
  const char *where = "";
};

const std::vector<DiagnosticCode> &diagnosticCodes();

/// @return null for an unknown code.
const DiagnosticCode *findDiagnosticCode(const std::string &code);

const DiagnosticCode &codeOf(ZelDebugDialog::CommandFaultKind kind);

/// "error", "warning"
const char *shownSeverity(Severity severity);

} // namespace zeldebug

#endif
