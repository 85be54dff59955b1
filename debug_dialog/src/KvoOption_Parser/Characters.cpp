#include "KvoOption_Parser/Characters.h"

#include <algorithm>

namespace ZelDebugDialog::kvo {

Characters::Characters()
    : facet(std::use_facet<std::ctype<char>>(locale)), table(facet.table()) {}

bool Characters::sameLetters(std::string_view left, std::string_view right) {
  return std::equal(
      left.begin(), left.end(), right.begin(), right.end(),
      [this](char typed, char keyword) { return sameLetter(typed, keyword); });
}

char Characters::fold(unsigned char index) {
  upper[index] = facet.toupper(static_cast<char>(index));
  known[index] = true;
  return upper[index];
}

} // namespace ZelDebugDialog::kvo
