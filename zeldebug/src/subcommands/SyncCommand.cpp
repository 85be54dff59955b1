// sync: the option files follow from the files of the project.
#include <algorithm>
#include <filesystem>
#include <memory>

#include <fmt/format.h>

#include <ZelDebugDialog/ProjectFile/Origins.h>
#include <ZelDebugDialog/ProjectFile/Sync.h>

#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "line/Refused.h"
#include "output/Json.h"
#include "output/ProjectDifferences.h"
#include "output/ProjectFaults.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Subcommands.h"
#include "subcommands/Watching.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

using ZelDebugDialog::ProjectFault;
using ZelDebugDialog::ProjectLoss;
using ZelDebugDialog::ProjectPlace;
using ZelDebugDialog::ProjectSeverity;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::ShowOutcome;
using ZelDebugDialog::SyncOptions;
using ZelDebugDialog::SyncOutcome;
using ZelDebugDialog::SyncProject;
using ZelDebugDialog::SyncResult;
using ZelDebugDialog::SyncRun;

struct SyncLine {
  ProjectOptions project;
  SyncOptions how;
  bool watch = false;
};

bool writes(const SyncOptions &how) { return !how.check && !how.dryRun; }

About aboutPlace(const std::string &code, const std::string &setting,
                 const ProjectPlace &place) {
  return {code, setting, place.file, place.line, place.column};
}

// --- What is said -----------------------------------------------------------

class Teller {
public:
  Teller(const SyncRun &ofRun, const SyncOptions &options, Output &into)
      : run(ofRun), how(options), output(into) {}

  void tell() {
    for (const SyncResult &result : run.results)
      tell(result);
    for (const ProjectFault &warning : run.warnings)
      tellRemark(warning, output);
    const bool isBlocked = std::any_of(
        run.results.begin(), run.results.end(), [](const SyncResult &result) {
          return result.outcome == SyncOutcome::refused;
        });
    if (isBlocked && !run.isDone && writes(how))
      output.error("nothing is written");
  }

private:
  void tell(const SyncResult &result) {
    const std::string &name = result.processor;
    tellLeftOut(result.merged, result.displaced, output);
    if (result.outcome == SyncOutcome::refused)
      return tellRefused(result);
    for (const ProjectLoss &one : result.lost)
      output.warn(fmt::format("{}: {}: does not survive: {}", name,
                              shownPlace(one.place), shownLoss(one.loss)),
                  aboutPlace(one.loss.code, one.loss.field, one.place));
    if (result.outcome != SyncOutcome::conflict)
      return;
    if (result.message.empty())
      output.error(fmt::format(
          "{}: {} is not as it was written last, and stays: 'zeldebug adopt "
          "{}' takes it into the project, --force writes over it",
          name, result.file, name));
    else
      output.error(fmt::format("{}: {} stays: {}; --force writes over it", name,
                               result.file, result.message));
  }

  void tellRefused(const SyncResult &result) {
    if (result.command && !result.lost.empty()) {
      for (const ProjectLoss &one : result.lost)
        output.error(fmt::format("{}: {}: would not survive: {}",
                                 result.processor, shownPlace(one.place),
                                 shownLoss(one.loss)),
                     aboutPlace(one.loss.code, one.loss.field, one.place));
      return;
    }
    const std::string where =
        result.place.line == 0 ? "" : shownPlace(result.place) + ": ";
    // A connection that is not allowed.
    const bool hasCode = !result.lost.empty();
    const std::string code = hasCode ? result.lost.front().loss.code : "";
    output.error(fmt::format("{}: {}{}{}", result.processor, where,
                             result.message,
                             hasCode ? fmt::format(" [{}]", code) : ""),
                 aboutPlace(code, hasCode ? result.lost.front().loss.field : "",
                            result.place));
  }

  const SyncRun &run;
  const SyncOptions &how;
  Output &output;
};

/// Whether something of the run is told as a warning.
bool warns(const SyncRun &run) {
  const auto isWarning = [](const ProjectFault &fault) {
    return fault.severity != ProjectSeverity::note;
  };
  const auto areWarned = [&isWarning](const std::vector<ProjectFault> &faults) {
    return std::any_of(faults.begin(), faults.end(), isWarning);
  };
  return areWarned(run.warnings) ||
         std::any_of(run.results.begin(), run.results.end(),
                     [&areWarned](const SyncResult &result) {
                       return (result.outcome != SyncOutcome::refused &&
                               !result.lost.empty()) ||
                              areWarned(ExplainLeftOut(result.merged,
                                                       result.displaced));
                     });
}

// --- The result -------------------------------------------------------------

Json documentOf(const LineProject &line, const SyncRun &run) {
  Json results = Json::array();
  for (const SyncResult &result : run.results)
    results.push_back(
        {{"instanceName", result.processor},
         {"outcome", ShowOutcome(result.outcome)},
         {"file", result.file},
         {"connectCommand", result.command ? Json(*result.command) : Json()},
         {"differences", differencesJson(result.differences, result.merged)},
         {"lost", lostJson(result.lost)},
         {"dropped", droppedJson(result.merged, result.displaced)},
         {"message", orNull(result.message)}});
  Json members = projectJson(line);
  members["results"] = results;
  return members;
}

void print(const SyncRun &run, const SyncOptions &how, Output &output) {
  Table table({"PROCESSOR", "RESULT", "FILE"});
  for (const SyncResult &result : run.results)
    table.addRow({result.processor, ShowOutcome(result.outcome), result.file});
  table.print(output);
  for (const SyncResult &result : run.results)
    if ((result.outcome == SyncOutcome::conflict &&
         (result.message.empty() || !result.differences.empty())) ||
        (!writes(how) && result.outcome == SyncOutcome::updated))
      printDifferences(result.file, result.differences, result.merged, output);
}

ExitStatus runOnce(const SyncLine &options, const std::string &folder,
                   Output &output) {
  const LineProject line =
      options.project.open(DesignOptions(), folder, output);
  const auto sync = [&line](const SyncOptions &how) {
    return SyncProject(line.project, line.choice, *line.board, how);
  };
  output.expectNoWarnings();
  if (output.strict() && writes(options.how)) {
    SyncOptions before = options.how;
    before.dryRun = true;
    const SyncRun run = sync(before);
    if (warns(run)) {
      Teller(run, before, output).tell();
      output.expectNoWarnings();
    }
  }
  const SyncRun run = sync(options.how);
  Teller(run, options.how, output).tell();
  if (output.json())
    output.document(documentOf(line, run));
  else
    print(run, options.how, output);
  return run.isRefused ? ExitStatus::refused : ExitStatus::done;
}

// --- Again and again --------------------------------------------------------

/// The files, and what they name as far as they can be read.
Watched watchedOf(const std::string &file) {
  Watched watched;
  watched.files = {file, ZelDebugDialog::LocalFileOf(file)};
  try {
    const ZelDebugDialog::Project project = ZelDebugDialog::ReadProject(file);
    for (const std::string &named : {project.Design(), project.Kinds()})
      if (!named.empty())
        watched.files.push_back(named);
    watched.folders = project.Libraries();
    // Without a library, components are looked for below the design's folder.
    const fs::path design = project.Design();
    if (watched.folders.empty() && !design.empty())
      watched.folders = {design.has_parent_path()
                             ? design.parent_path().string()
                             : std::string(".")};
  } catch (const Refusal &) {
    // The run tells it.
  }
  return watched;
}

/// What is wrong is told, and waited on.
void runTelling(const SyncLine &options, const std::string &folder,
                Output &output) {
  ExitStatus status = ExitStatus::refused;
  try {
    status = runOnce(options, folder, output);
  } catch (const ToldFailure &) {
    // Every fault has been told.
  } catch (const Failure &failure) {
    output.fail(failure);
  } catch (const Refusal &refusal) {
    output.fail(failureOf(refusal));
  }
  output.note("waiting for the files to change");
  output.finish(status);
}

ExitStatus runWatching(const SyncLine &options, const std::string &folder,
                       Output &output) {
  if (output.json())
    throw Failure(ExitStatus::wrongUse,
                  "--watch: --json excludes it, because a run has one document",
                  {"", "--watch"});
  const std::string file = options.project.expectFile(folder);
  const Watching watching;
  for (;;) {
    const Watched watched = watchedOf(file);
    const std::string before = Watching::look(watched);
    runTelling(options, folder, *output.another());
    if (!watching.waitForChange(watched, before))
      return ExitStatus::done;
  }
}

ExitStatus run(const SyncLine &options, const std::string &folder,
               Output &output) {
  options.project.areUsed(DesignOptions());
  return options.watch ? runWatching(options, folder, output)
                       : runOnce(options, folder, output);
}

CommandLine::Runner syncOptions(Options &app) {
  const auto options = std::make_shared<SyncLine>();
  app.addArguments("PROCESSOR", options->how.processors,
                   "instance names of processors (default: all)",
                   ValueKind::processor);
  app.addFlag("--dry-run", options->how.dryRun,
              "write nothing, and tell what the run would have done");
  app.addFlag("--check", options->how.check,
              "write nothing, and fail unless every option file is as the "
              "project says");
  app.addFlag("--force", options->how.force,
              "write over option files that somebody has changed, and save "
              "settings that would not survive");
  app.addFlag("--watch", options->watch,
              "go on, and do it again whenever the project, the design or a "
              "component changes; ends by a signal");
  options->project.addTo(app);
  return [options, &line = app.line()](Output &output) {
    return run(*options, line.workingFolder(), output);
  };
}

} // namespace

void addSyncCommand(CommandLine &line) {
  line.addSubcommand("sync", "Write the option files as the project says",
                     "zeldebug sync\n  zeldebug sync --check --profile slow",
                     syncOptions);
}

} // namespace zeldebug
