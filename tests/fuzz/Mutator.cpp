#include "fuzz/Mutator.h"

#include <algorithm>

namespace fuzz {

std::string Mutator::next() {
  std::string input = any();
  const std::size_t changes = 1 + below(4);
  for (std::size_t count = 0; count < changes; ++count)
    change(input);
  return input;
}

/// A word of any input, with what ends it.
std::string Mutator::word() {
  const std::string &from = any();
  const std::string separators = " \t\n";
  if (from.empty())
    return " ";
  const std::size_t inside = below(from.size());
  const std::size_t begin = from.find_last_of(separators, inside) + 1;
  const std::size_t end = from.find_first_of(separators, inside);
  return from.substr(std::min(begin, inside), end - begin + 1);
}

void Mutator::change(std::string &input) {
  const std::size_t at = below(input.size() + 1);
  const std::size_t length = below(8);
  switch (below(6)) {
  case 0:
    input.insert(at, word());
    break;
  case 1:
    input.erase(at, length);
    break;
  case 2:
    input.insert(at, input.substr(at, length));
    break;
  case 3:
    input.insert(at, 1, static_cast<char>(below(256)));
    break;
  case 4:
    if (at < input.size())
      input[at] = static_cast<char>(below(256));
    break;
  default:
    const std::string &other = any();
    input.resize(at);
    input += other.substr(std::min(at, other.size()));
  }
}

} // namespace fuzz
