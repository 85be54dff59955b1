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
#include <ZelDebugDialog/ProjectFile/Project.h>

#include "line/Options.h"

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
  void addTo(Options &options, bool designRequired = true);

  /// The same with --design in place of DESIGN.
  void addAsOptionTo(Options &options);

  bool named() const { return designFile.has_value(); }

  /// Takes DESIGN away: it was meant for something else.
  std::optional<std::string> takeName();
  /// What the line says.
  /// @throws Failure for what is none
  ZelDebugDialog::DesignSources expectSources() const;
  /// What the line leaves out is as the project says; what is wrong with that
  /// is told at its place.
  void standOn(const ZelDebugDialog::Project &project);

  /// How much a person is told of what there is to say of a design that can be
  /// read.
  enum class Telling {
    counted, ///< One line, with the command that shows it all.
    whole,
  };

  /// Reads the design. All of its diagnostics go to the document of `output`.
  /// @throws Failure: (unreadable) with every error, one a line; (wrong use)
  ///   for a view that no component has, and a number of instances that is
  ///   none.
  std::unique_ptr<ZelDebugDialog::DesignModel>
  read(Output &output, Telling telling = Telling::counted) const;
  /// The same without a word; null where it cannot be read.
  std::unique_ptr<ZelDebugDialog::DesignModel> find() const;
  /// Reads it, and proposes a kind table; the model is the design with it.
  std::unique_ptr<ZelDebugDialog::DesignModel>
  proposeKinds(ZelDebugDialog::KindProposal &proposal, Output &output) const;

  /// Searches for what the design, read from these options, lacks.
  MissingAdvice adviseOnMissing(const ZelDebugDialog::DesignModel &design,
                                const std::string &subcommand) const;
  /// The words of a line for another subcommand with the same design.
  std::vector<std::string> commandLine(const std::string &subcommand) const;

private:
  void addSourcesTo(CommandLine &line, CLI::App &app);
  void expectView(const ZelDebugDialog::DesignModel &design,
                  Output &output) const;
  void expectRead(bool isRead, const ZelDebugDialog::DesignModel &design,
                  Output &output) const;
  std::string shownNamer(const std::string &file) const;
  void tell(const ZelDebugDialog::DesignModel &design, Telling telling,
            Output &output) const;

  std::optional<std::string> designFile;
  std::vector<std::string> libraryFolders;
  std::optional<std::string> view;
  std::optional<std::string> kindsFile;
  std::optional<std::string> maxInstances;
  /// Where a project names them, if the line does not.
  ZelDebugDialog::ProjectPlace designPlace;
  ZelDebugDialog::ProjectPlace viewPlace;
  struct NamedFile {
    std::string file;
    ZelDebugDialog::ProjectPlace place;
    const char *what; ///< "the kind table", "a library"
  };
  std::vector<NamedFile> namedFiles;
};

/// Words as a shell takes them.
std::string shellLine(const std::vector<std::string> &words);

} // namespace zeldebug

#endif
