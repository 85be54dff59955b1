// The system calls that option files are opened, read and written with, as this
// program has them: they are the system's own until a test has one fail, or
// has something happen before one.
#ifndef TESTS_ROBUSTNESS_SYSTEMCALLS_H
#define TESTS_ROBUSTNESS_SYSTEMCALLS_H

#include <functional>

namespace robustness {

enum class SystemCall { fstat, ftruncate, read, write };

/// While it lives, the call number `first` (from 1) of that kind fails with the
/// system's error `error`, and with it the `more` behind it. A `write` with the
/// error 0 does not fail, but writes nothing.
class CallFault {
public:
  CallFault(SystemCall call, int first, int error, int more = 0);
  ~CallFault();
  CallFault(const CallFault &) = delete;
  CallFault &operator=(const CallFault &) = delete;

  /// How many calls of the kind there were.
  int calls() const;
};

/// While it lives, `event` happens once, before the call number `number`.
class CallEvent {
public:
  CallEvent(SystemCall call, int number, std::function<void()> event);
  ~CallEvent();
  CallEvent(const CallEvent &) = delete;
  CallEvent &operator=(const CallEvent &) = delete;
};

} // namespace robustness

#endif
