// Numbers as people write them.
#include <cstdint>
#include <optional>
#include <string_view>

#include <gtest/gtest.h>

#include "text/Numbers.h"

namespace {

using namespace ZelDebugDialog::model;

TEST(Numbers, AreDecimalOrHexadecimal) {
  struct Row {
    std::string_view text;
    std::uint64_t number;
  } const rows[] = {
      {"0", 0},
      {"010", 10},
      {"4294967296", 4294967296},
      {"18446744073709551615", 18446744073709551615U},
      {"0x0", 0},
      {"0xfF", 255},
      {"0X10", 16},
      {"0xffffffffffffffff", 18446744073709551615U},
  };
  for (const Row &row : rows)
    EXPECT_EQ(readNumber(row.text), row.number) << row.text;
}

TEST(Numbers, AreTheWholeText) {
  const std::string_view rows[] = {"",
                                   "-1",
                                   "+1",
                                   " 1",
                                   "1 ",
                                   "1.0",
                                   "1e3",
                                   "ff",
                                   "0x",
                                   "x10",
                                   "0x12zz",
                                   "0x-1",
                                   "0b1",
                                   "18446744073709551616",
                                   "12z",
                                   "0x10000000000000000",
                                   std::string_view("1\0", 2)};
  for (const std::string_view text : rows)
    EXPECT_EQ(readNumber(text), std::nullopt) << text;
}

TEST(Frequency, HasAUnitOrNone) {
  struct Row {
    std::string_view text;
    std::uint32_t hertz;
  } const rows[] = {
      {"0", 0},
      {"3000000", 3000000},
      {"3000000Hz", 3000000},
      {"3000kHz", 3000000},
      {"3MHz", 3000000},
      {"3 MHz", 3000000},
      {"3   MHz", 3000000},
      {"0x10", 16},
      {"0x10kHz", 16000},
      {"1.5MHz", 1500000},
      {"1.5 MHz", 1500000},
      {"0.000001MHz", 1},
      {"0.001kHz", 1},
      {"1.0Hz", 1},
      {"1.00", 1},
      {"1.5000000000000000000000MHz", 1500000},
      {"4294967295", 4294967295},
      {"4294.967295MHz", 4294967295},
      {"4294967.295 kHz", 4294967295},
  };
  for (const Row &row : rows)
    EXPECT_EQ(readFrequency(row.text), row.hertz) << row.text;
}

TEST(Frequency, ComesOutInWholeHertzOf32Bits) {
  const std::string_view rows[] = {
      // No whole number of hertz.
      "0.5Hz", "0.5", "0.0005kHz", "0.0000001MHz", "1.0000005MHz",
      // Beyond 32 bits.
      "4294967296", "4294.967296MHz", "4295MHz", "4294967296Hz",
      "18446744073709551615MHz",
      // No number, or another unit.
      "", "Hz", " MHz", "MHz", ".5MHz", "1.MHz", "1.", ".", "1.5.0MHz",
      "1.5.MHz", "1. 5MHz", "1.-5MHz", "-1.5MHz", "0x1.8MHz", "1.0xMHz", "-1",
      "-1MHz", "3 MHx", "3mhz", "3GHz", "3 M Hz", "3MHz ", " 3MHz", "3\tMHz",
      "3 ", "0x12zz", "1e6", "3MHzMHz"};
  for (const std::string_view text : rows)
    EXPECT_EQ(readFrequency(text), std::nullopt) << text;
}

} // namespace
