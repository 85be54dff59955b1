// White space and letter case are the global locale's; numbers are not.
#include <algorithm>
#include <locale>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

/// '_' and 0xA0 are white space and newline is none; '1' is a small 'L' and
/// 'q' has no capital.
class OddCharacters : public std::ctype<char> {
public:
  OddCharacters() : std::ctype<char>(oddTable(), true) {}

protected:
  char do_toupper(char character) const override {
    if (character == '1')
      return 'L';
    return character == 'q' ? 'q' : std::ctype<char>::do_toupper(character);
  }
  const char *do_toupper(char *first, const char *last) const override {
    for (; first != last; ++first)
      *first = do_toupper(*first);
    return last;
  }

private:
  static const mask *oddTable() {
    mask *table = new mask[table_size];
    std::copy(classic_table(), classic_table() + table_size, table);
    for (const unsigned character : {0x5FU, 0xA0U})
      table[character] = static_cast<mask>(table[character] | space);
    table[0x0A] = static_cast<mask>(table[0x0A] & ~space);
    return table;
  }
};

/// Groups of three digits, as people write numbers.
class GroupedNumbers : public std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class OddLocale : public testing::Test {
protected:
  OddLocale()
      : before(std::locale::global(
            std::locale(std::locale(std::locale::classic(), new OddCharacters),
                        new GroupedNumbers))) {}
  ~OddLocale() override { std::locale::global(before); }

  const std::locale before;
};

using Locale = OddLocale;

const Reader kReadCommand = [](std::string &text, EngineImp &imp) {
  return KvoOption_Parser::ReadKvoCommand(text, imp);
};

struct WordRow {
  std::string input;
  int code;
  std::string token;
  std::string rest;
};

TEST_F(Locale, TrimsByItsWhiteSpace) {
  for (const WordRow &row : std::vector<WordRow>{
           {"__connect_ lc__", 0, "connect", "_ lc"},
           {"_ lc", 0, "lc", ""},
           {"_", 3, "(none)", ""},
           {"_ \t_\xa0\r", 3, "(none)", ""},
           {"\xa0"
            "a\xa0",
            0, "a", ""},
           // It does not separate words.
           {"a_b c", 0, "a_b", " c"},
           {"a_ b", 0, "a", "_ b"},
           // Newline is a character like any other now.
           {"\na\n", 0, "\na\n", ""},
           {"\n", 0, "\n", ""},
           {"\xe9\xa1", 0, "\xe9\xa1", ""},
       }) {
    SCOPED_TRACE("input: \"" + printable(row.input) + "\"");
    std::string input = row.input;
    std::string token = "(none)";
    EXPECT_EQ(KvoOption_Parser::get_token(input, token), row.code);
    EXPECT_EQ(printable(token), printable(row.token));
    EXPECT_EQ(printable(input), printable(row.rest));
  }
}

TEST_F(Locale, FindsALoneMinusBehindItsWhiteSpace) {
  std::string input = "-_ x";
  std::string token;
  EXPECT_THROW(KvoOption_Parser::get_token(input, token), std::out_of_range);
  EXPECT_EQ(input, "_ x");
}

TEST_F(Locale, ComparesByItsCapitals) {
  const auto row = [](const std::string &text, int code,
                      const std::string &message, const std::string &changes,
                      const std::string &option = kUntouched) {
    return Row{text, code, message, changes, text, option};
  };
  const std::string hdu =
      "connectionType=2 connectionMask=4098 procFamily=0 procType=0";
  expectRows(
      kReadCommand,
      {
          row("connect 1c hdu", 0, kQuiet, hdu),
          row("CONNECT LC HDU_", 0, kQuiet, hdu),
          row("_connect_ _1C_ _hdu_", 0, kQuiet, hdu),
          row("connect lc hdu -qUIET", 0, kQuiet, hdu, "-qUIET"),
          row("connect lc hdu -QUIET", 3, "UNKNOWN Option '-QUIET'", "",
              "-QUIET"),
          // A value that names a choice; one that does not keeps its letters.
          row("connect lc stub -comm seria1 -port p1", 0, kQuiet,
              "connectionType=4 connectionMask=4100 procFamily=0 procType=0 "
              "stubType=1 stubSerialPort=p1",
              "-port"),
          row("connect lc hdu -cable type qUORLA_PODUSB", 0, kQuiet,
              hdu + " cable.cableType=3 cable.port=USB21 "
                    "cable.frequency=6000000",
              "-cable"),
          row("connect lc hdu -cable type QUORLA_PODUSB", 3, kQuiet, "",
              "-cable"),
          row("connect lc hdu -bscan USERl", 0, kQuiet, hdu + " bscanUserReg=2",
              "-bscan"),
          row("connect lc hdu -debugdevice nCpu 10", 0, kQuiet,
              hdu + " nCpu=10", "-debugdevice"),
          row("connect arm\n hw", 3, kQuiet, ""),
      });
}

TEST_F(Locale, WritesNumbersPlainly) {
  Bench bench;
  bench.record = ZelDebugDialog::ProcessorInfoImp();
  bench.record.romemStartAdr = 0x12345678;
  bench.record.romemSize = 1234567;
  bench.imp.cpuJtag = 0;
  bench.imp.cableOption->CableOptionInit(Engine::QUORLA_PODUSB);
  bench.imp.cableOption->frequency = 625000;
  std::string command;
  EXPECT_EQ(bench.engine.GenerateCmdString(command), 0);
  EXPECT_EQ(command,
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "625000 -debugdevice cpunr 1 romemStartAdr 0x12345678 romemSize "
            "1234567");
  std::string clause = "-cable type quorla_podusb frequency 625000";
  EXPECT_EQ(KvoOption_Parser::ReadJtagCableOptions(clause, bench.imp), 3);
  EXPECT_EQ(bench.error(),
            "UnSupported Quorla PodUSB Cable Frequency - 625000\nSupported "
            "Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
            "24000000");
}

TEST_F(Locale, IsTheOneOfTheMoment) {
  const auto result = [](const std::string &text) {
    Bench bench;
    return KvoOption_Parser::ReadKvoCommand(text, bench.imp);
  };
  EXPECT_EQ(result("connect 1c hdu_"), 0);
  EXPECT_EQ(result("connect lc\n hdu"), 3);
  const std::locale odd = std::locale::global(std::locale::classic());
  EXPECT_EQ(result("connect 1c hdu"), 3);
  EXPECT_EQ(result("connect lc hdu_"), 3);
  EXPECT_EQ(result("connect lc\n hdu"), 0);
  std::locale::global(odd);
  EXPECT_EQ(result("connect 1c hdu_"), 0);
  EXPECT_EQ(result("connect lc\n hdu"), 3);
}

} // namespace
