// command: the connect command that `set` would save.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "line/Refused.h"
#include "line/SettingOptions.h"
#include "line/WorkingFolder.h"
#include "output/Json.h"
#include "output/Values.h"
#include "subcommands/Configuring.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::Loss;
using ZelDebugDialog::Session;

struct CommandOptions {
  DesignOptions design;
  ProjectOptions project;
  std::optional<std::string> processor;
  SettingOptions settings;
  bool force = false;
};

void say(const Configured &configured, const Verdict &verdict, Output &output) {
  for (const Remark &remark : configured.remarks)
    if (remark.isWarning)
      output.warn(remark.text, remark.about);
    else
      output.note(remark.text, remark.about);
  for (const Loss &loss : verdict.lost)
    output.warn("does not survive: " + shownLoss(loss),
                {loss.code, loss.field});
  for (const Loss &loss : verdict.noLongerSaved)
    output.note("no longer part of the command: " + shownLoss(loss),
                {loss.code, loss.field});
}

/// @param project  null for none
ExitStatus print(const CommandOptions &options, const AskedSettings &asked,
                 const Board &board, const LineProject *project,
                 Output &output) {
  Configured configured =
      configure(board, *options.processor, asked,
                {Session::Hold::whileSaving, options.force, project});
  const std::optional<std::string> saved = findSavedCommand(configured.session);
  const std::string command = saved ? *saved : configured.session.Command();
  const Verdict verdict =
      saved ? Verdict() : judge(configured, configured.session.Losses());
  say(configured, verdict, output);
  if (output.json()) {
    Json members = project == nullptr ? Json::object() : projectJson(*project);
    members.update({{"instanceName", *options.processor},
                    {"connectCommand", command},
                    {"effects", toJson(configured.effects)},
                    {"lost", toJson(verdict.lost)},
                    {"dropped", toJson(verdict.dropped)}});
    output.document(members);
  } else {
    output.printLine(command);
  }
  // As with `set`: what is asked for stands, or the run fails.
  return verdict.lost.empty() || options.force ? ExitStatus::done
                                               : ExitStatus::refused;
}

ExitStatus run(const CommandOptions &options, const std::string &folder,
               Output &output) {
  const bool ofProject = options.project.areUsed(options.design);
  if (ofProject)
    options.project.expectFile(folder);
  if (!options.processor)
    throw Failure(ExitStatus::wrongUse, "PROCESSOR is required");
  const AskedSettings asked = options.settings.read();
  if (ofProject) {
    const LineProject line =
        options.project.open(options.design, folder, output);
    return print(options, asked, *line.board, &line, output);
  }
  const auto design = options.design.read(output);
  const Board board(*design, optionFolder(folder));
  return print(options, asked, board, nullptr, output);
}

CommandLine::Runner commandOptions(Options &app) {
  const auto options = std::make_shared<CommandOptions>();
  options->design.addTo(app, false);
  app.addArgument("PROCESSOR", options->processor,
                  "instance name of a processor", ValueKind::processor);
  app.addFlag("--force", options->force,
              "succeed also where settings would not survive, and start from "
              "the defaults if what is saved cannot be read");
  options->project.addTo(app);
  options->settings.addTo(app);
  return [options, &line = app.line()](Output &output) {
    CommandOptions given = *options;
    given.project.takeProcessor(given.design, given.processor);
    return run(given, line.workingFolder(), output);
  };
}

} // namespace

void addCommandCommand(CommandLine &line) {
  line.addSubcommand(
      "command", "Print the connect command for settings, without saving it",
      "zeldebug command board.xml cpu0 --cable quorla_podusb --frequency 3MHz",
      commandOptions);
}

} // namespace zeldebug
