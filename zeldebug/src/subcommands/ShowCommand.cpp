// show: a saved configuration, of a processor or from any file with a command.
#include <algorithm>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/Refused.h"
#include "line/SettingOptions.h"
#include "line/WorkingFolder.h"
#include "output/Table.h"
#include "output/Values.h"
#include "subcommands/Configuring.h"
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
using ZelDebugDialog::Value;

constexpr const char *connection = "connection";
constexpr const char *connectCommand = "connectCommand";
constexpr const char *cpuJtag = "cpuJtag";
constexpr const char *cableFront = "cable.";

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

const CommandSetting &settingOf(const CommandSettings &shown,
                                const std::string &id) {
  const auto found = std::find_if(
      shown.settings.begin(), shown.settings.end(),
      [&id](const CommandSetting &setting) { return setting.id == id; });
  if (found == shown.settings.end())
    throw std::logic_error("no setting '" + id + "' to show");
  return *found;
}

// --- For people --------------------------------------------------------------

/// The word for how to connect; the number where no word stands for it.
std::string shownConnection(const CommandSettings &shown) {
  const Value value = settingOf(shown, connection).value;
  return value.IsText()
             ? value.Text()
             : fmt::format("{:#x}",
                           settingOf(shown, "connectionType").value.Number());
}

void printTable(const CommandSettings &shown, bool withOrigin, Output &output) {
  Table table(withOrigin ? std::vector<std::string>{"SETTING", "VALUE", "FROM"}
                         : std::vector<std::string>{"SETTING", "VALUE"});
  const auto add = [&](const std::string &name, const std::string &value,
                       const std::string &origin) {
    if (withOrigin)
      table.addRow({name, value, origin});
    else
      table.addRow({name, value});
  };
  const CommandSetting &cable = settingOf(shown, "cable.cableType");
  add(connection, shownConnection(shown), settingOf(shown, connection).origin);
  add("cable", ShowValue(*FindSetting(cable.id), cable.value), cable.origin);
  const auto addAll = [&](const std::vector<CommandSetting> &settings) {
    for (const CommandSetting &setting : settings)
      if (setting.id != connection && setting.id != connectCommand)
        add(setting.id, ShowStored(*FindSetting(setting.id), setting.value),
            setting.origin);
  };
  addAll(shown.settings);
  for (const std::vector<CommandSetting> &device : shown.chain)
    addAll(device);
  table.print(output);
}

// --- For programs ------------------------------------------------------------

/// The settings in the shape of a document, each as `tell` has it.
template <class Tell>
Json shapedOf(const CommandSettings &shown, const Tell &tell) {
  Json json{{"record", Json::object()},
            {"cable", Json::object()},
            {cpuJtag, Json()},
            {"chain", Json::array()},
            {connection, Json()}};
  const std::string front = cableFront;
  for (const CommandSetting &setting : shown.settings) {
    if (setting.id == connection || setting.id == cpuJtag)
      json[setting.id] = tell(setting);
    else if (setting.id.compare(0, front.size(), front) == 0)
      json["cable"][setting.id.substr(front.size())] = tell(setting);
    else
      json["record"][setting.id] = tell(setting);
  }
  for (const std::vector<CommandSetting> &device : shown.chain) {
    Json fields = Json::object();
    for (const CommandSetting &setting : device)
      fields[setting.id.substr(setting.id.find('.') + 1)] = tell(setting);
    json["chain"].push_back(fields);
  }
  return json;
}

void print(const CommandSettings &shown, bool withOrigin, Output &output) {
  const std::string command = settingOf(shown, connectCommand).value.Text();
  if (!output.json()) {
    if (!command.empty())
      output.printLine(printable(command) + "\n");
    printTable(shown, withOrigin, output);
    return;
  }
  Json members = shapedOf(shown, [](const CommandSetting &setting) {
    return toJson(setting.value);
  });
  members[connectCommand] = command;
  members["result"] = shown.result;
  members["error"] = shown.error;
  if (withOrigin)
    members["origin"] = shapedOf(shown, [](const CommandSetting &setting) {
      return Json(setting.origin);
    });
  output.document(members);
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

ExitStatus showSaved(const ShowOptions &options, const std::string &folder,
                     const AskedSettings &asked, Output &output) {
  const auto design = options.design.read(output);
  const Board board(*design, optionFolder(folder));
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
  expectOneSource(options, !asked.empty());
  return options.file ? showFile(options, output)
                      : showSaved(options, folder, asked, output);
}

} // namespace

void addShowCommand(CommandLine &line) {
  const auto options = std::make_shared<ShowOptions>();
  Options app = line.addSubcommand(
      "show", "Show the saved configuration of a processor",
      "zeldebug show board.xml cpu0\n  zeldebug show --file etc/kvo_cpu0.opt",
      [options, &line](Output &output) {
        return run(*options, line.workingFolder(), output);
      });
  options->design.addTo(app, false);
  app.addArgument("PROCESSOR", options->processor,
                  "instance name of a processor", ValueKind::processor);
  app.addOption("--file", "FILE", options->file,
                "show the command in this file, without a "
                "design",
                ValueKind::file);
  app.addFlag(
      "--origin", options->origin,
      "tell where each value comes from: default, design, file:COLUMN or "
      "option");
  options->settings.addTo(app);
}

} // namespace zeldebug
