#include "ZelDebugDialog/ProjectFile/Origins.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "merging/Applicable.h"
#include "merging/Bringer.h"
#include "reading/Keys.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

using namespace project;

constexpr const char *byDefault = "default";
constexpr const char *byDesign = "design";
constexpr const char *chainId = "chain";

bool isOfSession(const std::string &origin) {
  return origin == byDefault || origin == byDesign;
}

class Origins {
public:
  Origins(const MergedProcessor &ofProcessor, const Session &ofSession)
      : merged(ofProcessor), session(ofSession) {}

  std::string of(const SettingState &setting) const {
    const SettingInfo *const row = FindSetting(setting.id);
    const MergedValue *const said = findSaid(merged, setting.id);
    if (said != nullptr && stands(*said))
      return ShowOrigin(said->value.place);
    if (isOfSession(setting.origin))
      return setting.origin;
    if (row != nullptr && !row->settable && writtenFor(setting.id).empty())
      return byDesign;
    if (setting.value == setting.defaultValue)
      return byDefault;
    // Not said, and not as it is by default: it came with another one.
    const MergedValue *const bringer =
        findBringer(merged, setting.id, setting.value);
    return bringer == nullptr ? byDefault : ShowOrigin(bringer->value.place);
  }

  std::string ofDevice(std::size_t device, const std::string &id) const {
    const MergedValue *const said = merged.Find(chainId);
    if (said == nullptr)
      return byDefault;
    const ProjectValue &value = said->value;
    if (value.place.line == 0)
      return ShowOrigin(value.place);
    const std::string field = id.substr(id.find('.') + 1);
    if (device < value.devices.size())
      for (const auto &[name, place] : value.devices[device])
        if (name == field)
          return ShowOrigin(place);
    return byDefault;
  }

private:
  /// What is displaced need not be part of the configuration.
  bool stands(const MergedValue &said) const {
    return session.Get(said.value.setting) == said.value.value;
  }

  const MergedProcessor &merged;
  const Session &session;
};

} // namespace

std::string ShowOrigin(const ProjectPlace &place) {
  return place.line == 0
             ? "option"
             : fmt::format("{}:{}:{}", fs::path(place.file).filename().string(),
                           place.line, place.column);
}

CommandSettings ShowProject(const MergedProcessor &merged,
                            const Session &session) {
  const SessionState state = session.State();
  const Origins origins(merged, session);
  CommandSettings shown;
  shown.text = state.command.value_or("");
  for (const SettingState &setting : state.settings) {
    if (setting.id == chainId)
      continue;
    const bool isCommand = setting.id == "connectCommand";
    shown.settings.push_back({setting.id,
                              isCommand ? Value(shown.text) : setting.value,
                              isCommand ? byDesign : origins.of(setting)});
  }
  for (std::size_t device = 0; device < state.chain.size(); ++device) {
    std::vector<CommandSetting> fields;
    for (const SettingState &field : state.chain[device])
      fields.push_back(
          {field.id, field.value, origins.ofDevice(device, field.id)});
    shown.chain.push_back(std::move(fields));
  }
  return shown;
}

std::vector<Difference>
CompareWithOptionFile(const Board &board, const Session &session,
                      const std::vector<ProjectLoss> &displaced) {
  std::error_code error;
  if (!fs::exists(board.FileOf(session.Processor()), error))
    return {};
  const Session disk(board, session.Processor());
  if (!disk.Problem().empty())
    return {};
  std::set<std::string> compared = applicableIn(session);
  for (const SettingState &setting : disk.State().settings)
    if (setting.applicable && setting.value != setting.defaultValue)
      compared.insert(setting.id);
  for (const ProjectLoss &one : displaced)
    compared.erase(one.loss.field);
  std::vector<Difference> differences;
  for (const SettingInfo &setting : GetSettings()) {
    const std::string &id = setting.id;
    if (!setting.settable || compared.count(id) == 0 ||
        id.find('[') != std::string::npos)
      continue;
    Value saved = disk.Get(id);
    Value now = session.Get(id);
    if (now != saved)
      differences.push_back({id, std::move(saved), std::move(now)});
  }
  return differences;
}

} // namespace ZelDebugDialog
