// The state behind one `Engine`: the design, the processor records, the cable,
// the chain and the last error.
//
// Plain data with the design queries that work on it. `Engine` owns its
// `EngineImp`; `EngineImp` owns its cable. It owns neither the design nor the
// records that `processorList`, `currentProcessor` and `jtagChain` point to:
// those belong to whoever can reach them, and the two release functions
// (`ReleaseProcessorRecords` here, `ReleaseChainRecords` in CableOption.h)
// delete them. One thread at a time, like `Engine`.
//
//   EngineImp *state = engine.GetProcessorList(&design);
//   for (ProcessorInfoImp *record : state->processorList) ...
//   ReleaseProcessorRecords(*state);
#ifndef ZELDEBUGDIALOG_ENGINEIMP_H
#define ZELDEBUGDIALOG_ENGINEIMP_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/Export.h"
#include "ZelDebugDialog/ProcessorInfo.h"

class HHSMHwManager;

namespace ZelDebugDialog {

class Engine;

/// Everything that an engine keeps.
class ZELDEBUGDIALOG_API EngineImp {
public:
  /// No design, no processor, cable type 0, an empty chain, no error. `engine`
  /// is null: an `Engine` sets it to itself; whoever makes an `EngineImp` alone
  /// sets it to the engine that is to hold the messages of readers and writers.
  /// While it is null, messages go nowhere.
  EngineImp();
  ~EngineImp();
  EngineImp(const EngineImp &) = delete;
  EngineImp &operator=(const EngineImp &) = delete;

  /// Resets the settings of the current record (if there is one), the cable,
  /// `cpuJtag`, the chain and the error string. The chain's records are
  /// forgotten, not deleted. `processorList` and `hwManager` stay.
  void EngineImpInit();

  /// Makes a fresh current record and fills it from a connect command.
  ///
  /// The design is set aside while the command is read, so the command alone
  /// decides. Afterwards the first processor of `processorList` with the same
  /// family and number lends its `instanceName` and `connectionMask`, and its
  /// FPU is asked for; a command for a debug module, the kmtc target or an ARM
  /// access port or channel (mask exactly 16, 32, 256 or 512) stays as it was
  /// read.
  ///
  /// @return the new record, which is current and not part of `processorList`;
  ///   whoever calls releases it (`ReleaseProcessorRecords`, or `delete` once
  ///   another record is current). The record that was current before is left
  ///   alone. Null when the command was refused: the reader's message went to
  ///   `ComMsgMgr`, the new record is gone, `currentProcessor` is null, the
  ///   settings are reset and the error string is empty. While the message is
  ///   sent the chain holds nothing of the command any more.
  /// @throws std::out_of_range for a word that is a lone "-", with the same
  ///   state as for null, but nothing sent to `ComMsgMgr`.
  ProcessorInfoImp *GetProcessorInfo(std::string command);

  /// Takes `fpuType` of the current record from the design: 1 for the first
  /// peripheral of type "aux_fpu"; for "aux_fpu_gen5" 2 if its parameter
  /// "C_DOUBLE_PRECISION" is 1, else 1; otherwise 0.
  /// Needs a current record.
  /// @return 0 for a processor that is no PowerPC and for an FPU that was
  ///   found, 1 for a PowerPC without one (or without a design).
  int GetFPUType();

  /// The class of a memory controller, from its IP type name without regard to
  /// letter case: "BRAM", "EXT_DRAM", "EXT_SRAM_FLASH" or "OTHER".
  std::string ClassifyMemory(const std::string &typeName);

  /// The stub connections over a serial line that the design allows for a
  /// processor: 0x84 (stub, over a UART) if a peripheral is a
  /// "uart_mini_cedar" or "uart_mini_ember", else 0.
  std::uint32_t IsStubSerialConnect(std::string processor);

  /// The stub connections over JTAG: always 0, no design grants one.
  std::uint32_t IsStubJtagConnect(std::string processor);

  /// Makes the six region addresses unset; `debugAddressMap` and
  /// `isocmStartAdr` stay. Needs a current record. @return 0
  int InitPPCDebugAddressMap();

  /// Fills each of the six regions that is unset, each 0x10000 after the one
  /// before, in the order icache, itag, dcache, dtag, dcr, tlb from `base` on
  /// (wrapping at 32 bits, alignment not checked). `debugAddressMap` stays.
  /// Needs a current record. @return 0
  int AssignAddressMap(std::uint32_t base);

  HHSMHwManager *hwManager = nullptr; ///< The design; not owned; may be null.
  std::vector<ProcessorInfoImp *> processorList; ///< In order of discovery.
  ProcessorInfoImp *currentProcessor = nullptr;  ///< The selected record.
  Engine *engine = nullptr;                 ///< Where messages go; not owned.
  std::unique_ptr<CableOption> cableOption; ///< The cable; never null.
  std::uint32_t cpuJtag = 0; ///< 1: the processor's own JTAG pins are used.
  std::vector<JtagOption *> jtagChain; ///< In chain order; not owned.
  std::string errorStr;                ///< The last message only.
};

/// Deletes the records of `processorList` and the current record, each once,
/// and forgets them. Call it when the records are no longer used: before a
/// discovery that shall start anew, and before the engine ends.
ZELDEBUGDIALOG_API void ReleaseProcessorRecords(EngineImp &imp);

} // namespace ZelDebugDialog

#endif
