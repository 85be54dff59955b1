#include "line/ProjectOptions.h"

#include <cstdlib>

#include <fmt/format.h>

#include <ZelDebugDialog/ProjectFile/ProjectBoard.h>

#include "line/Refused.h"
#include "line/WorkingFolder.h"
#include "output/Json.h"
#include "output/Place.h"
#include "output/ProjectFaults.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AllFaults;
using ZelDebugDialog::Board;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::Project;
using ZelDebugDialog::projectFileName;
using ZelDebugDialog::ProjectWishes;

constexpr const char *projectGroup = "The project";
constexpr const char *commandHead = "connect";

[[noreturn]] void refuse(const char *option, const char *problem) {
  throw Failure(ExitStatus::wrongUse, fmt::format("{}: {}", option, problem),
                {"", option});
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

/// What the files say, without errors of their own.
/// @return the design, as if the line named it
DesignOptions expectReadable(const Project &project,
                             const DesignOptions &ofLine, Output &output) {
  DesignOptions sources = ofLine;
  sources.standOn(project);
  if (project.HasErrors())
    failWithAllFaults(project, sources, output);
  return sources;
}

/// @throws Failure with the code that a name in a file has
ZelDebugDialog::ProjectChoice choiceOf(const Project &project,
                                       const ProjectWishes &wishes) {
  try {
    return ChooseProject(project, wishes);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    const bool isProbe =
        refusal.setting == "--probe" || refusal.setting == "ZELDEBUG_PROBE";
    const Failure failure = failureOf(refusal);
    FailureDetails about = failure.details();
    about.code = isProbe ? "unknown-probe" : "unknown-profile";
    throw Failure(failure.status(), failure.what(), about);
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

Json projectJson(const LineProject &line) {
  const ZelDebugDialog::ProjectLayer &local = line.project.local;
  return {{"project", line.file},
          {"local", local.exists ? Json(local.file) : Json()},
          {"probe", orNull(line.choice.probe.name)},
          {"profile", orNull(line.choice.profile.name)}};
}

void ProjectOptions::addTo(Options &options) {
  options.addOption("--project", "FILE", projectFile,
                    "the project file, in place of DESIGN (default: "
                    "zeldebug.toml in the folder of -C or above it)",
                    ValueKind::file, projectGroup);
  options.addFlag("--no-project", isLeftOut, "use no project", projectGroup);
  options.addOption("--probe", "NAME", probe,
                    "the probe of the project, or none", ValueKind::probe,
                    projectGroup);
  options.addOption("--profile", "NAME", profile,
                    "the profile of the project, or none", ValueKind::profile,
                    projectGroup);
}

void ProjectOptions::takeProcessor(
    DesignOptions &design, std::optional<std::string> &processor) const {
  if (!isLeftOut && !processor)
    processor = design.takeName();
}

bool ProjectOptions::takeProcessorAlone(
    const std::string &text, const std::string &workingFolder) const {
  if (projectFile && isLeftOut)
    refuse("--project", "--no-project excludes it");
  if (projectFile)
    return true;
  // A command has several words; the one that each begins with is none alone.
  const bool mayBeProcessor =
      text.find_first_of(" \t\r\n") == std::string::npos && !text.empty() &&
      text != commandHead;
  if (mayBeProcessor && isThere(workingFolder))
    return true;
  expectNoChoice("there is no project where a command is given");
  return false;
}

void ProjectOptions::expectUnused(const char *problem) const {
  if (projectFile)
    refuse("--project", problem);
  expectNoChoice(problem);
}

void ProjectOptions::expectNoChoice(const char *problem) const {
  if (probe)
    refuse("--probe", problem);
  if (profile)
    refuse("--profile", problem);
}

bool ProjectOptions::areUsed(const DesignOptions &design) const {
  if (projectFile && isLeftOut)
    refuse("--project", "--no-project excludes it");
  if (projectFile && design.named())
    refuse("--project", "it names the design; leave DESIGN out");
  if (isLeftOut && !design.named())
    refuse("--no-project", "DESIGN is missing");
  if (!design.named())
    return true;
  expectNoChoice("there is no project where DESIGN is given");
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

DesignOptions ProjectOptions::sourcesFor(const DesignOptions &design,
                                         const std::string &workingFolder,
                                         Output &output) const {
  if (!areUsed(design))
    return design;
  output.usePlaces();
  const Project project =
      ZelDebugDialog::ReadProject(expectFile(workingFolder));
  DesignOptions sources = expectReadable(project, design, output);
  expectNoFaults(project.faults, output);
  choiceOf(project, wishes());
  return sources;
}

LineProject ProjectOptions::open(const DesignOptions &design,
                                 const std::string &workingFolder,
                                 Output &output) const {
  output.usePlaces();
  LineProject line;
  line.file = expectFile(workingFolder);
  line.project = ZelDebugDialog::ReadProject(line.file);
  line.wishes = wishes();
  line.sources = expectReadable(line.project, design, output);
  line.design = line.sources.read(output);
  line.board = std::make_unique<Board>(boardOf(*line.design, line.project));
  expectNoFaults(AllFaults(line.project, *line.board), output);
  line.choice = choiceOf(line.project, line.wishes);
  return line;
}

ZelDebugDialog::ProjectWishes ProjectOptions::wishes() const {
  ZelDebugDialog::ProjectWishes wishes =
      ZelDebugDialog::AskEnvironment(std::getenv);
  wishes.probe = probe;
  wishes.profile = profile;
  return wishes;
}

} // namespace zeldebug
