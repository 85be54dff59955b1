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
  /// The same with --design in place of DESIGN.
  void addAsOptionTo(CommandLine &line, CLI::App &app);

  bool named() const { return designFile.has_value(); }

  /// Reads the design. What its diagnostics say goes to `output`.
  /// @throws Failure: (unreadable) with every error, one a line; (wrong use)
  ///   for a view without a name; (refused) for warnings that are failures.
  std::unique_ptr<ZelDebugDialog::DesignModel> read(Output &output) const;

private:
  void addSourcesTo(CommandLine &line, CLI::App &app);
  ZelDebugDialog::DesignSources expectSources() const;

  std::optional<std::string> designFile;
  std::vector<std::string> libraryFolders;
  std::optional<std::string> view;
  std::optional<std::string> kindsFile;
};

/// [{"file", "line", "severity", "message"}]
Json diagnosticsJson(const ZelDebugDialog::DesignModel &design);

/// "file:line: message"
std::string shownDiagnostic(const ZelDebugDialog::DesignDiagnostic &diagnostic);

} // namespace zeldebug

#endif
