// Numbers are read as strtoull and strtoll read them and written without a
// locale's grouping.
#include "KvoOption_Parser/Numbers.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/ChainCommand.h"
#include "common/NumberWords.h"
#include "common/Session.h"

namespace ZelDebugDialog {
namespace {

void expectAsStrtoull(const std::string &word) {
  EXPECT_EQ(kvo::toUnsigned(word), std::strtoull(word.c_str(), nullptr, 0))
      << '"' << word << '"';
}

/// A few hundred thousand of the numbers that the program bench_all_numbers
/// goes through: around each power of two, evenly spread, and at random.
std::vector<std::uint32_t> someNumbers() {
  std::vector<std::uint32_t> numbers;
  for (unsigned bit = 0; bit < 32; ++bit)
    for (std::uint32_t off = 0; off < 64; ++off)
      numbers.push_back((std::uint32_t{1} << bit) + off - 32);
  for (std::uint64_t number = 0; number <= 0xFFFFFFFF; number += 65521)
    numbers.push_back(static_cast<std::uint32_t>(number));
  std::mt19937 random(7);
  for (int count = 0; count < 100000; ++count)
    numbers.push_back(static_cast<std::uint32_t>(random()));
  return numbers;
}

TEST(NumbersTest, WordsOfEveryBaseAreReadAsStrtoullReadsThem) {
  bench::NumberWord word;
  for (const std::uint32_t number : someNumbers())
    for (const bench::Base base : bench::bases) {
      word.assign(number, base);
      ASSERT_EQ(kvo::toUnsigned(word.view()), number) << word.view();
      ASSERT_EQ(std::strtoull(word.c_str(), nullptr, 0), number);
    }
}

TEST(NumbersTest, OddWordsAreReadAsStrtoullReadsThem) {
  for (const char *word : {"",
                           "0",
                           "00",
                           "0x",
                           "0X",
                           "0xg",
                           "0x1g",
                           "x1",
                           "08",
                           "0778",
                           "09",
                           "+7",
                           "-7",
                           "- 7",
                           "+-7",
                           "-0x10",
                           "0x-10",
                           "0x+1",
                           "0x 1",
                           " 12",
                           "\n12",
                           "12 ",
                           "12a",
                           "a12",
                           "1e3",
                           "1.5",
                           "0b11",
                           "1_000",
                           "1,000",
                           "0x0x1",
                           "18446744073709551615",
                           "18446744073709551616",
                           "99999999999999999999999",
                           "-18446744073709551615",
                           "-18446744073709551616",
                           "0xFFFFFFFFFFFFFFFF",
                           "0x10000000000000000",
                           "01777777777777777777777",
                           "02000000000000000000000",
                           "0XaBcDeF",
                           "4294967295",
                           "4294967296",
                           "-1",
                           "--1"})
    expectAsStrtoull(word);
}

TEST(NumbersTest, EveryWordOfThreeBytesIsReadAsStrtoullReadsIt) {
  // Bytes that mean something to a number, and one for all others.
  const std::string bytes = "0179aAfFgxX+-. \n\v";
  for (const char first : bytes)
    for (const char second : bytes)
      for (const char third : bytes)
        expectAsStrtoull({first, second, third});
}

TEST(NumbersTest, SignedWordsAreReadAsStrtollReadsThem) {
  for (const int base : {0, 10})
    for (const char *word :
         {"", "0", "-3", "+3", "0x10", "010", "-0x10", "9223372036854775807",
          "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
          "12a", "a"})
      EXPECT_EQ(kvo::toSigned(word, base), std::strtoll(word, nullptr, base))
          << word;
}

/// Groups digits in threes, as many languages do.
class Grouping : public std::numpunct<char> {
private:
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class GroupingLocaleTest : public testing::Test {
protected:
  void SetUp() override {
    before =
        std::locale::global(std::locale(std::locale::classic(), new Grouping));
  }
  void TearDown() override { std::locale::global(before); }

private:
  std::locale before;
};

TEST_F(GroupingLocaleTest, StreamsGroup) {
  std::ostringstream out;
  out << 6000000;
  EXPECT_EQ(out.str(), "6.000.000");
}

TEST_F(GroupingLocaleTest, NumbersAreWrittenUngrouped) {
  std::string out;
  kvo::appendDecimal(out, -1234567);
  out += ' ';
  kvo::appendDecimal(out, std::numeric_limits<std::int64_t>::min());
  out += ' ';
  kvo::appendHexadecimal(out, 0x1234ABCD);
  EXPECT_EQ(out, "-1234567 -9223372036854775808 0x1234abcd");
}

TEST_F(GroupingLocaleTest, CommandsAreWrittenAsTheyWereRead) {
  bench::Session session;
  const std::string command = bench::chainCommand(3);
  ASSERT_EQ(KvoOption_Parser::ReadKvoCommand(command, session.imp), 0);
  std::string written;
  ASSERT_EQ(KvoOption_Parser::WriteKvoCmdString(session.imp, written), 0);
  EXPECT_EQ(written, command);
}

TEST_F(GroupingLocaleTest, MessagesAreNotGrouped) {
  bench::Session session;
  session.imp.cableOption->CableOptionInit(Engine::QUORLA_PODUSB);
  session.imp.cableOption->frequency = 1234567;
  EXPECT_EQ(KvoOption_Parser::setcable_frequency(session.imp, 0), 2);
  EXPECT_EQ(session.imp.errorStr,
            "UnSupported Quorla PodUSB Cable Frequency - 1234567\n"
            "Supported Frequencies: 750000, 1500000, 3000000, 6000000, "
            "12000000, 24000000");
}

} // namespace
} // namespace ZelDebugDialog
