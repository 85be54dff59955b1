#include "reading/DeskSettings.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Faults.h"
#include "reading/Keys.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace fs = std::filesystem;

namespace {

/// The port that a cable starts with; of one that is not known, any of them.
bool isPortOfCable(const std::string &port, const Value *cable) {
  return std::any_of(GetCables().begin(), GetCables().end(),
                     [&](const CableInfo &info) {
                       return info.defaultPort == port &&
                              (cable == nullptr || *cable == Value(info.type));
                     });
}

const Value *cableOf(const ProjectTable &table) {
  for (const ProjectValue &value : table.values)
    if (value.setting == cableType)
      return &value.value;
  return nullptr;
}

/// Warns of one layer's block, or of a profile's.
class DeskSettings {
public:
  /// @param ofProfile  empty: the block of the layer
  DeskSettings(const ProjectLayer &ofLayer, std::string ofProfile,
               std::vector<ProjectFault> &into)
      : layer(ofLayer), profile(std::move(ofProfile)), faults(into) {}

  void addOf(const ProjectBlock &block) {
    for (const ProjectTable &table : block)
      for (const ProjectValue &value : table.values) {
        if (!isOfDesk(value.setting, value.value, cableOf(table)))
          continue;
        ProjectFault fault = faultOf(
            "desk-setting", value.place,
            fmt::format("'{}' is of one desk, and this file is everybody's; {}",
                        value.setting, adviceFor(table, value)));
        fault.setting = value.setting;
        faults.push_back(std::move(fault));
      }
  }

private:
  /// A command writes what is said of all processors or of one, and what has
  /// an option. Of a type or a pattern it would reach more of them.
  std::string adviceFor(const ProjectTable &table,
                        const ProjectValue &value) const {
    const SettingInfo &setting = *FindSetting(value.setting);
    const bool isForCommand = table.scope == ProjectScope::all ||
                              table.scope == ProjectScope::processor;
    if (setting.option.empty() || !isForCommand)
      return fmt::format(
          "move it to [{}] of {}", headerOf(table),
          ShowText(fs::path(LocalFileOf(layer.file)).filename().string()));
    const std::string command = fmt::format(
        "zeldebug set {} {} {} --into local{}",
        table.scope == ProjectScope::all ? "--all"
                                         : ShellWord(ShowText(table.name)),
        setting.option, ShellWord(ShowValue(setting, value.value)),
        profile.empty() ? "" : " --profile " + profile);
    return fmt::format("'{}' writes it into the local file{}", command,
                       profile.empty() ? "" : ", where every profile has it");
  }

  std::string headerOf(const ProjectTable &table) const {
    const std::string front = profile.empty() ? "" : "profile." + profile + ".";
    switch (table.scope) {
    case ProjectScope::all:
      break;
    case ProjectScope::type:
      return front + "type." + ShowText(writtenKey(table.name));
    case ProjectScope::pattern:
    case ProjectScope::processor:
      return front + "processor." + ShowText(writtenKey(table.name));
    }
    return front + "settings";
  }

  const ProjectLayer &layer;
  std::string profile;
  std::vector<ProjectFault> &faults;
};

} // namespace

bool isOfDesk(const std::string &setting, const Value &value,
              const Value *cable) {
  const SettingInfo *const info = FindSetting(setting);
  if (info == nullptr)
    return false;
  switch (info->desk) {
  case DeskRule::never:
    return false;
  case DeskRule::always:
    break;
  case DeskRule::unlessOfCable:
    return value.IsText() && !value.Text().empty() &&
           !isPortOfCable(value.Text(), cable);
  case DeskRule::ifAbsolute:
    return value.IsText() && !value.Text().empty() &&
           value.Text().front() == '/';
  }
  // What takes a value away names no desk.
  return !(value.IsText() && value.Text().empty()) && value != Value(0);
}

void addDeskSettings(const ProjectLayer &project,
                     std::vector<ProjectFault> &faults) {
  DeskSettings(project, "", faults).addOf(project.block);
  for (const ProjectProfile &profile : project.profiles)
    DeskSettings(project, profile.name, faults).addOf(profile.tables);
}

} // namespace ZelDebugDialog::project
