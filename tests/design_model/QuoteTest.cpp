// Names in messages.
#include <gtest/gtest.h>

#include <string>

#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

struct Row {
  std::string text;
  std::string quoted;
};

TEST(Quote, EscapesWhatIsNotPrintable) {
  const Row rows[] = {
      {"", "''"},
      {"a b", "'a b'"},
      {"it's", "'it's'"},
      {"a\\b", "'a\\b'"},
      {"a\nb", "'a\\x0ab'"},
      {"\t\r", "'\\x09\\x0d'"},
      {std::string("\0", 1), "'\\x00'"},
      {"\x1b[31mred", "'\\x1b[31mred'"},
      {"\x1f ~\x7f", "'\\x1f ~\\x7f'"},
      {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x90\x81",
       "'\xc3\xa9\xe2\x82\xac\xf0\x9f\x90\x81'"},
      // U+0080, U+009B, U+009F, and the first behind them
      {"\xc2\x80\xc2\x9b\xc2\x9f\xc2\xa0",
       "'\\xc2\\x80\\xc2\\x9b\\xc2\\x9f\xc2\xa0'"},
      {"a\xff"
       "b",
       "'a\\xff"
       "b'"},
      {"\xc3", "'\\xc3'"},
      {"\xc3(", "'\\xc3('"},
      {"\xed\xa0\x80", "'\\xed\\xa0\\x80'"},
      {"\xe2\x82", "'\\xe2\\x82'"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(quote(row.text), row.quoted);
}

TEST(Quote, IsCutBetweenCharacters) {
  const std::string most(200, 'x');
  EXPECT_EQ(quote(most), "'" + most + "'");
  EXPECT_EQ(quote(most + "y"), "'" + most + "...'");
  const std::string less(199, 'x');
  EXPECT_EQ(quote(less + "\xc3\xa9"), "'" + less + "...'");
  EXPECT_EQ(quote(less + "\n\n"), "'" + less + "\\x0a...'");
}

} // namespace
} // namespace ZelDebugDialog
