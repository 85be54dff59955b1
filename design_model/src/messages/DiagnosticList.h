// The diagnostics of a model: each once, and not without bound.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DIAGNOSTICLIST_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DIAGNOSTICLIST_H

#include <string>
#include <unordered_set>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

class DiagnosticList {
public:
  /// A component with a fault may be instantiated many times: the same remark
  /// on the same line is taken once.
  void add(DesignDiagnostic diagnostic);
  const std::vector<DesignDiagnostic> &all() const { return diagnostics; }

private:
  std::vector<DesignDiagnostic> diagnostics;
  std::unordered_set<std::string> seen;
};

} // namespace ZelDebugDialog

#endif
