#include "reading/Values.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Keys.h"

namespace ZelDebugDialog::project {

namespace {

bool isAnyOf(TomlType type, std::initializer_list<TomlType> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

bool isNumberWithoutText(const SettingInfo &setting, std::int64_t number) {
  return setting.minimum &&
         (number < *setting.minimum || number > *setting.maximum);
}

/// The last name of a setting, as people see it: of a device, its field.
std::string nameOf(const SettingInfo &setting) {
  const std::size_t dot = setting.id.find("].");
  return dot == std::string::npos ? setting.id : setting.id.substr(dot + 2);
}

void addRange(const SettingInfo &setting, const TomlNode &node,
              std::int64_t number, Faults &faults) {
  const bool isAddress = setting.kind == SettingKind::address;
  const auto shownNumber = [isAddress](std::int64_t value) {
    return isAddress ? fmt::format("{:#x}", value) : fmt::format("{}", value);
  };
  const std::string range = fmt::format(
      "{} to {}", shownNumber(*setting.minimum), shownNumber(*setting.maximum));
  ProjectFault &fault =
      faults.add("out-of-range", node.span.begin,
                 fmt::format("'{}' is no number from {}, but {}",
                             nameOf(setting), range, number));
  fault.accepted = {range};
  fault.setting = setting.id;
}

/// What the model makes of a value.
std::optional<Value> take(const SettingInfo &setting, const Value &asked,
                          const TomlNode &node, Faults &faults) {
  try {
    return ExpectSetting(setting.id, asked);
  } catch (const Refusal &refusal) {
    ProjectFault &fault =
        faults.add("bad-value", node.span.begin,
                   fmt::format("'{}': {}", nameOf(setting), refusal.problem));
    fault.accepted = refusal.accepted;
    fault.suggestion = refusal.suggestion;
    fault.setting = setting.id;
    return std::nullopt;
  }
}

std::optional<Value> readFlag(const SettingInfo &setting, const TomlNode &node,
                              Faults &faults) {
  if (node.type == TomlType::boolean)
    return take(setting, node.flag, node, faults);
  faults.addWrongType(node, nameOf(setting), "true or false");
  return std::nullopt;
}

std::optional<Value> readNumber(const SettingInfo &setting,
                                const TomlNode &node, Faults &faults) {
  if (node.type == TomlType::text) {
    // What people type: a number in quotes is outside its field as well.
    return take(setting, node.text, node, faults);
  }
  if (node.type != TomlType::integer) {
    faults.addWrongType(node, nameOf(setting),
                        setting.kind == SettingKind::frequency
                            ? "an integer, or a text such as \"3MHz\""
                        : setting.kind == SettingKind::address
                            ? "an integer, or a text such as \"not set\""
                            : "an integer");
    return std::nullopt;
  }
  if (isNumberWithoutText(setting, node.integer)) {
    addRange(setting, node, node.integer, faults);
    return std::nullopt;
  }
  return take(setting, node.integer, node, faults);
}

std::optional<Value> readWord(const SettingInfo &setting, const TomlNode &node,
                              Faults &faults) {
  const bool hasNumbers =
      std::any_of(setting.choices.begin(), setting.choices.end(),
                  [](const Choice &choice) { return choice.value.IsNumber(); });
  if (node.type == TomlType::text)
    return take(setting, node.text, node, faults);
  if (node.type == TomlType::integer && hasNumbers)
    return take(setting, node.integer, node, faults);
  if (const std::string *const text = expectText(node, nameOf(setting), faults))
    return take(setting, *text, node, faults);
  return std::nullopt;
}

std::optional<Value> readPlain(const SettingInfo &setting, const TomlNode &node,
                               Faults &faults) {
  switch (setting.kind) {
  case SettingKind::flag:
    return readFlag(setting, node, faults);
  case SettingKind::number:
  case SettingKind::address:
  case SettingKind::frequency:
    return readNumber(setting, node, faults);
  case SettingKind::word:
    return readWord(setting, node, faults);
  case SettingKind::text:
  case SettingKind::file:
  case SettingKind::chain:
    break;
  }
  const std::string *const text = expectText(node, nameOf(setting), faults);
  if (text == nullptr)
    return std::nullopt;
  return take(setting, *text, node, faults);
}

// --- The chain ---------------------------------------------------------------

using DevicePlaces = std::vector<std::pair<std::string, ProjectPlace>>;

std::vector<std::string> deviceFields() {
  std::vector<std::string> names;
  for (const SettingInfo &setting : GetSettings())
    if (setting.id.compare(0, 8, "chain[].") == 0)
      names.push_back(setting.id.substr(8));
  return names;
}

bool readDevice(const TomlNode &node, ChainDevice &device, DevicePlaces &places,
                Faults &faults) {
  if (node.type != TomlType::table) {
    faults.addWrongType(node, "chain", "an array of tables");
    return false;
  }
  bool isGood = true;
  for (const TomlMember &member : node.members) {
    const SettingInfo *const field = FindSetting("chain[]." + member.key);
    if (field == nullptr) {
      faults.addUnknown("unknown-key", member.offset, member.key,
                        "no key of a device", deviceFields());
      isGood = false;
      continue;
    }
    const auto value = readPlain(*field, member.value, faults);
    if (!value) {
      isGood = false;
      continue;
    }
    device.emplace_back(member.key, *value);
    places.emplace_back(member.key, faults.placeOf(member.value.span.begin));
  }
  for (const std::string &name : requiredFields())
    if (node.find(name) == nullptr) {
      ProjectFault &fault =
          faults.add("missing-key", node.span.begin,
                     fmt::format("the device has no '{}'", name));
      fault.accepted = requiredFields();
      fault.setting = "chain";
      isGood = false;
    }
  return isGood;
}

std::optional<ProjectValue> readChain(const SettingInfo &setting,
                                      const TomlNode &node, Faults &faults) {
  if (node.type != TomlType::array) {
    faults.addWrongType(node, setting.id, "an array of tables");
    return std::nullopt;
  }
  ProjectValue value;
  value.setting = setting.id;
  value.place = faults.placeOf(node.span.begin);
  Value::Chain chain;
  bool isGood = true;
  for (const TomlNode &item : node.items) {
    ChainDevice device;
    DevicePlaces places;
    isGood = readDevice(item, device, places, faults) && isGood;
    chain.push_back(std::move(device));
    value.devices.push_back(std::move(places));
  }
  if (!isGood)
    return std::nullopt;
  const auto taken = take(setting, chain, node, faults);
  if (!taken)
    return std::nullopt;
  value.value = *taken;
  return value;
}

} // namespace

const std::string *expectText(const TomlNode &node, const std::string &name,
                              Faults &faults) {
  if (node.type == TomlType::text)
    return &node.text;
  if (!isAnyOf(node.type,
               {TomlType::integer, TomlType::real, TomlType::date})) {
    faults.addWrongType(node, name, "a text");
    return nullptr;
  }
  const std::string quoted = '"' + node.text + '"';
  ProjectFault &fault =
      faults.add("number-for-text", node.span.begin,
                 fmt::format("'{}' is a text, and {} stands there; write {}",
                             ShowText(name), shown(node.type), quoted));
  fault.accepted = {"a text"};
  fault.suggestion = quoted;
  return nullptr;
}

std::optional<ProjectValue> readValue(const SettingInfo &setting,
                                      const TomlNode &node, Faults &faults) {
  if (setting.kind == SettingKind::chain)
    return readChain(setting, node, faults);
  const auto value = readPlain(setting, node, faults);
  if (!value)
    return std::nullopt;
  ProjectValue result;
  result.setting = setting.id;
  result.value = *value;
  result.place = faults.placeOf(node.span.begin);
  return result;
}

} // namespace ZelDebugDialog::project
