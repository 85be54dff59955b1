// What the global locale says about characters: which are white space, and
// which are the same but for letter case.
//
// The answers are those of Boost's trim and case-insensitive equality, which
// ask the locale anew for every character. A reader asks once for each
// character that it meets and remembers the answer for the rest of its text.
#pragma once

#include <array>
#include <locale>
#include <string_view>

namespace ZelDebugDialog::kvo {

class Characters {
public:
  Characters();

  bool isSpace(char character) const {
    return facet.is(std::ctype_base::space, character);
  }
  /// Whether two words are equal, whole and without regard to letter case.
  bool sameWord(std::string_view left, std::string_view right) {
    return left.size() == right.size() && sameLetters(left, right);
  }

private:
  bool sameLetters(std::string_view left, std::string_view right);
  char folded(char character);

  std::locale locale; // keeps the facet alive
  const std::ctype<char> &facet;
  std::array<bool, 256> known{};
  std::array<char, 256> upper; // meaningful where `known`
};

} // namespace ZelDebugDialog::kvo
