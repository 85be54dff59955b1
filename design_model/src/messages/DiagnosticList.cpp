#include "messages/DiagnosticList.h"

#include <utility>

#include "names/Room.h"

namespace ZelDebugDialog {
namespace {

constexpr std::size_t mostDiagnostics = 10000;

} // namespace

void DiagnosticList::add(DesignDiagnostic diagnostic) {
  if (diagnostics.size() > mostDiagnostics)
    return;
  std::string key = diagnostic.file + ":" + std::to_string(diagnostic.line) +
                    ":" + diagnostic.message;
  if (seen.count(key) != 0)
    return;
  if (diagnostics.size() == mostDiagnostics)
    diagnostic = {DesignDiagnostic::Severity::note, "", 0,
                  "more than " + std::to_string(mostDiagnostics) +
                      " diagnostics; the rest is left out"};
  makeRoom(diagnostics, 1);
  seen.insert(std::move(key));
  diagnostics.push_back(std::move(diagnostic));
}

} // namespace ZelDebugDialog
