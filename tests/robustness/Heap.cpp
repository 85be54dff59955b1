#include "Heap.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace robustness {

namespace {

HeapUse inUse;
std::size_t peak = 0;

struct Fault {
  std::size_t remaining = 0; ///< Allocations up to the one that fails.
  Failing which = Failing::one;
  bool isSet = false;
  bool happened = false;
};
Fault fault;

void *allocate(std::size_t size) {
  if (failsNow())
    return nullptr;
  void *const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr)
    return nullptr;
  ++inUse.pieces;
  inUse.bytes += malloc_usable_size(memory);
  peak = std::max(peak, inUse.bytes);
  return memory;
}

void release(void *memory) {
  if (memory == nullptr)
    return;
  --inUse.pieces;
  inUse.bytes -= malloc_usable_size(memory);
  std::free(memory);
}

} // namespace

bool failsNow() {
  if (!fault.isSet)
    return false;
  if (fault.happened && fault.which == Failing::rest)
    return true;
  if (fault.happened || --fault.remaining != 0)
    return false;
  fault.happened = true;
  return true;
}

HeapUse heapInUse() { return inUse; }

PeakUse::PeakUse() : before(inUse.bytes) { peak = before; }
std::size_t PeakUse::bytes() const { return peak - before; }

HeapFault::HeapFault(std::size_t first, Failing which) {
  fault = {first, which, true, false};
}
HeapFault::~HeapFault() { fault = {}; }
bool HeapFault::happened() const { return fault.happened; }

} // namespace robustness

void *operator new(std::size_t size) {
  if (void *const memory = robustness::allocate(size))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void *memory) noexcept { robustness::release(memory); }
void operator delete(void *memory, std::size_t /*size*/) noexcept {
  robustness::release(memory);
}
