#include "KvoOption_Parser/Characters.h"

#include <algorithm>

namespace ZelDebugDialog::kvo {

Characters::Characters() : facet(std::use_facet<std::ctype<char>>(locale)) {}

bool Characters::sameLetters(std::string_view left, std::string_view right) {
  // Words are mostly typed with the letters of the keyword, and others mostly
  // differ in their first: neither asks for the locale's folding much.
  return std::equal(left.begin(), left.end(), right.begin(),
                    [this](char typed, char keyword) {
                      return typed == keyword ||
                             folded(typed) == folded(keyword);
                    });
}

char Characters::folded(char character) {
  const auto index = static_cast<unsigned char>(character);
  if (!known[index]) {
    upper[index] = facet.toupper(character);
    known[index] = true;
  }
  return upper[index];
}

} // namespace ZelDebugDialog::kvo
