// Every field of the records by name: the tests' one list, made by hand from
// the headers. It takes nothing from the engine's own table of fields, which is
// tested against it.
#ifndef TESTS_SUPPORT_FIELDS_H
#define TESTS_SUPPORT_FIELDS_H

#include <tuple>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace support {

template <class Record, class Value> struct Field {
  const char *name;
  Value Record::*member;
};
template <class Record, class Value>
Field(const char *, Value Record::*) -> Field<Record, Value>;

/// In the order of the record, but for `connectCommand` behind them, which is
/// no setting.
inline constexpr auto fieldsOf(const ZelDebugDialog::ProcessorInfoImp &) {
  using R = ZelDebugDialog::ProcessorInfoImp;
  return std::tuple(
      Field{"instanceName", &R::instanceName},
      Field{"procFamily", &R::procFamily}, Field{"procType", &R::procType},
      Field{"connectionMask", &R::connectionMask}, Field{"cpuNr", &R::cpuNr},
      Field{"connectionType", &R::connectionType},
      Field{"simMemSize", &R::simMemSize},
      Field{"ppcSimConfigFile", &R::ppcSimConfigFile},
      Field{"simIpcHost", &R::simIpcHost}, Field{"simIpcPort", &R::simIpcPort},
      Field{"vpConfigMode", &R::vpConfigMode},
      Field{"cycleApproximate", &R::cycleApproximate},
      Field{"stubType", &R::stubType},
      Field{"stubSerialPort", &R::stubSerialPort},
      Field{"stubBaudRate", &R::stubBaudRate},
      Field{"stubTimeout", &R::stubTimeout},
      Field{"debugDevice", &R::debugDevice},
      Field{"debugAddressMap", &R::debugAddressMap},
      Field{"isocmStartAdr", &R::isocmStartAdr},
      Field{"isocmSize", &R::isocmSize},
      Field{"isocmDcrStartAdr", &R::isocmDcrStartAdr},
      Field{"icacheStartAdr", &R::icacheStartAdr},
      Field{"dcacheStartAdr", &R::dcacheStartAdr},
      Field{"itagStartAdr", &R::itagStartAdr},
      Field{"dtagStartAdr", &R::dtagStartAdr},
      Field{"tlbStartAdr", &R::tlbStartAdr},
      Field{"dcrStartAdr", &R::dcrStartAdr}, Field{"fpuType", &R::fpuType},
      Field{"cpu_version", &R::cpu_version},
      Field{"hdu_version", &R::hdu_version}, Field{"nCpu", &R::nCpu},
      Field{"romemStartAdr", &R::romemStartAdr},
      Field{"romemSize", &R::romemSize}, Field{"svfFileFlag", &R::svfFileFlag},
      Field{"modelSimMode", &R::modelSimMode},
      Field{"modelSimHost", &R::modelSimHost},
      Field{"modelSimPort", &R::modelSimPort},
      Field{"uartOverHdu", &R::uartOverHdu},
      Field{"bscanUserReg", &R::bscanUserReg});
}

/// In the order of the record.
inline constexpr auto fieldsOf(const ZelDebugDialog::CableOption &) {
  using R = ZelDebugDialog::CableOption;
  return std::tuple(Field{"cableType", &R::cableType},
                    Field{"frequency", &R::frequency}, Field{"port", &R::port},
                    Field{"esn", &R::esn}, Field{"svfFile", &R::svfFile},
                    Field{"moduleName", &R::moduleName},
                    Field{"moduleArgs", &R::moduleArgs}, Field{"url", &R::url});
}

/// In the order of the record.
inline constexpr auto fieldsOf(const ZelDebugDialog::JtagOption &) {
  using R = ZelDebugDialog::JtagOption;
  return std::tuple(
      Field{"partname", &R::partname}, Field{"idcode", &R::idcode},
      Field{"irlength", &R::irlength}, Field{"devicenr", &R::devicenr},
      Field{"isfpga", &R::isfpga}, Field{"hardppc", &R::hardppc},
      Field{"nppc", &R::nppc});
}

/// Calls `see(name, field)` for each field of a record, in its order.
template <class Record, class See>
void eachField(Record &record, const See &see) {
  std::apply(
      [&](const auto &...field) {
        (see(field.name, record.*field.member), ...);
      },
      fieldsOf(record));
}

/// Whether all fields of two records agree.
template <class Record>
bool haveSameFields(const Record &left, const Record &right) {
  return std::apply(
      [&](const auto &...field) {
        return ((left.*field.member == right.*field.member) && ...);
      },
      fieldsOf(left));
}

} // namespace support

#endif
