// Runs an operation again and again, with its 1st, its 2nd, its 3rd ...
// allocation failing, until all of them succeed.
#ifndef TESTS_ROBUSTNESS_FAILEACH_H
#define TESTS_ROBUSTNESS_FAILEACH_H

#include <cstddef>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "Heap.h"

namespace robustness {

/// Remembers how many allocations of an operation were made to fail. The
/// program prints all of it when it ends.
void noteFailures(const std::string &operation, std::size_t count);

/// Does that on a new `Scene` each time. `check` looks at the scene that
/// `operation` has left behind with std::bad_alloc; when the scene is gone, all
/// that it took is back.
template <class Scene, class Operation, class Check>
void failEach(const std::string &name, const Operation &operation,
              const Check &check) {
  for (const Failing which : {Failing::one, Failing::rest}) {
    SCOPED_TRACE(which == Failing::one ? "one allocation fails"
                                       : "all allocations fail from there");
    for (std::size_t number = 1;; ++number) {
      SCOPED_TRACE(name + ", allocation " + std::to_string(number));
      const HeapUse before = heapInUse();
      bool isComplete = false;
      {
        Scene scene;
        bool threw = false;
        {
          const HeapFault fault(number, which);
          try {
            operation(scene);
          } catch (const std::bad_alloc &) {
            threw = true;
          }
          isComplete = !fault.happened();
        }
        EXPECT_EQ(threw, !isComplete);
        if (!isComplete)
          check(scene);
      }
      EXPECT_EQ(heapInUse(), before) << "something was lost";
      if (testing::Test::HasFailure())
        return;
      if (isComplete) {
        if (which == Failing::one)
          noteFailures(name, number - 1);
        break;
      }
    }
  }
}

} // namespace robustness

#endif
