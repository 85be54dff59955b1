// Changes inputs a little, the same from run to run.
#ifndef TESTS_FUZZ_MUTATOR_H
#define TESTS_FUZZ_MUTATOR_H

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

class Mutator {
public:
  /// @param all  the inputs to start from; at least one.
  Mutator(std::vector<std::string> all, unsigned seed)
      : inputs(std::move(all)), random(seed) {}

  /// One of the inputs with a few changes: bytes and words that are changed,
  /// dropped, doubled, or taken from another input.
  std::string next();

private:
  std::size_t below(std::size_t count) { return random() % count; }
  const std::string &any() { return inputs[below(inputs.size())]; }
  std::string word();
  void change(std::string &input);

  std::vector<std::string> inputs;
  std::mt19937 random;
};

} // namespace fuzz

#endif
