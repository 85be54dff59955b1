#include "commands/EngineLock.h"

namespace ZelDebugDialog::model {

std::unique_lock<std::mutex> lockEngine() {
  static std::mutex engine;
  return std::unique_lock<std::mutex>(engine);
}

} // namespace ZelDebugDialog::model
