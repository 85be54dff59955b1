// What the global locale says about characters: which are white space, and
// which are the same but for letter case.
//
// The answers are those of Boost's trim and case-insensitive equality, which
// ask the locale anew for every character. A reader asks once for each
// character that it meets and remembers the answer for the rest of its text.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H

#include <array>
#include <cstdint>
#include <cstring>
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
  /// first letter; most that have not are the word, byte by byte.
  bool sameWord(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
      return false;
    return left.empty() ||
           (sameLetter(left.front(), right.front()) &&
            (sameBytes(left.data(), right.data(), left.size()) ||
             sameLetters(left, right)));
  }

private:
  bool sameLetter(char left, char right) {
    return left == right || folded(left) == folded(right);
  }
  char folded(char character) {
    const auto index = static_cast<unsigned char>(character);
    return known[index] ? upper[index] : fold(index);
  }

  /// Without a call for the lengths that keywords have.
  static bool sameBytes(const char *left, const char *right, std::size_t size) {
    if (size >= 8 && size <= 16)
      return sameAs<std::uint64_t>(left, right) &&
             sameAs<std::uint64_t>(left + size - 8, right + size - 8);
    if (size >= 4 && size < 8)
      return sameAs<std::uint32_t>(left, right) &&
             sameAs<std::uint32_t>(left + size - 4, right + size - 4);
    return std::memcmp(left, right, size) == 0;
  }
  template <class Number>
  static bool sameAs(const char *left, const char *right) {
    return std::memcmp(left, right, sizeof(Number)) == 0;
  }
  bool sameLetters(std::string_view left, std::string_view right);
  char fold(unsigned char index);

  std::locale locale; // keeps the facet alive
  const std::ctype<char> &facet;
  std::array<bool, 256> known{};
  std::array<char, 256> upper; // meaningful where `known`
};

} // namespace ZelDebugDialog::kvo

#endif
