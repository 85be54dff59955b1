#include "editing/WrittenValue.h"

#include <algorithm>

#include <fmt/format.h>

#include "reading/Keys.h"
#include "toml/Document.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace {

std::string binary(std::int64_t number) {
  return fmt::format("0b{:b}", number);
}

/// In the base, and the case of the digits, of the number before.
std::string numberLike(std::int64_t number, const std::string &before) {
  if (number < 0 || before.size() < 2 || before[0] != '0')
    return fmt::format("{}", number);
  switch (before[1]) {
  case 'x':
  case 'X':
    return before.substr(0, 2) +
           (std::any_of(before.begin(), before.end(),
                        [](char c) { return c >= 'A' && c <= 'F'; })
                ? fmt::format("{:X}", number)
                : fmt::format("{:x}", number));
  case 'o':
    return fmt::format("0o{:o}", number);
  case 'b':
    return binary(number);
  default:
    return fmt::format("{}", number);
  }
}

bool isQuoted(const std::string &before) {
  return !before.empty() && (before[0] == '"' || before[0] == '\'');
}

/// What the text says that is written there.
std::string textOf(const std::string &written) {
  const TomlDocument document = readToml("text = " + written);
  const TomlMember *const member = document.root.find("text");
  return member == nullptr ? "" : member->value.text;
}

/// Whether it is a number and nothing else: no unit, no "not set".
bool isNumberAlone(const std::string &text) {
  const bool isHexadecimal =
      text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  return !text.empty() &&
         text.find_first_not_of(isHexadecimal ? "0123456789abcdefABCDEF"
                                              : "0123456789",
                                isHexadecimal ? 2 : 0) == std::string::npos;
}

std::string writtenNumber(const SettingInfo &setting, std::int64_t number,
                          const std::string &before) {
  const Value value(number);
  const std::string stored = ShowStored(setting, value);
  const bool isNumber = !stored.empty() && stored[0] >= '0' && stored[0] <= '9';
  if (!isNumber) // "not set"
    return writtenText(stored, isQuoted(before) ? before[0] : '"');
  const bool isFrequency = setting.kind == SettingKind::frequency;
  if (isQuoted(before)) {
    const std::string text = textOf(before);
    return writtenText(isNumberAlone(text) ? numberLike(number, text)
                       : isFrequency       ? ShowValue(setting, value)
                                           : stored,
                       before[0]);
  }
  if (!before.empty())
    return numberLike(number, before);
  return isFrequency ? writtenText(ShowValue(setting, value)) : stored;
}

std::string writtenWord(const SettingInfo &setting, const Value &value,
                        const std::string &before) {
  const bool wasNumber = !before.empty() && !isQuoted(before);
  if (wasNumber && value.IsNumber())
    return numberLike(value.Number(), before);
  for (const Choice &choice : setting.choices)
    if (choice.value == value)
      return writtenText(choice.text, isQuoted(before) ? before[0] : '"');
  return writtenText(ShowValue(setting, value));
}

bool isOn(const Value &value) {
  return value.IsFlag() ? value.Flag()
                        : value.IsNumber() && value.Number() != 0;
}

std::string writtenDevice(const ChainDevice &device) {
  std::string text;
  const auto add = [&](const std::string &name, bool isRequired) {
    for (const auto &[field, value] : device) {
      const bool isDefault = !isRequired && !isOn(value);
      if (field != name || isDefault)
        continue;
      const SettingInfo &setting = *FindSetting("chain[]." + name);
      text += fmt::format("{}{} = {}", text.empty() ? "" : ", ", name,
                          writtenValue(setting, value, "", ""));
    }
  };
  const std::vector<std::string> &required = requiredFields();
  for (const std::string &name : required)
    add(name, true);
  for (const auto &[name, value] : device)
    if (std::find(required.begin(), required.end(), name) == required.end())
      add(name, false);
  return "{ " + text + " }";
}

} // namespace

std::string writtenValue(const SettingInfo &setting, const Value &value,
                         const std::string &before,
                         const std::string &lineEnd) {
  if (value.IsChain()) {
    if (value.Devices().empty())
      return "[]";
    std::string text = "[";
    for (const ChainDevice &device : value.Devices())
      text += lineEnd + "  " + writtenDevice(device) + ",";
    return text + lineEnd + "]";
  }
  switch (setting.kind) {
  case SettingKind::flag:
    return isOn(value) ? "true" : "false";
  case SettingKind::word:
    return writtenWord(setting, value, before);
  default:
    break;
  }
  return value.IsNumber() ? writtenNumber(setting, value.Number(), before)
                          : writtenText(value.IsText() ? value.Text() : "",
                                        before.substr(0, 1) == "'" &&
                                                before.substr(0, 3) != "'''"
                                            ? '\''
                                            : '"');
}

} // namespace ZelDebugDialog::project
