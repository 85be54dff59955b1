// init: the first files of a project, of a design alone.
#include <filesystem>
#include <memory>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/ProjectFile/Adopt.h>
#include <ZelDebugDialog/ProjectFile/Project.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/WorkingFolder.h"
#include "output/Json.h"
#include "output/Place.h"
#include "subcommands/NewProject.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AdoptedProject;
using ZelDebugDialog::Board;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::InitProject;
using ZelDebugDialog::KindProposal;
using ZelDebugDialog::ProjectSources;

/// The design as it is found, or, where nothing of it can be debugged, with the
/// table of kinds that is proposed for it.
AdoptedProject plan(const DesignOptions &options, const std::string &file,
                    const std::string &folder, Output &output) {
  ProjectSources sources = sourcesFor(options, file);
  const std::unique_ptr<DesignModel> design = options.read(output);
  const Board board(*design, folder);
  if (!board.Processors().empty() || !sources.kinds.empty())
    return InitProject(board, sources);
  KindProposal proposal;
  const std::unique_ptr<DesignModel> proposed =
      options.proposeKinds(proposal, output);
  const Board better(*proposed, folder);
  if (better.Processors().empty()) {
    output.warn(fmt::format("no processor of the design can be debugged; '{}' "
                            "tells why",
                            shellLine(options.commandLine("list"))));
    return InitProject(board, sources);
  }
  sources.kindsTable = proposal.table;
  return InitProject(better, sources);
}

ExitStatus run(const DesignOptions &options, const std::string &folder,
               Output &output) {
  const std::string optionFiles = optionFolder(folder);
  const std::string file = newProjectFile(folder);
  const AdoptedProject made = plan(options, file, optionFiles, output);
  writeProject(file, made, Json::object(), output);
  return ExitStatus::done;
}

CommandLine::Runner initOptions(Options &app) {
  const auto options = std::make_shared<DesignOptions>();
  options->addTo(app);
  return [options, &line = app.line()](Output &output) {
    return run(*options, line.workingFolder(), output);
  };
}

} // namespace

void addInitCommand(CommandLine &line) {
  line.addSubcommand("init", "Write a project file for a design",
                     "zeldebug init board.xml", initOptions);
}

} // namespace zeldebug
