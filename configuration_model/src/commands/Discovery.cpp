#include "commands/Discovery.h"

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "commands/EngineLock.h"

namespace ZelDebugDialog::model {

namespace {

/// Releases the records of an engine.
class RecordRelease {
public:
  explicit RecordRelease(EngineImp &state) : imp(state) {}
  ~RecordRelease() { ReleaseProcessorRecords(imp); }
  RecordRelease(const RecordRelease &) = delete;
  RecordRelease &operator=(const RecordRelease &) = delete;

private:
  EngineImp &imp;
};

} // namespace

DiscoveredProcessors discoverProcessors(HHSMHwManager &design) {
  const EngineLock lock;
  Engine engine;
  EngineImp *const imp = engine.GetProcessorList(nullptr);
  const RecordRelease release(*imp);
  DiscoveredProcessors found;
  engine.GetProcessorList(&design, found.names);
  // FPU types are found out where a processor is selected.
  for (ProcessorInfoImp *const record : imp->processorList) {
    imp->currentProcessor = record;
    imp->GetFPUType();
    found.debuggable.push_back(*record);
  }
  return found;
}

} // namespace ZelDebugDialog::model
