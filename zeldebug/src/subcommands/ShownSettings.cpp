#include "subcommands/ShownSettings.h"

#include <algorithm>
#include <stdexcept>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Settings.h>

#include "output/Json.h"
#include "output/Table.h"
#include "output/Values.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CommandSetting;
using ZelDebugDialog::CommandSettings;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::Value;
namespace documents = ZelDebugDialog::documents;

constexpr const char *connection = "connection";
constexpr const char *connectCommand = "connectCommand";
constexpr const char *cpuJtag = "cpuJtag";
constexpr const char *cableFront = "cable.";

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

/// The origin of a setting that nobody has asked for.
bool isUnsaid(const std::string &origin) {
  return origin == "default" || origin == "design";
}

void printTable(const CommandSettings &shown, bool withOrigin, bool onlySaid,
                Output &output) {
  Table table(withOrigin ? std::vector<std::string>{"SETTING", "VALUE", "FROM"}
                         : std::vector<std::string>{"SETTING", "VALUE"});
  const auto add = [&](const std::string &name, const std::string &value,
                       const std::string &origin) {
    if (onlySaid && isUnsaid(origin))
      return;
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

/// Without members that say nothing; what is in a list keeps its place.
Json sparse(const Json &json) {
  if (json.is_array()) {
    Json list = Json::array();
    for (const Json &each : json)
      list.push_back(sparse(each));
    const bool isEmpty =
        std::all_of(list.begin(), list.end(),
                    [](const Json &each) { return each.empty(); });
    return isEmpty ? Json() : list;
  }
  if (!json.is_object())
    return json;
  Json object = Json::object();
  for (const auto &[name, value] : json.items())
    if (Json said = sparse(value); !said.empty())
      object[name] = std::move(said);
  return object;
}

} // namespace

void printSettings(const CommandSettings &shown, bool withOrigin,
                   Output &output, bool onlySaid) {
  const std::string command = settingOf(shown, connectCommand).value.Text();
  if (!command.empty())
    output.printLine(printable(command) + "\n");
  printTable(shown, withOrigin, onlySaid, output);
}

Json settingsJson(const CommandSettings &shown, bool withOrigin) {
  Json members = shapedOf(shown, [](const CommandSetting &setting) {
    return toJson(setting.value);
  });
  members[connectCommand] = settingOf(shown, connectCommand).value.Text();
  members["result"] = shown.result;
  members["error"] = shown.error;
  Json bytes = shapedOf(shown, [](const CommandSetting &setting) {
    return documents::bytesOf(setting.value);
  });
  bytes[connectCommand] = bytes["record"][connectCommand];
  if (bytes = sparse(bytes); !bytes.empty())
    members["bytes"] = bytes;
  if (withOrigin)
    members["origin"] = shapedOf(shown, [](const CommandSetting &setting) {
      return Json(setting.origin);
    });
  return members;
}

} // namespace zeldebug
