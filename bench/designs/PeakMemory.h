// How much of the heap a piece of work holds at most, counted by replacing
// operator new and pugixml's allocation.
#ifndef ZELDEBUGDIALOG_BENCH_DESIGNS_PEAKMEMORY_H
#define ZELDEBUGDIALOG_BENCH_DESIGNS_PEAKMEMORY_H

#include <cstddef>

namespace bench {

std::size_t bytesHeld();

/// Forgets earlier peaks.
void restartPeak();
std::size_t peakBytesHeld();

/// Has pugixml allocate where the rest is counted. To be called before it
/// allocates anything.
void countPugixml();

/// The most that `work` holds beyond what was held before.
template <class Work> std::size_t peakOf(const Work &work) {
  const std::size_t before = bytesHeld();
  restartPeak();
  work();
  return peakBytesHeld() - before;
}

} // namespace bench

#endif
