#include "ZelDebugDialog_Engine/ScratchEngine.h"

namespace ZelDebugDialog {

ScratchEngine::ScratchEngine() { imp.currentProcessor = &record; }

ScratchReader::~ScratchReader() { ReleaseChainRecords(imp.jtagChain); }

} // namespace ZelDebugDialog
