#include "commands/EngineLock.h"

#include <pthread.h>

namespace ZelDebugDialog::model {

std::unique_lock<std::mutex> lockEngine() {
  static std::mutex engine;
  // A forked process has but the thread that forked: a lock that another one
  // held would be held for ever.
  [[maybe_unused]] static const int forked = pthread_atfork(
      [] { engine.lock(); }, [] { engine.unlock(); }, [] { engine.unlock(); });
  return std::unique_lock<std::mutex>(engine);
}

} // namespace ZelDebugDialog::model
