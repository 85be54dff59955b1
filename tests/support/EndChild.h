// Ends a forked program as another one: a memory checker would count against it
// what it shares with its parent.
#ifndef ZELDEBUGDIALOG_TESTS_SUPPORT_ENDCHILD_H
#define ZELDEBUGDIALOG_TESTS_SUPPORT_ENDCHILD_H

#include <unistd.h>

namespace support {

[[noreturn]] inline void endChild(bool well) {
  const char *const program = well ? "/bin/true" : "/bin/false";
  execl(program, program, nullptr);
  _exit(2);
}

} // namespace support

#endif
