// What is said of a design and its processors, as documents.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_DESIGNS_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_DESIGNS_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "documents/JsonForward.h"

namespace ZelDebugDialog::documents {

/// "error", "warning", "note"
const char *shownSeverity(DesignDiagnostic::Severity severity);

/// [{"file", "line", "severity", "message"}]
Json diagnosticsJson(const DesignModel &design);

/// A processor that the debugger does not find.
struct Undebuggable {
  std::string name;
  std::string type;
  std::string reason;
  /// "interface: instance.interface", a few.
  std::vector<std::string> wiredTo;
};

/// @param board  that of the design
std::vector<Undebuggable> findUndebuggable(const Board &board,
                                           const DesignModel &design);

/// [{"instanceName", "type", "procFamily", "procType", "connectionMask",
/// "cpuNr", "fpuType", "connections"}]
Json toJson(const std::vector<BoardProcessor> &processors);

/// [{"instanceName", "type", "reason", "wiredTo"}]
Json toJson(const std::vector<Undebuggable> &processors);

} // namespace ZelDebugDialog::documents

#endif
