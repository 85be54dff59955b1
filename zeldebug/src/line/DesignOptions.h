// The design that a command line names, and reading it.
#ifndef ZELDEBUG_DESIGNOPTIONS_H
#define ZELDEBUG_DESIGNOPTIONS_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/DesignModel/DesignModel.h>
#include <ZelDebugDialog/DesignModel/Kinds.h>
#include <ZelDebugDialog/DesignModel/Libraries.h>

#include "line/CommandLine.h"

namespace zeldebug {

/// What would give a design the documents that it lacks.
struct MissingAdvice {
  std::string message; ///< Which they are, and where; sentences.
  /// The words of a command line with the libraries that hold them; none if
  /// they were found nowhere.
  std::vector<std::string> command;
};

class DesignOptions {
public:
  /// Adds DESIGN, --library, --view, --kinds and --max-instances to a
  /// subcommand.
  void addTo(CommandLine &line, CLI::App &app, bool designRequired = true);
  /// The same with --design in place of DESIGN.
  void addAsOptionTo(CommandLine &line, CLI::App &app);

  bool named() const { return designFile.has_value(); }

  /// Reads the design. What its diagnostics say goes to `output`.
  /// @throws Failure: (unreadable) with every error, one a line; (wrong use)
  ///   for a view without a name, and a number of instances that is none.
  std::unique_ptr<ZelDebugDialog::DesignModel> read(const Output &output) const;
  /// The same, and proposes a kind table; the model is the design with it.
  std::unique_ptr<ZelDebugDialog::DesignModel>
  proposeKinds(ZelDebugDialog::KindProposal &proposal,
               const Output &output) const;

  /// Searches for what the design, read from these options, lacks.
  MissingAdvice adviseOnMissing(const ZelDebugDialog::DesignModel &design,
                                const std::string &subcommand) const;
  /// The words of a line for another subcommand with the same design.
  std::vector<std::string> commandLine(const std::string &subcommand) const;

private:
  void addSourcesTo(CommandLine &line, CLI::App &app);
  ZelDebugDialog::DesignSources expectSources() const;
  void expectView(const ZelDebugDialog::DesignModel &design) const;
  void expectRead(bool isRead, const ZelDebugDialog::DesignModel &design,
                  const Output &output) const;

  std::optional<std::string> designFile;
  std::vector<std::string> libraryFolders;
  std::optional<std::string> view;
  std::optional<std::string> kindsFile;
  std::optional<std::string> maxInstances;
};

/// [{"file", "line", "severity", "message"}]
Json diagnosticsJson(const ZelDebugDialog::DesignModel &design);

/// Words as a shell takes them.
std::string shellLine(const std::vector<std::string> &words);

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
