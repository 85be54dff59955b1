// Every field of the engine's records by its name: one table, a row a field,
// and their values as numbers and texts. For programs that show, compare or
// store settings without naming each.
//
// The table is constant and may be read from any thread; values are read and
// stored as the records are (EngineImp.h). Nothing is checked as the engine's
// own operations check it, and nothing else changes: choosing another cable
// here brings no frequency along.
//
//   const std::size_t port = FindField("cable.port");
//   SetField(state, port, std::string("LPT1"));
//   for (const FieldDescription &field : GetSettingFields()) ...
#ifndef ZELDEBUGDIALOG_SETTINGFIELDS_H
#define ZELDEBUGDIALOG_SETTINGFIELDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/Export.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

/// The value of a field. A flag is 0 or 1, an enumeration its number.
using FieldValue = std::variant<std::int64_t, std::string>;

/// The record that a field belongs to.
enum class FieldOwner : std::uint8_t {
  processor, ///< `ProcessorInfoImp`
  cable,     ///< `CableOption`
  state,     ///< `EngineImp` itself
  device,    ///< `JtagOption`, one for each device of the chain
};

/// One field.
struct FieldDescription {
  /// As in `CommandWord`: that of the member, behind "cable." for one of the
  /// cable and behind "chain[]." for one of a device.
  std::string_view name;
  FieldOwner owner = FieldOwner::processor; ///< Whose it is.
  bool isText = false;                      ///< A text, and no number.
  std::int64_t minimum = 0; ///< The least number that it holds; 0 for a text.
  std::int64_t maximum = 0; ///< The largest; 1 for a flag, 0 for a text.
};

/// All fields: those of the processor, the cable, the engine's state and a
/// chain device, each in the order of its record.
class SettingFields {
public:
  /// The table begins at `rows` and has `count` of them.
  constexpr SettingFields(const FieldDescription *rows, std::size_t count)
      : first(rows), rowCount(count) {}

  /// The first field.
  constexpr const FieldDescription *begin() const { return first; }
  /// Behind the last field.
  constexpr const FieldDescription *end() const { return first + rowCount; }
  /// How many there are.
  constexpr std::size_t size() const { return rowCount; }
  /// A field by its place, which must be less than `size()`.
  constexpr const FieldDescription &operator[](std::size_t field) const {
    return first[field];
  }

private:
  const FieldDescription *first;
  std::size_t rowCount;
};

/// The table of all fields.
ZELDEBUGDIALOG_API SettingFields GetSettingFields();

/// The place of a field in the table by its name, compared exactly. A device's
/// field is found by "chain[]." as well as with a number between the brackets.
/// @return `GetSettingFields().size()` for a name that no field has.
ZELDEBUGDIALOG_API std::size_t FindField(std::string_view name);

/// The name of a field, with the number of the device for one of the chain:
/// "chain[2].partname". @throws std::out_of_range for a field that is not
/// there.
ZELDEBUGDIALOG_API std::string GetFieldName(std::size_t field,
                                            std::size_t device = 0);

/// The value of a field of the current processor, the cable, the state, or a
/// device of the chain. Needs a current record for a processor's field.
/// @throws std::out_of_range for a field or a device that is not there.
ZELDEBUGDIALOG_API FieldValue GetField(const EngineImp &imp, std::size_t field,
                                       std::size_t device = 0);
/// The same of one record.
/// @throws std::out_of_range also for a field of another record.
ZELDEBUGDIALOG_API FieldValue GetField(const ProcessorInfoImp &record,
                                       std::size_t field);
/// The same of a cable.
ZELDEBUGDIALOG_API FieldValue GetField(const CableOption &cable,
                                       std::size_t field);
/// The same of a chain device.
ZELDEBUGDIALOG_API FieldValue GetField(const JtagOption &device,
                                       std::size_t field);

/// Stores a value as it is: a number that the field has no room for is cut to
/// its low bits, every number but 0 sets a flag.
/// @throws std::out_of_range as `GetField`; std::bad_variant_access for a text
///   where a number belongs, or a number where a text does. Nothing is changed.
ZELDEBUGDIALOG_API void SetField(EngineImp &imp, std::size_t field,
                                 const FieldValue &value,
                                 std::size_t device = 0);
/// The same in one record.
/// @throws std::out_of_range also for a field of another record.
ZELDEBUGDIALOG_API void SetField(ProcessorInfoImp &record, std::size_t field,
                                 const FieldValue &value);
/// The same in a cable.
ZELDEBUGDIALOG_API void SetField(CableOption &cable, std::size_t field,
                                 const FieldValue &value);
/// The same in a chain device.
ZELDEBUGDIALOG_API void SetField(JtagOption &device, std::size_t field,
                                 const FieldValue &value);

} // namespace ZelDebugDialog

#endif
