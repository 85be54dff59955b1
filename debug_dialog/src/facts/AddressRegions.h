// The six regions of the PowerPC debug address map: where each is kept, its
// keyword, and what is said of an address that is not on a 64 KiB boundary.
#ifndef ZELDEBUGDIALOG_FACTS_ADDRESSREGIONS_H
#define ZELDEBUGDIALOG_FACTS_ADDRESSREGIONS_H

#include <array>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

struct AddressRegion {
  std::uint32_t ProcessorInfoImp::*start;
  std::string_view keyword;
  std::string_view misaligned;
};

inline constexpr AddressRegion icacheRegion{
    &ProcessorInfoImp::icacheStartAdr, "icacheStartAdr",
    "Icache Start Address should be aligned at 64k boundry"};
inline constexpr AddressRegion itagRegion{
    &ProcessorInfoImp::itagStartAdr, "itagStartAdr",
    "Itag Start Address should be aligned at 64k boundry"};
inline constexpr AddressRegion dcacheRegion{
    &ProcessorInfoImp::dcacheStartAdr, "dcacheStartAdr",
    "Dcache Start Address should be aligned at 64k boundry"};
inline constexpr AddressRegion dtagRegion{
    &ProcessorInfoImp::dtagStartAdr, "dtagStartAdr",
    "Dtag Start Address should be aligned at 64k boundry"};
inline constexpr AddressRegion tlbRegion{
    &ProcessorInfoImp::tlbStartAdr, "tlbStartAdr",
    "TLB Start Address should be aligned at 64k boundry"};
inline constexpr AddressRegion dcrRegion{
    &ProcessorInfoImp::dcrStartAdr, "dcrStartAdr",
    "DCR Start Address should be aligned at 64k boundry"};

/// In the order in which a command names them.
inline constexpr std::array<const AddressRegion *, 6> addressRegions{
    &icacheRegion, &itagRegion, &dcacheRegion,
    &dtagRegion,   &tlbRegion,  &dcrRegion};

} // namespace ZelDebugDialog

#endif
