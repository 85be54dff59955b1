// The six regions of the PowerPC debug address map in the order of a command,
// and what is said of an address that is not on a 64 KiB boundary. Where each
// is kept and its keyword stand in EngineFacts.h, in the order of the map.
#ifndef ZELDEBUGDIALOG_FACTS_ADDRESSREGIONS_H
#define ZELDEBUGDIALOG_FACTS_ADDRESSREGIONS_H

#include <array>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog {

struct AddressRegion {
  std::uint32_t ProcessorInfoImp::*start;
  std::string_view keyword;
  std::string_view misaligned;
};

/// A region by where it is kept; one that the map doesn't have won't compile.
constexpr AddressRegion regionOf(std::uint32_t ProcessorInfoImp::*start,
                                 std::string_view misaligned) {
  std::size_t place = 0;
  while (regionsFromBase[place].start != start)
    ++place;
  return {start, regionsFromBase[place].field, misaligned};
}

inline constexpr AddressRegion icacheRegion =
    regionOf(&ProcessorInfoImp::icacheStartAdr,
             "Icache Start Address should be aligned at 64k boundry");
inline constexpr AddressRegion itagRegion =
    regionOf(&ProcessorInfoImp::itagStartAdr,
             "Itag Start Address should be aligned at 64k boundry");
inline constexpr AddressRegion dcacheRegion =
    regionOf(&ProcessorInfoImp::dcacheStartAdr,
             "Dcache Start Address should be aligned at 64k boundry");
inline constexpr AddressRegion dtagRegion =
    regionOf(&ProcessorInfoImp::dtagStartAdr,
             "Dtag Start Address should be aligned at 64k boundry");
inline constexpr AddressRegion tlbRegion =
    regionOf(&ProcessorInfoImp::tlbStartAdr,
             "TLB Start Address should be aligned at 64k boundry");
inline constexpr AddressRegion dcrRegion =
    regionOf(&ProcessorInfoImp::dcrStartAdr,
             "DCR Start Address should be aligned at 64k boundry");

/// In the order in which a command names them.
inline constexpr std::array<const AddressRegion *, 6> addressRegions{
    &icacheRegion, &itagRegion, &dcacheRegion,
    &dtagRegion,   &tlbRegion,  &dcrRegion};

} // namespace ZelDebugDialog

#endif
