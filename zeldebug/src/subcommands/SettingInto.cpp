#include "subcommands/SettingInto.h"

#include <algorithm>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Settings.h>
#include <ZelDebugDialog/ProjectFile/Merge.h>

#include "line/ProjectTargets.h"
#include "output/Json.h"
#include "output/Place.h"
#include "output/ProjectFaults.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Configuring.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AppliedProject;
using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::EditedProject;
using ZelDebugDialog::Effect;
using ZelDebugDialog::Loss;
using ZelDebugDialog::MergedProcessor;
using ZelDebugDialog::Project;
using ZelDebugDialog::ProjectChoice;
using ZelDebugDialog::ProjectEdit;
using ZelDebugDialog::ProjectLoss;
using ZelDebugDialog::ProjectTarget;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::Session;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::Value;

// Each time somebody else has written the file; nobody is so busy for long.
constexpr int mostAttempts = 50;

/// What the files give a processor.
struct Wanted {
  MergedProcessor merged;
  Session session;
  AppliedProject applied;
};

Wanted wantedBy(const Project &project, const ProjectChoice &choice,
                const LineProject &line, const BoardProcessor &processor) {
  Wanted wanted{MergeProject(project, choice, processor),
                Session(*line.board, processor.name),
                {}};
  wanted.applied =
      ApplyProject(project, wanted.merged, *line.board, wanted.session);
  return wanted;
}

/// What becomes of one processor.
struct Result {
  std::string processor;
  std::string command;
  std::vector<Effect> effects;
  std::vector<Loss> lost;
  std::vector<Loss> displaced;
};

std::vector<Loss> lossesOf(const std::vector<ProjectLoss> &losses) {
  std::vector<Loss> plain;
  for (const ProjectLoss &one : losses)
    plain.push_back(one.loss);
  return plain;
}

class Into {
public:
  Into(const IntoOptions &intoOptions, const AskedSettings &askedSettings,
       const LineProject &lineProject, Output &runOutput)
      : options(intoOptions), asked(askedSettings), line(lineProject),
        output(runOutput), start(lineProject.project),
        choice(lineProject.choice) {
    // What a profile is given is looked at where it is in use.
    if (options.edit.target == ProjectTarget::profile)
      choice.profile.name = options.edit.profile;
  }

  ExitStatus run();

private:
  ProjectEdit wholeEdit() const;
  EditedProject planned() const;
  std::vector<const BoardProcessor *> processors() const;
  void look(const BoardProcessor &processor, const EditedProject &edited);
  void tell(const EditedProject &edited);
  std::vector<Effect> effectsOf(const Session &before,
                                const Session &after) const;
  bool isAskedFor(const std::string &setting) const;
  void tellFile(const EditedProject &edited) const;
  void print(const EditedProject &edited) const;
  const char *wordOf(const EditedProject &edited) const;

  const IntoOptions &options;
  const AskedSettings &asked;
  const LineProject &line;
  Output &output;
  Project start; ///< The files before the change.
  ProjectChoice choice;
  std::vector<Result> results;
};

ProjectEdit Into::wholeEdit() const {
  ProjectEdit edit = options.edit;
  edit.values = asked.request(nullptr).values;
  edit.unset = asked.unset;
  return edit;
}

/// A refusal is told of what the person typed.
EditedProject Into::planned() const {
  try {
    return EditProject(line.file, wholeEdit(), *line.board, line.wishes);
  } catch (const Refusal &refusal) {
    expectTargetTaken(refusal);
    throw asked.failureOf(refusal);
  }
}

std::vector<const BoardProcessor *> Into::processors() const {
  std::vector<const BoardProcessor *> concerned;
  for (const BoardProcessor &processor : line.board->Processors())
    if (options.edit.processor.empty() ||
        processor.name == options.edit.processor)
      concerned.push_back(&processor);
  return concerned;
}

bool Into::isAskedFor(const std::string &setting) const {
  return asked.asksFor(setting) ||
         std::find(asked.unset.begin(), asked.unset.end(), setting) !=
             asked.unset.end();
}

std::vector<Effect> Into::effectsOf(const Session &before,
                                    const Session &after) const {
  std::vector<Effect> effects;
  for (const SettingInfo &setting : ZelDebugDialog::GetSettings()) {
    const bool isWhole = setting.id.find('[') == std::string::npos;
    if (!setting.settable || !isWhole || isAskedFor(setting.id))
      continue;
    const Value was = before.Get(setting.id);
    const Value is = after.Get(setting.id);
    if (was != is)
      effects.push_back({setting.id, was, is, ""});
  }
  return effects;
}

void Into::look(const BoardProcessor &processor, const EditedProject &edited) {
  const Wanted before = wantedBy(start, choice, line, processor);
  const Wanted after = wantedBy(edited.project, choice, line, processor);
  Result result{processor.name,
                after.applied.command.value_or(""),
                {},
                lossesOf(after.applied.lost),
                lossesOf(after.applied.displaced)};
  if (!before.applied.refusal)
    result.effects = effectsOf(before.session, after.session);
  const auto about = [&processor](const std::string &text) {
    return fmt::format("{}: {}", processor.name, text);
  };
  for (const Effect &effect : result.effects)
    output.note(about(shownEffect(effect)), {"", effect.setting});
  std::vector<Remark> doubts;
  tellDoubts(after.session, asked, doubts);
  for (const Remark &doubt : doubts)
    output.warn(about(doubt.text), doubt.about);
  tellLeftOut(after.merged, after.applied.displaced, output);
  for (const ProjectLoss &one : after.applied.lost)
    output.warn(about(fmt::format("{}: does not survive: {}",
                                  shownPlace(one.place), shownLoss(one.loss))),
                {one.loss.code, one.loss.field, one.place.file, one.place.line,
                 one.place.column});
  results.push_back(std::move(result));
}

const char *Into::wordOf(const EditedProject &edited) const {
  if (!edited.IsChanged())
    return "unchanged";
  return options.dryRun ? "dry-run" : "saved";
}

void Into::tellFile(const EditedProject &edited) const {
  const std::string file = printable(shownPath(edited.file));
  if (!edited.before && !edited.IsChanged())
    output.note(fmt::format("there is no {}, and none is needed", file));
  else if (!edited.IsChanged())
    output.note(fmt::format("{} says so already", file));
  else if (options.dryRun)
    output.note(fmt::format("it would be written to {}", file));
  else
    output.note(fmt::format("written to {}; 'zeldebug sync' brings it into the "
                            "option files",
                            file));
  const std::string &profile = options.edit.profile;
  if (options.edit.target == ProjectTarget::profile &&
      line.choice.profile.name != profile)
    output.note(fmt::format("profile '{}' is not in use: '--profile {}' makes "
                            "it so",
                            printable(profile), printable(profile)));
}

void Into::print(const EditedProject &edited) const {
  if (output.json()) {
    Json list = Json::array();
    for (const Result &result : results)
      list.push_back({{"instanceName", result.processor},
                      {"outcome", wordOf(edited)},
                      {"file", edited.file},
                      {"connectCommand", result.command},
                      {"effects", toJson(result.effects)},
                      {"lost", toJson(result.lost)},
                      {"dropped", toJson(result.displaced)},
                      {"message", nullptr},
                      {"failure", nullptr}});
    Json members = projectJson(line);
    members["into"] = options.target;
    members["results"] = list;
    output.document(members);
    return;
  }
  if (!options.edit.processor.empty()) {
    output.printLine(results.front().command);
    return;
  }
  Table table({"PROCESSOR", "RESULT", "COMMAND"});
  for (const Result &result : results)
    table.addRow({result.processor, wordOf(edited), result.command});
  table.print(output);
}

void Into::tell(const EditedProject &edited) {
  results.clear();
  for (const BoardProcessor *const processor : processors())
    look(*processor, edited);
  for (const ZelDebugDialog::ProjectFault &warning : edited.warnings)
    tellRemark(warning, output);
  output.expectNoWarnings();
}

ExitStatus Into::run() {
  EditedProject edited = planned();
  tell(edited);
  // Of two runs at once both count.
  for (int attempt = 1; !options.dryRun && !writeFiles({edited}); ++attempt) {
    if (attempt == mostAttempts)
      failOvertaken();
    output.note("somebody else has changed the files of the project meanwhile: "
                "they are looked at again");
    start = ZelDebugDialog::ReadProject(line.file);
    edited = planned();
    tell(edited);
  }
  tellFile(edited);
  print(edited);
  return ExitStatus::done;
}

} // namespace

ExitStatus setInto(const IntoOptions &options, const AskedSettings &asked,
                   const LineProject &line, Output &output) {
  return Into(options, asked, line, output).run();
}

} // namespace zeldebug
