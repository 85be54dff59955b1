// Texts made fit to be shown.
#include <string>

#include <gtest/gtest.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "text/Printable.h"

namespace {

using ZelDebugDialog::ShellWord;
using ZelDebugDialog::ShowOnOneLine;
using ZelDebugDialog::model::onOneLine;
using ZelDebugDialog::model::printable;
using ZelDebugDialog::model::wellFormed;

struct Row {
  std::string text;
  const char *shown;
};

TEST(Printable, LeavesWhatCanBeShown) {
  const Row rows[] = {
      {"", ""},
      {" ~", " ~"},
      {"a\\x00", "a\\x00"},
      {"\xC2\xA0", "\xC2\xA0"},
      {"\xC3\xBC", "\xC3\xBC"},
      {"\xE0\xA0\x80", "\xE0\xA0\x80"},
      {"\xED\x9F\xBF\xEE\x80\x80", "\xED\x9F\xBF\xEE\x80\x80"},
      {"\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(printable(row.text), row.shown);
}

/// A character as UTF-8.
std::string encoded(unsigned character) {
  const auto tail = [character](unsigned shift) {
    return static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  const auto front = [character](unsigned mark, unsigned shift) {
    return static_cast<char>(mark | character >> shift);
  };
  if (character < 0x800)
    return {front(0xC0, 6), tail(0)};
  if (character < 0x10000)
    return {front(0xE0, 12), tail(6), tail(0)};
  return {front(0xF0, 18), tail(12), tail(6), tail(0)};
}

/// The first and the last one of each form.
TEST(Printable, LeavesCharactersOfEachForm) {
  for (const unsigned character :
       {0xA0U, 0xBFU, 0xC0U, 0x7FFU, 0x800U, 0xFFFU, 0x1000U, 0xCFFFU, 0xD000U,
        0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x3FFFFU, 0x40000U, 0xFFFFFU,
        0x100000U, 0x10FFFFU}) {
    const std::string text = encoded(character);
    EXPECT_EQ(printable(text), text) << character;
    EXPECT_EQ(wellFormed(text), text) << character;
  }
}

/// Whether these bytes are one character that can be shown: its number, written
/// anew, gives the same bytes.
bool isCharacter(const std::string &bytes) {
  const unsigned masks[] = {0, 0, 0x1F, 0x0F, 0x07};
  unsigned number = static_cast<unsigned char>(bytes[0]) & masks[bytes.size()];
  for (std::size_t i = 1; i < bytes.size(); ++i)
    number = number << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3F);
  const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
  return number >= 0xA0 && number <= 0x10FFFF && !isSurrogate &&
         encoded(number) == bytes;
}

TEST(Printable, GoesByTheFirstTwoBytes) {
  for (int first = 0x80; first <= 0xFF; ++first)
    for (int second = 0; second <= 0xFF; ++second) {
      const std::string text{static_cast<char>(first),
                             static_cast<char>(second), '\x80', '\x80'};
      std::size_t length = 0;
      for (const std::size_t size : {2U, 3U, 4U})
        if (isCharacter(text.substr(0, size)))
          length = size;
      const bool isWhole =
          printable(text).compare(0, length, text, 0, length) == 0;
      const bool isEscaped = printable(text)[0] == '\\';
      EXPECT_TRUE(length == 0 ? isEscaped : isWhole && !isEscaped)
          << std::hex << first << " " << second;
    }
}

TEST(Printable, EscapesControlCharacters) {
  const Row rows[] = {
      {std::string("\0", 1), "\\x00"},
      {"\t\n", "\\x09\\x0a"},
      {"\x1b[31m", "\\x1b[31m"},
      {"\x1f ", "\\x1f "},
      {"~\x7f", "~\\x7f"},
      {"\xC2\x80\xC2\x9F", "\\xc2\\x80\\xc2\\x9f"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(printable(row.text), row.shown);
}

TEST(Printable, EscapesBytesThatAreNoUtf8) {
  const Row rows[] = {
      {"\x80", "\\x80"},
      {"\xBF", "\\xbf"},
      // Longer than it need be.
      {"\xC0\x80", "\\xc0\\x80"},
      {"\xC1\xBF", "\\xc1\\xbf"},
      {"\xE0\x9F\xBF", "\\xe0\\x9f\\xbf"},
      {"\xF0\x8F\xBF\xBF", "\\xf0\\x8f\\xbf\\xbf"},
      // Surrogates, and what lies beyond the last character.
      {"\xED\xA0\x80", "\\xed\\xa0\\x80"},
      {"\xED\xBF\xBF", "\\xed\\xbf\\xbf"},
      {"\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
      {"\xF5\x80\x80\x80", "\\xf5\\x80\\x80\\x80"},
      {"\xFF", "\\xff"},
      // Cut short, and going on in a way that it should not.
      {"a\xC3", "a\\xc3"},
      {"\xC3z", "\\xc3z"},
      {"\xE2\x82", "\\xe2\\x82"},
      {"\xE2\x82z", "\\xe2\\x82z"},
      {"\xF0\x9F\x98", "\\xf0\\x9f\\x98"},
      {"\xF0\x9F\x98\xC3\xBC", "\\xf0\\x9f\\x98\xC3\xBC"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(printable(row.text), row.shown);
}

/// One for as many bytes as begin a character, as the Unicode standard advises
/// and decoders of other languages do it.
TEST(WellFormed, HasAReplacementForWhatIsNoUtf8) {
  const std::string mark = "\xEF\xBF\xBD";
  const struct {
    std::string text;
    std::string formed;
  } rows[] = {
      {"", ""},
      {std::string("a\0\n\x7f", 4), std::string("a\0\n\x7f", 4)},
      {"\xC3\xBC\xC2\x80\xF4\x8F\xBF\xBF", "\xC3\xBC\xC2\x80\xF4\x8F\xBF\xBF"},
      {"\xFF", mark},
      {"\x80\x80", mark + mark},
      {"\xC3", mark},
      {"\xC3(", mark + "("},
      {"\xE2\x82", mark},
      {"\xE2\x82z", mark + "z"},
      {"\xF0\x9F\x98\xF0\x9F\x98\x80", mark + "\xF0\x9F\x98\x80"},
      {"\xE0\x9F\xBF", mark + mark + mark},
      {"\xED\xA0\x80", mark + mark + mark},
      {"\xC0\x80", mark + mark},
  };
  for (const auto &row : rows)
    EXPECT_EQ(wellFormed(row.text), row.formed);
}

TEST(OnOneLine, JoinsWhatWhiteSpaceParts) {
  const Row rows[] = {
      {"", ""},
      {" \n\t", ""},
      {"one", "one"},
      {"UNKNOWN Parameter 'x'\n", "UNKNOWN Parameter 'x'"},
      {"\n one \n\ttwo  three ", "one two three"},
      // Neither is among them.
      {"one\rtwo\fthree", "one\rtwo\fthree"},
      {"one\xC2\xA0 two", "one\xC2\xA0 two"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(onOneLine(row.text), row.shown);
}

TEST(OnOneLine, IsShownWithoutControlCharacters) {
  EXPECT_EQ(ShowOnOneLine("one\ntwo\rthree\n"), "one two\\x0dthree");
}

TEST(ShellWord, IsQuotedWhereAShellWouldMakeSomethingElseOfIt) {
  const std::string plain = "azAZ09-_./:=+,%@";
  const Row rows[] = {
      {"", "''"},           {plain, plain.c_str()},     {"0042", "0042"},
      {"--esn", "--esn"},   {"a b", "'a b'"},           {"a\tb\n", "'a\tb\n'"},
      {"a'b", "'a'\\''b'"}, {"'", "''\\'''"},           {"\"$x\"", "'\"$x\"'"},
      {"a\\b", "'a\\b'"},   {"\xC3\xA9", "'\xC3\xA9'"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(ShellWord(row.text), row.shown);
  for (const char c : std::string("~*?[]{}()<>|&;#!`^"))
    EXPECT_EQ(ShellWord(std::string(1, c)), std::string("'") + c + "'");
}

} // namespace
