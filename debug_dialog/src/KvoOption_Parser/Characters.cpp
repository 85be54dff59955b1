#include "KvoOption_Parser/Characters.h"

namespace ZelDebugDialog::kvo {

Characters::Characters() : facet(std::use_facet<std::ctype<char>>(locale)) {}

bool Characters::sameWord(std::string_view left, std::string_view right) {
  if (left.size() != right.size())
    return false;
  for (std::size_t i = 0; i < left.size(); ++i)
    if (left[i] != right[i] && folded(left[i]) != folded(right[i]))
      return false;
  return true;
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
