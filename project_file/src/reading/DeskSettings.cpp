#include "reading/DeskSettings.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Faults.h"
#include "reading/Keys.h"

namespace ZelDebugDialog::project {

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

/// Who the option line names.
std::string processorOf(const ProjectTable &table) {
  return table.scope == ProjectScope::processor ? ShowText(table.name)
                                                : "--all";
}

void addOf(const ProjectBlock &block, std::vector<ProjectFault> &faults) {
  for (const ProjectTable &table : block)
    for (const ProjectValue &value : table.values) {
      if (!isOfDesk(value.setting, value.value, cableOf(table)))
        continue;
      const SettingInfo &setting = *FindSetting(value.setting);
      const std::string option =
          setting.option.empty() ? std::string("--settings FILE")
                                 : fmt::format("{} '{}'", setting.option,
                                               ShowValue(setting, value.value));
      ProjectFault fault = faultOf(
          "desk-setting", value.place,
          fmt::format("'{}' is of one desk, and this file is everybody's; "
                      "'zeldebug set {} {} --into local' writes it into the "
                      "local file",
                      value.setting, processorOf(table), option));
      fault.setting = value.setting;
      faults.push_back(std::move(fault));
    }
}

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
  addOf(project.block, faults);
  for (const ProjectProfile &profile : project.profiles)
    addOf(profile.tables, faults);
}

} // namespace ZelDebugDialog::project
