// White space and letter case are those of the global locale, answered as
// Boost's trim and case-insensitive equality answer, for every byte.
#include "KvoOption_Parser/Characters.h"

#include <limits>
#include <locale>
#include <string>
#include <vector>

#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/trim.hpp>
#include <gtest/gtest.h>

#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {
namespace {

/// A classification of its own: 'z' and byte 200 are white space and the blank
/// is none; 'o' is the letter zero in lower case, and byte 250 that of byte 10.
class OddClassification : public std::ctype<char> {
public:
  OddClassification() : ctype(table()) {}

private:
  static const mask *table() {
    static std::vector<mask> odd(classic_table(), classic_table() + table_size);
    odd['z'] = space;
    odd[200] = space;
    odd[' '] = print;
    return odd.data();
  }
  char do_toupper(char character) const override {
    if (character == 'o')
      return '0';
    if (character == static_cast<char>(250))
      return '\n';
    return ctype::do_toupper(character);
  }
};

struct NamedLocale {
  std::string name;
  std::locale locale;
};

void PrintTo(const NamedLocale &locale, std::ostream *out) {
  *out << locale.name;
}

/// Letters of one byte beyond ASCII, as ISO 8859-1 has them: 0xE0 to 0xFE are
/// the lower case of 0xC0 to 0xDE, and 0xA0 is white space.
class Latin1 : public std::ctype<char> {
public:
  Latin1() : ctype(table()) {}

private:
  static const mask *table() {
    static std::vector<mask> latin(classic_table(),
                                   classic_table() + table_size);
    latin[0xA0] = space;
    for (std::size_t letter = 0xC0; letter <= 0xFE; ++letter)
      latin[letter] = alpha | (letter < 0xE0 ? upper : lower);
    return latin.data();
  }
  char do_toupper(char character) const override {
    const auto byte = static_cast<unsigned char>(character);
    const bool isLower = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;
    return isLower ? static_cast<char>(byte - 0x20)
                   : ctype::do_toupper(character);
  }
};

/// Made here, so that every machine has them, but for the one that every C
/// library has.
std::vector<NamedLocale> locales() {
  const std::locale classic = std::locale::classic();
  return {
      {"classic", classic},
      {"latin1", std::locale(classic, new Latin1)},
      {"odd", std::locale(classic, new OddClassification)},
      {"C.UTF-8", std::locale("C.UTF-8")},
  };
}

class CharactersTest : public testing::TestWithParam<NamedLocale> {
protected:
  void SetUp() override { before = std::locale::global(GetParam().locale); }
  void TearDown() override { std::locale::global(before); }

  static std::vector<char> allBytes() {
    std::vector<char> bytes;
    for (int byte = 0; byte <= std::numeric_limits<unsigned char>::max();
         ++byte)
      bytes.push_back(static_cast<char>(byte));
    return bytes;
  }

private:
  std::locale before;
};

TEST_P(CharactersTest, WhiteSpaceIsWhatBoostTrims) {
  const kvo::Characters characters;
  for (const char byte : allBytes())
    EXPECT_EQ(characters.isSpace(byte),
              boost::trim_copy(std::string(1, byte)).empty())
        << int(static_cast<unsigned char>(byte));
}

TEST_P(CharactersTest, LettersAreEqualWhereBoostFindsThemEqual) {
  for (const char left : allBytes()) {
    // One that remembers and one that is asked for the first time.
    kvo::Characters remembering;
    for (const char right : allBytes()) {
      const std::string leftWord(1, left);
      const std::string rightWord(1, right);
      const bool equal = boost::iequals(leftWord, rightWord);
      ASSERT_EQ(remembering.sameWord(leftWord, rightWord), equal)
          << int(static_cast<unsigned char>(left)) << ' '
          << int(static_cast<unsigned char>(right));
      // Not only the first letter of a word.
      ASSERT_EQ(
          remembering.sameWord("-" + leftWord + "x", "-" + rightWord + "x"),
          equal);
    }
  }
}

TEST_P(CharactersTest, WordsAreEqualWholeOnly) {
  kvo::Characters characters;
  for (const auto &[left, right] :
       std::vector<std::pair<const char *, const char *>>{{"", ""},
                                                          {"", "a"},
                                                          {"lc", "LC"},
                                                          {"lc", "l"},
                                                          {"lc", "lcx"},
                                                          {"cool", "c00L"},
                                                          {"-cable", "-CABLE"},
                                                          {"-cable", "-cabel"}})
    EXPECT_EQ(characters.sameWord(left, right), boost::iequals(left, right))
        << left << ' ' << right;
}

TEST_P(CharactersTest, EveryLetterOfAWordCountsWhateverItsLength) {
  const std::string letters = "abcdefghijklmnopqrst";
  kvo::Characters remembering;
  for (std::size_t size = 1; size <= letters.size(); ++size)
    for (std::size_t place = 0; place < size; ++place)
      for (const char other : {'A', 'x', static_cast<char>('A' + place)}) {
        const std::string word = letters.substr(0, size);
        std::string changed = word;
        changed[place] = other;
        const bool equal = boost::iequals(word, changed);
        EXPECT_EQ(kvo::Characters().sameWord(word, changed), equal) << changed;
        EXPECT_EQ(remembering.sameWord(word, changed), equal) << changed;
        EXPECT_TRUE(remembering.sameWord(changed, changed));
      }
}

TEST_P(CharactersTest, WordsAreTrimmedAsBoostTrimsThem) {
  for (const char byte : allBytes()) {
    for (const std::string &text :
         {std::string("value") + byte + " rest", byte + std::string("value"),
          std::string("value ") + byte, std::string("va") + byte + "lue rest",
          std::string(3, byte)}) {
      std::string left = boost::trim_copy(text);
      const std::string expected =
          boost::trim_copy(left.substr(0, left.find_first_of(" \t")));
      std::string input = text;
      std::string word = "as it was";
      if (left.empty()) {
        EXPECT_EQ(KvoOption_Parser::get_token(input, word), 3);
        EXPECT_EQ(word, "as it was");
        EXPECT_EQ(input, "");
        continue;
      }
      if (expected == "-")
        continue; // raises instead
      KvoOption_Parser::get_token(input, word);
      EXPECT_EQ(word, expected) << testing::PrintToString(text);
      EXPECT_EQ(input, left.substr(expected.size()))
          << testing::PrintToString(text);
    }
  }
}

std::string nameOf(const testing::TestParamInfo<NamedLocale> &tested) {
  std::string name = tested.param.name;
  for (char &character : name)
    if (!std::isalnum(character, std::locale::classic()))
      character = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Locales, CharactersTest, testing::ValuesIn(locales()),
                         nameOf);

TEST(OddClassificationTest, IsOdd) {
  const std::locale odd(std::locale::classic(), new OddClassification);
  EXPECT_TRUE(std::isspace('z', odd));
  EXPECT_FALSE(std::isspace(' ', odd));
  EXPECT_EQ(std::toupper('o', odd), '0');
}

} // namespace
} // namespace ZelDebugDialog
