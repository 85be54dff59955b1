#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;

using ExplainCommandTest = ToolTest;

TEST_F(ExplainCommandTest, ExplainsEveryWord) {
  const Result run =
      this->run({"explain", "connect lc hdu -cable port A port B "
                            "-debugdevice devicenr 0x10"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(
      run.out,
      "COLUMN  WORD          ROLE        CHANGES\n"
      "1       connect       head\n"
      "9       lc            target      procFamily = 0, procType = 0\n"
      "12      hdu           connection  connectionType = 2, connectionMask = "
      "0x3\n"
      "16      -cable        option\n"
      "23      port          name\n"
      "28      A             value       cable.port = \"A\"\n"
      "30      port          name\n"
      "35      B             value       cable.port = \"B\"\n"
      "37      -debugdevice  option\n"
      "50      devicenr      name\n"
      "59      0x10          value       debugDevice = 16\n");
}

TEST_F(ExplainCommandTest, TellsTheSameInJson) {
  const json document =
      runJson({"explain", "connect lc sim -memsize 0x40 rest"});
  EXPECT_EQ(document["text"], "connect lc sim -memsize 0x40 rest");
  EXPECT_EQ(document["result"], 0);
  ASSERT_EQ(document["words"].size(), 6U);
  EXPECT_EQ(document["words"][3]["role"], "option");
  EXPECT_EQ(document["words"][3]["field"], nullptr);
  EXPECT_EQ(document["words"][3]["value"], nullptr);
  EXPECT_EQ(document["words"][4],
            json({{"offset", 24},
                  {"length", 4},
                  {"text", "0x40"},
                  {"role", "value"},
                  {"field", "simMemSize"},
                  {"value", 64},
                  {"changes", {{{"name", "simMemSize"}, {"value", 64}}}}}));
  EXPECT_EQ(document["words"][5]["role"], "ignored");
}

TEST_F(ExplainCommandTest, ExplainsARefusedCommandUpToTheFault) {
  const json document =
      runJson({"explain", "connect lc hdu -cable type x -quiet"}, 1);
  EXPECT_EQ(document["result"], 3);
  ASSERT_EQ(document["words"].size(), 7U);
  EXPECT_EQ(document["words"][5]["role"], "value");
  EXPECT_EQ(document["words"][5]["field"], nullptr);
  EXPECT_EQ(document["words"][6]["role"], "ignored");
  const Result run =
      this->run({"explain", "connect lc hdu -cable type x -quiet"});
  EXPECT_EQ(run.err,
            "zeldebug: error: the command is refused: column 28: 'x' is "
            "refused as the value ('zeldebug check' tells more)\n");
}

TEST_F(ExplainCommandTest, AMisalignedAddressIsKeptAndTold) {
  const json document = runJson(
      {"explain", "connect ppc hw -debugdevice dcrStartAdr 0x18000"}, 1);
  EXPECT_EQ(document["words"][5]["field"], "dcrStartAdr");
  EXPECT_EQ(document["words"][5]["value"], 0x18000);
}

/// Reading a command with another value in one place changes what that word is
/// said to change, and nothing else.
TEST_F(ExplainCommandTest, ChangingAValueChangesItsField) {
  const struct {
    const char *front;
    const char *one;
    const char *other;
    const char *field;
  } rows[] = {
      {"connect lc hdu -cable port ", "A", "B", "cable.port"},
      {"connect lc hdu -cable esn ", "1", "01", "cable.esn"},
      {"connect lc hdu -cable modulearg a modulearg ", "b", "c",
       "cable.moduleArgs"},
      {"connect lc stub -baud ", "9600", "115200", "stubBaudRate"},
      {"connect lc stub -comm ", "jtag", "serial", "stubType"},
      {"connect lc hdu -configdevice partname x -configdevice idcode ", "1",
       "2", "chain[1].idcode"},
      {"connect ppc hw -debugdevice fpuType ", "sp", "dp", "fpuType"},
      {"connect lc hdu -bscan ", "USER1", "USER4", "bscanUserReg"},
      {"connect ppc sim -icf ", "a", "b", "ppcSimConfigFile"},
  };
  for (const auto &row : rows) {
    const std::string one = std::string(row.front) + row.one;
    const std::string other = std::string(row.front) + row.other;
    const json words = runJson({"explain", one})["words"];
    EXPECT_EQ(words.back()["field"], row.field) << one;
    const json differences = runJson({"diff", one, other})["differences"];
    ASSERT_EQ(differences.size(), 1U) << one;
    EXPECT_EQ(differences[0]["name"], row.field) << one;
    EXPECT_EQ(differences[0]["before"], words.back()["value"]) << one;
  }
}

} // namespace
} // namespace tool
