// The state of an engine apart from the caller's, for the operations that read
// or write clauses without touching the caller's settings. Nobody hears what is
// said about errors.
#ifndef ZELDEBUGDIALOG_ZELDEBUGDIALOG_ENGINE_SCRATCHENGINE_H
#define ZELDEBUGDIALOG_ZELDEBUGDIALOG_ENGINE_SCRATCHENGINE_H

#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog {

class ScratchEngine {
public:
  ScratchEngine();
  ~ScratchEngine() = default;
  ScratchEngine(const ScratchEngine &) = delete;
  ScratchEngine &operator=(const ScratchEngine &) = delete;

  ProcessorInfoImp record;
  EngineImp imp;
};

/// A scratch engine for a reader: the chain records that nobody took over end
/// with it.
class ScratchReader : public ScratchEngine {
public:
  ScratchReader() = default;
  ~ScratchReader();
  ScratchReader(const ScratchReader &) = delete;
  ScratchReader &operator=(const ScratchReader &) = delete;
};

} // namespace ZelDebugDialog

#endif
