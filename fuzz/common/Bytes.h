// Takes an input apart, from its front to its end; behind its end there are
// zeros. A text ends at a line break, so that words of a dictionary stay whole.
#ifndef FUZZ_COMMON_BYTES_H
#define FUZZ_COMMON_BYTES_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

class Bytes {
public:
  Bytes(const std::uint8_t *data, std::size_t size) : at(data), left(size) {}

  bool atEnd() const { return left == 0; }
  std::uint8_t byte();
  std::size_t below(std::size_t count) { return byte() % count; }
  /// One of the numbers where things change, or any.
  std::uint32_t number();
  std::string text();

private:
  const std::uint8_t *at;
  std::size_t left;
};

} // namespace fuzz

#endif
