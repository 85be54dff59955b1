// adopt: option files that are there become a project, or part of one.
#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/ProjectFile/Adopt.h>
#include <ZelDebugDialog/ProjectFile/Edit.h>
#include <ZelDebugDialog/ProjectFile/Sync.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "line/ProjectTargets.h"
#include "line/WorkingFolder.h"
#include "output/Json.h"
#include "output/ProjectFaults.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/NewProject.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AdoptChange;
using ZelDebugDialog::AdoptedProject;
using ZelDebugDialog::Board;
using ZelDebugDialog::EditedProject;
using ZelDebugDialog::ProjectEdit;
using ZelDebugDialog::ProjectTarget;

struct AdoptLine {
  DesignOptions design;
  ProjectOptions project;
  std::vector<std::string> processors;
  std::optional<std::string> into;
  bool force = false;
};

// --- A new project ----------------------------------------------------------

Json changesJson(const AdoptedProject &made) {
  Json list = Json::array();
  for (const AdoptChange &change : made.changes)
    list.push_back({{"instanceName", change.processor},
                    {"file", change.file},
                    {"before", change.before},
                    {"after", change.command ? Json(*change.command) : Json()},
                    {"reason", orNull(change.reason)}});
  return list;
}

void tellChanges(const AdoptedProject &made, Output &output) {
  for (const AdoptChange &change : made.changes)
    output.warn(
        fmt::format("{}: {} would be written otherwise{} [adopt-changes]\n"
                    "  is      {}\n  becomes {}",
                    change.processor, change.file,
                    change.reason.empty() ? "" : ", because " + change.reason,
                    change.before, change.command.value_or("nothing")),
        {"adopt-changes", ""});
}

ExitStatus makeProject(const AdoptLine &options, const std::string &folder,
                       Output &output) {
  if (!options.design.named())
    throw Failure(ExitStatus::wrongUse, "DESIGN is required");
  if (options.into || !options.processors.empty())
    throw Failure(
        ExitStatus::wrongUse,
        fmt::format(
            "there is no project to take {} into: 'zeldebug adopt "
            "DESIGN' makes one",
            options.processors.empty()
                ? "anything"
                : fmt::format("'{}'", printable(options.processors.front()))));
  const std::string optionFiles = optionFolder(folder);
  const std::string file = newProjectFile(folder);
  const auto design = options.design.read(output);
  const AdoptedProject made = AdoptProject(Board(*design, optionFiles),
                                           sourcesFor(options.design, file));
  tellChanges(made, output);
  if (!made.changes.empty() && !options.force)
    throw Failure(ExitStatus::refused,
                  "nothing is written, because option files would change "
                  "(--force writes the project all the same)",
                  {"adopt-changes"});
  writeProject(file, made,
               {{"changes", changesJson(made)}, {"adopted", Json::array()}},
               output);
  return ExitStatus::done;
}

// --- A project that is there ------------------------------------------------

/// What went where, a row a setting.
struct Taken {
  std::string processor;
  std::string setting;
  std::optional<ZelDebugDialog::Value> value; ///< none: it is unset
  std::string file;
};

std::vector<Taken> takenBy(const std::vector<ProjectEdit> &edits,
                           const std::vector<EditedProject> &files,
                           const LineProject &line) {
  std::vector<Taken> taken;
  for (const ProjectEdit &edit : edits) {
    std::string file = line.file;
    // A profile stands in one of the files; then only that one changes.
    if (edit.target == ProjectTarget::local)
      file = line.project.local.file;
    else if (edit.target == ProjectTarget::profile)
      file = files.front().file;
    for (const auto &[setting, value] : edit.values)
      taken.push_back({edit.processor, setting, value, file});
    for (const std::string &setting : edit.unset)
      taken.push_back({edit.processor, setting, {}, file});
  }
  return taken;
}

void show(const std::vector<Taken> &taken, const LineProject &line,
          Output &output) {
  const auto fileIf = [&taken](const std::string &file) {
    for (const Taken &one : taken)
      if (one.file == file)
        return Json(file);
    return Json();
  };
  if (output.json()) {
    Json list = Json::array();
    for (const Taken &one : taken)
      list.push_back({{"instanceName", one.processor},
                      {"setting", one.setting},
                      {"value", one.value ? toJson(*one.value) : Json()},
                      {"file", one.file}});
    output.document({{"project", fileIf(line.file)},
                     {"local", fileIf(line.project.local.file)},
                     {"kinds", nullptr},
                     {"changes", Json::array()},
                     {"adopted", list}});
    return;
  }
  if (taken.empty())
    return;
  Table table({"PROCESSOR", "SETTING", "VALUE", "FILE"});
  for (const Taken &one : taken)
    table.addRow({one.processor, one.setting,
                  one.value ? shownStored(one.setting, *one.value) : "-",
                  one.file});
  table.print(output);
}

/// The files that a new project in this folder would have to replace.
std::vector<std::string> filesInTheWay(const std::string &folder) {
  const std::string file = newProjectFile(folder);
  std::vector<std::string> found;
  for (const std::string &one : {file, ZelDebugDialog::LocalFileOf(file)}) {
    std::error_code error;
    if (std::filesystem::symlink_status(one, error).type() !=
        std::filesystem::file_type::not_found)
      found.push_back(printable(one));
  }
  return found;
}

/// What makes a project of a design where there is one already.
std::string adviceForDesign(const ProjectOptions &options,
                            const std::string &folder) {
  const std::vector<std::string> files = filesInTheWay(folder);
  return fmt::format("with --no-project{} it makes a project of DESIGN{}",
                     options.named() ? " in place of --project" : "",
                     files.empty()
                         ? ""
                         : fmt::format(", once {} {} moved away",
                                       fmt::join(files, " and "),
                                       files.size() == 1 ? "is" : "are"));
}

/// A design makes a project, and there is one.
void expectNoDesign(const std::string &first, const LineProject &line,
                    const ProjectOptions &options, const std::string &folder) {
  std::vector<std::string> names;
  for (const ZelDebugDialog::BoardProcessor &processor :
       line.board->Processors())
    names.push_back(processor.name);
  std::error_code error;
  const bool isKnown =
      std::find(names.begin(), names.end(), first) != names.end();
  if (isKnown || !std::filesystem::is_regular_file(first, error))
    return;
  throw Failure(ExitStatus::wrongUse,
                fmt::format("'{}' is no processor: adopt takes option files of "
                            "processors into {}, which is there already; {}",
                            printable(first), printable(line.file),
                            adviceForDesign(options, folder)),
                {"unknown-processor", "PROCESSOR", first, names});
}

/// Those of the line, each once.
/// @param design  its first word is one of them
std::vector<std::string> processorsOf(const AdoptLine &options,
                                      DesignOptions &design) {
  std::vector<std::string> all = options.processors;
  if (const auto first = design.takeName())
    all.insert(all.begin(), *first);
  std::vector<std::string> processors;
  for (const std::string &one : all)
    if (std::find(processors.begin(), processors.end(), one) ==
        processors.end())
      processors.push_back(one);
  return processors;
}

std::vector<ProjectEdit> expectEdits(const LineProject &line,
                                     const std::vector<std::string> &processors,
                                     const ProjectEdit *into) {
  try {
    return AdoptOptionFiles(line.project, line.choice, *line.board, processors,
                            into);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    expectTargetTaken(refusal);
    throw;
  }
}

ExitStatus takeInto(const AdoptLine &options, const std::string &folder,
                    Output &output) {
  DesignOptions design = options.design;
  const std::vector<std::string> processors = processorsOf(options, design);
  if (processors.empty())
    throw Failure(ExitStatus::wrongUse,
                  "adopt: name the processors whose option files are meant");
  std::optional<ProjectEdit> into;
  if (options.into)
    expectTarget(*options.into, into.emplace());
  const LineProject line = options.project.open(design, folder, output);
  expectNoDesign(processors.front(), line, options.project, folder);
  const std::vector<ProjectEdit> edits =
      expectEdits(line, processors, into ? &*into : nullptr);
  const std::vector<EditedProject> files =
      EditProjectFiles(line.file, edits, *line.board, line.wishes);
  for (const EditedProject &file : files)
    for (const ZelDebugDialog::ProjectFault &warning : file.warnings)
      tellRemark(warning, output);
  output.expectNoWarnings();
  if (!writeFiles(files))
    failOvertaken();
  RememberOptionFiles(*line.board, processors);
  if (edits.empty())
    output.note("the project says it already");
  show(takenBy(edits, files, line), line, output);
  return ExitStatus::done;
}

ExitStatus run(const AdoptLine &options, const std::string &folder,
               Output &output) {
  return options.project.isThere(folder) ? takeInto(options, folder, output)
                                         : makeProject(options, folder, output);
}

CommandLine::Runner adoptOptions(Options &app) {
  const auto options = std::make_shared<AdoptLine>();
  options->design.addTo(app, false);
  app.addArguments("PROCESSOR", options->processors,
                   "with a project, and without DESIGN: whose option files",
                   ValueKind::processor);
  app.addFlag("--force", options->force,
              "make the project also where option files would change");
  addTargetOption(app, options->into,
                  "where it goes: local, project or profile:NAME (default: "
                  "local for what belongs to a desk, else project)");
  options->project.addTo(app);
  return [options, &line = app.line()](Output &output) {
    return run(*options, line.workingFolder(), output);
  };
}

} // namespace

void addAdoptCommand(CommandLine &line) {
  line.addSubcommand(
      "adopt",
      "Make a project of the option files that are there, or take changes of "
      "theirs into the one that is there",
      "zeldebug adopt board.xml\n  zeldebug adopt cpu0 --into local",
      adoptOptions);
}

} // namespace zeldebug
