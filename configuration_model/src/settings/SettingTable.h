// The table of settings, a row each: the public description of a setting, where
// the records hold it, and what a change takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// What a text must be.
enum class TextRule : std::uint8_t {
  word,    ///< one word that is no option word, or the default
  anyWord, ///< one word that may begin with '-', or the default
  words,   ///< words with ';' between them, or nothing
};

struct SettingRow {
  using Member =
      std::variant<std::monostate, ///< made of others: `get` and `set`
                   std::string ProcessorInfoImp::*, bool ProcessorInfoImp::*,
                   std::uint32_t ProcessorInfoImp::*,
                   std::int32_t ProcessorInfoImp::*,
                   std::int8_t ProcessorInfoImp::*, std::string CableOption::*,
                   std::uint32_t CableOption::*,
                   Engine::CableType CableOption::*, std::string JtagOption::*,
                   std::uint32_t JtagOption::*, std::int8_t JtagOption::*,
                   std::uint8_t JtagOption::*, std::uint32_t Snapshot::*>;

  SettingInfo info;
  Member member;
  TextRule textRule = TextRule::word;
  std::vector<Choice> synonyms; ///< other words that are taken for a choice
  /// Says which processor it is; a default does not apply to it.
  bool isIdentity = false;
  /// The code of what a reader refuses of the words that carry it, for what is
  /// no affair of the text alone; empty: it refuses nothing.
  std::string refusedCode;
  std::int64_t step = 1;      ///< what a number is a multiple of, unless unset
  bool isHexadecimal = false; ///< how a number is shown
  /// Why a change of it changes others; empty: it changes no others.
  std::string effect;
  Value (*get)(const Snapshot &) = nullptr;
  void (*set)(Snapshot &, const Value &) = nullptr;

  bool isOfDevice() const;         ///< a field of the chain's devices
  std::string deviceField() const; ///< of such a row, its name in the device
  bool isOfCable() const;          ///< starts anew with another cable
};

/// In the order of `GetSettings`.
const std::vector<SettingRow> &settingRows();

/// The row of a name, "chain[2].idcode" included; null if there is none.
const SettingRow *findRow(std::string_view id);

/// @param device  of a device's field: which one
Value valueIn(const Snapshot &snapshot, const SettingRow &row,
              std::size_t device = 0);
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
