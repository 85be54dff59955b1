// Words: where one begins and ends, which is an option word, what is left.
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using LanguageTest::kLoneMinus;
using LanguageTest::kThrows;
using LanguageTest::kUntouched;
using LanguageTest::printable;
using ZelDebugDialog::KvoOption_Parser;

const std::string kNoWord = "(no word yet)";

struct TokenRow {
  std::string input;
  int code;
  std::string token;
  std::string rest;
  std::string option = kUntouched;
};

struct PairRow {
  std::string input;
  int code;
  std::string first;
  std::string second;
  std::string rest;
  std::string option = kUntouched;
};

// The string as it is before any test has read a word.
class OptionAtStart : public testing::Environment {
public:
  void SetUp() override { text() = KvoOption_Parser::current_option; }
  static std::string &text() {
    static std::string at_start = "(never looked)";
    return at_start;
  }
};
const testing::Environment *const kOptionAtStart =
    testing::AddGlobalTestEnvironment(new OptionAtStart);

template <class Call> int codeOf(const Call &call) {
  try {
    return call();
  } catch (const std::out_of_range &error) {
    EXPECT_EQ(error.what(), kLoneMinus);
    return kThrows;
  }
}

TEST(Tokenizer, StartsWithoutAnOption) {
  ASSERT_NE(kOptionAtStart, nullptr);
  EXPECT_EQ(OptionAtStart::text(), "");
}

TEST(Tokenizer, TakesOneWord) {
  const std::vector<TokenRow> rows = {
      // Nothing to take.
      {"", 3, kNoWord, ""},
      {" ", 3, kNoWord, ""},
      {"\t", 3, kNoWord, ""},
      {"\n", 3, kNoWord, ""},
      {"\v", 3, kNoWord, ""},
      {"\f", 3, kNoWord, ""},
      {"\r", 3, kNoWord, ""},
      {"  \t\n\v\f\r  ", 3, kNoWord, ""},
      // A value, and the end of the text trimmed with it.
      {"connect", 0, "connect", ""},
      {"  connect  lc ", 0, "connect", "  lc"},
      {"  lc", 0, "lc", ""},
      {"a b", 0, "a", " b"},
      {"a\tb", 0, "a", "\tb"},
      {"a \t b \t ", 0, "a", " \t b"},
      {"a b\n\r\v\f", 0, "a", " b"},
      {"\n\v\f\ra b", 0, "a", " b"},
      {"A", 0, "A", ""},
      // Only blank and tab separate; other white space is trimmed at the ends.
      {"a\nb c", 0, "a\nb", " c"},
      {"a\rb c", 0, "a\rb", " c"},
      {"a\vb\fc d", 0, "a\vb\fc", " d"},
      {"a\n b", 0, "a", "\n b"},
      {"a\r\n\tb", 0, "a", "\r\n\tb"},
      {"a\r\n", 0, "a", ""},
      {"a \nb", 0, "a", " \nb"},
      // Quotes mean nothing.
      {"\"a b\"", 0, "\"a", " b\""},
      {"'a b'", 0, "'a", " b'"},
      {"a\\ b", 0, "a\\", " b"},
      // Option words: '-' and no decimal digit behind it.
      {"-port\tCOM1", 1, "-port", "\tCOM1", "-port"},
      {"-p", 1, "-p", "", "-p"},
      {"  -Port  ", 1, "-Port", "", "-Port"},
      {"--", 1, "--", "", "--"},
      {"--5 x", 1, "--5", " x", "--5"},
      {"-/", 1, "-/", "", "-/"},
      {"-:", 1, "-:", "", "-:"},
      {"-.5", 1, "-.5", "", "-.5"},
      {"-+5", 1, "-+5", "", "-+5"},
      {"-\xb2", 1, "-\xb2", "", "-\xb2"},
      {"-a\nb c", 1, "-a\nb", " c", "-a\nb"},
      {"-\nb c", 1, "-\nb", " c", "-\nb"},
      // Negative numbers are values.
      {"-0", 0, "-0", ""},
      {"-5 x", 0, "-5", " x"},
      {"-9", 0, "-9", ""},
      {"-1port", 0, "-1port", ""},
      {"+5", 0, "+5", ""},
      {"a-b", 0, "a-b", ""},
      {"a-", 0, "a-", ""},
      // Null bytes are characters.
      {"\0 x"s, 0, "\0"s, " x"},
      {"a\0b c"s, 0, "a\0b"s, " c"},
      {" \0"s, 0, "\0"s, ""},
      {"a\0 "s, 0, "a\0"s, ""},
      {"-\0 x"s, 1, "-\0"s, " x", "-\0"s},
      {"-a\0b"s, 1, "-a\0b"s, "", "-a\0b"s},
      // White space of other code pages is none here.
      {"\xa0"
       "a\xa0 b",
       0,
       "\xa0"
       "a\xa0",
       " b"},
      // A lone "-" is taken off before it fails.
      {"-", kThrows, "-", ""},
      {"- x", kThrows, "-", " x"},
      {" \t-\tx ", kThrows, "-", "\tx"},
      {"-\n x", kThrows, "-", "\n x"},
      {"-\r\n", kThrows, "-", ""},
  };
  for (const TokenRow &row : rows) {
    SCOPED_TRACE("input: \"" + printable(row.input) + "\"");
    KvoOption_Parser::current_option = kUntouched;
    std::string input = row.input;
    std::string token = kNoWord;
    EXPECT_EQ(codeOf([&] { return KvoOption_Parser::get_token(input, token); }),
              row.code);
    EXPECT_EQ(printable(token), printable(row.token));
    EXPECT_EQ(printable(input), printable(row.rest));
    EXPECT_EQ(printable(KvoOption_Parser::current_option),
              printable(row.option));
  }
}

TEST(Tokenizer, TakesAPair) {
  const std::vector<PairRow> rows = {
      {"", 3, kNoWord, kNoWord, ""},
      {" \t\n", 3, kNoWord, kNoWord, ""},
      {"a b", 0, "a", "b", ""},
      {"a b c ", 0, "a", "b", " c"},
      {"a\tb\tc", 0, "a", "b", "\tc"},
      {"a -5 c", 0, "a", "-5", " c"},
      {"-5 b", 0, "-5", "b", ""},
      {"a\0 \0b"s, 0, "a\0"s, "\0b"s, ""},
      // An option word comes first: its value is not read.
      {"-o", 1, "-o", kNoWord, "", "-o"},
      {"-o v w", 1, "-o", kNoWord, " v w", "-o"},
      {"-o -p", 1, "-o", kNoWord, " -p", "-o"},
      // A name without a value.
      {"a", 2, "a", kNoWord, ""},
      {"a ", 2, "a", kNoWord, ""},
      {"a -o b", 2, "a", "-o", " b", "-o"},
      {"a -o", 2, "a", "-o", "", "-o"},
      {"-5", 2, "-5", kNoWord, ""},
      {"- a", kThrows, "-", kNoWord, " a"},
      {"a -", kThrows, "a", "-", ""},
      {"a - b", kThrows, "a", "-", " b"},
  };
  for (const PairRow &row : rows) {
    SCOPED_TRACE("input: \"" + printable(row.input) + "\"");
    KvoOption_Parser::current_option = kUntouched;
    std::string input = row.input;
    std::string first = kNoWord;
    std::string second = kNoWord;
    EXPECT_EQ(codeOf([&] {
                return KvoOption_Parser::get_tokenpair(input, first, second);
              }),
              row.code);
    EXPECT_EQ(printable(first), printable(row.first));
    EXPECT_EQ(printable(second), printable(row.second));
    EXPECT_EQ(printable(input), printable(row.rest));
    EXPECT_EQ(printable(KvoOption_Parser::current_option),
              printable(row.option));
  }
}

TEST(Tokenizer, WalksATextToItsEnd) {
  std::string input = " connect\tlc  hdu -port\tCOM1 -5 ";
  std::string words;
  int code = 0;
  for (std::string word;
       (code = KvoOption_Parser::get_token(input, word)) != 3;)
    words += std::to_string(code) + word + "|";
  EXPECT_EQ(words, "0connect|0lc|0hdu|1-port|0COM1|0-5|");
  EXPECT_EQ(input, "");
  EXPECT_EQ(KvoOption_Parser::current_option, "-port");
}

TEST(Tokenizer, KeepsTheOptionUntilTheNextOne) {
  std::string input = "-a v -b";
  std::string word;
  EXPECT_EQ(KvoOption_Parser::get_token(input, word), 1);
  EXPECT_EQ(KvoOption_Parser::get_token(input, word), 0);
  EXPECT_EQ(KvoOption_Parser::current_option, "-a");
  EXPECT_EQ(KvoOption_Parser::get_token(input, word), 1);
  EXPECT_EQ(KvoOption_Parser::current_option, "-b");
  EXPECT_EQ(KvoOption_Parser::get_token(input, word), 3);
  EXPECT_EQ(KvoOption_Parser::current_option, "-b");
  EXPECT_EQ(word, "-b");
}

TEST(Tokenizer, ReadsAValueIntoTheOptionItself) {
  KvoOption_Parser::current_option = kUntouched;
  std::string input = "value -o";
  EXPECT_EQ(
      KvoOption_Parser::get_token(input, KvoOption_Parser::current_option), 0);
  EXPECT_EQ(KvoOption_Parser::current_option, "value");
  EXPECT_EQ(
      KvoOption_Parser::get_token(input, KvoOption_Parser::current_option), 1);
  EXPECT_EQ(KvoOption_Parser::current_option, "-o");
}

TEST(Tokenizer, TakesWordsOfAnyLength) {
  const std::string longWord(1 << 20, 'w');
  std::string input = longWord + " " + longWord;
  std::string word;
  EXPECT_EQ(KvoOption_Parser::get_token(input, word), 0);
  EXPECT_EQ(word, longWord);
  EXPECT_EQ(input, " " + longWord);
}

} // namespace
