#include "output/ValueJson.h"

#include <ZelDebugDialog/ConfigurationModel/Settings.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::ChainDevice;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::Value;

Json deviceJson(const ChainDevice &device) {
  Json object = Json::object();
  for (const auto &[name, value] : device)
    object[name] = toJson(value);
  return object;
}

} // namespace

Json toJson(const Value &value) {
  if (value.IsFlag())
    return value.Flag();
  if (value.IsNumber())
    return value.Number();
  if (value.IsText())
    return value.Text();
  if (!value.IsChain())
    return nullptr;
  Json list = Json::array();
  for (const ChainDevice &device : value.Devices())
    list.push_back(deviceJson(device));
  return list;
}

Json fieldJson(const std::string &name, const Value &value) {
  const bool isDevice = !name.empty() && name.back() == ']';
  return isDevice && value.IsChain() && value.Devices().size() == 1
             ? deviceJson(value.Devices().front())
             : toJson(value);
}

std::string shownField(const std::string &name, const Value &value) {
  const SettingInfo *const setting = ZelDebugDialog::FindSetting(name);
  return ShowStored(setting == nullptr ? SettingInfo() : *setting, value);
}

} // namespace zeldebug
