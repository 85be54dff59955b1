#include <utility>

#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

void ProcessorInfoImp::ProcessorInfoImpInit() {
  ProcessorInfoImp fresh;
  fresh.instanceName = std::move(instanceName);
  fresh.procFamily = procFamily;
  fresh.procType = procType;
  fresh.connectionMask = connectionMask;
  fresh.cpuNr = cpuNr;
  *this = std::move(fresh);
}

} // namespace ZelDebugDialog
