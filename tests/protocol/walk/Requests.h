// Random requests about a configuration: what clients send, and what they had
// better not.
#ifndef TESTS_PROTOCOL_WALK_REQUESTS_H
#define TESTS_PROTOCOL_WALK_REQUESTS_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "protocol/walk/Client.h"

namespace walk {

/// The same numbers from the same seed.
class Random {
public:
  explicit Random(std::uint64_t seed) : engine(seed) {}

  /// From 0 to `count` - 1.
  std::size_t below(std::size_t count) { return engine() % count; }
  bool oneIn(std::size_t count) { return below(count) == 0; }
  template <class List> auto &of(const List &list) {
    return list[below(list.size())];
  }

private:
  std::mt19937_64 engine;
};

class Requests {
public:
  Json settings; ///< the table, as the server gives it

  /// Parameters, but for the configuration, and "method".
  Json any(Random &random, const Json &state) const;
  std::string fileContent(Random &random) const;
  /// Commands that the server writes come back as edits and files.
  void learn(const Json &state);

private:
  const Json &setting(Random &random) const;
  Json value(Random &random, const Json &row) const;
  Json chain(Random &random) const;
  Json text(Random &random) const;
  std::string command(Random &random) const;

  std::vector<std::string> written;
};

} // namespace walk

#endif
