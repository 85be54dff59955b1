// What becomes of a command that is read, written and read again.
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace {

using namespace ZelDebugDialog;

/// "debugDevice 1->0 other-connections", joined.
std::string shown(const std::vector<RoundtripField> &fields) {
  std::string text;
  for (const RoundtripField &field : fields) {
    const SettingInfo *const setting = FindSetting(field.name);
    const SettingInfo &info = setting == nullptr ? SettingInfo() : *setting;
    text += (text.empty() ? "" : "; ") + field.name + " " +
            ShowStored(info, field.before) + "->" +
            ShowStored(info, field.after) + " " + field.code;
  }
  return text;
}

struct Row {
  const char *command;
  const char *fields;
};

TEST(RoundtripCommand, IsTheSameWhereEverythingComesBack) {
  for (const char *command :
       {"connect lc hdu", "CONNECT LC HDU -debugdevice devicenr 0x10",
        "connect lc hdu -debugdevice devicenr 010",
        "connect lc hdu -debugdevice devicenr -128", "connect lc sim",
        "connect lc hdu -cable type quorla_podusb port A frequency 3000000 "
        "-debugdevice devicenr 1",
        "connect lc hdu -configdevice devicenr 1 partname p irlength 6 idcode "
        "0x1234 -configdevice devicenr 2",
        // A later word takes the place of one that does not fit.
        "connect lc hdu -debugdevice devicenr 300 devicenr 3"}) {
    const RoundtripResult trip = RoundtripCommand(command);
    EXPECT_EQ(trip.outcome, RoundtripOutcome::same) << command;
    EXPECT_EQ(shown(trip.fields), "") << command;
    EXPECT_EQ(trip.message, "") << command;
    EXPECT_NE(trip.written, "") << command;
  }
}

TEST(RoundtripCommand, TellsWhatComesBackDifferently) {
  const Row rows[] = {
      {"connect ppc sim -debugdevice devicenr 1",
       "debugDevice 1->0 other-connections"},
      {"connect lc hdu -cable type quorla_podusb port X esn 1",
       "cable.frequency 6000000->0 serial-number; cable.port \"X\"->\"USB21\" "
       "serial-number"},
      {"connect lc hdu -configdevice isfpga 1",
       "chain[0].isfpga 1->0 never-written"},
      // Numbers that are not what they were asked to be.
      {"connect lc hdu -debugdevice devicenr 300",
       "debugDevice \"300\"->44 eight-bit-numbers"},
      {"connect lc hdu -debugdevice devicenr 128",
       "debugDevice \"128\"->-128 eight-bit-numbers"},
      {"connect lc hdu -debugdevice devicenr abc",
       "debugDevice \"abc\"->0 no-number"},
      {"connect lc hdu -debugdevice devicenr 2nd",
       "debugDevice \"2nd\"->2 no-number"},
      {"connect ppc sim -ipcport h:5x", "simIpcPort \"5x\"->5 no-number"},
      {"connect lc hdu -configdevice devicenr 256",
       "chain[0].devicenr \"256\"->0 eight-bit-numbers"},
      {"connect lc hdu -cable type quorla_podusb frequency 4297967296 -quiet",
       "cable.frequency \"4297967296\"->3000000 eight-bit-numbers"},
  };
  for (const Row &row : rows) {
    const RoundtripResult trip = RoundtripCommand(row.command);
    EXPECT_EQ(trip.outcome, RoundtripOutcome::changed) << row.command;
    EXPECT_EQ(shown(trip.fields), row.fields) << row.command;
  }
}

TEST(RoundtripCommand, TellsWhy) {
  const struct {
    const char *command;
    const char *reason;
    const char *displacedBy;
  } rows[] = {
      {"connect lc hdu -cable type quorla_podusb esn 1",
       "the serial number takes its place", "cable.esn"},
      {"connect ppc sim -debugdevice devicenr 1",
       "a command for this kind of connection does not carry it",
       "connectionType"},
      {"connect lc hdu -debugdevice devicenr 300", "it does not fit", ""},
      {"connect lc hdu -debugdevice devicenr abc", "it is no number", ""},
  };
  for (const auto &row : rows) {
    const RoundtripResult trip = RoundtripCommand(row.command);
    ASSERT_EQ(trip.fields.size(), 1U) << row.command;
    EXPECT_EQ(trip.fields[0].reason, row.reason) << row.command;
    EXPECT_EQ(trip.fields[0].displacedBy, row.displacedBy) << row.command;
  }
}

TEST(RoundtripCommand, TellsWhichStepIsRefused) {
  const struct {
    const char *command;
    const char *message;
    const char *fields;
  } rows[] = {
      {"connect lc hdu -foo",
       "reading: column 16: '-foo' is no option here (UNKNOWN Option '-foo')",
       ""},
      {"connect lc hdu -cable type quorla_tcf", "writing: Invalid Cable Type",
       "cable.cableType 7->nothing no-command"},
      {"connect lc hdu -configdevice jtagport cpu",
       "reading again: column 30: 'jtagpin' is no parameter of this option "
       "(UNKNOWN Parameter 'jtagpin' for option '-configDevice')",
       "cpuJtag 1->nothing cpu-jtag-marker"},
      // Beside what is refused, what is not even written; no defaults.
      {"connect lc hdu -configdevice jtagport cpu -debugdevice nCpu 2",
       "reading again: column 30: 'jtagpin' is no parameter of this option "
       "(UNKNOWN Parameter 'jtagpin' for option '-configDevice')",
       "nCpu 2->nothing never-written; cpuJtag 1->nothing cpu-jtag-marker"},
      {"connect lc hdu -configdevice jtagport cpu -configdevice devicenr 1 "
       "isfpga 1",
       "reading again: column 30: 'jtagpin' is no parameter of this option "
       "(UNKNOWN Parameter 'jtagpin' for option '-configDevice')",
       "cpuJtag 1->nothing cpu-jtag-marker; chain[1].isfpga 1->nothing "
       "never-written"},
      {"vpconnect lc -ipcport h:3",
       "reading again: column 14: '-ipcporth3' is no option here (UNKNOWN "
       "virtual platform Option 'lc')",
       "simIpcHost \"h\"->nothing virtual-platform-host; simIpcPort "
       "3->nothing virtual-platform-host"},
  };
  for (const auto &row : rows) {
    const RoundtripResult trip = RoundtripCommand(row.command);
    EXPECT_EQ(trip.outcome, RoundtripOutcome::refused) << row.command;
    EXPECT_EQ(trip.message, row.message);
    EXPECT_EQ(shown(trip.fields), row.fields) << row.command;
  }
}

TEST(RoundtripCommand, HasInEachExampleTheLossThatItIsAnExampleOf) {
  std::vector<std::string> elsewhere;
  for (const Code &row : GetCodes()) {
    if (row.severity != CodeSeverity::loss)
      continue;
    if (!row.where.empty()) {
      elsewhere.push_back(row.code);
      continue;
    }
    bool isFound = false;
    for (const RoundtripField &field : RoundtripCommand(row.example).fields)
      isFound = isFound || field.code == row.code;
    EXPECT_TRUE(isFound) << row.code;
  }
  EXPECT_THAT(
      elsewhere,
      testing::ElementsAre("misaligned-region", "connection-mask",
                           "white-space", "refused-again", "colon-in-host",
                           "identity", "odd-values", "address-map-base", "fpu",
                           "read-differently", "long-file", "lines-in-file"));
}

TEST(RoundtripCommand, GivesEachReasonACode) {
  EXPECT_STREQ(ShowOutcome(RoundtripOutcome::same), "same");
  EXPECT_STREQ(ShowOutcome(RoundtripOutcome::changed), "changed");
  EXPECT_STREQ(ShowOutcome(RoundtripOutcome::refused), "refused");
  for (const Code &row : GetCodes())
    for (const RoundtripField &field : RoundtripCommand(row.example).fields) {
      const Code *const code = FindCode(field.code);
      ASSERT_NE(code, nullptr) << field.code;
      EXPECT_EQ(code->severity, CodeSeverity::loss) << field.code;
    }
}

} // namespace
