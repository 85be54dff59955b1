// What every word of a command is, and what it changes.
#include <string>

#include <gtest/gtest.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace {

using namespace ZelDebugDialog;

std::string storedText(const std::string &setting, const Value &value) {
  return ShowStored(*FindSetting(setting), value);
}

/// "lc target procFamily 0->0", a line each word.
std::string shown(const ExplainedCommand &explained) {
  std::string text;
  for (const ExplainedWord &word : explained.words) {
    text += std::to_string(word.offset) + " " + word.text + " " + word.role +
            (word.atFault ? " at fault" : "");
    for (const WordChange &change : word.changes)
      text += " " + change.setting + " " +
              storedText(change.setting, change.before) + "->" +
              storedText(change.setting, change.after);
    text += "\n";
  }
  return text;
}

TEST(ExplainCommand, TellsEachWordWithWhatItChangesFromAndTo) {
  EXPECT_EQ(
      shown(ExplainCommand("connect lc hdu -cable type quorla_podusb port A "
                           "type quorla_parallel3 -debugdevice devicenr 1 "
                           "devicenr 2")),
      "0 connect head\n"
      "8 lc target procFamily 0->0 procType 0->0\n"
      "11 hdu connection connectionType 2->2 connectionMask 0x1->0x3\n"
      "15 -cable option\n"
      "22 type name\n"
      "27 quorla_podusb value cable.cableType 0->3 cable.port \"\"->\"USB21\"\n"
      "41 port name\n"
      "46 A value cable.port \"USB21\"->\"A\"\n"
      "48 type name\n"
      "53 quorla_parallel3 value cable.cableType 3->4 cable.port "
      "\"A\"->\"LPT1\"\n"
      "70 -debugdevice option\n"
      "83 devicenr name\n"
      "92 1 value debugDevice 0->1\n"
      "94 devicenr name\n"
      "103 2 value debugDevice 1->2\n");
}

TEST(ExplainCommand, KnowsDevicesAndWhatWasDropped) {
  EXPECT_EQ(shown(ExplainCommand("connect ppc hw -configdevice devicenr 1 "
                                 "-configdevice devicenr 2")),
            "0 connect head\n"
            "8 ppc target procFamily 0->1 procType 0->6\n"
            "12 hw connection connectionType 2->2 connectionMask 0x1->0x3\n"
            "15 -configdevice option\n"
            "29 devicenr name\n"
            "38 1 value chain[0].devicenr 0->1\n"
            "40 -configdevice option\n"
            "54 devicenr name\n"
            "63 2 value chain[1].devicenr 0->2\n");
}

TEST(ExplainCommand, StopsAtTheFirstFaultAndSaysWhy) {
  const ExplainedCommand explained =
      ExplainCommand("connect lc hdu -foo -debugdevice devicenr 1");
  EXPECT_EQ(explained.text, "connect lc hdu -foo -debugdevice devicenr 1");
  EXPECT_FALSE(explained.accepted);
  EXPECT_EQ(explained.result, 3);
  EXPECT_EQ(explained.error, "UNKNOWN Option '-foo'");
  EXPECT_EQ(explained.refusal, "column 16: '-foo' is no option here (UNKNOWN "
                               "Option '-foo')");
  ASSERT_EQ(explained.words.size(), 7U);
  EXPECT_TRUE(explained.words[3].atFault);
  EXPECT_FALSE(explained.words[2].atFault);
  EXPECT_EQ(explained.words[4].role, "ignored");
}

TEST(ExplainCommand, SaysWhyWhereTheEngineSaysNothing) {
  EXPECT_EQ(ExplainCommand("").refusal, "column 1: the command is empty");
  EXPECT_EQ(ExplainCommand("connect lc").refusal,
            "column 11: a connection word is missing here");
  EXPECT_EQ(ExplainCommand("connect lc hdu -").refusal,
            "column 16: '-' is a lone '-'");
  EXPECT_EQ(ExplainCommand("connect lc hdu").refusal, "");
  // A command is more than a line of an option file.
  EXPECT_EQ(ExplainCommand("kconnect lc hdu -").refusal,
            "column 17: '-' is a lone '-'");
  EXPECT_EQ(ExplainCommand("connect hdu -").refusal,
            "column 13: '-' is a lone '-'");
}

} // namespace
