#include "output/Suggestion.h"

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

namespace zeldebug {

std::string nearestMatch(std::string_view word,
                         const std::vector<std::string> &candidates) {
  return ZelDebugDialog::FindNearest(word, candidates);
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

} // namespace zeldebug
