// How much of the heap a piece of work holds at most, counted by replacing
// operator new and pugixml's allocation.
#ifndef ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_PEAKMEMORY_H
#define ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_PEAKMEMORY_H

#include <cstddef>

namespace support {

std::size_t bytesHeld();

/// Forgets earlier peaks.
void restartPeak();
std::size_t peakBytesHeld();

/// Has pugixml allocate where the rest is counted. To be called before it
/// allocates anything.
void countPugixml();

} // namespace support

#endif
