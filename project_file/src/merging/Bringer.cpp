#include "merging/Bringer.h"

#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "reading/Keys.h"

namespace ZelDebugDialog::project {

namespace {

std::string writtenName(const std::string &setting) {
  const SettingInfo *const row = FindSetting(setting);
  if (row == nullptr || row->settable)
    return setting;
  const std::vector<std::string> written = writtenFor(setting);
  return written.size() == 1 ? written.front() : setting;
}

} // namespace

const MergedValue *findSaid(const MergedProcessor &merged,
                            const std::string &setting) {
  return merged.Find(writtenName(setting));
}

const MergedValue *findBringer(const MergedProcessor &merged,
                               const std::string &setting, const Value &value) {
  // All of them bring it.
  if (setting == "connectCommand")
    return nullptr;
  if (setting.compare(0, cableFront.size(), cableFront) == 0)
    return merged.Find(cableType);
  if (setting != GetAddressMap().base)
    return merged.Find(connection);
  // It moves with a region.
  for (const std::string &region : GetAddressMap().regions) {
    const MergedValue *const said = merged.Find(region);
    if (said != nullptr && said->value.value == value)
      return said;
  }
  return nullptr;
}

} // namespace ZelDebugDialog::project
