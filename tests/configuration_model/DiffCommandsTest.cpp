// The settings in which two commands differ.
#include <string>

#include <gtest/gtest.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace {

using namespace ZelDebugDialog;

std::string shown(const std::vector<CommandDifference> &differences) {
  std::string text;
  for (const CommandDifference &one : differences) {
    const SettingInfo *const setting = FindSetting(one.setting);
    const SettingInfo &info = setting == nullptr ? SettingInfo() : *setting;
    text += (text.empty() ? "" : "; ") + one.setting + " " +
            ShowStored(info, one.first) + " " + ShowStored(info, one.second) +
            (one.reason.empty() ? "" : ": " + one.reason);
  }
  return text;
}

const std::string atTheEnd =
    ": the cable's default is taken only where the cable clause ends the "
    "command";
const std::string broughtPort =
    ": the type of a cable brings its port, and displaces one that stands in "
    "front of it";

TEST(DiffCommands, KnowsWhatIsNoDifference) {
  const char *const rows[][2] = {
      {"connect lc hdu", "KCONNECT  LC HDU -quiet"},
      {"connect lc hdu -debugdevice devicenr 1 cpunr 2",
       "connect lc hdu -debugdevice cpunr 0x2 devicenr 01"},
      {"connect lc hdu -cable type quorla_podusb frequency 3000000 "
       "-debugdevice devicenr 1",
       "connect lc hdu -debugdevice devicenr 1 -cable frequency 3000000 type "
       "quorla_podusb"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(shown(DiffCommands(row[0], row[1])), "") << row[0];
}

TEST(DiffCommands, NamesEachSettingWithItsReason) {
  const struct {
    const char *first;
    const char *second;
    std::string difference;
  } rows[] = {
      {"connect lc hdu -debugdevice devicenr 1",
       "connect lc hdu -debugdevice romemStartAdr 0x100 romemSize 16",
       "debugDevice 1 0; romemStartAdr not set 0x100; romemSize 0 16"},
      // The order of clauses.
      {"connect lc hdu -cable type quorla_podusb -quiet",
       "connect lc hdu -quiet -cable type quorla_podusb",
       "cable.frequency 0 6000000" + atTheEnd},
      {"connect lc hdu -cable type quorla_podusb -quiet",
       "connect lc hdu -quiet -cable type quorla_podusb frequency 3000000",
       "cable.frequency 0 3000000"},
      {"connect lc hdu -cable type quorla_podusb",
       "connect lc hdu -cable type quorla_parallel3",
       "cable.cableType 3 4; cable.frequency 6000000 200000; cable.port "
       "\"USB21\" \"LPT1\""},
      // The order in a clause.
      {"connect lc hdu -cable type quorla_podusb port A",
       "connect lc hdu -cable port A type quorla_podusb",
       "cable.port \"A\" \"USB21\"" + broughtPort},
      {"connect lc hdu -cable type quorla_podusb port A",
       "connect lc hdu -cable type quorla_podusb port B",
       "cable.port \"A\" \"B\""},
      // A device of one chain only.
      {"connect lc hdu -configdevice partname p", "connect lc hdu",
       "chain[0] a device nothing"},
      {"connect lc hdu -configdevice partname p",
       "connect lc hdu -configdevice partname q",
       "chain[0].partname \"p\" \"q\""},
  };
  for (const auto &row : rows)
    EXPECT_EQ(shown(DiffCommands(row.first, row.second)), row.difference)
        << row.first;
}

TEST(DiffCommands, RefusesWhatCannotBeRead) {
  const std::string foo = "'foo' is refused: column 1: 'foo' is no head word";
  const std::string bar =
      "'b\\x01r' is refused: column 1: 'b\\x01r' is no head word";
  const struct {
    const char *first;
    const char *second;
    std::string message;
  } rows[] = {{"foo", "b\x01r", foo + "\n" + bar},
              {"foo", "connect lc hdu", foo},
              {"connect lc hdu", "b\x01r", bar}};
  for (const auto &row : rows) {
    try {
      DiffCommands(row.first, row.second);
      FAIL() << row.first;
    } catch (const Refusal &refusal) {
      EXPECT_EQ(refusal.kind, RefusalKind::badCommand);
      EXPECT_EQ(refusal.what(), row.message);
    }
  }
}

} // namespace
