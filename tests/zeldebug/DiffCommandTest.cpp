#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;

using DiffCommandTest = ToolTest;

TEST_F(DiffCommandTest, OrderOfClausesIsNoDifference) {
  const Result run =
      this->run({"diff",
                 "connect lc hdu -cable type quorla_podusb frequency 3000000 "
                 "-debugdevice devicenr 1 cpunr 2",
                 "KCONNECT LC HDU -debugdevice cpunr 2 devicenr 0x1 -cable "
                 "frequency 3000000 type quorla_podusb"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "The commands have the same settings.\n");
  EXPECT_EQ(run.err, "");
}

TEST_F(DiffCommandTest, ListsTheSettingsThatDiffer) {
  const Result run = this->run(
      {"diff", "connect lc hdu -debugdevice devicenr 1",
       "connect lc hdu -debugdevice romemStartAdr 0x100 romemSize 16"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "SETTING        FIRST    SECOND\n"
                     "debugDevice    1        0\n"
                     "romemStartAdr  not set  0x100\n"
                     "romemSize      0        16\n");
}

// A wide letter takes two columns of a terminal, an accent on its own none.
TEST_F(DiffCommandTest, AlignsLettersOfAnyWidth) {
  const std::string front = "connect lc hdu -cable type quorla_podusb port ";
  const Result run = this->run({"diff", front + "\u65e5\u672c esn e\u0301",
                                front + "ab esn \u00e9", "--color", "always"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "\x1b[1mSETTING     FIRST   SECOND\x1b[0m\n"
                     "cable.port  \"\u65e5\u672c\"  \"ab\"\n"
                     "cable.esn   \"e\u0301\"     \"\u00e9\"\n");
}

TEST_F(DiffCommandTest, TellsTheSameInJson) {
  json document = runJson({"diff", "connect lc sim", "connect lc sim"});
  EXPECT_EQ(document["equal"], true);
  EXPECT_EQ(document["differences"], json::array());
  document = runJson({"diff", "connect lc hdu -configdevice partname p",
                      "connect lc hdu -debugdevice devicenr 3"});
  EXPECT_EQ(document["equal"], false);
  ASSERT_EQ(document["differences"].size(), 2U);
  EXPECT_EQ(document["differences"][0], json({{"name", "debugDevice"},
                                              {"before", 0},
                                              {"after", 3},
                                              {"reason", nullptr}}));
  EXPECT_EQ(document["differences"][1]["name"], "chain[0]");
  EXPECT_EQ(document["differences"][1]["before"]["partname"], "p");
  EXPECT_EQ(document["differences"][1]["after"], nullptr);
}

TEST_F(DiffCommandTest, SaysWhereTheOrderMakesTheDifference) {
  const std::string reason = "the cable's default is taken only where the "
                             "cable clause ends the command";
  const std::vector<std::string> line{
      "diff", "connect lc hdu -cable type quorla_podusb -quiet",
      "connect lc hdu -quiet -cable type quorla_podusb"};
  const Result run = this->run(line);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "SETTING          FIRST  SECOND\n"
                     "cable.frequency  0      6000000\n");
  EXPECT_EQ(run.err, "zeldebug: note: cable.frequency: " + reason + "\n");
  EXPECT_EQ(runJson(line)["differences"][0]["reason"], reason);
}

TEST_F(DiffCommandTest, RefusesACommandThatCannotBeRead) {
  const Result run = this->run({"diff", "connect lc hdu", "connect lc"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zeldebug: error: 'connect lc' is refused: column 11: a "
                     "connection word is missing here\n");
}

TEST_F(DiffCommandTest, NamesEachCommandThatCannotBeRead) {
  const std::string foo = "'foo' is refused: column 1: 'foo' is no head word";
  const std::string bar = "'bar' is refused: column 1: 'bar' is no head word";
  const struct {
    const char *first;
    const char *second;
    std::string message;
  } rows[] = {{"foo", "bar", foo + "\n" + bar},
              {"bar", "foo", bar + "\n" + foo},
              {"foo", "connect lc hdu", foo},
              {"connect lc hdu", "bar", bar}};
  for (const auto &row : rows) {
    const Result run = this->run({"diff", row.first, row.second});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zeldebug: error: " + row.message + "\n");
    EXPECT_EQ(runJson({"diff", row.first, row.second}, 1)["failure"]["message"],
              row.message);
  }
}

} // namespace
} // namespace tool
