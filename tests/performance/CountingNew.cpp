#include "CountingNew.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

std::size_t ZelDebugDialog::test::allocationCount() { return allocations; }

void *operator new(std::size_t size) {
  ++allocations;
  if (void *const memory = std::malloc(size == 0 ? 1 : size))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
