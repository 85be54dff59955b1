#include "KvoOption_Parser/Characters.h"

#include <algorithm>

namespace ZelDebugDialog::kvo {

namespace {

constexpr std::array<char, 256> makeClassicUpperCase() {
  std::array<char, 256> upper{};
  for (std::size_t index = 0; index < upper.size(); ++index)
    upper[index] = static_cast<char>(index);
  for (char letter = 'a'; letter <= 'z'; ++letter)
    upper[static_cast<unsigned char>(letter)] =
        static_cast<char>(letter - 'a' + 'A');
  return upper;
}

constexpr std::array<char, 256> classicUpperCase = makeClassicUpperCase();

} // namespace

Characters::Characters()
    : facet(locale == std::locale::classic()
                ? nullptr
                : &std::use_facet<std::ctype<char>>(locale)),
      table(facet == nullptr ? std::ctype<char>::classic_table()
                             : facet->table()) {
  known.fill(facet == nullptr);
  if (facet == nullptr)
    upper = classicUpperCase;
}

bool Characters::sameLetters(std::string_view left, std::string_view right) {
  return std::equal(
      left.begin(), left.end(), right.begin(), right.end(),
      [this](char typed, char keyword) { return sameLetter(typed, keyword); });
}

char Characters::fold(unsigned char index) {
  upper[index] = facet->toupper(static_cast<char>(index));
  known[index] = true;
  return upper[index];
}

} // namespace ZelDebugDialog::kvo
