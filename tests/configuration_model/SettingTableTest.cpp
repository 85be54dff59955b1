// The table of settings: complete, consistent, and found by name.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/SettingFields.h"
#include "losses/Reasons.h"
#include "settings/SettingTable.h"

namespace {

using namespace ZelDebugDialog;
using namespace ZelDebugDialog::model;

using Names = std::vector<std::string>;

TEST(SettingTable, HasARowForEachField) {
  for (const FieldDescription &field : GetSettingFields()) {
    const SettingInfo *const found = FindSetting(field.name);
    ASSERT_NE(found, nullptr) << field.name;
    EXPECT_EQ(found->id, field.name);
  }
}

TEST(SettingTable, HasTwoNamesBesideTheFields) {
  std::set<std::string> names;
  for (const SettingInfo &setting : GetSettings())
    EXPECT_TRUE(names.insert(setting.id).second) << setting.id;
  for (const FieldDescription &field : GetSettingFields())
    names.erase(std::string(field.name));
  EXPECT_THAT(names, testing::ElementsAre("chain", "connection"));
}

TEST(SettingTable, EveryRowSaysWhatAFormNeeds) {
  for (const SettingInfo &setting : GetSettings()) {
    EXPECT_NE(setting.group, "") << setting.id;
    EXPECT_NE(setting.label, "") << setting.id;
    ASSERT_GT(setting.help.size(), 10U) << setting.id;
    EXPECT_EQ(setting.help.back(), '.') << setting.id;
    const bool isFlag = setting.kind == SettingKind::flag;
    const bool isWord = setting.kind == SettingKind::word;
    EXPECT_EQ(isWord, !isFlag && !setting.choices.empty()) << setting.id;
    const bool isNumber = setting.kind == SettingKind::number ||
                          setting.kind == SettingKind::address ||
                          setting.kind == SettingKind::frequency;
    const bool hasRange = setting.minimum && setting.maximum;
    EXPECT_TRUE(!setting.settable || isFlag || isNumber == hasRange)
        << setting.id;
  }
}

TEST(SettingTable, OnlyWhatSaysWhichProcessorItIsOrFollowsIsNotSettable) {
  Names found;
  for (const SettingInfo &setting : GetSettings())
    if (!setting.settable)
      found.push_back(setting.id);
  EXPECT_THAT(found, testing::UnorderedElementsAre(
                         "instanceName", "procFamily", "procType",
                         "connectionMask", "cpuNr", "fpuType", "connectionType",
                         "stubType", "connectCommand"));
}

TEST(SettingTable, SaysWhichValuesBelongToADesk) {
  Names always;
  Names unlessOfCable;
  Names ifAbsolute;
  for (const SettingInfo &setting : GetSettings()) {
    if (setting.desk == DeskRule::always)
      always.push_back(setting.id);
    if (setting.desk == DeskRule::unlessOfCable)
      unlessOfCable.push_back(setting.id);
    if (setting.desk == DeskRule::ifAbsolute)
      ifAbsolute.push_back(setting.id);
  }
  EXPECT_THAT(always,
              testing::UnorderedElementsAre(
                  "cable.esn", "cable.url", "stubSerialPort", "simIpcHost",
                  "simIpcPort", "modelSimHost", "modelSimPort"));
  EXPECT_THAT(unlessOfCable, testing::ElementsAre("cable.port"));
  EXPECT_THAT(ifAbsolute, testing::UnorderedElementsAre("cable.svfFile",
                                                        "ppcSimConfigFile"));
}

TEST(SettingTable, TakesWhatAChangeWouldTake) {
  EXPECT_EQ(ExpectSetting("debugDevice", 127), Value(127));
  EXPECT_EQ(ExpectSetting("cable.frequency", "3MHz"), Value(3000000));
  EXPECT_EQ(ExpectSetting("cable.esn", ""), Value(""));
  EXPECT_EQ(ExpectSetting("cable.esn", "00123"), Value("00123"));
  EXPECT_EQ(ExpectSetting("icacheStartAdr", "not set"), Value(0xFFFFFFFF));
  EXPECT_EQ(ExpectSetting("chain", Value::Chain{}), Value(Value::Chain{}));
  EXPECT_EQ(ExpectSetting("chain[].irlength", 127), Value(127));
  const auto refuses = [](const char *id, const Value &value) {
    try {
      ExpectSetting(id, value);
    } catch (const Refusal &refusal) {
      return refusal.kind;
    }
    ADD_FAILURE() << id << " takes it";
    return RefusalKind::draft;
  };
  EXPECT_EQ(refuses("debugDevice", 128), RefusalKind::badValue);
  EXPECT_EQ(refuses("cable.cableType", ""), RefusalKind::badValue);
  EXPECT_EQ(refuses("icacheStartAdr", 1), RefusalKind::badValue);
  EXPECT_EQ(refuses("chain[].irlength", 128), RefusalKind::badValue);
  EXPECT_EQ(refuses("instanceName", "a"), RefusalKind::notSettable);
  EXPECT_EQ(refuses("cable.esm", "a"), RefusalKind::unknownSetting);
}

TEST(SettingTable, RangesFitTheFieldsAndStopAtTheirLimits) {
  struct Row {
    const char *id;
    std::int64_t minimum;
    std::int64_t maximum;
  } const rows[] = {
      {"debugDevice", 0, 127},
      {"simMemSize", 0, 0xFFFFFFFF},
      {"simIpcPort", 0, 0x7FFFFFFF},
      {"stubBaudRate", 0, 0x7FFFFFFF},
      {"stubTimeout", 0, 0x7FFFFFFF},
      {"nCpu", 0, 0x7FFFFFFF},
      {"modelSimPort", 0, 0x7FFFFFFF},
      {"romemSize", 0, 0xFFFFFFFF},
      {"isocmSize", 0, 0xFFFFFFFF},
      {"icacheStartAdr", 0, 0xFFFFFFFF},
      {"debugAddressMap", 0, 0xFFFFFFFF},
      {"cable.frequency", 0, 0xFFFFFFFF},
      {"chain[].idcode", 0, 0xFFFFFFFF},
      {"chain[].irlength", 0, 127},
      {"chain[].devicenr", 0, 127},
      {"chain[].isfpga", 0, 1},
      {"chain[].hardppc", 0, 2},
      {"chain[].nppc", 0, 255},
  };
  for (const Row &row : rows) {
    const SettingInfo *const setting = FindSetting(row.id);
    ASSERT_NE(setting, nullptr) << row.id;
    EXPECT_EQ(setting->minimum, row.minimum) << row.id;
    EXPECT_EQ(setting->maximum, row.maximum) << row.id;
  }
  for (const FieldDescription &field : GetSettingFields()) {
    const SettingInfo &setting = *FindSetting(field.name);
    if (!setting.settable || !setting.minimum)
      continue;
    EXPECT_GE(*setting.minimum, field.minimum) << field.name;
    EXPECT_LE(*setting.maximum, field.maximum) << field.name;
  }
}

Names wordsOf(const char *id) {
  Names words;
  for (const Choice &choice : FindSetting(id)->choices)
    words.push_back(choice.text);
  return words;
}

TEST(SettingTable, ChoicesAreTheEnginesOwn) {
  EXPECT_EQ(wordsOf("connection"),
            (Names{"sim", "hw", "stub-serial", "stub-jtag", "vp"}));
  EXPECT_EQ(wordsOf("bscanUserReg"),
            (Names{"USER1", "USER2", "USER3", "USER4"}));
  EXPECT_EQ(FindSetting("cable.cableType")->choices[3].value, Value(3));
  EXPECT_EQ(FindSetting("bscanUserReg")->choices[2].value, Value(0x22));
  for (const SettingInfo &setting : GetSettings())
    for (const Choice &choice : setting.choices) {
      EXPECT_NE(choice.text, "") << setting.id;
      EXPECT_NE(choice.label, "") << setting.id;
      EXPECT_FALSE(choice.value.IsNothing()) << setting.id;
    }
}

TEST(SettingTable, TogetherAreThoseWhoseWriterLooksAtSeveral) {
  struct Row {
    const char *id;
    Names together;
  } const rows[] = {
      {"romemStartAdr", {"romemSize"}},
      {"romemSize", {"romemStartAdr"}},
      {"simIpcHost", {"simIpcPort"}},
      {"simIpcPort", {"simIpcHost"}},
      {"isocmStartAdr", {"isocmSize", "isocmDcrStartAdr"}},
      {"isocmSize", {"isocmStartAdr", "isocmDcrStartAdr"}},
      {"isocmDcrStartAdr", {"isocmStartAdr", "isocmSize"}},
      {"vpConfigMode", {"cycleApproximate"}},
      {"cycleApproximate", {"vpConfigMode"}},
  };
  std::size_t withOthers = 0;
  for (const SettingInfo &setting : GetSettings())
    withOthers += setting.together.empty() ? 0 : 1;
  EXPECT_EQ(withOthers, std::size(rows));
  for (const Row &row : rows)
    EXPECT_EQ(FindSetting(row.id)->together, row.together) << row.id;
  // If one looks at another, that one looks at it as well.
  for (const SettingInfo &setting : GetSettings())
    for (const std::string &other : setting.together)
      EXPECT_THAT(FindSetting(other)->together, testing::Contains(setting.id));
}

TEST(SettingTable, NamesAreFoundExactly) {
  for (const char *name :
       {"debugDevice", "cable.port", "chain", "chain[].idcode",
        "chain[0].idcode", "chain[12345678901234567890123].idcode"})
    EXPECT_NE(FindSetting(name), nullptr) << name;
  for (const char *name :
       {"", "debugdevice", "debugDevic", "debugDevices", "debugDevice ",
        "cable", "cable.", "chain[]", "chain[0]", "chain[", "chain[0",
        "chain[].", "chain[-1].idcode", "chain[x].idcode", "chain[0]]idcode",
        "chain[0 ].idcode", "chain[].idcodes", "chain.idcode", "Chain"})
    EXPECT_EQ(FindSetting(name), nullptr) << name;
  EXPECT_EQ(FindSetting("chain[7].idcode")->id, "chain[].idcode");
}

TEST(SettingTable, ValuesAreShownForPeople) {
  struct Row {
    const char *id;
    Value value;
    const char *text;
  } const rows[] = {
      {"cable.cableType", 3, "quorla_podusb"},
      {"cable.cableType", 99, "99"},
      {"cable.frequency", 0, "0 Hz"},
      {"cable.frequency", 999, "999 Hz"},
      {"cable.frequency", 1000, "1 kHz"},
      {"cable.frequency", 625000, "625 kHz"},
      {"cable.frequency", 999999, "999.999 kHz"},
      {"cable.frequency", 1000000, "1 MHz"},
      {"cable.frequency", 1500000, "1.5 MHz"},
      {"cable.frequency", 1000001, "1.000001 MHz"},
      {"cable.frequency", 4294967295, "4294.967295 MHz"},
      {"icacheStartAdr", 4294967295, "not set"},
      {"icacheStartAdr", 0x40000000, "0x40000000"},
      {"icacheStartAdr", 0, "0x0"},
      {"chain[].idcode", 0x1234093, "0x1234093"},
      {"romemSize", 4294967295, "4294967295"},
      {"bscanUserReg", 2, "USER1"},
      {"bscanUserReg", 7, "0x7"},
      {"uartOverHdu", true, "yes"},
      {"uartOverHdu", false, "no"},
      {"cpuJtag", 1, "yes"},
      {"vpConfigMode", 0, "no"},
      {"vpConfigMode", 2, "2"},
      {"connection", "stub-jtag", "stub-jtag"},
      {"chain", Value::Chain{}, "no devices"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(ShowValue(*FindSetting(row.id), row.value), row.text) << row.id;
}

TEST(SettingTable, EachReasonOfAnOmissionHasARowWithACodeThatIsExplained) {
  for (int number = 0; number <= static_cast<int>(OmissionReason::colonInHost);
       ++number) {
    const auto reason = static_cast<OmissionReason>(number);
    EXPECT_EQ(static_cast<int>(reasonRow(reason).reason), number);
    EXPECT_NE(FindCode(reasonRow(reason).why.code), nullptr)
        << reasonRow(reason).why.code;
  }
}

} // namespace
