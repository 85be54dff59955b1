#include "editing/WantedValues.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Faults.h"
#include "reading/Keys.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace {

bool holds(const SettingValues &values, const std::string &setting) {
  return std::any_of(
      values.begin(), values.end(),
      [&setting](const auto &value) { return value.first == setting; });
}

/// Whether a setting says nothing that others of the change do not.
bool follows(const std::string &setting, const ProjectEdit &edit) {
  const AddressMapInfo &map = GetAddressMap();
  return setting == map.base &&
         std::all_of(map.regions.begin(), map.regions.end(),
                     [&edit](const std::string &region) {
                       return holds(edit.values, region);
                     });
}

[[noreturn]] void refuseTwice(const std::string &setting,
                              const std::string &problem) {
  Refusal refusal(RefusalKind::excluded, setting, problem);
  refusal.setting = setting;
  throw refusal;
}

bool isWritable(const Value &value) {
  if (value.IsText())
    return !readToml("text = " + writtenText(value.Text())).error;
  if (!value.IsChain())
    return true;
  for (const ChainDevice &device : value.Devices())
    for (const auto &[field, stored] : device)
      if (!isWritable(stored))
        return false;
  return true;
}

/// An option file takes any bytes.
void expectWritable(const std::string &setting, const Value &value) {
  if (isWritable(value))
    return;
  Refusal refusal(RefusalKind::badValue, setting,
                  "the files of a project hold UTF-8 only");
  refusal.setting = setting;
  refusal.value = ShowValue(*FindSetting(setting), value);
  throw refusal;
}

} // namespace

const std::string &expectAccepted(const std::string &setting) {
  if (findAccepted(setting) != nullptr)
    return FindSetting(setting)->id;
  const SettingInfo *const known = FindSetting(setting);
  const std::vector<std::string> accepted =
      known == nullptr ? acceptedSettings() : writtenFor(setting);
  Refusal refusal(
      known == nullptr ? RefusalKind::unknownSetting : RefusalKind::notSettable,
      ShowText(setting),
      known == nullptr   ? std::string("is no setting")
      : accepted.empty() ? std::string("it cannot be set")
                         : fmt::format("it follows from others; write {}",
                                       quotedList(accepted)));
  refusal.setting = setting;
  refusal.suggestion = known == nullptr ? FindNearest(setting, accepted) : "";
  refusal.accepted = accepted;
  throw refusal;
}

SettingValues wantedValues(const ProjectEdit &edit) {
  SettingValues wanted;
  for (const auto &[asked, value] : edit.values) {
    if (follows(asked, edit))
      continue;
    const std::string &setting = expectAccepted(asked);
    const Value stored = ExpectSetting(setting, value);
    expectWritable(setting, stored);
    const auto other =
        std::find_if(wanted.begin(), wanted.end(),
                     [&](const auto &one) { return one.first == setting; });
    if (other == wanted.end())
      wanted.emplace_back(setting, stored);
    else if (other->second != stored)
      refuseTwice(setting, "it is given twice, with different values");
  }
  for (const std::string &setting : edit.unset)
    if (holds(wanted, setting))
      refuseTwice(setting, "it is given a value and unset");
  return wanted;
}

} // namespace ZelDebugDialog::project
