#include "names/WildcardMatch.h"

#include <cstddef>

namespace ZelDebugDialog {

bool matchesWildcard(std::string_view pattern, std::string_view text) {
  std::size_t at = 0;
  std::size_t next = 0;
  std::size_t star = std::string_view::npos;
  std::size_t starText = 0;
  while (at < text.size()) {
    if (next < pattern.size() && pattern[next] == '*') {
      star = next++;
      starText = at;
    } else if (next < pattern.size() &&
               (pattern[next] == '?' || pattern[next] == text[at])) {
      ++next;
      ++at;
    } else if (star != std::string_view::npos) {
      // Only the last star need ever take more.
      next = star + 1;
      at = ++starText;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', next) == std::string_view::npos;
}

} // namespace ZelDebugDialog
