// What is known about JTAG cables: the frequencies that a cable type supports,
// and the frequency and port that it starts with.
//
// Pure functions over a fixed table, usable from any thread. A value that is
// no enumerator of `CableType` is a cable that nothing is known about.
//
//   setcable_default_frequency(Engine::QUORLA_PODUSB); // 6000000
#ifndef ZELDEBUGDIALOG_CABLECATALOGUE_H
#define ZELDEBUGDIALOG_CABLECATALOGUE_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// The frequencies to offer for a cable, in hertz, separated by blanks; "0" for
/// a cable without a list. `QUORLA_TCF` has none either, although its
/// frequencies are checked when a command is read.
ZELDEBUGDIALOG_API std::string
getcable_supported_frequency(Engine::CableType type);

/// The same as numbers, in hertz; none for a cable without a list.
ZELDEBUGDIALOG_API std::vector<std::uint32_t>
GetOfferedFrequencies(Engine::CableType type);

/// The frequencies that a reader lets pass where it checks them, in hertz; none
/// for a cable that it refuses all of.
ZELDEBUGDIALOG_API std::vector<std::uint32_t>
GetAcceptedFrequencies(Engine::CableType type);

/// The frequency that a cable starts with, in hertz; 0 for a cable without one.
ZELDEBUGDIALOG_API std::uint32_t
setcable_default_frequency(Engine::CableType type);

/// The port that a cable starts with; empty for a cable without one.
ZELDEBUGDIALOG_API std::string setcable_default_port(Engine::CableType type);

} // namespace ZelDebugDialog

#endif
