// Numbers in commands: their base, what follows them, and their field's width.
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::KvoOption_Parser;

constexpr std::uint64_t kMostUnsigned = 0xFFFFFFFFFFFFFFFF;
constexpr std::uint64_t kMostSigned = 0x7FFFFFFFFFFFFFFF;
constexpr std::uint64_t kLeastSigned = 0x8000000000000000;

struct Number {
  std::string text;
  std::uint64_t asUnsigned; ///< All 64 bits of it.
  std::uint64_t asSigned;
};

std::uint64_t minus(std::uint64_t value) { return ~value + 1; }

Number same(const std::string &text, std::uint64_t value) {
  return {text, value, value};
}

const std::vector<Number> kNumbers = {
    same("0", 0),
    same("1", 1),
    same("10", 10),
    same("127", 127),
    same("128", 128),
    same("200", 200),
    same("255", 255),
    same("256", 256),
    same("257", 257),
    // The base shows in the text.
    same("0x10", 16),
    same("0X1f", 31),
    same("0xABCDEF", 0xABCDEF),
    same("0xabcdef", 0xABCDEF),
    same("010", 8),
    same("0777", 511),
    same("00", 0),
    same("0010", 8),
    same("08", 0),
    same("018", 1),
    same("0x", 0),
    same("0xg", 0),
    same("00x5", 0),
    same("x10", 0),
    // What follows a number does not matter; no number is 0.
    same("12z", 12),
    same("12.9", 12),
    same("1e3", 1),
    same("5,000", 5),
    same("5-", 5),
    same("0x1fg", 31),
    same("junk", 0),
    same("sp", 0),
    same("5\0006"s, 5),
    same("\0005"s, 0),
    same("\n5", 5),
    same("ff", 0),
    // Signs.
    same("+5", 5),
    same("+0x10", 16),
    same("++5", 0),
    same("+", 0),
    same("+-5", 0),
    same("-0", 0),
    {"-1", kMostUnsigned, kMostUnsigned},
    {"-5", minus(5), minus(5)},
    {"-0x10", minus(16), minus(16)},
    {"-010", minus(8), minus(8)},
    {"-56", minus(56), minus(56)},
    {"-128", minus(128), minus(128)},
    {"-129", minus(129), minus(129)},
    {"-5x", minus(5), minus(5)},
    // Beyond 32 bits.
    same("2147483647", 0x7FFFFFFF),
    same("2147483648", 0x80000000),
    same("4294967295", 0xFFFFFFFF),
    same("4294967296", 0x100000000),
    same("4294967301", 0x100000005),
    same("0x1fffffffe", 0x1FFFFFFFE),
    {"-2147483648", minus(0x80000000), minus(0x80000000)},
    {"-2147483649", minus(0x80000001), minus(0x80000001)},
    {"-4294967297", minus(0x100000001), minus(0x100000001)},
    // Beyond 64 bits, or 63.
    same("9223372036854775807", kMostSigned),
    {"9223372036854775808", kLeastSigned, kMostSigned},
    {"9223372036854775813", kLeastSigned + 5, kMostSigned},
    {"18446744073709551615", kMostUnsigned, kMostSigned},
    {"18446744073709551616", kMostUnsigned, kMostSigned},
    {"99999999999999999999999", kMostUnsigned, kMostSigned},
    {"0xfffffffffffffffff", kMostUnsigned, kMostSigned},
    {"-9223372036854775808", kLeastSigned, kLeastSigned},
    {"-9223372036854775813", kMostSigned - 4, kLeastSigned},
    {"-18446744073709551615", 1, kLeastSigned},
    {"-18446744073709551616", kMostUnsigned, kLeastSigned},
};

enum class Width { Unsigned8, Signed8, Unsigned32, Signed32 };

std::string cut(std::uint64_t value, Width width) {
  switch (width) {
  case Width::Unsigned8:
    return std::to_string(static_cast<std::uint8_t>(value));
  case Width::Signed8:
    return std::to_string(static_cast<std::int8_t>(value));
  case Width::Unsigned32:
    return std::to_string(static_cast<std::uint32_t>(value));
  case Width::Signed32:
    return std::to_string(static_cast<std::int32_t>(value));
  }
  return "";
}

struct NumberField {
  std::string lead; ///< The command up to the number.
  std::string name; ///< The setting; a device of the chain with a place in it.
  Width width;
  bool readAsSigned = false;
};

const std::string kDebugDevice = "connect lc hdu -debugdevice ";
const std::string kConfigDevice = "connect lc hdu -configdevice ";

const std::vector<NumberField> kFields = {
    {"connect lc hdu -cable frequency ", "cable.frequency", Width::Unsigned32},
    {"connect lc sim -memsize ", "simMemSize", Width::Unsigned32},
    {"connect lc stub -baud ", "stubBaudRate", Width::Signed32},
    {"connect lc stub -timeout ", "stubTimeout", Width::Signed32},
    {kDebugDevice + "devicenr ", "debugDevice", Width::Signed8},
    {kDebugDevice + "cpunr ", "cpuNr", Width::Signed8},
    {kDebugDevice + "romemStartAdr ", "romemStartAdr", Width::Unsigned32},
    {kDebugDevice + "romemSize ", "romemSize", Width::Unsigned32},
    {kDebugDevice + "isocmStartAdr ", "isocmStartAdr", Width::Unsigned32},
    {kDebugDevice + "isocmSize ", "isocmSize", Width::Unsigned32},
    {kDebugDevice + "isocmDcrStartAdr ", "isocmDcrStartAdr", Width::Unsigned32},
    {kDebugDevice + "icacheStartAdr ", "icacheStartAdr", Width::Unsigned32},
    {kDebugDevice + "dcacheStartAdr ", "dcacheStartAdr", Width::Unsigned32},
    {kDebugDevice + "itagStartAdr ", "itagStartAdr", Width::Unsigned32},
    {kDebugDevice + "dtagStartAdr ", "dtagStartAdr", Width::Unsigned32},
    {kDebugDevice + "tlbStartAdr ", "tlbStartAdr", Width::Unsigned32},
    {kDebugDevice + "dcrStartAdr ", "dcrStartAdr", Width::Unsigned32},
    {kDebugDevice + "nCpu ", "nCpu", Width::Signed32, true},
};

TEST(Numbers, AreReadIntoEachField) {
  for (const NumberField &field : kFields)
    for (const Number &number : kNumbers) {
      SCOPED_TRACE("text: \"" + field.lead + printable(number.text) + "\"");
      Bench bench;
      // The code is not looked at: a misaligned address is refused, but kept.
      KvoOption_Parser::ReadKvoCommand(field.lead + number.text, bench.imp);
      EXPECT_EQ(settingsOf(bench.imp)[field.name],
                cut(field.readAsSigned ? number.asSigned : number.asUnsigned,
                    field.width));
    }
}

TEST(Numbers, AreReadIntoEachFieldOfAChainDevice) {
  for (const Number &number : kNumbers) {
    SCOPED_TRACE("number: \"" + printable(number.text) + "\"");
    Bench bench;
    EXPECT_EQ(KvoOption_Parser::ReadKvoCommand(
                  kConfigDevice + "idcode " + number.text + " irlength " +
                      number.text + " devicenr " + number.text + " isfpga " +
                      number.text + " nppc " + number.text,
                  bench.imp),
              0);
    const std::uint64_t value = number.asUnsigned;
    EXPECT_EQ(settingsOf(bench.imp)["chain[0]"],
              "UNKNOWN," + cut(value, Width::Unsigned32) + "," +
                  cut(value, Width::Signed8) + "," +
                  cut(value, Width::Signed8) + "," +
                  cut(value, Width::Unsigned8) + ",0," +
                  cut(value, Width::Unsigned8));
  }
}

// The ports of simulators are decimal.
TEST(Numbers, AreReadIntoPortsInBaseTen) {
  const std::vector<Number> decimals = {
      same("10", 10),
      same("010", 10),
      same("08", 8),
      same("0x10", 0),
      same("+5", 5),
      same("-5", minus(5)),
      same("5z", 5),
      same("1e3", 1),
      same("junk", 0),
      same("", 0),
      same("2147483648", 0x80000000),
      same("4294967301", 0x100000005),
      same("9223372036854775807", kMostSigned),
      same("9223372036854775808", kMostSigned),
      same("-9223372036854775809", kLeastSigned),
  };
  struct Port {
    std::string lead;
    std::string name;
  };
  for (const Port &port :
       {Port{"vpconnect lc -ipcport h:", "simIpcPort"},
        Port{"connect ppc sim -ipcport h:", "simIpcPort"},
        Port{"connect lc hdu -sim -ipcport h:", "modelSimPort"}})
    for (const Number &number : decimals) {
      SCOPED_TRACE("text: \"" + port.lead + number.text + "\"");
      Bench bench;
      EXPECT_EQ(
          KvoOption_Parser::ReadKvoCommand(port.lead + number.text, bench.imp),
          0);
      EXPECT_EQ(settingsOf(bench.imp)[port.name],
                cut(number.asSigned, Width::Signed32));
    }
}

} // namespace
