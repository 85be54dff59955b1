// The table of settings, a row each: the public description of a setting, where
// the records hold it, and what a change takes.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_SETTINGTABLE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_SETTINGTABLE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/SettingFields.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

// Rows that the model knows by name.
inline constexpr const char *connectionSetting = "connection";
inline constexpr const char *chainSetting = "chain";

/// What a text must be.
enum class TextRule : std::uint8_t {
  word,    ///< one word that is no option word, or the default
  anyWord, ///< one word that may begin with '-', or the default
  words,   ///< words with ';' between them, or nothing
};

struct SettingRow {
  SettingInfo info;
  /// Its place in the table of the records' fields; behind the last for what is
  /// made of others, by `get` and `set`.
  std::size_t field = 0;
  TextRule textRule = TextRule::word;
  std::vector<Choice> synonyms; ///< other words that are taken for a choice
  /// Says which processor it is; a default does not apply to it.
  bool isIdentity = false;
  std::int64_t step = 1;      ///< what a number is a multiple of, unless unset
  bool isHexadecimal = false; ///< how a number is shown
  /// Why a change of it changes others; empty: it changes no others.
  std::string effect;
  std::vector<std::string> brought; ///< those others
  Value (*get)(const Snapshot &) = nullptr;
  void (*set)(Snapshot &, const Value &) = nullptr;

  bool isOfDevice() const;         ///< a field of the chain's devices
  std::string deviceField() const; ///< of such a row, its name in the device
  bool brings(const SettingRow &other) const; ///< along, when it is changed
  bool isOfCable() const; ///< starts anew with another cable
};

/// In the order of `GetSettings`.
const std::vector<SettingRow> &settingRows();

/// The setting by which a field is changed: the connection, the chain, or the
/// field itself.
std::string settingOf(const std::string &field);

/// Those of a device's fields.
const std::vector<const SettingRow *> &deviceRows();

/// The row of a name, "chain[2].idcode" included; null if there is none.
const SettingRow *findRow(std::string_view id);

/// A value of the engine's as the setting has it.
Value valueOf(const FieldValue &value, const SettingRow &row);

/// @param device  of a device's field: which one
Value valueIn(const Snapshot &snapshot, const SettingRow &row,
              std::size_t device = 0);
/// Whether two configurations share a setting, at less cost than by its values.
bool isSameIn(const Snapshot &before, const Snapshot &after,
              const SettingRow &row);
/// Stores a value as it is, cut to its field. Its type is the setting's.
void storeIn(Snapshot &snapshot, const SettingRow &row, const Value &value,
             std::size_t device = 0);

/// A device as a value, and back. Fields that are not named have a new device's
/// default.
ChainDevice deviceValue(const JtagOption &device);
JtagOption deviceOf(const ChainDevice &value);

/// "chain[2]"
std::string deviceName(std::size_t position);

} // namespace ZelDebugDialog::model

#endif
