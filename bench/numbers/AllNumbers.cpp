// Shows that the engine reads a number as strtoull does: all 2^32 of them, in
// three bases. Takes some minutes; the tests have a short form of it.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>

#include "KvoOption_Parser/Numbers.h"
#include "common/NumberWords.h"

int main() {
  bench::NumberWord word;
  for (const bench::Base &base : bench::bases) {
    std::uint64_t differences = 0;
    for (std::uint64_t number = 0;
         number <= std::numeric_limits<std::uint32_t>::max(); ++number) {
      word.assign(static_cast<std::uint32_t>(number), base);
      const std::uint64_t ours = ZelDebugDialog::kvo::toUnsigned(word.view());
      if (ours == number && std::strtoull(word.c_str(), nullptr, 0) == ours)
        continue;
      if (++differences <= 10)
        std::cerr << "differs: " << word.view() << '\n';
    }
    std::cout << "base " << base.radix << ": 4294967296 numbers, "
              << differences << " differences" << std::endl;
    if (differences != 0)
      return EXIT_FAILURE;
  }
}
