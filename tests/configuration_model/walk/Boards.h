// Boards of random processors: every family, with every mask of connections.
#ifndef TESTS_CONFIGURATION_MODEL_WALK_BOARDS_H
#define TESTS_CONFIGURATION_MODEL_WALK_BOARDS_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "support/FakeDesign.h"

namespace walk {

/// The same numbers from the same seed.
class Random {
public:
  explicit Random(std::uint64_t seed) : engine(seed) {}

  /// From 0 to `count` - 1.
  std::size_t below(std::size_t count) { return engine() % count; }
  bool oneIn(std::size_t count) { return below(count) == 0; }
  std::uint64_t bits() { return engine(); }
  template <class List> const typename List::value_type &of(const List &list) {
    return list[below(list.size())];
  }

private:
  std::mt19937_64 engine;
};

class RandomBoard {
public:
  RandomBoard(Random &random, const std::string &folder);

  const ZelDebugDialog::Board &board() const { return made; }
  const std::vector<std::string> &names() const { return design.processors; }
  HHSMHwManager &hardware() { return design; }

private:
  support::FakeDesign design;
  ZelDebugDialog::Board made;
};

} // namespace walk

#endif
