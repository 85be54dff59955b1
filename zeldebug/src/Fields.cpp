#include "Fields.h"

#include <array>

#include <fmt/format.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::CableOption;
using ZelDebugDialog::JtagOption;
using Processor = ZelDebugDialog::ProcessorInfoImp;

constexpr std::uint32_t unsetAddress = 0xFFFFFFFF;

// clang-format off
const std::array<Field<Processor>, 40> processorTable{{
    {"instanceName", FieldKind::identity, &Processor::instanceName},
    {"procFamily", FieldKind::identity, &Processor::procFamily},
    {"procType", FieldKind::identity, &Processor::procType},
    {"connectionMask", FieldKind::bits, &Processor::connectionMask},
    {"cpuNr", FieldKind::identity, &Processor::cpuNr},
    {"connectionType", FieldKind::number, &Processor::connectionType},
    {"simMemSize", FieldKind::number, &Processor::simMemSize},
    {"ppcSimConfigFile", FieldKind::text, &Processor::ppcSimConfigFile},
    {"simIpcHost", FieldKind::text, &Processor::simIpcHost},
    {"simIpcPort", FieldKind::number, &Processor::simIpcPort},
    {"vpConfigMode", FieldKind::number, &Processor::vpConfigMode},
    {"cycleApproximate", FieldKind::number, &Processor::cycleApproximate},
    {"stubType", FieldKind::number, &Processor::stubType},
    {"stubSerialPort", FieldKind::text, &Processor::stubSerialPort},
    {"stubBaudRate", FieldKind::number, &Processor::stubBaudRate},
    {"stubTimeout", FieldKind::number, &Processor::stubTimeout},
    {"debugDevice", FieldKind::number, &Processor::debugDevice},
    {"debugAddressMap", FieldKind::address, &Processor::debugAddressMap},
    {"isocmStartAdr", FieldKind::address, &Processor::isocmStartAdr},
    {"isocmSize", FieldKind::number, &Processor::isocmSize},
    {"isocmDcrStartAdr", FieldKind::address, &Processor::isocmDcrStartAdr},
    {"icacheStartAdr", FieldKind::address, &Processor::icacheStartAdr},
    {"dcacheStartAdr", FieldKind::address, &Processor::dcacheStartAdr},
    {"itagStartAdr", FieldKind::address, &Processor::itagStartAdr},
    {"dtagStartAdr", FieldKind::address, &Processor::dtagStartAdr},
    {"tlbStartAdr", FieldKind::address, &Processor::tlbStartAdr},
    {"dcrStartAdr", FieldKind::address, &Processor::dcrStartAdr},
    {"fpuType", FieldKind::number, &Processor::fpuType},
    {"cpu_version", FieldKind::text, &Processor::cpu_version},
    {"hdu_version", FieldKind::text, &Processor::hdu_version},
    {"nCpu", FieldKind::number, &Processor::nCpu},
    {"romemStartAdr", FieldKind::address, &Processor::romemStartAdr},
    {"romemSize", FieldKind::number, &Processor::romemSize},
    {"svfFileFlag", FieldKind::flag, &Processor::svfFileFlag},
    {"modelSimMode", FieldKind::flag, &Processor::modelSimMode},
    {"modelSimHost", FieldKind::text, &Processor::modelSimHost},
    {"modelSimPort", FieldKind::number, &Processor::modelSimPort},
    {"uartOverHdu", FieldKind::flag, &Processor::uartOverHdu},
    {"bscanUserReg", FieldKind::bits, &Processor::bscanUserReg},
    {"connectCommand", FieldKind::command, &Processor::connectCommand},
}};

const std::array<Field<CableOption>, 8> cableTable{{
    {"cableType", FieldKind::number, &CableOption::cableType},
    {"frequency", FieldKind::number, &CableOption::frequency},
    {"port", FieldKind::text, &CableOption::port},
    {"esn", FieldKind::text, &CableOption::esn},
    {"svfFile", FieldKind::text, &CableOption::svfFile},
    {"moduleName", FieldKind::text, &CableOption::moduleName},
    {"moduleArgs", FieldKind::text, &CableOption::moduleArgs},
    {"url", FieldKind::text, &CableOption::url},
}};

const std::array<Field<JtagOption>, 7> chainTable{{
    {"partname", FieldKind::text, &JtagOption::partname},
    {"idcode", FieldKind::bits, &JtagOption::idcode},
    {"irlength", FieldKind::number, &JtagOption::irlength},
    {"devicenr", FieldKind::number, &JtagOption::devicenr},
    {"isfpga", FieldKind::number, &JtagOption::isfpga},
    {"hardppc", FieldKind::number, &JtagOption::hardppc},
    {"nppc", FieldKind::number, &JtagOption::nppc},
}};
// clang-format on

} // namespace

FieldTable<Processor> processorFields() {
  return {processorTable.data(), processorTable.data() + processorTable.size()};
}

FieldTable<CableOption> cableFields() {
  return {cableTable.data(), cableTable.data() + cableTable.size()};
}

FieldTable<JtagOption> chainFields() {
  return {chainTable.data(), chainTable.data() + chainTable.size()};
}

std::string shownValue(const Json &value, FieldKind kind) {
  if (value.is_string())
    return fmt::format("\"{}\"", value.get<std::string>());
  if (value.is_boolean())
    return value.get<bool>() ? "yes" : "no";
  if (kind == FieldKind::address && value == unsetAddress)
    return "not set";
  if (kind == FieldKind::address || kind == FieldKind::bits)
    return fmt::format("{:#x}", value.get<std::uint64_t>());
  return value.dump();
}

} // namespace zeldebug
