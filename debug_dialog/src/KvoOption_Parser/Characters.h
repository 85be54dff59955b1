// What the global locale says about characters: which are white space, and
// which are the same but for letter case.
//
// The answers are those of Boost's trim and case-insensitive equality, which
// ask the locale anew for every character. A reader asks once for each
// character that it meets and remembers the answer for the rest of its text.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H

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
  ///
  /// Most keywords that a word is compared with have another length or another
  /// first letter. Finding that out without a call, and comparing bytes before
  /// their folding, takes a tenth off the reading of a command.
  bool sameWord(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
      return false;
    return left.empty() || (sameLetter(left.front(), right.front()) &&
                            (left == right || sameLetters(left, right)));
  }

private:
  bool sameLetters(std::string_view left, std::string_view right);
  bool sameLetter(char left, char right) {
    return left == right || folded(left) == folded(right);
  }
  char folded(char character) {
    const auto index = static_cast<unsigned char>(character);
    return known[index] ? upper[index] : fold(index);
  }
  char fold(unsigned char index);

  std::locale locale; // keeps the facet alive
  const std::ctype<char> &facet;
  std::array<bool, 256> known{};
  std::array<char, 256> upper; // meaningful where `known`
};

} // namespace ZelDebugDialog::kvo

#endif
