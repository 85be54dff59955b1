// The writers of clauses and commands, each defined in the file of its clause.
// `KvoOption_Parser` has the public forms of some.
//
// A writer tells who listens what becomes of each setting of its clause: which
// word carries it, that leaving it out says its value, or why it is left out.
// What a connection has no clause for, `leaveOut...` tells.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_WRITERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_WRITERS_H

#include <string>

#include "KvoOption_Parser/WriteRecorder.h"
#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog::kvo {

// --- Whole commands. A code of Codes.h ---------------------------------------

/// The connect command of the current processor into `command`, which stays as
/// it was if there is none.
/// @return whether there is one.
bool composeCommand(std::string &command, const EngineImp &imp,
                    WriteRecorder *recorder = nullptr);
/// The same into the record's `connectCommand` as well.
/// @return a result of the engine.
int writeCommandString(EngineImp &imp, std::string &out,
                       WriteRecorder *recorder = nullptr);

int writeLumacore(CommandText out, const EngineImp &imp);
int writePpc(CommandText out, const EngineImp &imp);
int writeVirtualPlatform(CommandText out, const EngineImp &imp);

// --- Clauses -----------------------------------------------------------------

/// Cable, boundary scan and chain. @return a code.
int writeJtagOptions(CommandText out, const EngineImp &imp);
/// @return a code.
int writeCable(CommandText out, const EngineImp &imp);
/// Port and frequency; or the serial number alone, which identifies the cable.
void writeLineCable(CommandText out, const CableOption &cable);
/// Module and arguments of a plug-in cable.
void writePluginCable(CommandText out, const CableOption &cable);
/// " -bscan USER1" where the current processor uses that register.
void writeBoundaryScan(CommandText out, const EngineImp &imp);
/// The marker of the processor's own JTAG pins, and the devices of the chain.
void writeChain(CommandText out, const EngineImp &imp);
/// Nothing if there is nothing to say.
void writeDebugDevice(CommandText out, const EngineImp &imp);
/// The number of the debug device, as the debug device clause begins.
void writeDebugDeviceNumber(CommandText out, int number);
/// Port, baud rate and time-out of the serial stub.
void writeStubLine(CommandText out, const EngineImp &imp);
void writePpcSimulator(CommandText out, const EngineImp &imp);

/// What the target word says of family and kind, and whether the processor
/// allows its connection.
void tellTarget(CommandText out, std::string_view target,
                const ProcessorInfoImp &record);
template <const std::string_view &target>
void writeTarget(CommandText out, const ProcessorInfoImp &record) {
  out.text += behindBlank<target>;
  if (out.recorder != nullptr)
    tellTarget(out, target, record);
}

/// Whether the reader of a cable clause that ends a command refuses the
/// frequency that was written in it.
bool isRefusedAtTheEnd(const CableOption &cable);

/// Cable, boundary scan, chain and debug device.
void leaveOutWires(WriteRecorder &recorder, const EngineImp &imp);
/// The kind of a stub's line, and the line.
void leaveOutStub(WriteRecorder &recorder);
void leaveOutJtagOptions(WriteRecorder &recorder, const EngineImp &imp);
void leaveOutBoundaryScan(WriteRecorder &recorder, const EngineImp &imp);
void leaveOutChain(WriteRecorder &recorder, const EngineImp &imp);
void leaveOutDebugDevice(WriteRecorder &recorder, const EngineImp &imp);
void leaveOutStubLine(WriteRecorder &recorder);
void leaveOutSimulatorFile(WriteRecorder &recorder);
void leaveOutSimulatorHost(WriteRecorder &recorder);
/// A host that is empty, and the port with it.
void leaveOutEmptyHost(WriteRecorder &recorder);
void leaveOutVirtualPlatform(WriteRecorder &recorder);

/// What takes the place of settings that another connection uses.
inline constexpr const Fields &connectionField =
    fields<&ProcessorInfoImp::connectionType>;

inline constexpr const Fields &simulatorHostFields =
    fields<&ProcessorInfoImp::simIpcHost, &ProcessorInfoImp::simIpcPort>;

} // namespace ZelDebugDialog::kvo

#endif
