// What a change takes for a setting of each kind, with what it almost takes.
#include <cstddef>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"
#include "settings/Values.h"
#include "support/Cables.h"

namespace {

using namespace ZelDebugDialog;
using namespace ZelDebugDialog::model;
using model_test::refusalOf;
using model_test::shown;

class ValuesTest : public testing::Test {
protected:
  ValuesTest() {
    defaults.record.instanceName = "cpu";
    defaults.record.connectionMask = 3;
    current = defaults;
  }

  std::string taken(const std::string &id, const Value &asked) {
    std::string text;
    const std::string refusal = refusalOf([&] {
      text =
          shown(id, expectValue(expectSettable(id), asked, current, defaults));
    });
    return refusal == "accepted" ? text : refusal;
  }

  Snapshot defaults;
  Snapshot current;
};

struct Row {
  const char *id;
  Value asked;
  const char *taken; ///< null: refused
};

// What only converts to a flag is no value.
static_assert(std::is_constructible_v<Value, bool>);
static_assert(std::is_constructible_v<Value, int>);
static_assert(std::is_constructible_v<Value, char[4]>);
static_assert(!std::is_constructible_v<Value, double>);
static_assert(!std::is_constructible_v<Value, float>);
static_assert(!std::is_constructible_v<Value, const int *>);
static_assert(!std::is_constructible_v<Value, SettingKind>);
static_assert(!std::is_constructible_v<Value, std::nullptr_t>);
enum Unscoped { one };
static_assert(!std::is_constructible_v<Value, Unscoped>);

TEST_F(ValuesTest, OfEachKindAreTakenInEitherForm) {
  const Row rows[] = {
      {"uartOverHdu", true, "yes"},
      {"uartOverHdu", 1, "yes"},
      {"uartOverHdu", 0, "no"},
      {"uartOverHdu", "YES", "yes"},
      {"uartOverHdu", "off", "no"},
      {"uartOverHdu", "1", "yes"},
      {"uartOverHdu", 2, nullptr},
      {"uartOverHdu", -1, nullptr},
      {"uartOverHdu", "", nullptr},
      {"uartOverHdu", "yess", nullptr},
      {"uartOverHdu", "y", nullptr},
      {"uartOverHdu", "2", nullptr},
      {"uartOverHdu", " yes", nullptr},
      {"uartOverHdu", Value(), nullptr},
      {"uartOverHdu", Value::Chain{}, nullptr},
      {"cpuJtag", true, "yes"},
      {"cpuJtag", "true", "yes"},
      {"cpuJtag", 0, "no"},
      {"cpuJtag", 2, nullptr},

      {"debugDevice", 127, "127"},
      {"debugDevice", 128, nullptr},
      {"debugDevice", -1, nullptr},
      {"debugDevice", "0x7f", "127"},
      {"debugDevice", "0x80", nullptr},
      {"debugDevice", "127", "127"},
      {"debugDevice", "127 ", nullptr},
      {"debugDevice", "", nullptr},
      {"debugDevice", "1a", nullptr},
      {"debugDevice", "0x", nullptr},
      {"debugDevice", "-1", nullptr},
      {"debugDevice", "+1", nullptr},
      {"debugDevice", "1.5", nullptr},
      {"debugDevice", true, nullptr},
      {"debugDevice", Value(), nullptr},
      {"debugDevice", "18446744073709551616", nullptr},
      {"debugDevice", "18446744073709551615", nullptr},
      {"romemSize", 4294967295, "4294967295"},
      {"romemSize", 4294967296, nullptr},

      {"icacheStartAdr", 0x10000, "0x10000"},
      {"icacheStartAdr", 0x10001, nullptr},
      {"icacheStartAdr", 0xFFFF0000, "0xffff0000"},
      {"icacheStartAdr", 4294967295, "not set"},
      {"icacheStartAdr", 4294967294, nullptr},
      {"icacheStartAdr", 4294967296, nullptr},
      {"icacheStartAdr", "not set", "not set"},
      {"icacheStartAdr", "Unset", "not set"},
      {"icacheStartAdr", "notset", nullptr},
      {"icacheStartAdr", "0x20000", "0x20000"},
      {"icacheStartAdr", "131072", "0x20000"},
      {"isocmStartAdr", 1, "0x1"},
      {"isocmStartAdr", "not set", "not set"},
      {"romemSize", "not set", nullptr},

      {"cable.frequency", 3000000, "3 MHz"},
      {"cable.frequency", "3 MHz", "3 MHz"},
      {"cable.frequency", "3MHz", "3 MHz"},
      {"cable.frequency", "1.5MHz", "1.5 MHz"},
      {"cable.frequency", "625kHz", "625 kHz"},
      {"cable.frequency", 1000000, "1 MHz"},
      {"cable.frequency", 999999, "999.999 kHz"},
      {"cable.frequency", 1000, "1 kHz"},
      {"cable.frequency", 999, "999 Hz"},
      {"cable.frequency", "5 Hz", "5 Hz"},
      {"cable.frequency", "0x10", "16 Hz"},
      {"cable.frequency", "4294967295", "4294.967295 MHz"},
      {"cable.frequency", "4294967296", nullptr},
      {"cable.frequency", 4294967296, nullptr},
      {"cable.frequency", "3 MHx", nullptr},
      {"cable.frequency", "3 mhz", nullptr},
      {"cable.frequency", "MHz", nullptr},
      {"cable.frequency", "1.0000001MHz", nullptr},
      {"cable.frequency", -1, nullptr},
      {"cable.frequency", "", nullptr},

      {"cable.port", "LPT2", "LPT2"},
      {"cable.port", "LPT 2", nullptr},
      {"cable.port", "LPT2\t", nullptr},
      {"cable.port", "-x", nullptr},
      {"cable.port", "-1", "-1"},
      {"cable.port", "-", nullptr},
      {"cable.port", "\xC3\xA4\xFF", "\xC3\xA4\xFF"},
      {"cable.port", 5, nullptr},
      {"cable.esn", "", ""}, // its default
      {"stubSerialPort", "", nullptr},
      {"stubSerialPort", "/dev/ttyS1", "/dev/ttyS1"},
      {"simIpcHost", "-host", "-host"},
      {"simIpcHost", "a b", nullptr},
      {"ppcSimConfigFile", "-f", "-f"},
      {"cable.moduleArgs", "a;b", "a;b"},
      {"cable.moduleArgs", "a;;b", nullptr},
      {"cable.moduleArgs", ";", nullptr},
      {"cable.moduleArgs", "a;-b", nullptr},
      {"cable.moduleArgs", "", ""},

      {"connection", "sim", "sim"},
      {"connection", "SIM", "sim"},
      {"connection", "hw", "hw"},
      {"connection", "hardware", nullptr},
      {"connection", "stub-jtag", nullptr}, // the mask
      {"connection", "vp", nullptr},
      {"connection", 1, nullptr},
      {"cable.cableType", 3, "quorla_podusb"},
      {"cable.cableType", 7, "quorla_tcf"},
      {"cable.cableType", support::cables().back().number + 1, nullptr},
      {"cable.cableType", -1, nullptr},
      {"cable.cableType", "quorla_podusb", "quorla_podusb"},
      {"cable.cableType", "quorla_podus", nullptr},
      {"cable.cableType", "quorla_parallel4", "quorla_parallel"},
      {"cable.cableType", "none", "none"},
      {"cable.cableType", "", nullptr},
      {"bscanUserReg", 2, "USER1"},
      {"bscanUserReg", "USER4", "USER4"},
      {"bscanUserReg", "user4", "USER4"},
      {"bscanUserReg", "USER5", nullptr},
      {"bscanUserReg", 4, nullptr},
      {"chain", "text", nullptr},
      {"chain", Value(), nullptr},
      {"chain", Value::Chain{}, "no devices"},
  };
  for (const Row &row : rows) {
    const std::string result = taken(row.id, row.asked);
    const bool isRefused = result.compare(0, 10, "bad-value:") == 0 ||
                           result.compare(0, 12, "not-allowed:") == 0;
    if (row.taken == nullptr)
      EXPECT_TRUE(isRefused) << row.id << " took " << result;
    else
      EXPECT_EQ(result, row.taken) << row.id;
  }
}

TEST_F(ValuesTest, WhatIsThereAlreadyIsTakenWhateverItIs) {
  current.record.debugDevice = -56;
  current.record.icacheStartAdr = 5;
  current.cable.port = "a b";
  current.cable.cableType = static_cast<Engine::CableType>(77);
  current.record.connectionType = Engine::CONNECT_VP;
  EXPECT_EQ(taken("debugDevice", -56), "-56");
  EXPECT_EQ(taken("icacheStartAdr", 5), "0x5");
  EXPECT_EQ(taken("cable.port", "a b"), "a b");
  EXPECT_EQ(taken("cable.cableType", 77), "77");
  EXPECT_EQ(taken("connection", "vp"), "vp");
  EXPECT_THAT(taken("debugDevice", -55), testing::StartsWith("bad-value"));
}

TEST_F(ValuesTest, WhatIsThereIsTakenAsItIsShown) {
  current.record.debugDevice = -56;
  current.record.stubBaudRate = -3;
  current.cable.cableType = static_cast<Engine::CableType>(77);
  current.cable.port = "\x1b";
  EXPECT_EQ(taken("debugDevice", "-56"), "-56");
  EXPECT_EQ(taken("stubBaudRate", "-3"), "-3");
  EXPECT_EQ(taken("cable.cableType", "77"), "77");
  EXPECT_THAT(taken("debugDevice", "-55"), testing::StartsWith("bad-value"));
  EXPECT_THAT(taken("debugDevice", "-056"), testing::StartsWith("bad-value"));
  EXPECT_THAT(taken("stubTimeout", "-3"), testing::StartsWith("bad-value"));
  EXPECT_THAT(taken("cable.cableType", "78"), testing::StartsWith("bad-value"));
  // A text is what it is, not what it is shown as.
  EXPECT_EQ(taken("cable.port", "\\x1b"), "\\x1b");
}

TEST_F(ValuesTest, RefusalsSayWhatIsAccepted) {
  EXPECT_EQ(taken("debugDevice", "200"),
            "bad-value: debugDevice: '200' is no number from 0 to 127 (decimal "
            "or 0x)");
  EXPECT_EQ(taken("icacheStartAdr", "1"),
            "bad-value: icacheStartAdr: '1' is no number from 0x0 to "
            "0xffffffff that is a multiple of 0x10000 (decimal or 0x)");
  EXPECT_EQ(taken("connection", "vp"),
            "not-allowed: connection: 'vp': 'cpu' does not allow it; it allows "
            "'sim', 'hw'");
  try {
    expectValue(expectSettable("cable.cableType"), "quorla_podusx", current,
                defaults);
    ADD_FAILURE();
  } catch (const Refusal &refusal) {
    EXPECT_EQ(refusal.setting, "cable.cableType");
    EXPECT_EQ(refusal.value, "quorla_podusx");
    EXPECT_EQ(refusal.suggestion, "quorla_podusb");
    EXPECT_THAT(refusal.accepted, testing::Contains("digilent_plugin"));
  }
}

TEST_F(ValuesTest, OnlySettingsThatCanBeSetAreExpected) {
  struct Name {
    const char *id;
    const char *refusal;
  } const names[] = {
      {"debugDevice", "accepted"},
      {"chain", "accepted"},
      {"debugDevic",
       "unknown-setting: 'debugDevic' is no setting; did you mean "
       "'debugDevice'?"},
      {"procType", "not-settable: procType: it says which processor it is, and "
                   "cannot be set"},
      {"stubType", "not-settable: stubType: it follows from other settings, "
                   "and cannot be set"},
      {"chain[0].idcode", "not-settable: chain[0].idcode: the chain is changed "
                          "as a whole, by 'chain'"},
  };
  for (const Name &name : names)
    EXPECT_EQ(refusalOf([&] { expectSettable(name.id); }), name.refusal);
}

std::string idcodeOf(const Value &chain, std::size_t device) {
  for (const auto &[name, value] : chain.Devices().at(device))
    if (name == "idcode")
      return shown("chain[].idcode", value);
  return "none";
}

TEST_F(ValuesTest, DevicesAreTakenInPartAndInAnyOrder) {
  const Value::Chain asked{{{"idcode", "0x1234093"}, {"partname", "pk9"}}, {}};
  const Value chain =
      expectValue(expectSettable("chain"), asked, current, defaults);
  ASSERT_EQ(chain.Devices().size(), 2U);
  ASSERT_EQ(chain.Devices()[0].size(), 7U);
  EXPECT_EQ(chain.Devices()[0][0].first, "partname");
  EXPECT_EQ(chain.Devices()[0][0].second, Value("pk9"));
  EXPECT_EQ(idcodeOf(chain, 0), "0x1234093");
  EXPECT_EQ(chain.Devices()[1][0].second, Value("UNKNOWN"));
  EXPECT_EQ(idcodeOf(chain, 1), "0x0");
}

TEST_F(ValuesTest, RefusalsOfADeviceNameItsField) {
  struct Device {
    ChainDevice asked;
    const char *refusal;
  } const devices[] = {
      {{{"idcod", 1}},
       "bad-value: chain[1]: 'idcod' is unknown; accepted are 'partname', "
       "'idcode', 'irlength', 'devicenr', 'isfpga', 'hardppc', 'nppc'; did you "
       "mean 'idcode'?"},
      {{{"irlength", 128}},
       "bad-value: chain[1].irlength: '128' is no number from 0 to 127 "
       "(decimal or 0x)"},
      {{{"nppc", 1}, {"nppc", 1}},
       "bad-value: chain[1].nppc: '1' is given twice"},
      {{{"partname", "a b"}},
       "bad-value: chain[1].partname: 'a b' is refused: it holds white space, "
       "and a command ends its words there"},
      {{{"isfpga", 2}},
       "bad-value: chain[1].isfpga: '2' is neither yes nor no"},
      {{{"hardppc", 3}},
       "bad-value: chain[1].hardppc: '3' is no number from 0 to 2 (decimal or "
       "0x)"},
  };
  for (const Device &device : devices)
    EXPECT_EQ(refusalOf([&] {
                expectValue(expectSettable("chain"),
                            Value::Chain{{}, device.asked}, current, defaults);
              }),
              device.refusal);
}

TEST_F(ValuesTest, DevicesThatAreThereStayWhateverTheyAre) {
  JtagOption odd;
  odd.devicenr = -56; // of a command that says 200
  odd.partname = "a b";
  current.chain = {odd};
  ChainDevice present = deviceValue(odd);
  const auto taken = [&](const Value::Chain &asked) {
    return refusalOf([&] {
      const Value chain =
          expectValue(expectSettable("chain"), asked, current, defaults);
      EXPECT_EQ(chain.Devices().size(), asked.size());
      EXPECT_EQ(chain.Devices().back(), present);
    });
  };
  EXPECT_EQ(taken({present}), "accepted");
  EXPECT_EQ(taken({{}, present}), "accepted");
  EXPECT_EQ(taken({present, {{"nppc", 1}}, present}), "accepted");
  // Another one is like any that is new.
  current.chain.clear();
  EXPECT_THAT(taken({present}),
              testing::StartsWith("bad-value: chain[0].partname: 'a b' "));
  present[0].second = "a";
  EXPECT_THAT(taken({{}, present}),
              testing::StartsWith("bad-value: chain[1].devicenr: '-56' "));
}

TEST_F(ValuesTest, AFieldOfADeviceThatIsNotTouchedStaysWhateverItIs) {
  JtagOption odd;
  odd.devicenr = -56; // of a command that says 200
  odd.partname = "a b";
  current.chain = {JtagOption(), odd};
  const ChainDevice first = deviceValue(JtagOption());
  const struct {
    Value::Chain asked;
    const char *outcome;
  } rows[] = {
      // partname, devicenr and nppc of the second
      {{first, {{"partname", "a b"}, {"devicenr", -56}, {"nppc", 1}}},
       "a b -56 1"},
      {{first, {{"partname", "c"}, {"devicenr", -56}}}, "c -56 0"},
      {{first, {{"partname", "a b"}, {"devicenr", 7}}}, "a b 7 0"},
      {{first, {{"partname", "a b"}, {"devicenr", "-56"}}}, "a b -56 0"},
      // What is left out has the default of a new device.
      {{first, {{"devicenr", -56}}}, "UNKNOWN -56 0"},
      {{{{"nppc", 2}}, {{"devicenr", -56}}}, "UNKNOWN -56 0"},
      // Another value, another field, another place.
      {{first, {{"partname", "a b"}, {"devicenr", -55}}},
       "chain[1].devicenr: '-55' is no number from 0 to 127 (decimal or 0x)"},
      {{first, {{"devicenr", -56}, {"irlength", -56}}},
       "chain[1].irlength: '-56' is no number from 0 to 127 (decimal or 0x)"},
      {{first, {{"partname", "a  b"}}},
       "chain[1].partname: 'a  b' is refused: it holds white space, and a "
       "command ends its words there"},
      {{{{"devicenr", -56}}, {{"devicenr", -56}}},
       "chain[0].devicenr: '-56' is no number from 0 to 127 (decimal or 0x)"},
      {{first, {{"devicenr", -56}}, {{"devicenr", -56}}},
       "chain[2].devicenr: '-56' is no number from 0 to 127 (decimal or 0x)"},
      {{{{"devicenr", -56}, {"nppc", 1}}},
       "chain[0].devicenr: '-56' is no number from 0 to 127 (decimal or 0x)"},
      {{first, {{"devicenr", -56}, {"devicenr", -56}}},
       "chain[1].devicenr: '-56' is given twice"},
      {{first, {{"devicenr", "-56x"}}},
       "chain[1].devicenr: '-56x' is no number from 0 to 127 (decimal or 0x)"},
  };
  for (const auto &row : rows) {
    std::string outcome;
    try {
      const Value taken =
          expectValue(expectSettable("chain"), row.asked, current, defaults);
      const JtagOption device = deviceOf(taken.Devices().at(1));
      outcome = device.partname + " " + std::to_string(device.devicenr) + " " +
                std::to_string(device.nppc);
    } catch (const Refusal &refusal) {
      outcome = refusal.what();
    }
    EXPECT_EQ(outcome, row.outcome);
  }
}

TEST_F(ValuesTest, SamplesAreThePresentValueAndAllThatAWriterTellsApart) {
  current.record.debugDevice = 5;
  current.record.icacheStartAdr = 0x40000;
  current.record.uartOverHdu = true;
  current.record.connectionType = Engine::CONNECT_VP; // against the mask
  current.record.stubSerialPort = "/dev/x";
  current.cable.frequency = 7;
  current.chain.resize(2);
  const struct {
    const char *id;
    std::vector<std::string> samples;
  } rows[] = {
      {"debugDevice", {"5", "0", "1", "2"}},
      {"nCpu", {"8", "0", "1", "2"}},
      {"cable.frequency", {"7 Hz", "0 Hz", "1 Hz", "2 Hz"}},
      {"icacheStartAdr", {"0x40000", "not set", "0x0", "0x10000"}},
      {"romemStartAdr", {"not set", "0x0", "0x1"}},
      {"uartOverHdu", {"yes", "no"}},
      {"modelSimMode", {"no", "yes"}},
      {"cpuJtag", {"no", "yes"}},
      {"connection", {"vp", "sim", "hw"}},
      {"bscanUserReg", {"USER2", "USER1", "USER3", "USER4"}},
      {"stubSerialPort", {"/dev/x", "/dev/ttyS0", "a", "b"}},
      {"ppcSimConfigFile", {"", "a", "b"}},
      {"chain", {"UNKNOWN, UNKNOWN", "no devices", "UNKNOWN"}},
  };
  for (const auto &row : rows) {
    std::vector<std::string> found;
    for (const Value &value : sampleValues(*findRow(row.id), current, defaults))
      found.push_back(shown(row.id, value));
    EXPECT_EQ(found, row.samples) << row.id;
  }
}

TEST_F(ValuesTest, SamplesAreValuesThatAreTaken) {
  for (const SettingRow &row : settingRows()) {
    if (!row.info.settable || row.isOfDevice())
      continue;
    for (const Value &sample : sampleValues(row, current, defaults))
      EXPECT_EQ(refusalOf([&] { expectValue(row, sample, current, defaults); }),
                "accepted")
          << row.info.id;
  }
}

} // namespace
