// The function whose instructions are counted.
#pragma once

#include <functional>

/// Does the work. Defined in a file of its own, so that no compiler makes other
/// functions of it, which the counter would not know.
extern "C" void countedRegion(const std::function<void()> &work);
