#include "facts/AddressRegions.h"

#include "ZelDebugDialog/EngineFacts.h"
#include "facts/CurrentRecord.h"

namespace ZelDebugDialog {

int EngineImp::InitPPCDebugAddressMap() {
  for (const AddressRegion *const region : addressRegions)
    currentRecord(*this).*region->start = unsetAddress;
  return 0;
}

int EngineImp::AssignAddressMap(std::uint32_t base) {
  for (const DebugRegion &region : regionsFromBase) {
    std::uint32_t &start = currentRecord(*this).*region.start;
    if (start == unsetAddress)
      start = base;
    base += regionStep;
  }
  return 0;
}

} // namespace ZelDebugDialog
