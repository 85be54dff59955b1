// The numbers that records carry for families, types and connections.
#pragma once

#include <cstdint>

namespace ZelDebugDialog {

inline constexpr std::uint32_t familyLumacore = 0;
inline constexpr std::uint32_t familyPowerPc = 1;
inline constexpr std::uint32_t familyArm = 2;

inline constexpr std::uint32_t typeLumacore = 0;
inline constexpr std::uint32_t typePpc405 = 1;
inline constexpr std::uint32_t typePpc440 = 2;
inline constexpr std::uint32_t typeCortexA9 = 4;
inline constexpr std::uint32_t typeCortexR5 = 5;
inline constexpr std::uint32_t typePpcUnknown = 6;

// Bits that go with a stub connection.
inline constexpr std::uint32_t stubOverJtag = 0x40;
inline constexpr std::uint32_t stubOverUart = 0x80;

// Masks of targets that are no processor of a design; they allow none of the
// ordinary connections.
inline constexpr std::uint32_t maskHdu = 16;
inline constexpr std::uint32_t maskKmtc = 32;
inline constexpr std::uint32_t maskDcc = 256;
inline constexpr std::uint32_t maskDap = 512;

/// Whether a mask is one of those, or has their bits among others.
constexpr bool isModuleMask(std::uint32_t mask) {
  return (mask & (maskHdu | maskKmtc | maskDcc | maskDap)) != 0;
}

inline constexpr std::uint32_t fpuNone = 0;
inline constexpr std::uint32_t fpuSingle = 1;
inline constexpr std::uint32_t fpuDouble = 2;

/// What a 32-bit address holds that is not set.
inline constexpr std::uint32_t unsetAddress = 0xFFFFFFFF;

} // namespace ZelDebugDialog
