// Counts what a program asks of the heap by replacing operator new.
#pragma once

#include <cstddef>

namespace ZelDebugDialog::test {

/// How often memory was asked for since the program began.
std::size_t allocationCount();

} // namespace ZelDebugDialog::test
