#include "commands/Keywords.h"

#include <algorithm>

#include "text/Letters.h"

namespace ZelDebugDialog::model {

bool sameKeyword(std::string_view a, std::string_view b) {
  return a.size() == b.size() && beginsWith(a, b);
}

bool beginsWith(std::string_view word, std::string_view front) {
  return word.size() >= front.size() &&
         std::equal(front.begin(), front.end(), word.begin(), sameLetter);
}

} // namespace ZelDebugDialog::model
