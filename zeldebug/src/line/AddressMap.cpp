#include "line/AddressMap.h"

#include <array>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>

#include "line/Refused.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Refusal;
using ZelDebugDialog::SettingValues;

constexpr std::int64_t step = 0x10000;
constexpr std::int64_t unset = 0xFFFFFFFF;

// In the order in which they lie.
constexpr std::array<const char *, 6> regions{"icacheStartAdr", "itagStartAdr",
                                              "dcacheStartAdr", "dtagStartAdr",
                                              "dcrStartAdr",    "tlbStartAdr"};

constexpr std::int64_t lastBase =
    unset + 1 - step * static_cast<std::int64_t>(regions.size());

std::int64_t expectBase(const std::string &option, const std::string &text) {
  try {
    const std::int64_t base =
        ZelDebugDialog::ReadSetting(addressMapBase, text).Number();
    if (base <= lastBase)
      return base;
  } catch (const Refusal &) {
    // It is told with the limits of the whole map.
  }
  throw Failure(ExitStatus::wrongUse,
                fmt::format("{}: '{}' is no number from 0x0 to {:#x} that is a "
                            "multiple of {:#x} (decimal or 0x)",
                            option, text, lastBase, step),
                {"bad-value", option, text});
}

} // namespace

const char *const addressMapBase = "debugAddressMap";
const char *const firstRegion = regions.front();

SettingValues expectAddressMap(const std::string &option,
                               const std::string &text) {
  std::int64_t address = expectBase(option, text);
  SettingValues values{{addressMapBase, address}};
  for (const char *region : regions) {
    values.emplace_back(region, address);
    address += step;
  }
  return values;
}

SettingValues noAddressMap() {
  SettingValues values{{addressMapBase, unset}};
  for (const char *region : regions)
    values.emplace_back(region, unset);
  return values;
}

} // namespace zeldebug
