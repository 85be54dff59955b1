#include "line/ProjectOptions.h"

#include <cstdlib>

#include <fmt/format.h>

#include <ZelDebugDialog/ProjectFile/ProjectBoard.h>

#include "line/WorkingFolder.h"
#include "output/Place.h"
#include "output/ProjectFaults.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AllFaults;
using ZelDebugDialog::Board;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;
using ZelDebugDialog::Project;
using ZelDebugDialog::projectFileName;

constexpr const char *group = "The project";

DesignSources sourcesOf(const Project &project) {
  return {project.Design(), project.Libraries(), project.View(),
          project.Kinds()};
}

Board boardOf(DesignModel &design, const Project &project) {
  return {design, shownPath(ZelDebugDialog::OptionFolderOf(project))};
}

/// Also what only the design can tell, as far as there is one.
[[noreturn]] void failWithAllFaults(const Project &project,
                                    const DesignOptions &sources,
                                    Output &output) {
  if (project.project.design)
    if (const auto design = sources.find())
      expectNoFaults(AllFaults(project, boardOf(*design, project)), output);
  expectNoFaults(project.faults, output);
  throw std::logic_error("a project with errors has none");
}

/// The design's own faults, and which file it is of.
std::unique_ptr<DesignModel> readDesign(const Project &project,
                                        const DesignOptions &sources,
                                        Output &output) {
  try {
    return sources.read(output);
  } catch (const Failure &failure) {
    throw Failure(failure.status(),
                  fmt::format("{}\n{} names the design", failure.what(),
                              shownPlace(project.project.design->place)),
                  failure.details());
  }
}

} // namespace

ZelDebugDialog::MergedProcessor
mergedFor(const LineProject &line, const std::string &processor,
          const ZelDebugDialog::SettingValues &settings) {
  for (const ZelDebugDialog::BoardProcessor &one : line.board->Processors())
    if (one.name == processor)
      return MergeProject(line.project, line.choice, one, settings);
  throw std::logic_error("no processor '" + processor + "' to merge for");
}

void ProjectOptions::addTo(Options &options) {
  options.addOption("--project", "FILE", projectFile,
                    "the project file, in place of DESIGN (default: "
                    "zeldebug.toml in the folder of -C or above it)",
                    ValueKind::file, group);
  options.addFlag("--no-project", isLeftOut, "use no project", group);
  options.addOption("--probe", "NAME", probe,
                    "the probe of the project, or none", ValueKind::probe,
                    group);
  options.addOption("--profile", "NAME", profile,
                    "the profile of the project, or none", ValueKind::profile,
                    group);
}

void ProjectOptions::takeProcessor(
    DesignOptions &design, std::optional<std::string> &processor) const {
  if (!isLeftOut && !processor)
    processor = design.takeName();
}

bool ProjectOptions::areUsed(const DesignOptions &design) const {
  const auto refuse = [](const char *option, const std::string &problem) {
    throw Failure(ExitStatus::wrongUse, fmt::format("{}: {}", option, problem),
                  {"", option});
  };
  if (projectFile && isLeftOut)
    refuse("--project", "--no-project excludes it");
  if (projectFile && design.named())
    refuse("--project", "it names the design; leave DESIGN out");
  if (isLeftOut && !design.named())
    refuse("--no-project", "DESIGN is missing");
  if (!design.named())
    return true;
  if (probe)
    refuse("--probe", "there is no project where DESIGN is given");
  if (profile)
    refuse("--profile", "there is no project where DESIGN is given");
  return false;
}

bool ProjectOptions::isThere(const std::string &workingFolder) const {
  if (isLeftOut || projectFile)
    return !isLeftOut;
  optionFolder(workingFolder);
  return !ZelDebugDialog::FindProject(workingFolder).empty();
}

std::string ProjectOptions::expectFile(const std::string &workingFolder) const {
  if (projectFile)
    return *projectFile;
  optionFolder(workingFolder);
  const std::string found = ZelDebugDialog::FindProject(workingFolder);
  if (!found.empty())
    return shownPath(found);
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("there is no {} in '{}' nor above it: give DESIGN, or make "
                  "one with 'zeldebug init DESIGN'",
                  projectFileName, printable(workingFolder)),
      {"no-project"});
}

LineProject ProjectOptions::open(const DesignOptions &design,
                                 const std::string &workingFolder,
                                 Output &output) const {
  output.usePlaces();
  LineProject line;
  line.file = expectFile(workingFolder);
  line.project = ZelDebugDialog::ReadProject(line.file);
  line.wishes = ZelDebugDialog::AskEnvironment(std::getenv);
  line.wishes.probe = probe;
  line.wishes.profile = profile;
  line.sources = design;
  line.sources.standOn(sourcesOf(line.project));
  if (line.project.HasErrors())
    failWithAllFaults(line.project, line.sources, output);
  line.design = readDesign(line.project, line.sources, output);
  line.board = std::make_unique<Board>(boardOf(*line.design, line.project));
  expectNoFaults(AllFaults(line.project, *line.board), output);
  line.choice = ChooseProject(line.project, line.wishes);
  return line;
}

} // namespace zeldebug
