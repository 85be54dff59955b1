#include "line/AskedSettings.h"

#include <algorithm>

#include <fmt/format.h>

#include "line/Refused.h"
#include "output/Output.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ChangeRequest;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::RefusalKind;
using ZelDebugDialog::Session;
using ZelDebugDialog::SettingValues;

bool holds(const SettingValues &values, const std::string &setting) {
  return std::any_of(
      values.begin(), values.end(),
      [&setting](const auto &value) { return value.first == setting; });
}

bool holds(const std::vector<std::string> &names, const std::string &name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// A device's field belongs to the chain.
std::string settingOf(const std::string &name) {
  return name.compare(0, 6, "chain[") == 0 ? "chain" : name;
}

} // namespace

bool AskedSettings::empty() const {
  return values.empty() && unset.empty() && !command && !copyFrom && !file;
}

bool AskedSettings::asksFor(const std::string &setting) const {
  return options.count(setting) != 0 || holds(document.values, setting);
}

ChangeRequest AskedSettings::request(const Session *copied) const {
  ChangeRequest asked;
  asked.copyFrom = copied;
  asked.command = command;
  for (const auto &value : document.values)
    if (!holds(values, value.first) && !holds(unset, value.first))
      asked.values.push_back(value);
  asked.values.insert(asked.values.end(), values.begin(), values.end());
  asked.reset = unset;
  return asked;
}

Failure AskedSettings::failureOf(const Refusal &refusal) const {
  const std::string setting = settingOf(refusal.setting);
  const auto option = options.find(setting);
  const auto nameOf = [this](const std::string &name) {
    const auto known = options.find(settingOf(name));
    return known == options.end() ? name : known->second;
  };
  Refusal shown = refusal;
  if (refusal.kind == RefusalKind::badCommand)
    return zeldebug::failureOf(refusal, "--from");
  if (refusal.kind == RefusalKind::excluded) {
    const bool isAlone = refusal.other.empty() || refusal.other == setting;
    shown.problem = isAlone ? "it is given twice, with different values"
                            : fmt::format("it and {} exclude each other",
                                          nameOf(refusal.other));
    return zeldebug::failureOf(shown, nameOf(setting));
  }
  if (option != options.end()) {
    if (refusal.kind != RefusalKind::notAllowed)
      return zeldebug::failureOf(refusal, option->second);
    // The value is part of what was typed.
    const std::string front = fmt::format("'{}': ", refusal.value);
    if (shown.problem.compare(0, front.size(), front) == 0)
      shown.problem.erase(0, front.size());
    return zeldebug::failureOf(
        shown, fmt::format("{} {}", option->second, refusal.value));
  }
  if (file && holds(document.values, setting)) {
    // Only what is no value is a fault of the file.
    const auto line = document.lines.find(setting);
    const int number = line == document.lines.end() ? 0 : line->second;
    return {refusal.kind == RefusalKind::badValue ? ExitStatus::unreadable
                                                  : ExitStatus::refused,
            fmt::format("{}:{}: {}: {}", shownName(*file), number,
                        refusal.setting, refusal.problem),
            {ZelDebugDialog::ShowKind(refusal.kind), refusal.setting,
             refusal.value, refusal.accepted, refusal.suggestion, *file,
             number}};
  }
  if (holds(unset, setting))
    return zeldebug::failureOf(refusal, "--unset " + setting);
  return zeldebug::failureOf(refusal);
}

} // namespace zeldebug
