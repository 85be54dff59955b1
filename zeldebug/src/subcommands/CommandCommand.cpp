// command: the connect command that `set` would save.
#include <memory>

#include <fmt/format.h>

#include "Configure.h"
#include "Refusal.h"
#include "line/DesignOptions.h"
#include "line/WorkingFolder.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

struct CommandOptions {
  DesignOptions design;
  std::string processor;
  SettingOptions settings;
  bool force = false;
};

ExitStatus run(const CommandOptions &options, const std::string &folder,
               Output &output) {
  const std::vector<SettingAction> actions = options.settings.actions();
  const auto design = options.design.read(output);
  enterWorkingFolder(folder);
  Session session(design.get());
  expectDebuggable(*design, session.processorNames(), options.processor);
  const Configured configured = configure(
      session, options.processor, options.settings, actions, options.force);

  Session fresh(design.get());
  const Reading reading =
      fresh.selectFrom(options.processor, configured.command);
  const ReadBack readBack{reading.accepted(),
                          reading.accepted()
                              ? std::string()
                              : refusalOf(reading, configured.command,
                                          design.get(), options.processor),
                          configurationOf(*fresh.state)};
  const Verdict verdict =
      judge(configured,
            lossesOf(configured.wanted, configured.command, readBack, false));
  const std::string doubt = doubtOf(configured);
  if (!doubt.empty())
    output.warn(doubt);
  for (const Loss &loss : verdict.lost)
    output.warn("does not survive: " + shownLoss(loss));
  for (const Loss &loss : verdict.dropped)
    output.note("no longer part of the command: " + shownLoss(loss));
  if (output.json())
    output.document({{"instanceName", options.processor},
                     {"connectCommand", configured.command},
                     {"lost", toJson(verdict.lost)},
                     {"dropped", toJson(verdict.dropped)}});
  else
    output.printLine(configured.command);
  return ExitStatus::done;
}

} // namespace

void addCommandCommand(CommandLine &line) {
  const auto options = std::make_shared<CommandOptions>();
  CLI::App &app = line.addSubcommand(
      "command", "Print the connect command for settings, without saving it",
      "zeldebug command board.xml cpu0 --cable quorla_podusb --frequency 3MHz",
      [options, &line](Output &output) {
        return run(*options, line.workingFolder(), output);
      });
  options->design.addTo(line, app);
  line.completeWith(app.add_option("PROCESSOR", options->processor,
                                   "instance name of a processor")
                        ->type_name("")
                        ->required(),
                    ValueKind::processor);
  app.add_flag("--force", options->force,
               "start from the defaults if what is saved cannot be read");
  options->settings.addTo(line, app);
}

} // namespace zeldebug
