#include "ZelDebugDialog/ConfigurationModel/Settings.h"

#include <array>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "codes/RowOf.h"
#include "settings/SettingTable.h"
#include "settings/Values.h"
#include "text/Printable.h"

namespace ZelDebugDialog {

namespace {

struct KindWord {
  SettingKind kind;
  const char *word;
};

constexpr std::array<KindWord, 8> kindWords{{
    {SettingKind::flag, "flag"},
    {SettingKind::number, "number"},
    {SettingKind::address, "address"},
    {SettingKind::frequency, "frequency"},
    {SettingKind::text, "text"},
    {SettingKind::file, "file"},
    {SettingKind::word, "word"},
    {SettingKind::chain, "chain"},
}};
static_assert(model::isInOrder(kindWords, &KindWord::kind));

struct FrequencyUnit {
  const char *name;
  std::int64_t hertz;
  int digits;
};

constexpr std::array<FrequencyUnit, 2> frequencyUnits{
    {{"MHz", 1000000, 6}, {"kHz", 1000, 3}}};

/// In the largest unit that it fills, to the last hertz.
std::string shownFrequency(std::int64_t hertz) {
  for (const FrequencyUnit &unit : frequencyUnits) {
    if (hertz < unit.hertz)
      continue;
    std::string text = fmt::format("{}.{:0{}}", hertz / unit.hertz,
                                   hertz % unit.hertz, unit.digits);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
      text.pop_back();
    return text + " " + unit.name;
  }
  return fmt::format("{} Hz", hertz);
}

std::string shownDevices(const Value::Chain &chain) {
  if (chain.empty())
    return "no devices";
  std::string text;
  for (const ChainDevice &device : chain)
    text += (text.empty() ? "" : ", ") +
            (device.empty() || !device.front().second.IsText()
                 ? std::string("a device")
                 : model::printable(device.front().second.Text()));
  return text;
}

std::string shownPlainNumber(const SettingInfo &setting, std::int64_t number) {
  if (setting.kind == SettingKind::address && number == unsetAddress)
    return "not set";
  const model::SettingRow *const row = model::findRow(setting.id);
  const bool isHexadecimal = setting.kind == SettingKind::address ||
                             (row != nullptr && row->isHexadecimal);
  return isHexadecimal ? fmt::format("{:#x}", number)
                       : fmt::format("{}", number);
}

std::string shownNumber(const SettingInfo &setting, std::int64_t number) {
  for (const Choice &choice : setting.choices)
    if (choice.value == Value(number))
      return choice.text;
  return setting.kind == SettingKind::frequency
             ? shownFrequency(number)
             : shownPlainNumber(setting, number);
}

} // namespace

const char *ShowKind(SettingKind kind) {
  const KindWord *const row = model::rowOf(kindWords, kind);
  return row == nullptr ? "" : row->word;
}

const std::vector<SettingInfo> &GetSettings() {
  static const std::vector<SettingInfo> settings = [] {
    std::vector<SettingInfo> all;
    for (const model::SettingRow &row : model::settingRows())
      all.push_back(row.info);
    return all;
  }();
  return settings;
}

const SettingInfo *FindSetting(std::string_view id) {
  const model::SettingRow *const row = model::findRow(id);
  return row == nullptr ? nullptr : &row->info;
}

const AddressMapInfo &GetAddressMap() {
  static const AddressMapInfo map = [] {
    AddressMapInfo made;
    made.base = "debugAddressMap";
    made.step = regionStep;
    for (const DebugRegion &region : regionsFromBase)
      made.regions.emplace_back(region.field);
    return made;
  }();
  return map;
}

Value ReadSetting(std::string_view id, const std::string &text) {
  const model::SettingRow &row = model::expectRow(id);
  return model::readValue(row.isOfDevice() ? row : model::expectSettable(id),
                          text);
}

Value ExpectSetting(std::string_view id, const Value &asked) {
  const model::SettingRow &row = model::expectRow(id);
  return model::takenValue(row.isOfDevice() ? row : model::expectSettable(id),
                           asked);
}

std::string ShowValue(const SettingInfo &setting, const Value &value) {
  if (value.IsText())
    return model::wellFormed(value.Text());
  if (value.IsFlag())
    return value.Flag() ? "yes" : "no";
  if (value.IsNumber())
    return shownNumber(setting, value.Number());
  return value.IsChain() ? shownDevices(value.Devices()) : "nothing";
}

std::string ShowStored(const SettingInfo &setting, const Value &value) {
  if (value.IsText())
    return fmt::format("\"{}\"", value.Text());
  if (value.IsNumber())
    return shownPlainNumber(setting, value.Number());
  if (value.IsChain() && value.Devices().size() == 1)
    return "a device";
  return ShowValue(setting, value);
}

} // namespace ZelDebugDialog
