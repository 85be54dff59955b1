#include "DiagnosticList.h"

#include <utility>

namespace ZelDebugDialog {
namespace {

constexpr std::size_t mostDiagnostics = 10000;

} // namespace

void DiagnosticList::add(DesignDiagnostic diagnostic) {
  if (diagnostics.size() > mostDiagnostics)
    return;
  std::string key = diagnostic.file + ":" + std::to_string(diagnostic.line) +
                    ":" + diagnostic.message;
  if (!seen.insert(std::move(key)).second)
    return;
  if (diagnostics.size() == mostDiagnostics)
    diagnostic = {DesignDiagnostic::Severity::note, "", 0,
                  "more than " + std::to_string(mostDiagnostics) +
                      " diagnostics; the rest is left out"};
  diagnostics.push_back(std::move(diagnostic));
}

} // namespace ZelDebugDialog
