#include "SystemCalls.h"

#include <cerrno>
#include <utility>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace robustness {

namespace {

struct Plan {
  SystemCall call = SystemCall::read;
  int first = 0;
  int last = 0; ///< Before `first`: none is planned.
  int error = 0;
  std::function<void()> event;
  int calls = 0;
};
Plan plan;

/// Whether a call that is made now has to fail; `errno` is then set.
bool failsNow(SystemCall call) {
  if (plan.last < plan.first || call != plan.call)
    return false;
  ++plan.calls;
  if (plan.calls < plan.first || plan.calls > plan.last)
    return false;
  if (plan.event) {
    // What happens may make calls of its own.
    const std::function<void()> event = std::exchange(plan, Plan()).event;
    event();
    return false;
  }
  errno = plan.error;
  return true;
}

/// The system's own, behind the one of this program.
template <class Function> Function *systemsOwn(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

CallFault::CallFault(SystemCall call, int first, int error, int more) {
  plan = {call, first, first + more, error, {}, 0};
}
CallFault::~CallFault() { plan = {}; }
int CallFault::calls() const { return plan.calls; }

CallEvent::CallEvent(SystemCall call, int number, std::function<void()> event) {
  plan = {call, number, number, 0, std::move(event), 0};
}
CallEvent::~CallEvent() { plan = {}; }

} // namespace robustness

using robustness::SystemCall;

extern "C" {

int fstat(int descriptor, struct stat *status) noexcept {
  static auto *const own =
      robustness::systemsOwn<int(int, struct stat *)>("fstat");
  return robustness::failsNow(SystemCall::fstat) ? -1 : own(descriptor, status);
}

int ftruncate(int descriptor, off_t length) noexcept {
  static auto *const own = robustness::systemsOwn<int(int, off_t)>("ftruncate");
  return robustness::failsNow(SystemCall::ftruncate) ? -1
                                                     : own(descriptor, length);
}

ssize_t read(int descriptor, void *into, size_t room) {
  static auto *const own =
      robustness::systemsOwn<ssize_t(int, void *, size_t)>("read");
  return robustness::failsNow(SystemCall::read) ? -1
                                                : own(descriptor, into, room);
}

ssize_t write(int descriptor, const void *from, size_t size) {
  static auto *const own =
      robustness::systemsOwn<ssize_t(int, const void *, size_t)>("write");
  if (!robustness::failsNow(SystemCall::write))
    return own(descriptor, from, size);
  return errno == 0 ? 0 : -1;
}
}
