// The numbers, names and words that the engine goes by, for programs that show
// or check settings: each stands here and nowhere else. Cables are in
// CableCatalogue.h, the words of the connect command in CommandTables.h, the
// type names of a design in TypeNames.h, an address that is not set in
// ProcessorInfo.h.
//
// Constants and pure functions, usable from any thread.
//
//   for (const ConnectionKind &kind : connectionKinds)
//     if ((record.connectionMask & kind.connectionType) != 0) ...
#ifndef ZELDEBUGDIALOG_ENGINEFACTS_H
#define ZELDEBUGDIALOG_ENGINEFACTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

/// A word or name that stands for a number of its field.
struct NamedValue {
  std::string_view keyword; ///< The word.
  std::uint32_t value = 0;  ///< What it stands for.
};

// --- Processors --------------------------------------------------------------

/// `procFamily` of a Lumacore.
inline constexpr std::uint32_t familyLumacore = 0;
/// `procFamily` of a PowerPC.
inline constexpr std::uint32_t familyPowerPc = 1;
/// `procFamily` of an ARM processor.
inline constexpr std::uint32_t familyArm = 2;

/// All families by their names.
inline constexpr std::array<NamedValue, 3> processorFamilies{
    {{"Lumacore", familyLumacore},
     {"PowerPC", familyPowerPc},
     {"ARM", familyArm}}};

/// `procType` of a Lumacore.
inline constexpr std::uint32_t typeLumacore = 0;
/// `procType` of a ppc405.
inline constexpr std::uint32_t typePpc405 = 1;
/// `procType` of a ppc440.
inline constexpr std::uint32_t typePpc440 = 2;
/// `procType` of a Cortex-A9.
inline constexpr std::uint32_t typeCortexA9 = 4;
/// `procType` of a Cortex-R5.
inline constexpr std::uint32_t typeCortexR5 = 5;
/// `procType` of a PowerPC whose model is not known.
inline constexpr std::uint32_t typePpcUnknown = 6;

/// A kind of processor.
struct ProcessorType {
  std::uint32_t type = 0;   ///< `procType`.
  std::uint32_t family = 0; ///< `procFamily`.
  std::string_view name;    ///< What people call it.
};

/// All kinds.
inline constexpr std::array<ProcessorType, 6> processorTypes{
    {{typeLumacore, familyLumacore, "Lumacore"},
     {typePpc405, familyPowerPc, "ppc405"},
     {typePpc440, familyPowerPc, "ppc440"},
     {typeCortexA9, familyArm, "Cortex-A9"},
     {typeCortexR5, familyArm, "Cortex-R5"},
     {typePpcUnknown, familyPowerPc, "PowerPC"}}};

/// `fpuType` of a processor without a known FPU.
inline constexpr std::uint32_t fpuNone = 0;
/// `fpuType` of a single precision FPU.
inline constexpr std::uint32_t fpuSingle = 1;
/// `fpuType` of a double precision FPU.
inline constexpr std::uint32_t fpuDouble = 2;

/// The FPUs that have a word.
inline constexpr std::array<NamedValue, 2> fpuTypes{
    {{"sp", fpuSingle}, {"dp", fpuDouble}}};

/// The boundary-scan user registers.
inline constexpr std::array<NamedValue, 4> boundaryScanRegisters{
    {{"USER1", 2}, {"USER2", 3}, {"USER3", 0x22}, {"USER4", 0x23}}};

// --- Connections -------------------------------------------------------------

/// In a mask or a connection type: a stub can be reached over JTAG.
inline constexpr std::uint32_t stubOverJtag = 0x40;
/// In a mask or a connection type: a stub can be reached over a UART.
inline constexpr std::uint32_t stubOverUart = 0x80;

/// `connectionMask` of the debug module itself.
inline constexpr std::uint32_t maskHdu = 16;
/// `connectionMask` of the kmtc target.
inline constexpr std::uint32_t maskKmtc = 32;
/// `connectionMask` of the debug communication channel.
inline constexpr std::uint32_t maskDcc = 256;
/// `connectionMask` of the debug access port.
inline constexpr std::uint32_t maskDap = 512;

/// Whether a mask is one of a target that is no processor of a design, or has
/// its bit among others. Those allow none of the ordinary connections.
constexpr bool IsModuleMask(std::uint32_t mask) {
  return (mask & (maskHdu | maskKmtc | maskDcc | maskDap)) != 0;
}

/// A way to connect as dialogs offer it. Choosing it takes three steps:
/// `SetConnectionType(connectionType | stubBit)`, `SetStubType(stubType)` and
/// `SetConnectionType(connectionType)`.
struct ConnectionKind {
  std::string_view name;            ///< Its word.
  std::uint32_t connectionType = 0; ///< What is stored, and asked of the mask.
  std::uint32_t stubBit = 0;        ///< What `SetStubType` looks for.
  Engine::StubType stubType = Engine::STUB_JTAG; ///< The stub type with it.
};

/// All of them. A kind without a stub resets the stub type on its way: one that
/// a serial stub left behind would shut off the cable.
inline constexpr std::array<ConnectionKind, 5> connectionKinds{
    {{"sim", Engine::CONNECT_SIM, stubOverJtag, Engine::STUB_JTAG},
     {"hw", Engine::CONNECT_HW, stubOverJtag, Engine::STUB_JTAG},
     {"stub-serial", Engine::CONNECT_STUB, stubOverUart, Engine::STUB_SERIAL},
     {"stub-jtag", Engine::CONNECT_STUB, stubOverJtag, Engine::STUB_JTAG},
     {"vp", Engine::CONNECT_VP, stubOverJtag, Engine::STUB_JTAG}}};

// --- Addresses ---------------------------------------------------------------

/// Regions of the PowerPC debug address map begin at multiples of this, and
/// each is that far behind the one before.
inline constexpr std::uint32_t regionStep = 0x10000;

/// Whether a region may begin at an address.
constexpr bool IsRegionAligned(std::uint32_t address) {
  return address % regionStep == 0;
}

/// A region of the debug address map.
struct DebugRegion {
  std::string_view field;                    ///< Its field, and its keyword.
  std::uint32_t ProcessorInfoImp::*start;    ///< Where it is kept.
  int (Engine::*set)(unsigned address);      ///< Its setter.
  int (Engine::*get)(unsigned int &address); ///< Its getter.
};

/// The regions in the order in which they follow a base.
inline constexpr std::array<DebugRegion, 6> regionsFromBase{
    {{"icacheStartAdr", &ProcessorInfoImp::icacheStartAdr,
      &Engine::SetIcacheBaseAddr, &Engine::GetIcacheBaseAddr},
     {"itagStartAdr", &ProcessorInfoImp::itagStartAdr, &Engine::SetITagBaseAddr,
      &Engine::GetITagBaseAddr},
     {"dcacheStartAdr", &ProcessorInfoImp::dcacheStartAdr,
      &Engine::SetDcacheBaseAddr, &Engine::GetDcacheBaseAddr},
     {"dtagStartAdr", &ProcessorInfoImp::dtagStartAdr, &Engine::SetDTagBaseAddr,
      &Engine::GetDTagBaseAddr},
     {"dcrStartAdr", &ProcessorInfoImp::dcrStartAdr, &Engine::SetDcrBaseAddr,
      &Engine::GetDcrBaseAddr},
     {"tlbStartAdr", &ProcessorInfoImp::tlbStartAdr, &Engine::SetTlbBaseAddr,
      &Engine::GetTlbBaseAddr}}};

// --- Words and lines ---------------------------------------------------------

/// Whether a word begins an option clause: '-' and no digit behind it. A lone
/// "-" is neither an option nor a value: readers raise std::out_of_range.
constexpr bool IsOptionWord(std::string_view word) {
  return word.size() > 1 && word[0] == '-' && (word[1] < '0' || word[1] > '9');
}

/// How many characters of an option file's line are read.
inline constexpr std::size_t longestOptionLine = 1023;

} // namespace ZelDebugDialog

#endif
