// show: a saved configuration, of a processor or from any file with a command.
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
#include "output/Place.h"
#include "subcommands/Configuring.h"
#include "subcommands/ShowProject.h"
#include "subcommands/ShownSettings.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::CommandSetting;
using ZelDebugDialog::CommandSettings;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::Session;
using ZelDebugDialog::SessionState;
using ZelDebugDialog::SettingState;

struct ShowOptions {
  DesignOptions design;
  ProjectOptions project;
  SettingOptions settings;
  std::optional<std::string> processor;
  std::optional<std::string> file;
  bool origin = false;
  bool saved = false;
};

void expectFileAlone(const ShowOptions &options, bool withSettings) {
  options.project.expectUnused("--file goes without a project");
  if (options.design.named() || options.processor || options.saved ||
      withSettings)
    throw Failure(ExitStatus::wrongUse,
                  "show: --file goes without a design and without settings");
}

void expectProcessor(const ShowOptions &options) {
  if (!options.processor)
    throw Failure(ExitStatus::wrongUse, "PROCESSOR is required");
}

void print(const CommandSettings &shown, bool withOrigin, Output &output) {
  if (output.json())
    output.document(settingsJson(shown, withOrigin));
  else
    printSettings(shown, withOrigin, output);
}

// --- What is saved -----------------------------------------------------------

/// What the line has changed, or asks for by name, comes from its options.
CommandSetting shownSetting(const SettingState &state,
                            const AskedSettings &asked) {
  const std::string byFile = "file:";
  const bool isAsked =
      asked.asksFor(state.id) ||
      (state.id.compare(0, 6, "chain[") == 0 && asked.asksFor("chain"));
  const bool isOfLine = isAsked || state.origin == "changed" ||
                        state.origin.compare(0, 8, "command:") == 0;
  return {state.id, state.value, isOfLine ? "option" : state.origin};
}

CommandSettings settingsWith(Session &session, const AskedSettings &asked) {
  CommandSettings shown = session.Loaded();
  shown.settings.clear();
  shown.chain.clear();
  const SessionState state = session.State();
  for (const SettingState &setting : state.settings)
    if (FindSetting(setting.id)->kind != ZelDebugDialog::SettingKind::chain)
      shown.settings.push_back(shownSetting(setting, asked));
  for (const std::vector<SettingState> &device : state.chain) {
    std::vector<CommandSetting> fields;
    for (const SettingState &field : device)
      fields.push_back(shownSetting(field, asked));
    shown.chain.push_back(fields);
  }
  return shown;
}

std::string placeOf(const std::string &file, const CommandSettings &read) {
  return read.line == 0 ? printable(file)
                        : fmt::format("{}:{}", printable(file), read.line);
}

/// Ends a run that has shown how far the command is read.
ExitStatus unreadable(const std::string &file, const CommandSettings &read,
                      Output &output) {
  const Failure failure(
      ExitStatus::unreadable,
      fmt::format("{}: {}", placeOf(file, read), read.refusal),
      {"", "", {}, {}, "", file, read.line});
  output.fail(failure);
  return failure.status();
}

void tellDoubt(const std::string &file, const CommandSettings &read,
               Output &output) {
  if (!read.doubt.empty())
    output.warn(fmt::format("{}: {}", placeOf(file, read), read.doubt),
                {"long-line", ""});
}

ExitStatus showSaved(const ShowOptions &options, const Board &board,
                     const AskedSettings &asked, Output &output) {
  Session session(board, *options.processor);
  if (!asked.empty()) {
    expectLoaded(session, "");
    std::vector<Remark> remarks;
    applySettings(board, session, asked, {}, remarks);
    print(settingsWith(session, asked), options.origin, output);
    return ExitStatus::done;
  }
  const CommandSettings loaded = session.Loaded();
  print(loaded, options.origin, output);
  if (!loaded.refusal.empty())
    return unreadable(session.File(), loaded, output);
  tellDoubt(session.File(), loaded, output);
  if (loaded.line == 0)
    output.note(fmt::format("nothing is saved in {}: these are the defaults",
                            session.File()));
  return ExitStatus::done;
}

ExitStatus showFile(const ShowOptions &options, Output &output) {
  const CommandSettings read = ZelDebugDialog::ReadCommandFile(*options.file);
  print(read, options.origin, output);
  if (!read.refusal.empty())
    return unreadable(*options.file, read, output);
  tellDoubt(*options.file, read, output);
  return ExitStatus::done;
}

ExitStatus run(const ShowOptions &options, const std::string &folder,
               Output &output) {
  const AskedSettings asked = options.settings.read();
  if (options.file) {
    expectFileAlone(options, !asked.empty());
    return showFile(options, output);
  }
  if (!options.project.areUsed(options.design)) {
    expectProcessor(options);
    const auto design = options.design.read(output);
    return showSaved(options, Board(*design, optionFolder(folder)), asked,
                     output);
  }
  options.project.expectFile(folder);
  if (options.saved)
    expectProcessor(options);
  const LineProject line = options.project.open(options.design, folder, output);
  return options.saved ? showSaved(options, *line.board, asked, output)
                       : showProject(line, options.processor, asked, output);
}

CommandLine::Runner showOptions(Options &app) {
  const auto options = std::make_shared<ShowOptions>();
  options->design.addTo(app, false);
  app.addArgument("PROCESSOR", options->processor,
                  "instance name of a processor (default, with a project: all "
                  "of them)",
                  ValueKind::processor);
  app.addOption("--file", "FILE", options->file,
                "show the command in this file, without a "
                "design",
                ValueKind::file);
  app.addFlag(
      "--origin", options->origin,
      "tell where each value comes from: default, design, file:COLUMN or "
      "option; always with a project, which has FILE:LINE:COLUMN");
  app.addFlag("--saved", options->saved,
              "with a project: show what is saved all the same");
  options->project.addTo(app);
  options->settings.addTo(app);
  return [options, &line = app.line()](Output &output) {
    ShowOptions given = *options;
    given.project.takeProcessor(given.design, given.processor);
    return run(given, line.workingFolder(), output);
  };
}

} // namespace

void addShowCommand(CommandLine &line) {
  line.addSubcommand(
      "show",
      "Show the saved configuration of a processor, or what the project makes "
      "of it",
      "zeldebug show board.xml cpu0\n  zeldebug show --file etc/kvo_cpu0.opt\n"
      "  zeldebug show cpu0 --profile slow",
      showOptions);
}

} // namespace zeldebug
