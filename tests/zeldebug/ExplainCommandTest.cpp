#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;

using ExplainCommandTest = ToolTest;

json change(const char *name, const json &before, const json &value) {
  return {{"name", name}, {"before", before}, {"value", value}};
}

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
                  {"changes", {change("simMemSize", 16, 64)}}}));
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

/// For each value of a command another one: it changes the setting that the
/// word is said to change, and nothing else.
TEST_F(ExplainCommandTest, EveryValueOfACommandIsTheOneOfItsSetting) {
  const struct {
    std::string command;
    std::vector<std::string> others;
  } rows[] = {
      {"connect lc hdu -cable type quorla_podusb port USB22 frequency 3000000 "
       "-configdevice devicenr 1 partname p irlength 6 idcode 0x12 "
       "-configdevice devicenr 2 partname q irlength 4 idcode 0 -bscan USER1 "
       "-debugdevice deviceNr 2 cpunr 1 romemStartAdr 0x100 romemSize 16",
       {"quorla_parallel4", "USB23", "1500000", "3", "P", "7", "0x13", "-2",
        "qq", "5", "1", "USER2", "3", "2", "0x101", "17"}},
      {"connect ppc hw -cable type quorla_plugin modulename m modulearg a "
       "modulearg b -debugdevice cpunr 1 isocmStartAdr 0x1 isocmSize 2 "
       "isocmDcrStartAdr 0x3 dcacheStartAdr 0x10000 tlbStartAdr 0x20000 "
       "fpuType sp",
       {"digilent_plugin", "n", "A", "c", "2", "0x2", "3", "0x4", "0x30000",
        "0x40000", "dp"}},
      {"connect lc stub -comm serial -port /dev/ttyS1 -baud 9600 -timeout 5",
       {"jtag", "/dev/ttyS2", "19200", "6"}},
      {"connect ppc sim -icf a.cfg", {"b.cfg"}},
      {"connect lc hdu -sim -configdevice partname p", {"q"}},
  };
  for (const auto &row : rows) {
    const json words = runJson({"explain", row.command})["words"];
    std::size_t next = 0;
    for (const json &word : words) {
      if (word["role"] != "value")
        continue;
      ASSERT_LT(next, row.others.size()) << word;
      std::string changed = row.command;
      changed.replace(word["offset"].get<std::size_t>(),
                      word["length"].get<std::size_t>(), row.others[next++]);
      const json differences =
          runJson({"diff", row.command, changed})["differences"];
      ASSERT_EQ(differences.size(), 1U) << changed;
      EXPECT_EQ(differences[0]["name"], word["field"]) << changed;
      const bool isJoined = word["field"] == "cable.moduleArgs";
      EXPECT_TRUE(isJoined || differences[0]["before"] == word["value"])
          << changed;
    }
    EXPECT_EQ(next, row.others.size());
  }
}

/// A value may leave a setting of its form as it was.
TEST_F(ExplainCommandTest, NamesOnlyWhatAValueChanges) {
  const struct {
    const char *command; // its last word is the value
    json changes;
  } rows[] = {
      {"connect lc hdu -cable port A type quorla_tcf",
       json::array({change("cable.cableType", 0, 7)})},
      {"connect lc hdu -cable port A type quorla_podusb",
       json::array({change("cable.cableType", 0, 3),
                    change("cable.port", "A", "USB21")})},
      {"vpconnect lc -ipcport host",
       json::array({change("simIpcPort", 0, 2340)})},
      {"vpconnect lc -ipcport :165",
       json::array({change("simIpcHost", "", "localhost"),
                    change("simIpcPort", 0, 165)})},
      {"connect lc hdu -sim -ipcport host", json::array()},
      {"connect ppc sim -ipcport h:1 -ipcport g",
       json::array({change("simIpcPort", 1, 6470)})},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.command);
    const json words = this->runJson({"explain", row.command})["words"];
    EXPECT_EQ(words.back()["changes"], row.changes);
  }
  const json refused =
      this->runJson({"explain", "connect ppc sim -debugdevice fputype dp "
                                "fputype x"})["words"];
  EXPECT_EQ(refused[5]["changes"], json::array({change("fpuType", 0, 2)}));
  EXPECT_EQ(refused[7]["text"], "x");
  EXPECT_EQ(refused[7]["changes"], json::array());
  // The target's type is told before the option's.
  const json target = this->runJson(
      {"explain", "connect ppc hw -debugdevice proctype ppc440"})["words"][1];
  EXPECT_EQ(target["changes"], json::array({change("procFamily", 0, 1),
                                            change("procType", 0, 6)}));
  const json words =
      this->runJson({"explain", "connect lc stub -bogus"}, 1)["words"];
  for (const json &word : words)
    EXPECT_EQ(word["changes"], json::array()) << word["text"];
}

/// Values that later words overwrite are told, as they were for a while.
TEST_F(ExplainCommandTest, TellsWhatIsOverwritten) {
  const json words = runJson(
      {"explain",
       "connect lc hdu -cable port A type quorla_plugin type "
       "quorla_podusb modulearg a modulearg b -debugdevice devicenr "
       "1 devicenr 200 -configdevice idcode 1 idcode 0x2 "
       "-configdevice idcode 3 -sim -ipcport h:1 -ipcport g:2"})["words"];
  const auto changesOf = [&words](const std::string &text) {
    for (const json &word : words)
      if (word["text"] == text && word["role"] == "value")
        return word["changes"];
    return json();
  };
  EXPECT_EQ(changesOf("A"), json::array({change("cable.port", "", "A")}));
  // A plug-in cable brings no port.
  EXPECT_EQ(changesOf("quorla_plugin"),
            json::array({change("cable.cableType", 0, 5)}));
  EXPECT_EQ(changesOf("quorla_podusb"),
            json::array({change("cable.cableType", 5, 3),
                         change("cable.port", "A", "USB21")}));
  EXPECT_EQ(changesOf("a"), json::array({change("cable.moduleArgs", "", "a")}));
  EXPECT_EQ(changesOf("b"),
            json::array({change("cable.moduleArgs", "a", "a;b")}));
  EXPECT_EQ(changesOf("1"), json::array({change("debugDevice", 0, 1)}));
  EXPECT_EQ(changesOf("200"), json::array({change("debugDevice", 1, -56)}));
  EXPECT_EQ(changesOf("0x2"), json::array({change("chain[0].idcode", 1, 2)}));
  EXPECT_EQ(changesOf("3"), json::array({change("chain[1].idcode", 0, 3)}));
  EXPECT_EQ(changesOf("h:1"),
            json::array({change("modelSimHost", "localhost", "h"),
                         change("modelSimPort", 9998, 1)}));
  EXPECT_EQ(changesOf("g:2"), json::array({change("modelSimHost", "h", "g"),
                                           change("modelSimPort", 1, 2)}));
}

} // namespace
} // namespace tool
