// set: change what is saved for a processor.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Configure.h"
#include "OptionFileSaver.h"
#include "OptionFolder.h"
#include "line/DesignOptions.h"
#include "line/TextOption.h"
#include "line/WorkingFolder.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

using ZelDebugDialog::DesignModel;

struct SetOptions {
  DesignOptions design;
  std::optional<std::string> processor;
  SettingOptions settings;
  bool all = false;
  bool dryRun = false;
  bool force = false;
  bool makeFolder = false;
};

/// What became of one processor.
struct Outcome {
  std::string processor;
  std::string
      word; ///< "saved", "unchanged", "dry-run", "refused", "unreadable"
  ExitStatus status = ExitStatus::done;
  std::string file;
  std::string command;
  std::string doubt;        ///< about what is saved
  bool lacksFolder = false; ///< that a dry run would be saved in
  Verdict verdict;
  std::string message; ///< for a refusal
};

std::string listOf(const std::vector<Loss> &losses) {
  std::string text;
  for (const Loss &loss : losses)
    text += "\n  " + shownLoss(loss);
  return text;
}

/// Writes, reads back, and moves into place what survives.
void save(const SetOptions &options, DesignModel &design, Session &session,
          const Configured &configured, Outcome &outcome) {
  const fs::path target = behindLinks(configured.saved.path);
  const fs::path place = target.parent_path();
  std::optional<OptionFolder> folder;
  if (options.dryRun)
    outcome.lacksFolder = !isWritableOptionFolder(place) && !options.makeFolder;
  else
    folder.emplace(place, options.makeFolder);
  expectReplaceable(target);
  const OptionFileSaver saver(
      session, options.dryRun ? fs::temp_directory_path() : place);
  outcome.verdict =
      judge(configured, lossesOf(configured.wanted, saver.command(),
                                 saver.readBack(&design), true));
  if (!outcome.verdict.lost.empty() && !options.force)
    throw Failure(ExitStatus::refused,
                  "nothing is saved, because it would not survive:" +
                      listOf(outcome.verdict.lost) +
                      "\n--force saves it all the same; docs/round-trip.md "
                      "tells what to do");
  if (options.dryRun)
    return;
  saver.moveTo(target);
}

void configureAndSave(const SetOptions &options,
                      const std::vector<SettingAction> &actions,
                      DesignModel &design, Outcome &outcome) {
  Session session(&design);
  const Configured configured = configure(
      session, outcome.processor, options.settings, actions, options.force);
  outcome.file = shownPath(configured.saved.path);
  outcome.command = configured.command;
  outcome.doubt = doubtOf(configured);
  if (!configured.changed()) {
    outcome.word = "unchanged";
    return;
  }
  save(options, design, session, configured, outcome);
  outcome.word = options.dryRun ? "dry-run" : "saved";
}

Outcome outcomeOf(const SetOptions &options,
                  const std::vector<SettingAction> &actions,
                  DesignModel &design, const std::string &processor) {
  Outcome outcome;
  outcome.processor = processor;
  try {
    configureAndSave(options, actions, design, outcome);
  } catch (const Failure &failure) {
    outcome.status = failure.status();
    outcome.word =
        failure.status() == ExitStatus::unreadable ? "unreadable" : "refused";
    outcome.message = failure.what();
  }
  return outcome;
}

void report(const Outcome &outcome, const Output &output) {
  const std::string &name = outcome.processor;
  if (outcome.status != ExitStatus::done) {
    output.error(fmt::format("{}: {}", name, outcome.message));
    return;
  }
  if (!outcome.doubt.empty())
    output.warn(fmt::format("{}: {}", name, outcome.doubt));
  for (const Loss &loss : outcome.verdict.lost)
    output.warn(fmt::format("{}: does not survive: {}", name, shownLoss(loss)));
  for (const Loss &loss : outcome.verdict.dropped)
    output.note(fmt::format("{}: no longer saved: {}", name, shownLoss(loss)));
  const std::string what = outcome.word == "saved"     ? "saved in"
                           : outcome.word == "dry-run" ? "would be saved in"
                                                       : "already saved in";
  output.note(fmt::format(
      "{}: {} {}{}", name, what, outcome.file,
      outcome.lacksFolder ? fmt::format(", but {}", missingFolder) : ""));
}

Json outcomeJson(const Outcome &outcome) {
  const auto orNull = [](const std::string &text) {
    return text.empty() ? Json() : Json(text);
  };
  return {{"instanceName", outcome.processor},
          {"outcome", outcome.word},
          {"file", orNull(outcome.file)},
          {"connectCommand", orNull(outcome.command)},
          {"lost", toJson(outcome.verdict.lost)},
          {"dropped", toJson(outcome.verdict.dropped)},
          {"message", orNull(outcome.message)}};
}

void printResults(const SetOptions &options,
                  const std::vector<Outcome> &outcomes, Output &output) {
  if (output.json()) {
    Json list = Json::array();
    for (const Outcome &outcome : outcomes)
      list.push_back(outcomeJson(outcome));
    output.document({{"results", list}});
    return;
  }
  if (!options.all) {
    if (outcomes.front().status == ExitStatus::done)
      output.printLine(outcomes.front().command);
    return;
  }
  Table table({"PROCESSOR", "RESULT", "COMMAND"});
  for (const Outcome &outcome : outcomes)
    table.addRow({outcome.processor, outcome.word,
                  outcome.status == ExitStatus::done ? outcome.command : "-"});
  table.print(output);
}

std::vector<std::string> processorsOf(const SetOptions &options,
                                      DesignModel &design) {
  const Session session(&design);
  std::vector<std::string> names = session.processorNames();
  if (options.all)
    return names;
  expectDebuggable(design, names, *options.processor);
  return {*options.processor};
}

ExitStatus run(const SetOptions &options, const std::string &folder,
               Output &output) {
  if (options.all == options.processor.has_value())
    throw Failure(ExitStatus::wrongUse,
                  "set: give either a PROCESSOR or --all");
  const std::vector<SettingAction> actions = options.settings.actions();
  const auto design = options.design.read(output);
  enterWorkingFolder(folder);
  std::vector<Outcome> outcomes;
  ExitStatus worst = ExitStatus::done;
  for (const std::string &processor : processorsOf(options, *design)) {
    outcomes.push_back(outcomeOf(options, actions, *design, processor));
    report(outcomes.back(), output);
    worst = std::max(worst, outcomes.back().status);
  }
  printResults(options, outcomes, output);
  return worst;
}

} // namespace

void addSetCommand(CommandLine &line) {
  const auto options = std::make_shared<SetOptions>();
  CLI::App &app = line.addSubcommand(
      "set", "Change and save the configuration of a processor",
      "zeldebug set board.xml cpu0 --cable quorla_podusb --frequency 3MHz "
      "--mkdir",
      [options, &line](Output &output) {
        return run(*options, line.workingFolder(), output);
      });
  options->design.addTo(line, app);
  line.completeWith(addTextOption(app, "PROCESSOR", options->processor,
                                  "instance name of a processor")
                        ->type_name(""),
                    ValueKind::processor);
  app.add_flag("--all", options->all,
               "every processor that can be debugged, in place of PROCESSOR");
  app.add_flag("--dry-run", options->dryRun, "save nothing");
  app.add_flag(
      "--force", options->force,
      "save settings that would not survive, and start from the defaults "
      "if what is saved cannot be read");
  app.add_flag("--mkdir", options->makeFolder,
               "make the folder etc/ if it is missing");
  options->settings.addTo(line, app);
}

} // namespace zeldebug
