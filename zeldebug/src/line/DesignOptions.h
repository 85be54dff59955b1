// The design that a command line names, and reading it.
#ifndef ZELDEBUG_DESIGNOPTIONS_H
#define ZELDEBUG_DESIGNOPTIONS_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "line/CommandLine.h"

namespace zeldebug {

class DesignOptions {
public:
  /// Adds DESIGN, --library, --view and --kinds to a subcommand.
  void addTo(CommandLine &line, CLI::App &app, bool designRequired = true);

  bool named() const { return designFile.has_value(); }

  /// Reads the design. What its diagnostics say goes to `output`.
  /// @throws Failure: (unreadable) with every error, one a line; (wrong use)
  ///   for a view without a name; (refused) for warnings that are failures.
  std::unique_ptr<ZelDebugDialog::DesignModel> read(Output &output) const;

private:
  ZelDebugDialog::DesignSources expectSources() const;

  std::optional<std::string> designFile;
  std::vector<std::string> libraryFolders;
  std::optional<std::string> view;
  std::optional<std::string> kindsFile;
};

/// "file:line: message"
std::string shownDiagnostic(const ZelDebugDialog::DesignDiagnostic &diagnostic);

/// @throws Failure (wrong use) if the processor is none of the design's, which
///   lists them; (refused) if it cannot be debugged, which says why.
void expectDebuggable(ZelDebugDialog::DesignModel &design,
                      const std::vector<std::string> &debuggable,
                      const std::string &processor);

/// Why a processor of the design is not among those that can be debugged.
std::string whyNotDebuggable(ZelDebugDialog::DesignModel &design,
                             const std::string &processor);

} // namespace zeldebug

#endif
