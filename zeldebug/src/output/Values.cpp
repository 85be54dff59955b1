#include "output/Values.h"

#include <fmt/format.h>

#include "output/Output.h"

namespace zeldebug {

using ZelDebugDialog::Effect;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::Loss;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::SettingKind;
using ZelDebugDialog::Value;

std::string shownField(const std::string &name, const Value &value) {
  const SettingInfo *const setting = FindSetting(name);
  return ShowStored(setting == nullptr ? SettingInfo() : *setting, value);
}

std::string shownStored(const std::string &setting, const Value &value) {
  const SettingInfo *const info = FindSetting(setting);
  if (info == nullptr)
    return value.IsText() ? printable(value.Text()) : std::string();
  // A word and a chain stand for several fields, and are shown as such.
  const bool isMade = info->kind == SettingKind::chain ||
                      (info->kind == SettingKind::word && value.IsText());
  return printable(isMade ? ShowValue(*info, value) : ShowStored(*info, value));
}

std::string shownLoss(const Loss &loss) {
  const std::string anchor =
      loss.anchor.empty() ? "" : fmt::format(" [{}]", loss.anchor);
  if (loss.field == "connectCommand")
    return fmt::format("the command: {}{}", loss.reason, anchor);
  const std::string value = shownStored(loss.field, loss.value);
  const std::string readBack = shownStored(loss.field, loss.readBack);
  // Two chains may look alike, and differ in what is not shown of them.
  if (loss.readBack.IsNothing() || readBack == value)
    return fmt::format("{} {}: {}{}", loss.field, value, loss.reason, anchor);
  return fmt::format("{} {} (comes back as {}): {}{}", loss.field, value,
                     readBack, loss.reason, anchor);
}

std::string shownEffect(const Effect &effect) {
  const std::string before = shownStored(effect.setting, effect.before);
  if (effect.before == effect.after)
    return fmt::format("{} stays {}: {}", effect.setting, before, effect.why);
  return fmt::format("{} {} becomes {}{}{}", effect.setting, before,
                     shownStored(effect.setting, effect.after),
                     effect.why.empty() ? "" : ": ", effect.why);
}

} // namespace zeldebug
