// The settings of one processor, and the short summary of them for the dialog.
//
// A plain record: discovery makes one for each processor that can be debugged,
// selection makes one of them current, readers and setters fill it, writers
// read it. It belongs to whoever can reach it; `ReleaseProcessorRecords`
// (EngineImp.h) deletes the records of an engine. Addresses are 32 bits wide
// and hold `unsetAddress` when they are not set. Use a record from its engine's
// thread only.
//
//   ProcessorInfoImp record;      // a Lumacore that allows the simulator only
//   record.romemStartAdr;         // unsetAddress
#ifndef ZELDEBUGDIALOG_PROCESSORINFO_H
#define ZELDEBUGDIALOG_PROCESSORINFO_H

#include <cstdint>
#include <string>

#include "ZelDebugDialog/Export.h"

namespace ZelDebugDialog {

/// What an address holds that is not set.
inline constexpr std::uint32_t unsetAddress = 0xFFFFFFFF;

/// Everything the engine keeps for one processor. Behind each field stands the
/// word of the connect command that it is read from.
class ZELDEBUGDIALOG_API ProcessorInfoImp {
public:
  /// Sets every setting to the default that stands beside it below. The five
  /// identity fields keep their values.
  void ProcessorInfoImpInit();

  // Which processor this is.
  std::string instanceName;     ///< Instance name in the design.
  std::uint32_t procFamily = 0; ///< 0 Lumacore, 1 PowerPC, 2 ARM.
  /// 0 Lumacore, 1 ppc405, 2 ppc440, 4 Cortex-A9, 5 Cortex-R5, 6 a PowerPC
  /// whose model is not known. "proctype".
  std::uint32_t procType = 0;
  std::uint32_t connectionMask = 1; ///< The `ConnectionType` bits it allows.
  std::int8_t cpuNr = 1;            ///< Number on its debug module. "cpunr".

  // How the debugger connects.
  std::uint32_t connectionType = 2; ///< The chosen `ConnectionType`.
  /// Memory size of the simulator, in the simulator's own unit: passed on as it
  /// is. "-memsize".
  std::uint32_t simMemSize = 16;
  std::string ppcSimConfigFile; ///< PowerPC simulator file. "-icf".
  std::string simIpcHost;       ///< Simulator host. "-ipcport".
  std::int32_t simIpcPort = 0;  ///< Simulator port. "-ipcport".
  /// 1: the virtual platform is started in a configuration mode, which
  /// `cycleApproximate` names. "-config".
  std::uint32_t vpConfigMode = 0;
  std::uint32_t cycleApproximate = 0;        ///< "-config cycle_approximate".
  std::uint32_t stubType = 0;                ///< `StubType`. "-comm".
  std::string stubSerialPort = "/dev/ttyS0"; ///< Serial device. "-port".
  std::int32_t stubBaudRate = 0;             ///< Bits per second. "-baud".
  /// How long to wait for the serial stub, in milliseconds. "-timeout".
  std::int32_t stubTimeout = 20000;

  // The debug device clause.
  /// Position of the debug device in the JTAG chain, from 1; 0 for none.
  /// "devicenr".
  std::int8_t debugDevice = 0;
  /// Base of the PowerPC debug address map; follows `icacheStartAdr`.
  std::uint32_t debugAddressMap = unsetAddress;
  std::uint32_t isocmStartAdr = unsetAddress;    ///< "isocmStartAdr".
  std::uint32_t isocmSize = 0;                   ///< "isocmSize", in bytes.
  std::uint32_t isocmDcrStartAdr = unsetAddress; ///< "isocmDcrStartAdr".
  std::uint32_t icacheStartAdr = unsetAddress;   ///< "icacheStartAdr".
  std::uint32_t dcacheStartAdr = unsetAddress;   ///< "dcacheStartAdr".
  std::uint32_t itagStartAdr = unsetAddress;     ///< "itagStartAdr".
  std::uint32_t dtagStartAdr = unsetAddress;     ///< "dtagStartAdr".
  std::uint32_t tlbStartAdr = unsetAddress;      ///< "tlbStartAdr".
  std::uint32_t dcrStartAdr = unsetAddress;      ///< "dcrStartAdr".
  std::uint32_t fpuType = 0; ///< 0 none known, 1 single, 2 double. "fpuType".
  std::string cpu_version;   ///< "cpu_version".
  std::string hdu_version;   ///< "hdu_version".
  std::int32_t nCpu = 8;     ///< Processors on the debug module. "nCpu".
  std::uint32_t romemStartAdr = unsetAddress; ///< "romemStartAdr".
  std::uint32_t romemSize = 0;                ///< "romemSize", in bytes.

  bool svfFileFlag = false;  ///< A cable clause named an SVF file. "fname".
  bool modelSimMode = false; ///< ModelSim co-simulation. "-sim".
  std::string modelSimHost = "localhost"; ///< "-sim -ipcport".
  std::int32_t modelSimPort = 9998;       ///< "-sim -ipcport".
  bool uartOverHdu = false; ///< UART over the debug module. "-uart".
  /// Boundary-scan user register: 2, 3, 0x22, 0x23 for "USER1" to "USER4".
  /// "-bscan".
  std::uint32_t bscanUserReg = 3;
  std::string connectCommand; ///< The last command read or written.
};

/// What a selection tells the dialog about the processor.
class ZELDEBUGDIALOG_API ProcessorInfo {
public:
  std::uint32_t procType = 0;       ///< As in `ProcessorInfoImp`.
  std::uint32_t procFamily = 0;     ///< As in `ProcessorInfoImp`.
  std::uint32_t connectionMask = 0; ///< The connections to offer.
};

} // namespace ZelDebugDialog

#endif
