#include "commands/Keywords.h"

#include <algorithm>

namespace ZelDebugDialog::model {

namespace {

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool sameKeyword(std::string_view a, std::string_view b) {
  return a.size() == b.size() && beginsWith(a, b);
}

bool beginsWith(std::string_view word, std::string_view front) {
  return word.size() >= front.size() &&
         std::equal(front.begin(), front.end(), word.begin(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

} // namespace ZelDebugDialog::model
