// The JTAG side of a connection: the cable, and the devices of the chain.
//
// Plain records without checks of their own; `Engine` and the clause readers
// decide what goes into them. A chain is a vector of pointers. The engine
// copies the pointers and never deletes a record: whoever made a record keeps
// it alive as long as an engine may use it, and releases it afterwards. Records
// are not locked; use them from the engine's thread.
//
//   CableOption cable;
//   cable.CableOptionInit(Engine::QUORLA_PODUSB); // 6 MHz on "USB21"
#ifndef ZELDEBUGDIALOG_CABLEOPTION_H
#define ZELDEBUGDIALOG_CABLEOPTION_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// The cable between the debugger and the board.
class ZELDEBUGDIALOG_API CableOption {
public:
  /// No cable: type `CABLE_NONE`, frequency 0, all strings empty.
  CableOption();

  /// Makes this a cable of `type` with the frequency and the port that the type
  /// starts with, and empties the five other strings.
  void CableOptionInit(Engine::CableType type);

  Engine::CableType cableType; ///< Which cable. "type".
  std::uint32_t frequency;     ///< JTAG clock in hertz.
  std::string port; ///< Port of the cable, such as "LPT1" or "USB21".
  /// Electronic serial number that picks one of several cables. When it is set,
  /// a written command carries it in place of port and frequency.
  std::string esn;
  std::string svfFile;    ///< File of an SVF cable ("fname").
  std::string moduleName; ///< Module of a plug-in cable ("modulename").
  /// Arguments of the module ("modulearg"), joined with ';'.
  std::string moduleArgs;
  std::string url; ///< "url" of the cable clause; never written.
};

/// One device of the JTAG chain.
class ZELDEBUGDIALOG_API JtagOption {
public:
  std::string partname = "UNKNOWN"; ///< Name of the part.
  std::uint32_t idcode = 0;         ///< JTAG IDCODE.
  std::int8_t irlength = 0; ///< Length of the instruction register in bits.
  std::int8_t devicenr = 0; ///< Position in the chain, from 1.
  std::uint8_t isfpga = 0;  ///< 1 for an FPGA.
  std::uint8_t hardppc = 0; ///< Hard core: 0 none, 1 ppc405, 2 another PowerPC.
  std::uint8_t nppc = 0;    ///< Number of PowerPC hard cores.
};

/// Deletes the records of `chain` and empties it. For a chain whose records a
/// reader made (`Engine::ParseJtagCableInfo`, a selection, a command that was
/// read): call it when they are no longer used, at the latest before the next
/// selection, which forgets them. Records must not stand in `chain` twice.
ZELDEBUGDIALOG_API void ReleaseChainRecords(std::vector<JtagOption *> &chain);

} // namespace ZelDebugDialog

#endif
