// What the global locale says about characters: which are white space, and
// which are the same but for letter case.
//
// The answers are those of Boost's trim and case-insensitive equality, which
// ask the locale anew for every character. Those of the classic locale, which
// most programs stay with, are known. Of another one a reader asks once for
// each character that it meets and remembers the answer for the rest of its
// text.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_CHARACTERS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <locale>
#include <string_view>

namespace ZelDebugDialog::kvo {

/// Of two words.
enum class Likeness { different, same, unclear };

class Characters {
public:
  Characters();

  bool isSpace(char character) const {
    return (table[static_cast<unsigned char>(character)] &
            std::ctype_base::space) != 0;
  }
  /// Whether two words are equal, whole and without regard to letter case.
  bool sameWord(std::string_view left, std::string_view right) {
    const Likeness likeness = glance(left, right);
    return likeness == Likeness::unclear ? sameLetters(left, right)
                                         : likeness == Likeness::same;
  }

  /// What can be told of that without asking the locale. Most keywords that a
  /// word is compared with have another length or another first letter; most
  /// that have not are the word, byte by byte.
  Likeness glance(std::string_view left, std::string_view right) const {
    if (left.size() != right.size())
      return Likeness::different;
    if (left.empty() || left.size() > 16)
      return Likeness::unclear;
    const auto one = static_cast<unsigned char>(left.front());
    const auto other = static_cast<unsigned char>(right.front());
    if (one != other)
      return known[one] && known[other] && upper[one] != upper[other]
                 ? Likeness::different
                 : Likeness::unclear;
    return sameRest(left.data(), right.data(), left.size()) ? Likeness::same
                                                            : Likeness::unclear;
  }

private:
  bool sameLetter(char left, char right) {
    return left == right || folded(left) == folded(right);
  }
  char folded(char character) {
    const auto index = static_cast<unsigned char>(character);
    return known[index] ? upper[index] : fold(index);
  }

  /// Whether words of 1 to 16 bytes are the same behind the first.
  static bool sameRest(const char *left, const char *right, std::size_t size) {
    if (size >= 8)
      return sameAs<std::uint64_t>(left, right) &&
             sameAs<std::uint64_t>(left + size - 8, right + size - 8);
    if (size >= 4)
      return sameAs<std::uint32_t>(left, right) &&
             sameAs<std::uint32_t>(left + size - 4, right + size - 4);
    return size == 1 ||
           sameAs<std::uint16_t>(left + size - 2, right + size - 2);
  }
  template <class Number>
  static bool sameAs(const char *left, const char *right) {
    return std::memcmp(left, right, sizeof(Number)) == 0;
  }
  bool sameLetters(std::string_view left, std::string_view right);
  char fold(unsigned char index);

  std::locale locale;                 // keeps the facet alive
  const std::ctype<char> *facet;      // null where all letters are known
  const std::ctype_base::mask *table; // the facet's, which is() reads
  std::array<bool, 256> known;
  std::array<char, 256> upper; // meaningful where `known`
};

} // namespace ZelDebugDialog::kvo

#endif
