#include <gtest/gtest.h>

#include "expressions/Numerals.h"

namespace ZelDebugDialog {
namespace {

struct Row {
  const char *text;
  NumeralFault fault;
  std::uint64_t bits;
  bool isSigned;
  const char *rest;
};

constexpr auto none = NumeralFault::none;
constexpr auto notOne = NumeralFault::notOne;
constexpr auto tooWide = NumeralFault::tooWide;
constexpr auto unknown = NumeralFault::unknown;

const Row rows[] = {
    // Plain.
    {"0", none, 0, true, ""},
    {"42", none, 42, true, ""},
    {"010", none, 10, true, ""},
    {"1_000_000", none, 1000000, true, ""},
    {"1_", none, 1, true, ""},
    {"_1", notOne, 0, true, nullptr},
    {"9223372036854775807", none, 0x7fffffffffffffff, true, ""},
    {"9223372036854775808", none, 0x8000000000000000, false, ""},
    {"18446744073709551615", none, 0xffffffffffffffff, false, ""},
    {"18446744073709551616", tooWide, 0, true, nullptr},
    {"12zz", none, 12, true, "zz"},
    {"", notOne, 0, true, nullptr},
    {"x", notOne, 0, true, nullptr},
    // With a base.
    {"'h0008_0200", none, 0x80200, true, ""},
    {"'hAbCd", none, 0xabcd, true, ""},
    {"'HFF", none, 0xff, true, ""},
    {"'hG", notOne, 0, true, nullptr},
    {"'h", notOne, 0, true, nullptr},
    {"'h_1", notOne, 0, true, nullptr},
    {"'q1", notOne, 0, true, nullptr},
    {"'", notOne, 0, true, nullptr},
    {"'d10", none, 10, true, ""},
    {"'d1a", none, 1, true, "a"},
    {"'o17", none, 15, true, ""},
    {"'o8", notOne, 0, true, nullptr},
    {"'b1010_1010", none, 0xaa, true, ""},
    {"'b2", notOne, 0, true, nullptr},
    {"'hffff_ffff_ffff_ffff", none, 0xffffffffffffffff, false, ""},
    {"'h1_0000_0000_0000_0000", tooWide, 0, true, nullptr},
    // With a size.
    {"32'h1c0ffee1", none, 0x1c0ffee1, true, ""},
    {"32 'h 1F", none, 0x1f, true, ""},
    {"8'hfff", none, 0xff, true, ""},
    {"1'b0", none, 0, true, ""},
    {"0'h1", notOne, 0, true, nullptr},
    {"63'hffff_ffff_ffff_ffff", none, 0x7fffffffffffffff, true, ""},
    {"64'hf79780bc735f3843", none, 0xf79780bc735f3843, false, ""},
    {"128'h14e8cecae3040d5e12286bb3cc113298", tooWide, 0, true, nullptr},
    {"128'h2a", none, 0x2a, true, ""},
    {"4'hx", unknown, 0, true, nullptr},
    {"4'b1z", unknown, 0, true, nullptr},
    {"4'b1?", unknown, 0, true, nullptr},
    // Signed.
    {"4'sd7", none, 7, true, ""},
    {"4'sd15", none, 0xffffffffffffffff, true, ""},
    {"4'Shf", none, 0xffffffffffffffff, true, ""},
    {"'shffff_ffff_ffff_ffff", none, 0xffffffffffffffff, true, ""},
    {"4's", notOne, 0, true, nullptr},
    // All bits.
    {"'0", none, 0, true, ""},
    {"'1", none, 0xffffffffffffffff, false, ""},
    {"4'1", notOne, 0, true, nullptr},
    {"'2", notOne, 0, true, nullptr},
    // As C writes them.
    {"0x1F", none, 0x1f, true, ""},
    {"0Xff", none, 0xff, true, ""},
    {"0x", notOne, 0, true, nullptr},
    {"0xg", notOne, 0, true, nullptr},
    {"0xffffffffffffffff", none, 0xffffffffffffffff, false, ""},
    {"0x10000000000000000", tooWide, 0, true, nullptr},
};

TEST(Numerals, AreTakenOffTheFront) {
  for (const Row &row : rows) {
    SCOPED_TRACE(row.text);
    std::string_view text = row.text;
    Number number;
    EXPECT_EQ(takeNumeral(text, number), row.fault);
    if (row.fault != none)
      continue;
    EXPECT_EQ(number.bits, row.bits);
    EXPECT_EQ(number.isSigned, row.isSigned);
    EXPECT_EQ(text, row.rest);
  }
}

} // namespace
} // namespace ZelDebugDialog
