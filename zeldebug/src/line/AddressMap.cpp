#include "line/AddressMap.h"

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>

#include "line/Refused.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AddressMapInfo;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::GetAddressMap;
using ZelDebugDialog::ReadSetting;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::SettingValues;
using ZelDebugDialog::Value;

/// The last one with room behind it for all regions.
std::int64_t lastBase() {
  const AddressMapInfo &map = GetAddressMap();
  const std::int64_t most = FindSetting(map.base)->maximum.value_or(0);
  return most + 1 - map.step * static_cast<std::int64_t>(map.regions.size());
}

std::int64_t expectBase(const std::string &option, const std::string &text) {
  const AddressMapInfo &map = GetAddressMap();
  try {
    const std::int64_t base = ReadSetting(map.base, text).Number();
    if (base <= lastBase())
      return base;
  } catch (const Refusal &) {
    // It is told with the limits of the whole map.
  }
  throw Failure(ExitStatus::wrongUse,
                fmt::format("{}: '{}' is no number from 0x0 to {:#x} that is a "
                            "multiple of {:#x} (decimal or 0x)",
                            option, printable(text), lastBase(), map.step),
                {"bad-value", option, text});
}

} // namespace

SettingValues expectAddressMap(const std::string &option,
                               const std::string &text) {
  const AddressMapInfo &map = GetAddressMap();
  std::int64_t address = expectBase(option, text);
  SettingValues values{{map.base, address}};
  for (const std::string &region : map.regions) {
    values.emplace_back(region, address);
    address += map.step;
  }
  return values;
}

SettingValues noAddressMap() {
  const AddressMapInfo &map = GetAddressMap();
  const Value unset = ReadSetting(map.base, "unset");
  SettingValues values{{map.base, unset}};
  for (const std::string &region : map.regions)
    values.emplace_back(region, unset);
  return values;
}

} // namespace zeldebug
