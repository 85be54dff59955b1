// set: change what is saved for a processor, or for all of them at once, or
// what the project says of them.
#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "line/ProjectTargets.h"
#include "line/Refused.h"
#include "line/SettingOptions.h"
#include "line/WorkingFolder.h"
#include "output/Json.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Configuring.h"
#include "subcommands/SettingInto.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::Loss;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::RefusalKind;
using ZelDebugDialog::SaveOptions;
using ZelDebugDialog::SaveOutcome;
using ZelDebugDialog::Session;

struct SetOptions {
  DesignOptions design;
  ProjectOptions project;
  std::optional<std::string> processor;
  std::optional<std::string> into;
  SettingOptions settings;
  bool all = false;
  bool dryRun = false;
  bool force = false;
  bool makeFolder = false;
};

/// What became of one processor.
struct Outcome {
  std::string processor;
  std::optional<Configured> configured; ///< unless it was refused before
  SaveOutcome saved;
  Verdict verdict;
  std::optional<Failure> failure;
  bool wasHeld = false; ///< from its loading on

  ExitStatus status() const {
    return failure ? failure->status() : ExitStatus::done;
  }
};

constexpr const char *savedNothingStrictly =
    "nothing is saved, because a warning is a failure with --strict";

const char *wordOf(const Outcome &outcome, bool isDryRun) {
  if (outcome.status() == ExitStatus::unreadable)
    return "unreadable";
  if (outcome.failure)
    return "refused";
  if (outcome.saved.unchanged)
    return "unchanged";
  return isDryRun ? "dry-run" : "saved";
}

/// Others that would save wait from the loading on. Without a folder to lock
/// in there is nothing yet that could get lost.
Session::Hold holdFor(const Board &board, bool isDryRun) {
  std::error_code error;
  const fs::path folder = board.Folder();
  const bool canHold =
      !isDryRun && fs::is_directory(folder, error) &&
      faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
  return canHold ? Session::Hold::untilSaved : Session::Hold::whileSaving;
}

Failure lossFailure(const std::vector<Loss> &losses) {
  std::string list;
  for (const Loss &loss : losses)
    list += "\n  " + shownLoss(loss);
  return {ExitStatus::refused,
          fmt::format("nothing is saved, because it would not survive:{}\n"
                      "--force saves it all the same; docs/round-trip.md "
                      "tells what to do",
                      list),
          {losses.front().code, losses.front().field}};
}

bool isBlocking(const Loss &loss) { return loss.blocking; }

class Run {
public:
  /// @param lineProject  null for none
  Run(const SetOptions &setOptions, const AskedSettings &askedSettings,
      const Board &usedBoard, const LineProject *lineProject, Output &runOutput)
      : options(setOptions), asked(askedSettings), board(usedBoard),
        project(lineProject), output(runOutput) {}

  /// Configures all, saves them together, and tells what became of each.
  ExitStatus run(const std::vector<std::string> &processors);

private:
  Outcome open(const std::string &processor) const;
  void expectNoWarning(const Configured &configured) const;
  SaveOptions saveOptions() const;
  void save();
  void saveAgain(Outcome &outcome) const;
  void take(Outcome &outcome, const SaveOutcome &saved) const;
  void report(const Outcome &outcome);
  Json resultOf(const Outcome &outcome) const;
  void printResults() const;

  const SetOptions &options;
  const AskedSettings &asked;
  const Board &board;
  const LineProject *project;
  Output &output;
  std::vector<Outcome> outcomes;
};

Outcome Run::open(const std::string &processor) const {
  Outcome outcome;
  outcome.processor = processor;
  try {
    const Session::Hold hold = holdFor(board, options.dryRun);
    outcome.wasHeld = hold == Session::Hold::untilSaved;
    outcome.configured =
        configure(board, processor, asked, {hold, options.force, project});
    if (output.strict())
      expectNoWarning(*outcome.configured);
  } catch (const Failure &failure) {
    outcome.failure = failure;
  } catch (const Refusal &refusal) {
    const bool isOfLine = refusal.kind == RefusalKind::unknownProcessor ||
                          refusal.kind == RefusalKind::notDebuggable;
    if (isOfLine)
      throw;
    outcome.failure = failureOf(refusal);
  }
  return outcome;
}

/// What is lost by force is warned of as well.
void Run::expectNoWarning(const Configured &configured) const {
  const std::vector<Loss> losses = configured.session.Losses();
  const bool isForced =
      options.force && std::any_of(losses.begin(), losses.end(), isBlocking);
  if (configured.hasWarnings() || isForced)
    throw Failure(ExitStatus::refused, savedNothingStrictly);
}

SaveOptions Run::saveOptions() const {
  SaveOptions how;
  how.force = options.force;
  how.makeFolder = options.makeFolder;
  how.dryRun = options.dryRun;
  return how;
}

void Run::save() {
  std::vector<Session *> sessions;
  std::vector<Outcome *> saved;
  for (Outcome &outcome : outcomes)
    if (!outcome.failure) {
      sessions.push_back(&outcome.configured->session);
      saved.push_back(&outcome);
    }
  const std::vector<SaveOutcome> results =
      ZelDebugDialog::SaveSessions(sessions, saveOptions());
  for (std::size_t i = 0; i < results.size(); ++i) {
    take(*saved[i], results[i]);
    const bool wasOvertaken =
        results[i].refusal &&
        results[i].refusal->kind == RefusalKind::changedOnDisk;
    if (wasOvertaken)
      saveAgain(*saved[i]);
  }
}

/// Another run has made the folder and saved there: now there is something to
/// hold, and to start from.
void Run::saveAgain(Outcome &outcome) const {
  if (outcome.wasHeld)
    return;
  Outcome again = open(outcome.processor);
  if (!again.failure)
    take(again, ZelDebugDialog::SaveSessions({&again.configured->session},
                                             saveOptions())
                    .front());
  outcome = std::move(again);
}

void Run::take(Outcome &outcome, const SaveOutcome &saved) const {
  outcome.saved = saved;
  outcome.verdict = judge(*outcome.configured, saved.losses);
  if (!saved.refusal)
    return;
  const bool isLoss = saved.refusal->kind == RefusalKind::wouldBeLost &&
                      !outcome.verdict.lost.empty();
  outcome.failure =
      isLoss ? lossFailure(outcome.verdict.lost) : failureOf(*saved.refusal);
}

void Run::report(const Outcome &outcome) {
  const std::string &name = outcome.processor;
  const auto about = [&name](const std::string &text) {
    return fmt::format("{}: {}", name, text);
  };
  const bool isRefused = outcome.failure.has_value();
  // A warning that is a failure is told, and is what nothing is saved for.
  const bool isTold = !isRefused || output.strict();
  if (outcome.configured && isTold)
    for (const Remark &remark : outcome.configured->remarks) {
      if (remark.isWarning)
        output.warn(about(remark.text), remark.about);
      else if (!isRefused)
        output.note(about(remark.text), remark.about);
    }
  if (isRefused) {
    if (options.all) {
      output.error(about(outcome.failure->what()),
                   {outcome.failure->details().code, ""});
    } else {
      const Failure &failure = *outcome.failure;
      output.fail(
          Failure(failure.status(), about(failure.what()), failure.details()));
    }
    return;
  }
  for (const Loss &loss : outcome.verdict.lost)
    output.warn(about("does not survive: " + shownLoss(loss)),
                {loss.code, loss.field});
  for (const Loss &loss : outcome.verdict.noLongerSaved)
    output.note(about("no longer saved: " + shownLoss(loss)),
                {loss.code, loss.field});
  const std::string what = outcome.saved.unchanged ? "already saved in"
                           : options.dryRun        ? "would be saved in"
                                                   : "saved in";
  std::error_code error;
  const bool lacksFolder = options.dryRun && !options.makeFolder &&
                           !fs::exists(board.Folder(), error);
  output.note(about(fmt::format(
      "{} {}{}", what, outcome.saved.file,
      lacksFolder ? ", but there is no such folder (--mkdir makes it)" : "")));
}

Json Run::resultOf(const Outcome &outcome) const {
  return {
      {"instanceName", outcome.processor},
      {"outcome", wordOf(outcome, options.dryRun)},
      {"file", orNull(outcome.saved.file)},
      {"connectCommand", orNull(outcome.saved.command)},
      {"effects", outcome.configured ? toJson(outcome.configured->effects)
                                     : Json::array()},
      {"lost", toJson(outcome.verdict.lost)},
      {"dropped", toJson(outcome.verdict.dropped)},
      {"message", outcome.failure ? Json(outcome.failure->what()) : Json()},
      {"failure", outcome.failure ? failureJson(*outcome.failure) : Json()}};
}

void Run::printResults() const {
  if (output.json()) {
    Json list = Json::array();
    for (const Outcome &outcome : outcomes)
      list.push_back(resultOf(outcome));
    Json members = project == nullptr ? Json::object() : projectJson(*project);
    members["results"] = list;
    output.document(members);
    return;
  }
  if (!options.all) {
    if (!outcomes.front().failure)
      output.printLine(outcomes.front().saved.command);
    return;
  }
  Table table({"PROCESSOR", "RESULT", "COMMAND"});
  for (const Outcome &outcome : outcomes)
    table.addRow({outcome.processor, wordOf(outcome, options.dryRun),
                  outcome.failure ? "-" : outcome.saved.command});
  table.print(output);
}

ExitStatus Run::run(const std::vector<std::string> &processors) {
  for (const std::string &processor : processors)
    outcomes.push_back(open(processor));
  save();
  ExitStatus worst = ExitStatus::done;
  for (const Outcome &outcome : outcomes) {
    report(outcome);
    worst = std::max(worst, outcome.status());
  }
  printResults();
  return worst;
}

std::vector<std::string> processorsOf(const SetOptions &options,
                                      const Board &board) {
  if (!options.all)
    return {*options.processor};
  std::vector<std::string> processors;
  for (const BoardProcessor &processor : board.Processors())
    processors.push_back(processor.name);
  return processors;
}

/// What goes to a file of the project is a setting with its value.
IntoOptions intoOptions(const SetOptions &options, const AskedSettings &asked) {
  const auto refuse = [](const char *option, const char *problem) {
    throw Failure(ExitStatus::wrongUse, fmt::format("{}: {}", option, problem),
                  {"", option});
  };
  if (options.design.named())
    refuse("--into", "there is no project where DESIGN is given");
  if (options.makeFolder)
    refuse("--mkdir", "--into writes no option file");
  if (options.force)
    refuse("--force", "--into writes nothing that would not survive");
  constexpr const char *whole =
      "--into takes settings one by one, or with --settings";
  if (asked.command)
    refuse("--from", whole);
  if (asked.copyFrom)
    refuse("--copy-from", whole);
  IntoOptions into;
  into.target = *options.into;
  expectTarget(into.target, into.edit);
  into.edit.processor = options.processor.value_or("");
  into.dryRun = options.dryRun;
  return into;
}

ExitStatus run(const SetOptions &options, const std::string &folder,
               Output &output) {
  const auto expectOne = [&options] {
    if (options.all == options.processor.has_value())
      throw Failure(ExitStatus::wrongUse,
                    "set: give either a PROCESSOR or --all");
  };
  const auto expectQuiet = [&output] {
    if (output.failsBecauseOfWarnings())
      throw Failure(ExitStatus::refused, savedNothingStrictly);
  };
  if (!options.project.areUsed(options.design)) {
    expectOne();
    const AskedSettings asked = options.settings.read();
    if (options.into)
      intoOptions(options, asked);
    const auto design = options.design.read(output);
    expectQuiet();
    const Board board(*design, optionFolder(folder));
    return Run(options, asked, board, nullptr, output)
        .run(processorsOf(options, board));
  }
  options.project.expectFile(folder);
  expectOne();
  const AskedSettings asked = options.settings.read();
  std::optional<IntoOptions> into;
  if (options.into)
    into = intoOptions(options, asked);
  const LineProject line = options.project.open(options.design, folder, output);
  expectQuiet();
  if (into)
    return setInto(*into, asked, line, output);
  return Run(options, asked, *line.board, &line, output)
      .run(processorsOf(options, *line.board));
}

CommandLine::Runner setOptions(Options &app) {
  const auto options = std::make_shared<SetOptions>();
  options->design.addTo(app, false);
  app.addArgument("PROCESSOR", options->processor,
                  "instance name of a processor", ValueKind::processor);
  app.addFlag("--all", options->all,
              "every processor that can be debugged, in place of PROCESSOR");
  app.addFlag("--dry-run", options->dryRun, "save nothing");
  app.addFlag("--force", options->force,
              "save settings that would not survive and over a file that is "
              "read-only, take a number of --from that does not fit, and "
              "start from the defaults if what is saved cannot be read");
  app.addFlag("--mkdir", options->makeFolder,
              "make the folder etc/ if it is missing");
  addTargetOption(app, options->into,
                  "write to a file of the project in place of the option "
                  "file: local, project or profile:NAME; with --all to its "
                  "table of all processors");
  options->project.addTo(app);
  options->settings.addTo(app);
  return [options, &line = app.line()](Output &output) {
    SetOptions given = *options;
    if (!given.all)
      given.project.takeProcessor(given.design, given.processor);
    return run(given, line.workingFolder(), output);
  };
}

} // namespace

void addSetCommand(CommandLine &line) {
  line.addSubcommand(
      "set", "Change and save the configuration of a processor",
      "zeldebug set board.xml cpu0 --cable quorla_podusb --frequency 3MHz "
      "--mkdir\n  zeldebug set cpu0 --esn 0042 --into local",
      setOptions);
}

} // namespace zeldebug
