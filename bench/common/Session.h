// An engine with a current record, ready to read and write commands.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_SESSION_H
#define ZELDEBUGDIALOG_BENCH_COMMON_SESSION_H

#include <cstddef>
#include <memory>

#include "ChainCommand.h"
#include "HHSMHwManager.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

namespace bench {

class Session {
public:
  Session() : imp(*engine.GetProcessorList(nullptr)) {
    imp.currentProcessor = new ZelDebugDialog::ProcessorInfoImp;
    imp.EngineImpInit();
  }
  ~Session() {
    forgetChain();
    ReleaseProcessorRecords(imp);
  }
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  void forgetChain() { ReleaseChainRecords(imp.jtagChain); }

  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp &imp;
};

} // namespace bench

#endif
