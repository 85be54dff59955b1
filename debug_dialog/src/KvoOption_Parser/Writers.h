// The writers of clauses that serve more than their public form, each defined
// in the file of its clause.
#pragma once

#include <string>

namespace ZelDebugDialog {
class CableOption;
class EngineImp;
} // namespace ZelDebugDialog

namespace ZelDebugDialog::kvo {

/// Module and arguments of a plug-in cable.
void writePluginCable(std::string &out, const CableOption &cable);

/// " -bscan USER1" where the current processor uses that register.
void writeBoundaryScan(std::string &out, EngineImp &imp);

/// The marker of the processor's own JTAG pins, and the devices of the chain.
void writeChain(std::string &out, const EngineImp &imp);

/// The whole connect command of the current processor.
/// @return whether there is one; `command` is only set if there is.
bool composeCommand(std::string &command, EngineImp &imp);

/// The number of the debug device, as the debug device clause begins.
void writeDebugDeviceNumber(std::string &out, int number);

} // namespace ZelDebugDialog::kvo
