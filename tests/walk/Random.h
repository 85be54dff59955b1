// Chance that can be had again: what every walk goes by.
#ifndef TESTS_WALK_RANDOM_H
#define TESTS_WALK_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <random>

namespace walk {

/// The same numbers from the same seed.
class Random {
public:
  explicit Random(std::uint64_t seed) : engine(seed) {}

  /// From 0 to `count` - 1.
  std::size_t below(std::size_t count) { return engine() % count; }
  bool oneIn(std::size_t count) { return below(count) == 0; }
  std::uint64_t bits() { return engine(); }
  template <class List> const auto &of(const List &list) {
    return list[below(list.size())];
  }

private:
  std::mt19937_64 engine;
};

} // namespace walk

#endif
