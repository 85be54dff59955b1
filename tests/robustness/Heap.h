// The heap of a test program: operator new counts what it hands out, and fails
// when it is told to. For programs of one thread.
#ifndef TESTS_ROBUSTNESS_HEAP_H
#define TESTS_ROBUSTNESS_HEAP_H

#include <cstddef>

namespace robustness {

/// What is in use.
struct HeapUse {
  std::size_t pieces = 0;
  std::size_t bytes = 0;

  bool operator==(const HeapUse &other) const {
    return pieces == other.pieces && bytes == other.bytes;
  }
};
HeapUse heapInUse();

/// How much more was in use at one time than when it was made.
class PeakUse {
public:
  PeakUse();
  std::size_t bytes() const;

private:
  std::size_t before;
};

/// Which allocations fail.
enum class Failing {
  one,  ///< A single one: what it stops may have to allocate again.
  rest, ///< It and all behind it: there is no more memory.
};

/// While it lives, allocation number `first` (from 1) fails.
class HeapFault {
public:
  HeapFault(std::size_t first, Failing which);
  ~HeapFault();
  HeapFault(const HeapFault &) = delete;
  HeapFault &operator=(const HeapFault &) = delete;

  /// Whether there were that many.
  bool happened() const;
};

/// For allocators that do not go through operator new: whether the allocation
/// that is asked for now has to fail.
bool failsNow();

} // namespace robustness

#endif
