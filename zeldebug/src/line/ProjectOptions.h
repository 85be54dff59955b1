// How a line finds its project: the files that say what stands on no line, and
// the design that they name.
//
//   ProjectOptions options;            // beside a DesignOptions
//   options.addTo(app);
//   ...
//   if (options.areUsed(design)) {
//     const LineProject line = options.open(design, folder, output);
//     use(line.project, line.choice, *line.board);
//   }
#ifndef ZELDEBUG_PROJECTOPTIONS_H
#define ZELDEBUG_PROJECTOPTIONS_H

#include <memory>
#include <optional>
#include <string>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>
#include <ZelDebugDialog/ProjectFile/Merge.h>
#include <ZelDebugDialog/ProjectFile/Project.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "output/JsonForward.h"

namespace zeldebug {

/// A project without errors, and its design.
struct LineProject {
  std::string file; ///< as it is shown
  ZelDebugDialog::Project project;
  ZelDebugDialog::ProjectWishes wishes; ///< of the line and the environment
  ZelDebugDialog::ProjectChoice choice;
  DesignOptions sources; ///< of the design, as if a line named it
  std::unique_ptr<ZelDebugDialog::DesignModel> design;
  std::unique_ptr<ZelDebugDialog::Board> board;
};

/// What the files say together for a processor.
/// @param processor  one of the board
/// @param settings   of the line
ZelDebugDialog::MergedProcessor
mergedFor(const LineProject &line, const std::string &processor,
          const ZelDebugDialog::SettingValues &settings = {});

/// The members of a document that tell which project a line has used.
Json projectJson(const LineProject &line);

class ProjectOptions {
public:
  /// Adds --project, --no-project, --probe and --profile to a subcommand.
  void addTo(Options &options);

  /// Whether the line names the project file.
  bool named() const { return projectFile.has_value(); }

  /// Of a line with DESIGN and PROCESSOR: a word alone is the processor, unless
  /// projects are left out.
  void takeProcessor(DesignOptions &design,
                     std::optional<std::string> &processor) const;

  /// Whether the line uses a project: it names no DESIGN, or --project.
  /// @throws Failure (wrong use) for a line that names both; for one with
  ///   --no-project that names neither; for --probe and --profile of no project
  bool areUsed(const DesignOptions &design) const;

  /// Of a line with one word that is a connect command or a processor of the
  /// project: whether it is a processor.
  /// @throws Failure (wrong use) for --probe and --profile of a command;
  ///   (unreadable) for a folder that is none
  bool takeProcessorAlone(const std::string &text,
                          const std::string &workingFolder) const;

  /// @throws Failure (wrong use) for --project, --probe and --profile of a line
  ///   that asks nothing of a project
  void expectUnused(const char *problem) const;

  /// Whether there is a project file, and the line does not leave it out.
  /// @throws Failure (unreadable) for a folder that is none
  bool isThere(const std::string &workingFolder) const;

  /// Where the project file is: of --project, or found from the folder of -C
  /// upwards.
  /// @throws Failure (wrong use) where there is none; (unreadable) for a folder
  ///   that is none
  std::string expectFile(const std::string &workingFolder) const;

  /// The design of the line, or the one that the project names: for what asks
  /// nothing else of the files.
  /// @throws as `open`, but for what is wrong with the design
  DesignOptions sourcesFor(const DesignOptions &design,
                           const std::string &workingFolder,
                           Output &output) const;

  /// Reads both files and the design, and tells what there is to say of them.
  /// What the line says of the design stands over the files.
  /// @throws Failure (unreadable), with every fault of the files told, or for
  ///   the design; (wrong use) for a probe or a profile that is none
  LineProject open(const DesignOptions &design,
                   const std::string &workingFolder, Output &output) const;

private:
  ZelDebugDialog::ProjectWishes wishes() const;
  void expectNoChoice(const char *problem) const;

  std::optional<std::string> projectFile;
  std::optional<std::string> probe;
  std::optional<std::string> profile;
  bool isLeftOut = false;
};

} // namespace zeldebug

#endif
