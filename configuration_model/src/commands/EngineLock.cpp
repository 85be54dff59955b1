#include "commands/EngineLock.h"

#include <mutex>

#include <pthread.h>

namespace ZelDebugDialog::model {

namespace {

std::mutex &engine() {
  static std::mutex mutex;
  return mutex;
}

/// A design that is asked may fork: its thread has the lock already.
thread_local bool isHeldHere = false;

void beforeFork() {
  if (!isHeldHere)
    engine().lock();
}

void afterFork() {
  if (!isHeldHere)
    engine().unlock();
}

} // namespace

EngineLock::EngineLock() {
  // A forked process has but the thread that forked: a lock that another one
  // held would be held for ever.
  [[maybe_unused]] static const int forked =
      pthread_atfork(beforeFork, afterFork, afterFork);
  engine().lock();
  isHeldHere = true;
}

EngineLock::~EngineLock() {
  isHeldHere = false;
  engine().unlock();
}

} // namespace ZelDebugDialog::model
