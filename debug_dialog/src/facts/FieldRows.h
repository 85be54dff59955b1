// The table of all fields, by name and by member.
//
// Code inside the engine names a field by its member, `fields<&Record::nCpu>`,
// so that one without a row does not compile.
#ifndef ZELDEBUGDIALOG_FACTS_FIELDROWS_H
#define ZELDEBUGDIALOG_FACTS_FIELDROWS_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

using FieldMember =
    std::variant<std::string ProcessorInfoImp::*, bool ProcessorInfoImp::*,
                 std::uint32_t ProcessorInfoImp::*,
                 std::int32_t ProcessorInfoImp::*,
                 std::int8_t ProcessorInfoImp::*, std::string CableOption::*,
                 std::uint32_t CableOption::*, Engine::CableType CableOption::*,
                 std::uint32_t EngineImp::*, std::string JtagOption::*,
                 std::uint32_t JtagOption::*, std::int8_t JtagOption::*,
                 std::uint8_t JtagOption::*>;

struct FieldRow {
  std::string_view name;
  FieldMember member;
};

// clang-format off
inline constexpr std::array<FieldRow, 56> fieldRows{{
    {"instanceName", &ProcessorInfoImp::instanceName},
    {"procFamily", &ProcessorInfoImp::procFamily},
    {"procType", &ProcessorInfoImp::procType},
    {"connectionMask", &ProcessorInfoImp::connectionMask},
    {"cpuNr", &ProcessorInfoImp::cpuNr},
    {"connectionType", &ProcessorInfoImp::connectionType},
    {"simMemSize", &ProcessorInfoImp::simMemSize},
    {"ppcSimConfigFile", &ProcessorInfoImp::ppcSimConfigFile},
    {"simIpcHost", &ProcessorInfoImp::simIpcHost},
    {"simIpcPort", &ProcessorInfoImp::simIpcPort},
    {"vpConfigMode", &ProcessorInfoImp::vpConfigMode},
    {"cycleApproximate", &ProcessorInfoImp::cycleApproximate},
    {"stubType", &ProcessorInfoImp::stubType},
    {"stubSerialPort", &ProcessorInfoImp::stubSerialPort},
    {"stubBaudRate", &ProcessorInfoImp::stubBaudRate},
    {"stubTimeout", &ProcessorInfoImp::stubTimeout},
    {"debugDevice", &ProcessorInfoImp::debugDevice},
    {"debugAddressMap", &ProcessorInfoImp::debugAddressMap},
    {"isocmStartAdr", &ProcessorInfoImp::isocmStartAdr},
    {"isocmSize", &ProcessorInfoImp::isocmSize},
    {"isocmDcrStartAdr", &ProcessorInfoImp::isocmDcrStartAdr},
    {"icacheStartAdr", &ProcessorInfoImp::icacheStartAdr},
    {"dcacheStartAdr", &ProcessorInfoImp::dcacheStartAdr},
    {"itagStartAdr", &ProcessorInfoImp::itagStartAdr},
    {"dtagStartAdr", &ProcessorInfoImp::dtagStartAdr},
    {"tlbStartAdr", &ProcessorInfoImp::tlbStartAdr},
    {"dcrStartAdr", &ProcessorInfoImp::dcrStartAdr},
    {"fpuType", &ProcessorInfoImp::fpuType},
    {"cpu_version", &ProcessorInfoImp::cpu_version},
    {"hdu_version", &ProcessorInfoImp::hdu_version},
    {"nCpu", &ProcessorInfoImp::nCpu},
    {"romemStartAdr", &ProcessorInfoImp::romemStartAdr},
    {"romemSize", &ProcessorInfoImp::romemSize},
    {"svfFileFlag", &ProcessorInfoImp::svfFileFlag},
    {"modelSimMode", &ProcessorInfoImp::modelSimMode},
    {"modelSimHost", &ProcessorInfoImp::modelSimHost},
    {"modelSimPort", &ProcessorInfoImp::modelSimPort},
    {"uartOverHdu", &ProcessorInfoImp::uartOverHdu},
    {"bscanUserReg", &ProcessorInfoImp::bscanUserReg},
    {"connectCommand", &ProcessorInfoImp::connectCommand},
    {"cable.cableType", &CableOption::cableType},
    {"cable.frequency", &CableOption::frequency},
    {"cable.port", &CableOption::port},
    {"cable.esn", &CableOption::esn},
    {"cable.svfFile", &CableOption::svfFile},
    {"cable.moduleName", &CableOption::moduleName},
    {"cable.moduleArgs", &CableOption::moduleArgs},
    {"cable.url", &CableOption::url},
    {"cpuJtag", &EngineImp::cpuJtag},
    {"chain[].partname", &JtagOption::partname},
    {"chain[].idcode", &JtagOption::idcode},
    {"chain[].irlength", &JtagOption::irlength},
    {"chain[].devicenr", &JtagOption::devicenr},
    {"chain[].isfpga", &JtagOption::isfpga},
    {"chain[].hardppc", &JtagOption::hardppc},
    {"chain[].nppc", &JtagOption::nppc},
}};
// clang-format on

/// The row of a member. A member that has none does not compile.
template <auto member> constexpr std::uint8_t findFieldRow() {
  for (std::size_t row = 0; row < fieldRows.size(); ++row)
    if (const auto *const known =
            std::get_if<decltype(member)>(&fieldRows[row].member))
      if (*known == member)
        return static_cast<std::uint8_t>(row);
  throw "the member has no row";
}

/// A few fields, in the order in which they are named.
class Fields {
public:
  constexpr Fields() = default;
  template <class... Row>
  constexpr explicit Fields(std::uint8_t first, Row... others)
      : rows{first, others...}, count(1 + sizeof...(others)) {}

  constexpr const std::uint8_t *begin() const { return rows.data(); }
  constexpr const std::uint8_t *end() const { return rows.data() + count; }
  constexpr bool empty() const { return count == 0; }

private:
  std::array<std::uint8_t, 7> rows{};
  std::uint8_t count = 0;
};

template <auto... members>
inline constexpr Fields fields{findFieldRow<members>()...};

} // namespace ZelDebugDialog

#endif
