#include "names/NearMatch.h"

#include <algorithm>
#include <cstddef>

namespace ZelDebugDialog {
namespace {

/// Longer than any name of a table: no slip of the finger.
constexpr std::size_t longestWord = 64;

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// How many letters have to be put in, taken out or replaced.
std::size_t countEdits(std::string_view word, std::string_view candidate) {
  std::vector<std::size_t> edits(candidate.size() + 1);
  for (std::size_t at = 0; at < edits.size(); ++at)
    edits[at] = at;
  for (const char c : word) {
    std::size_t before = edits[0]++;
    for (std::size_t at = 1; at < edits.size(); ++at) {
      const std::size_t replaced =
          before + (lower(c) == lower(candidate[at - 1]) ? 0 : 1);
      before = edits[at];
      edits[at] = std::min({replaced, edits[at] + 1, edits[at - 1] + 1});
    }
  }
  return edits.back();
}

} // namespace

std::string_view
findNearMatch(std::string_view word,
              const std::vector<std::string_view> &candidates) {
  std::string_view nearest;
  if (word.size() > longestWord)
    return nearest;
  std::size_t fewest = std::max<std::size_t>(1, word.size() / 3) + 1;
  for (const std::string_view candidate : candidates) {
    const std::size_t edits = countEdits(word, candidate);
    if (edits >= fewest)
      continue;
    fewest = edits;
    nearest = candidate;
  }
  return nearest;
}

} // namespace ZelDebugDialog
