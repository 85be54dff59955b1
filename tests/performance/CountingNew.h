// Counts what a program asks of the heap by replacing operator new.
#ifndef ZELDEBUGDIALOG_TESTS_PERFORMANCE_COUNTINGNEW_H
#define ZELDEBUGDIALOG_TESTS_PERFORMANCE_COUNTINGNEW_H

#include <cstddef>

namespace ZelDebugDialog::test {

/// How often memory was asked for since the program began.
std::size_t allocationCount();

} // namespace ZelDebugDialog::test

#endif
