#include "ZelDebugDialog/EngineImp.h"

#include <algorithm>

namespace ZelDebugDialog {

EngineImp::EngineImp() : cableOption(std::make_unique<CableOption>()) {
  EngineImpInit();
}

EngineImp::~EngineImp() = default;

void EngineImp::EngineImpInit() {
  if (currentProcessor != nullptr)
    currentProcessor->ProcessorInfoImpInit();
  cableOption->CableOptionInit(Engine::CABLE_NONE);
  cpuJtag = 0;
  jtagChain.clear();
  errorStr.clear();
}

void ReleaseProcessorRecords(EngineImp &imp) {
  auto &records = imp.processorList;
  if (std::find(records.begin(), records.end(), imp.currentProcessor) ==
      records.end())
    delete imp.currentProcessor;
  imp.currentProcessor = nullptr;
  for (const ProcessorInfoImp *const record : records)
    delete record;
  records.clear();
}

} // namespace ZelDebugDialog
