// The function whose instructions are counted.
#ifndef ZELDEBUGDIALOG_TESTS_PERFORMANCE_COUNTEDREGION_H
#define ZELDEBUGDIALOG_TESTS_PERFORMANCE_COUNTEDREGION_H

#include <functional>

/// Does the work. Defined in a file of its own, so that no compiler makes other
/// functions of it, which the counter would not know.
extern "C" void countedRegion(const std::function<void()> &work);

#endif
