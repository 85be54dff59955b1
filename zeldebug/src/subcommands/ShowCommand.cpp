// show: a saved configuration, of a processor or from any file with a command.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "CableKeyword.h"
#include "Configure.h"
#include "ConnectionKind.h"
#include "Origin.h"
#include "Refusal.h"
#include "SavedConfiguration.h"
#include "Session.h"
#include "TracedCommand.h"
#include "line/DesignOptions.h"
#include "line/TextOption.h"
#include "line/WorkingFolder.h"
#include "output/Output.h"
#include "output/Place.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AfterFault;
using ZelDebugDialog::ProcessorInfoImp;

struct ShowOptions {
  DesignOptions design;
  SettingOptions settings;
  std::optional<std::string> processor;
  std::optional<std::string> file;
  bool origin = false;
};

void expectOneSource(const ShowOptions &options, bool withSettings) {
  const bool fromFile = options.file.has_value();
  if (fromFile && (options.design.named() || withSettings))
    throw Failure(ExitStatus::wrongUse,
                  "show: --file goes without a design and without settings");
  if (!fromFile && (!options.design.named() || !options.processor))
    throw Failure(ExitStatus::wrongUse,
                  "show: DESIGN and PROCESSOR are required without --file");
}

/// What there is to show, from wherever it was read.
struct Shown {
  Configuration configuration;
  Reading reading{};
  Origins origins;
};

void printTable(const Shown &shown, bool withOrigin, Output &output) {
  Table table(withOrigin ? std::vector<std::string>{"SETTING", "VALUE", "FROM"}
                         : std::vector<std::string>{"SETTING", "VALUE"});
  const auto add = [&](const std::string &name, const std::string &value,
                       const std::string &setting) {
    if (withOrigin)
      table.addRow({name, value, shown.origins.of(setting)});
    else
      table.addRow({name, value});
  };
  add("connection", kindOf(shown.configuration.record), "connectionType");
  add("cable", shownCable(shown.configuration.cable.cableType),
      "cable.cableType");
  for (const Setting &setting : settingsOf(shown.configuration))
    add(setting.name, shownValue(setting.value, setting.kind), setting.name);
  table.print(output);
}

void print(const Shown &shown, bool withOrigin, Output &output) {
  const std::string &command = shown.configuration.record.connectCommand;
  if (!output.json()) {
    if (!command.empty())
      output.printLine(printable(command) + "\n");
    printTable(shown, withOrigin, output);
    return;
  }
  Json members = toJson(shown.configuration);
  members["connectCommand"] = command;
  members["result"] = shown.reading.result;
  members["error"] = shown.reading.message;
  if (withOrigin)
    members["origin"] = shown.origins.toJson(shown.configuration);
  output.document(members);
}

/// The origins of what a selection gave.
void noteSelected(Origins &origins, const ShowOptions &options,
                  const SavedConfiguration &saved, HHSMHwManager *design,
                  const ProcessorInfoImp &selected) {
  origins.noteDesign();
  const std::string *const from = options.settings.from();
  if (from != nullptr)
    origins.noteCommandOfLine(traceOf(*from, *options.processor, design));
  else if (saved.file.exists && saved.file.line != 0 &&
           saved.reading.accepted())
    origins.noteCommand(traceOf(saved.file.text.substr(0, optionLineLimit),
                                *options.processor, design));
  origins.noteSelection(selected);
}

ExitStatus showSaved(const ShowOptions &options, const std::string &folder,
                     const std::vector<SettingAction> &actions,
                     Output &output) {
  const auto design = options.design.read(output);
  enterWorkingFolder(folder);
  Session session(design.get());
  const std::string &processor = *options.processor;
  expectDebuggable(*design, session.processorNames(), processor);
  SettingTarget target{session, session.recordOf(processor), {}};
  const SavedConfiguration saved = selectSaved(session, processor);
  applyCommand(target, options.settings);
  const Configuration selected = configurationOf(*session.state);
  for (const SettingAction &apply : actions)
    apply(target);

  Shown shown{configurationOf(*session.state), saved.reading, {}};
  noteSelected(shown.origins, options, saved, design.get(), selected.record);
  shown.origins.noteOptions(selected, shown.configuration, target.given);
  print(shown, options.origin, output);

  const std::string problem = saved.problem();
  if (!problem.empty() && saved.file.isCut() && saved.reading.accepted()) {
    output.warn(problem);
    return ExitStatus::done;
  }
  if (!problem.empty()) {
    output.error(problem);
    return ExitStatus::unreadable;
  }
  if (saved.file.line == 0)
    output.note(fmt::format("nothing is saved in {}: these are the defaults",
                            printable(shownPath(saved.path))));
  return ExitStatus::done;
}

CommandFile expectCommandFile(const std::string &name) {
  CommandFile file = readCommandFile(name);
  const std::string problem = !file.exists            ? noSuchFile
                              : !file.problem.empty() ? file.problem
                              : file.line == 0 ? "there is no command in it"
                                               : "";
  if (!problem.empty())
    throw Failure(ExitStatus::unreadable,
                  fmt::format("{}: {}", shownName(name), problem));
  return file;
}

ExitStatus showFile(const ShowOptions &options, Output &output) {
  const CommandFile file = expectCommandFile(*options.file);
  const TracedCommand command(file.text, AfterFault::stop);
  Shown shown{command.configuration(), command.reading(), {}};
  shown.origins.noteCommand(command.trace());
  print(shown, options.origin, output);
  const std::string place = fmt::format("{}:{}", *options.file, file.line);
  if (!command.reading().accepted()) {
    output.error(fmt::format("{}: the command is refused: {}", place,
                             refusalOf(command.reading(), file.text)));
    return ExitStatus::unreadable;
  }
  if (file.isCut())
    output.warn(
        fmt::format("{}: the command has {} characters, but only {} of a "
                    "line of an option file are read",
                    place, file.text.size(), optionLineLimit));
  return ExitStatus::done;
}

ExitStatus run(const ShowOptions &options, const std::string &folder,
               Output &output) {
  const std::vector<SettingAction> actions = options.settings.actions();
  expectOneSource(options,
                  !actions.empty() || options.settings.from() != nullptr);
  if (options.file)
    return showFile(options, output);
  return showSaved(options, folder, actions, output);
}

} // namespace

void addShowCommand(CommandLine &line) {
  const auto options = std::make_shared<ShowOptions>();
  CLI::App &app = line.addSubcommand(
      "show", "Show the saved configuration of a processor",
      "zeldebug show board.xml cpu0\n  zeldebug show --file etc/kvo_cpu0.opt",
      [options, &line](Output &output) {
        return run(*options, line.workingFolder(), output);
      });
  options->design.addTo(line, app, false);
  line.completeWith(addTextOption(app, "PROCESSOR", options->processor,
                                  "instance name of a processor")
                        ->type_name(""),
                    ValueKind::processor);
  line.completeWith(addTextOption(app, "--file", options->file,
                                  "show the command in this file, without a "
                                  "design")
                        ->type_name("FILE"),
                    ValueKind::file);
  app.add_flag(
      "--origin", options->origin,
      "tell where each value comes from: default, design, file:COLUMN or "
      "option");
  options->settings.addTo(line, app);
}

} // namespace zeldebug
