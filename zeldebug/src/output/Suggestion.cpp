#include "output/Suggestion.h"
#include "output/Output.h"

#include <ZelDebugDialog/ConfigurationModel/Text.h>
#include <fmt/format.h>

namespace zeldebug {

std::string nearestMatch(std::string_view word,
                         const std::vector<std::string> &candidates) {
  return ZelDebugDialog::FindNearest(word, candidates);
}

std::string didYouMean(std::string_view word,
                       const std::vector<std::string> &candidates) {
  const std::string nearest = nearestMatch(word, candidates);
  return nearest.empty()
             ? std::string()
             : fmt::format("; did you mean '{}'?", printable(nearest));
}

std::string quotedList(const std::vector<std::string> &words) {
  std::vector<std::string> shown;
  shown.reserve(words.size());
  for (const std::string &word : words)
    shown.push_back(printable(word));
  return shown.empty() ? std::string("nothing")
                       : fmt::format("'{}'", fmt::join(shown, "', '"));
}

} // namespace zeldebug
