// Every field of the engine's records, by name: the one place that knows them.
// JSON, comparison and what is told about lost settings walk these tables.
#ifndef ZELDEBUG_FIELDS_H
#define ZELDEBUG_FIELDS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include <ZelDebugDialog/CableOption.h>
#include <ZelDebugDialog/ProcessorInfo.h>

#include "output/Json.h"

namespace zeldebug {

enum class FieldKind {
  identity, ///< says which processor it is; a decimal number or a name
  number,
  address, ///< 0xFFFFFFFF: not set
  bits,    ///< a code or a set of bits, shown in hexadecimal
  flag,
  text,
  command, ///< the text that was read or written, no setting
};

template <class Record> struct Field {
  using Member = std::variant<std::string Record::*, bool Record::*,
                              std::uint32_t Record::*, std::int32_t Record::*,
                              std::int8_t Record::*, std::uint8_t Record::*,
                              ZelDebugDialog::Engine::CableType Record::*>;

  std::string_view name;
  FieldKind kind;
  Member member;
};

template <class Record> struct FieldTable {
  const Field<Record> *first;
  const Field<Record> *last;

  const Field<Record> *begin() const { return first; }
  const Field<Record> *end() const { return last; }
};

FieldTable<ZelDebugDialog::ProcessorInfoImp> processorFields();
FieldTable<ZelDebugDialog::CableOption> cableFields();
FieldTable<ZelDebugDialog::JtagOption> chainFields();

/// A field's value as JSON: number, string or boolean, as it is stored.
template <class Record>
Json valueOf(const Record &record, const Field<Record> &field) {
  return std::visit(
      [&record](auto member) -> Json {
        using Value = std::decay_t<decltype(record.*member)>;
        if constexpr (std::is_enum_v<Value>)
          return static_cast<std::uint32_t>(record.*member);
        else
          return record.*member;
      },
      field.member);
}

/// A record as a JSON object.
template <class Record>
Json toJson(const Record &record, const FieldTable<Record> &fields) {
  Json object = Json::object();
  for (const Field<Record> &field : fields)
    object[std::string(field.name)] = valueOf(record, field);
  return object;
}

/// A value for people.
std::string shownValue(const Json &value, FieldKind kind);

} // namespace zeldebug

#endif
