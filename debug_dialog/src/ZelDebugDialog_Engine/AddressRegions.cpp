#include "ZelDebugDialog_Engine/AddressRegions.h"

#include "ZelDebugDialog_Engine/CurrentRecord.h"
#include "ZelDebugDialog_Engine/Families.h"

namespace ZelDebugDialog {

namespace {

// The order in which the regions follow a base, which is not the one in which a
// command names them.
constexpr std::array<const AddressRegion *, 6> regionsFromBase{
    &icacheRegion, &itagRegion, &dcacheRegion,
    &dtagRegion,   &dcrRegion,  &tlbRegion};

constexpr std::uint32_t regionSize = 0x10000;

} // namespace

int EngineImp::InitPPCDebugAddressMap() {
  for (const AddressRegion *const region : addressRegions)
    currentRecord(*this).*region->start = unsetAddress;
  return 0;
}

int EngineImp::AssignAddressMap(std::uint32_t base) {
  for (const AddressRegion *const region : regionsFromBase) {
    std::uint32_t &start = currentRecord(*this).*region->start;
    if (start == unsetAddress)
      start = base;
    base += regionSize;
  }
  return 0;
}

} // namespace ZelDebugDialog
