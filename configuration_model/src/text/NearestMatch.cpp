#include "text/NearestMatch.h"

#include <algorithm>

#include <fmt/format.h>

#include "text/Letters.h"

namespace ZelDebugDialog::model {

namespace {

std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> edits(
      a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i)
    edits[i][0] = i;
  for (std::size_t j = 0; j <= b.size(); ++j)
    edits[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i)
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced =
          edits[i - 1][j - 1] + (sameLetter(a[i - 1], b[j - 1]) ? 0 : 1);
      edits[i][j] =
          std::min({replaced, edits[i - 1][j] + 1, edits[i][j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && sameLetter(a[i - 1], b[j - 2]) &&
                           sameLetter(a[i - 2], b[j - 1]);
      if (swapped)
        edits[i][j] = std::min(edits[i][j], edits[i - 2][j - 2] + 1);
    }
  return edits[a.size()][b.size()];
}

} // namespace

std::string nearestMatch(std::string_view word,
                         const std::vector<std::string> &candidates) {
  std::string nearest;
  std::size_t fewest = std::max<std::size_t>(1, word.size() / 3) + 1;
  // Longer than any keyword: no slip of the finger, and costly to compare.
  if (word.size() > 64)
    return nearest;
  for (const std::string &candidate : candidates) {
    const std::size_t edits = editDistance(word, candidate);
    if (edits >= fewest)
      continue;
    fewest = edits;
    nearest = candidate;
  }
  return nearest;
}

std::string didYouMean(std::string_view word,
                       const std::vector<std::string> &candidates) {
  const std::string nearest = nearestMatch(word, candidates);
  return nearest.empty() ? std::string()
                         : fmt::format("; did you mean '{}'?", nearest);
}

std::string quotedList(const std::vector<std::string> &words) {
  return words.empty() ? std::string("nothing")
                       : fmt::format("'{}'", fmt::join(words, "', '"));
}

} // namespace ZelDebugDialog::model
