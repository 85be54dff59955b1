// Every field has a row by its name, and the row reaches that field and no
// other.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/SettingFields.h"
#include "support/Fields.h"
#include "support/StateText.h"

namespace ZelDebugDialog::test {

namespace {

constexpr std::int64_t most32 = 0xFFFFFFFF;
constexpr std::int64_t mostSigned = 0x7FFFFFFF;

struct Row {
  std::string name;
  FieldOwner owner;
  bool isText;
  std::int64_t minimum;
  std::int64_t maximum;
};

/// What stands beside a field's name, by the type of its member.
struct Kind {
  bool isText;
  std::int64_t minimum;
  std::int64_t maximum;
};
Kind kindOf(const std::string & /*field*/) { return {true, 0, 0}; }
Kind kindOf(bool /*field*/) { return {false, 0, 1}; }
Kind kindOf(std::int8_t /*field*/) { return {false, -128, 127}; }
Kind kindOf(std::uint8_t /*field*/) { return {false, 0, 255}; }
Kind kindOf(std::int32_t /*field*/) {
  return {false, -mostSigned - 1, mostSigned};
}
Kind kindOf(std::uint32_t /*field*/) { return {false, 0, most32}; }
Kind kindOf(Engine::CableType /*field*/) { return {false, 0, most32}; }

/// In the order of the records.
std::vector<Row> allRows() {
  std::vector<Row> all;
  const auto add = [&all](const std::string &name, FieldOwner owner,
                          const auto &field) {
    const Kind kind = kindOf(field);
    all.push_back({name, owner, kind.isText, kind.minimum, kind.maximum});
  };
  const auto addRecord = [&add](const std::string &prefix, FieldOwner owner,
                                const auto &record) {
    support::eachField(record, [&](const char *name, const auto &field) {
      add(prefix + name, owner, field);
    });
  };
  const ProcessorInfoImp processor;
  addRecord("", FieldOwner::processor, processor);
  add("connectCommand", FieldOwner::processor, processor.connectCommand);
  addRecord("cable.", FieldOwner::cable, CableOption());
  add("cpuJtag", FieldOwner::state, std::uint32_t{});
  addRecord("chain[].", FieldOwner::device, JtagOption());
  return all;
}

const std::vector<Row> rows = allRows();

/// A state with a processor and two chain devices.
class SettingFieldsTest : public testing::Test {
protected:
  SettingFieldsTest() : imp(*engine.GetProcessorList(nullptr)) {
    imp.currentProcessor = &record;
    imp.jtagChain = {&devices[0], &devices[1]};
  }
  ~SettingFieldsTest() override { imp.currentProcessor = nullptr; }

  /// As `settingsOf`, with the command.
  std::map<std::string, std::string> settings() const {
    auto all = settingsOf(imp);
    all["connectCommand"] = '"' + record.connectCommand + '"';
    return all;
  }
  /// Names of what differs from `before`.
  std::set<std::string>
  changedSince(const std::map<std::string, std::string> &before) const {
    std::set<std::string> names;
    for (const auto &[name, value] : settings())
      if (before.at(name) != value)
        names.insert(name);
    return names;
  }

  Engine engine;
  EngineImp &imp;
  ProcessorInfoImp record;
  JtagOption devices[2];
};

std::string shown(const FieldValue &value) {
  return std::holds_alternative<std::string>(value)
             ? '"' + std::get<std::string>(value) + '"'
             : std::to_string(std::get<std::int64_t>(value));
}

} // namespace

TEST_F(SettingFieldsTest, AreThoseOfTheRecordsInTheirOrder) {
  const SettingFields fields = GetSettingFields();
  ASSERT_EQ(fields.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    EXPECT_EQ(fields[i].name, rows[i].name);
    EXPECT_EQ(fields[i].owner, rows[i].owner);
    EXPECT_EQ(fields[i].isText, rows[i].isText);
    EXPECT_EQ(fields[i].minimum, rows[i].minimum);
    EXPECT_EQ(fields[i].maximum, rows[i].maximum);
  }
  EXPECT_EQ(fields.end() - fields.begin(),
            static_cast<std::ptrdiff_t>(rows.size()));
}

TEST_F(SettingFieldsTest, HoldWhatIsStoredAndNothingElseChanges) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    const std::vector<FieldValue> values =
        rows[i].isText
            ? std::vector<FieldValue>{"", std::string("a\0b", 3), "next"}
            : std::vector<FieldValue>{rows[i].minimum, rows[i].maximum};
    for (const FieldValue &value : values)
      for (const std::size_t device : {0U, 1U}) {
        const auto before = settings();
        const std::string name = GetFieldName(i, device);
        SetField(imp, i, value, device);
        EXPECT_TRUE(GetField(imp, i, device) == value) << shown(value);
        EXPECT_EQ(settings().at(name), shown(value));
        const std::set<std::string> changed = changedSince(before);
        EXPECT_TRUE(changed.empty() || changed == std::set<std::string>{name});
      }
  }
}

TEST_F(SettingFieldsTest, ReachOneRecordAsTheWholeState) {
  devices[1].irlength = -5;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    const FieldValue value = GetField(imp, i, 1);
    const FieldOwner owner = rows[i].owner;
    const auto expect = [&](auto &one, FieldOwner its) {
      if (owner != its) {
        EXPECT_THROW(GetField(one, i), std::out_of_range);
        EXPECT_THROW(SetField(one, i, value), std::out_of_range);
        return;
      }
      EXPECT_TRUE(GetField(one, i) == value);
      const FieldValue other =
          rows[i].isText ? FieldValue("other") : FieldValue(rows[i].maximum);
      SetField(one, i, other);
      EXPECT_TRUE(GetField(imp, i, 1) == other);
    };
    expect(record, FieldOwner::processor);
    expect(*imp.cableOption, FieldOwner::cable);
    expect(devices[1], FieldOwner::device);
  }
}

TEST_F(SettingFieldsTest, KeepTheLowBitsOfANumberWithoutRoom) {
  struct Cut {
    const char *name;
    std::int64_t given;
    std::int64_t kept;
  };
  for (const Cut &cut : std::vector<Cut>{
           {"debugDevice", 200, -56},
           {"debugDevice", -129, 127},
           {"cpuNr", 256, 0},
           {"romemSize", 0x100000001, 1},
           {"romemSize", -1, most32},
           {"stubBaudRate", 0x80000000, -mostSigned - 1},
           {"chain[].isfpga", -1, 255},
           {"cable.cableType", 0x100000003, 3},
           {"uartOverHdu", 0, 0},
           {"uartOverHdu", 2, 1},
           {"uartOverHdu", -1, 1},
       }) {
    SCOPED_TRACE(cut.name);
    const std::size_t field = FindField(cut.name);
    SetField(imp, field, cut.given);
    EXPECT_EQ(std::get<std::int64_t>(GetField(imp, field)), cut.kept);
  }
}

TEST_F(SettingFieldsTest, ChooseACableWithoutWhatItBrings) {
  SetField(imp, FindField("cable.cableType"), std::int64_t{3});
  EXPECT_EQ(imp.cableOption->cableType, Engine::QUORLA_PODUSB);
  EXPECT_EQ(imp.cableOption->frequency, 0U);
  EXPECT_EQ(imp.cableOption->port, "");
}

TEST_F(SettingFieldsTest, AreFoundByTheirNames) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    EXPECT_EQ(FindField(rows[i].name), i) << rows[i].name;
  const std::size_t part = FindField("chain[].partname");
  EXPECT_EQ(FindField("chain[0].partname"), part);
  EXPECT_EQ(FindField("chain[17].partname"), part);
  for (const char *const name : {"",
                                 "debugdevice",
                                 "debugDevic",
                                 "debugDevices",
                                 "port",
                                 "cable",
                                 "cable.",
                                 "cable.ports",
                                 "Cable.port",
                                 "chain",
                                 "chain[]",
                                 "chain[].",
                                 "chain.partname",
                                 "chain[x].partname",
                                 "chain[-1].partname",
                                 "chain[0.partname",
                                 "chain[0]partname",
                                 "chain[0].port",
                                 " cpuJtag",
                                 "imp.cpuJtag"})
    EXPECT_EQ(FindField(name), rows.size()) << name;
}

TEST_F(SettingFieldsTest, AreNamedWithTheirDevice) {
  EXPECT_EQ(GetFieldName(FindField("debugDevice"), 3), "debugDevice");
  EXPECT_EQ(GetFieldName(FindField("cable.port"), 3), "cable.port");
  EXPECT_EQ(GetFieldName(FindField("chain[].nppc")), "chain[0].nppc");
  EXPECT_EQ(GetFieldName(FindField("chain[].nppc"), 12), "chain[12].nppc");
}

TEST_F(SettingFieldsTest, RefuseWhatIsNotThere) {
  const std::size_t none = rows.size();
  const std::size_t part = FindField("chain[].partname");
  EXPECT_THROW(GetField(imp, none), std::out_of_range);
  EXPECT_THROW(GetField(record, none), std::out_of_range);
  EXPECT_THROW(GetFieldName(none), std::out_of_range);
  EXPECT_THROW(SetField(imp, none, std::int64_t{1}), std::out_of_range);
  EXPECT_THROW(GetField(imp, part, 2), std::out_of_range);
  EXPECT_THROW(SetField(imp, part, "p", 2), std::out_of_range);
  EXPECT_NO_THROW(GetField(imp, part, 1));
}

TEST_F(SettingFieldsTest, RefuseTheOtherKindOfValue) {
  const auto before = settings();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].name);
    const FieldValue other =
        rows[i].isText ? FieldValue(std::int64_t{1}) : FieldValue("1");
    EXPECT_THROW(SetField(imp, i, other), std::bad_variant_access);
  }
  EXPECT_EQ(changedSince(before), std::set<std::string>());
}

} // namespace ZelDebugDialog::test
