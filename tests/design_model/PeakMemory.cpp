#include "PeakMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include <pugixml.hpp>

namespace {

std::size_t held = 0;
std::size_t peak = 0;

void *allocate(std::size_t size) {
  void *const memory = std::malloc(size == 0 ? 1 : size);
  if (memory != nullptr) {
    held += malloc_usable_size(memory);
    peak = std::max(peak, held);
  }
  return memory;
}

void release(void *memory) {
  held -= malloc_usable_size(memory);
  std::free(memory);
}

} // namespace

void *operator new(std::size_t size) {
  if (void *const memory = allocate(size))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void *memory) noexcept { release(memory); }
void operator delete(void *memory, std::size_t /*size*/) noexcept {
  release(memory);
}

namespace support {

std::size_t bytesHeld() { return held; }
void restartPeak() { peak = held; }
std::size_t peakBytesHeld() { return peak; }
void countPugixml() {
  pugi::set_memory_management_functions(allocate, release);
}

} // namespace support
