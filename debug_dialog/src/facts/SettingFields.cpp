#include "ZelDebugDialog/SettingFields.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <type_traits>

#include "facts/FieldRows.h"

namespace ZelDebugDialog {

namespace {

constexpr FieldOwner ownerOf(const ProcessorInfoImp * /*record*/) {
  return FieldOwner::processor;
}
constexpr FieldOwner ownerOf(const CableOption * /*record*/) {
  return FieldOwner::cable;
}
constexpr FieldOwner ownerOf(const EngineImp * /*record*/) {
  return FieldOwner::state;
}
constexpr FieldOwner ownerOf(const JtagOption * /*record*/) {
  return FieldOwner::device;
}

/// The numbers that go into a field.
template <class Value> struct NumbersOf {
  static constexpr std::int64_t minimum = std::numeric_limits<Value>::min();
  static constexpr std::int64_t maximum = std::numeric_limits<Value>::max();
};
template <>
struct NumbersOf<Engine::CableType>
    : NumbersOf<std::underlying_type_t<Engine::CableType>> {};

// Nobody but the compiler runs what makes the table. GCOVR_EXCL_START
template <class Record, class Value>
constexpr FieldDescription describe(std::string_view name,
                                    Value Record::* /*member*/) {
  const FieldOwner owner = ownerOf(static_cast<const Record *>(nullptr));
  if constexpr (std::is_same_v<Value, std::string>)
    return {name, owner, true, 0, 0};
  else
    return {name, owner, false, NumbersOf<Value>::minimum,
            NumbersOf<Value>::maximum};
}

constexpr auto describeRows() {
  std::array<FieldDescription, fieldRows.size()> table{};
  for (std::size_t row = 0; row < table.size(); ++row)
    table[row] = std::visit([name = fieldRows[row].name](
                                auto member) { return describe(name, member); },
                            fieldRows[row].member);
  return table;
}

// GCOVR_EXCL_STOP

constexpr auto table = describeRows();

template <class Value> FieldValue valueOf(const Value &field) {
  if constexpr (std::is_same_v<Value, std::string>)
    return field;
  else
    return static_cast<std::int64_t>(field);
}

template <class Value> void store(Value &field, const FieldValue &value) {
  if constexpr (std::is_same_v<Value, std::string>)
    field = std::get<std::string>(value);
  else if constexpr (std::is_same_v<Value, bool>)
    field = std::get<std::int64_t>(value) != 0;
  else if constexpr (std::is_enum_v<Value>)
    field = static_cast<Value>(static_cast<std::underlying_type_t<Value>>(
        std::get<std::int64_t>(value)));
  else
    field = static_cast<Value>(std::get<std::int64_t>(value));
}

/// The records of an engine, and one device of its chain.
template <class State> class RecordsOf {
public:
  RecordsOf(State &state, std::size_t position)
      : imp(state), device(position) {}

  template <class Value> auto &at(Value ProcessorInfoImp::*member) const {
    return (*imp.currentProcessor).*member;
  }
  template <class Value> auto &at(Value CableOption::*member) const {
    return (*imp.cableOption).*member;
  }
  template <class Value> auto &at(Value EngineImp::*member) const {
    return imp.*member;
  }
  template <class Value> auto &at(Value JtagOption::*member) const {
    return (*imp.jtagChain.at(device)).*member;
  }

private:
  State &imp;
  std::size_t device;
};

/// One record alone.
template <class Record> class OneRecord {
public:
  explicit OneRecord(Record &only) : record(only) {}

  template <class Owner, class Value> auto &at(Value Owner::*member) const {
    if constexpr (std::is_same_v<Owner, std::remove_const_t<Record>>) {
      return record.*member;
    } else {
      static_cast<void>(member);
      return ofAnother<Value>();
    }
  }

private:
  template <class Value> [[noreturn]] static Value &ofAnother() {
    throw std::out_of_range("the field is one of another record");
  }

  Record &record;
};

template <class Records>
FieldValue get(const Records &records, std::size_t field) {
  return std::visit(
      [&records](auto member) { return valueOf(records.at(member)); },
      fieldRows.at(field).member);
}

template <class Records>
void set(const Records &records, std::size_t field, const FieldValue &value) {
  std::visit([&](auto member) { store(records.at(member), value); },
             fieldRows.at(field).member);
}

constexpr std::string_view chainOpen = "chain[";
constexpr char chainClose = ']';

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// A device's field without the number of the device.
std::string withoutDevice(std::string_view name) {
  std::string row(name);
  if (name.substr(0, chainOpen.size()) != chainOpen)
    return row;
  const auto first =
      row.begin() + static_cast<std::ptrdiff_t>(chainOpen.size());
  const auto last = std::find_if_not(first, row.end(), isDigit);
  row.erase(first, last);
  return row;
}

} // namespace

SettingFields GetSettingFields() { return {table.data(), table.size()}; }

std::size_t FindField(std::string_view name) {
  const std::string row = withoutDevice(name);
  const auto *const found = std::find_if(
      table.begin(), table.end(),
      [&row](const FieldDescription &field) { return field.name == row; });
  return static_cast<std::size_t>(found - table.begin());
}

std::string GetFieldName(std::size_t field, std::size_t device) {
  std::string name(table.at(field).name);
  if (table[field].owner == FieldOwner::device)
    name.insert(name.find(chainClose), std::to_string(device));
  return name;
}

FieldValue GetField(const EngineImp &imp, std::size_t field,
                    std::size_t device) {
  return get(RecordsOf<const EngineImp>(imp, device), field);
}

FieldValue GetField(const ProcessorInfoImp &record, std::size_t field) {
  return get(OneRecord<const ProcessorInfoImp>(record), field);
}

FieldValue GetField(const CableOption &cable, std::size_t field) {
  return get(OneRecord<const CableOption>(cable), field);
}

FieldValue GetField(const JtagOption &device, std::size_t field) {
  return get(OneRecord<const JtagOption>(device), field);
}

void SetField(EngineImp &imp, std::size_t field, const FieldValue &value,
              std::size_t device) {
  set(RecordsOf<EngineImp>(imp, device), field, value);
}

void SetField(ProcessorInfoImp &record, std::size_t field,
              const FieldValue &value) {
  set(OneRecord<ProcessorInfoImp>(record), field, value);
}

void SetField(CableOption &cable, std::size_t field, const FieldValue &value) {
  set(OneRecord<CableOption>(cable), field, value);
}

void SetField(JtagOption &device, std::size_t field, const FieldValue &value) {
  set(OneRecord<JtagOption>(device), field, value);
}

} // namespace ZelDebugDialog
