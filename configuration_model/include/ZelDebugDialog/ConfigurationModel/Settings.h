// The table of settings: everything that a dialog, a tool or a document needs
// to know of a setting before there is a configuration.
//
// One row a setting, in the order in which dialogs show them. The table is made
// once and never changes; usable from any thread.
//
//   for (const SettingInfo &setting : GetSettings())
//     if (setting.settable)
//       addToForm(setting.group, setting.label, setting.help);
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Value.h"

namespace ZelDebugDialog {

/// What a setting is to the person who sets it.
enum class SettingKind : std::uint8_t {
  flag,      ///< on or off
  number,    ///< a whole number
  address,   ///< 32 bits, hexadecimal; 0xFFFFFFFF is "not set"
  frequency, ///< in hertz; a text may end with "Hz", "kHz" or "MHz"
  text,      ///< one word of a command
  file,      ///< a text that names a file or a device
  word,      ///< one of a few
  chain,     ///< the devices of the JTAG chain, changed as a whole
};

/// "flag", "number", ...
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const char *ShowKind(SettingKind kind);

/// Whether a value belongs to the desk of a person: to what is plugged in there
/// and to where files lie, not to the design that a team shares.
enum class DeskRule : std::uint8_t {
  never,         ///< it belongs to the design
  always,        ///< a serial number, a device, a host, a port of a host
  unlessOfCable, ///< unless it is what the cable starts with
  ifAbsolute,    ///< if it is an absolute path
};

/// One of the values of a setting that has few.
struct Choice {
  Value value;       ///< What the setting is then.
  std::string text;  ///< The word that a person types, such as "quorla_podusb".
  std::string label; ///< For a list of choices.
};

/// One setting.
struct SettingInfo {
  /// Its name everywhere: "debugDevice", "cable.frequency",
  /// "chain[].partname".
  std::string id;
  std::string group; ///< What it belongs to, as a heading: "Cable".
  std::string label; ///< Its name for people: "Frequency".
  std::string help;  ///< One sentence.
  SettingKind kind = SettingKind::text; ///< What it is to people.
  std::string unit; ///< "Hz", "bytes", "bit/s", "ms", "bits"; may be empty.
  /// Of numbers, addresses and frequencies: what a change takes.
  std::optional<std::int64_t> minimum;
  std::optional<std::int64_t> maximum; ///< The same, upwards.
  /// Whether a change takes it. What says which processor it is, and what
  /// follows from other settings, is only shown.
  bool settable = true;
  /// The settings that its writer looks at as well: whether it is applicable is
  /// a question to all of them.
  std::vector<std::string> together;
  std::vector<Choice> choices; ///< Of words; empty for the others.
  /// The option of `zeldebug set` that sets it; empty: `--settings` does.
  std::string option;
  DeskRule desk = DeskRule::never; ///< Whose its values are.
};

/// All settings. The fields of a chain's devices have rows of their own
/// ("chain[].idcode"), which describe them; a change sets the whole "chain".
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const std::vector<SettingInfo> &
GetSettings();

/// @param id  a name of the table; "chain[2].idcode" stands for
///   "chain[].idcode"
/// @return null for a name that is none
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const SettingInfo *
FindSetting(std::string_view id);

/// The regions of the debug address map.
struct AddressMapInfo {
  std::string base;                 ///< The setting that has its base.
  std::vector<std::string> regions; ///< Those of its regions, as they lie.
  std::int64_t step = 0;            ///< How far one is behind the one before.
};

/// The same on every call; usable from any thread.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const AddressMapInfo &GetAddressMap();

/// The value that a text means, as a person types it for a setting, before
/// there is a configuration. What a setting has by default is no exception
/// here: an empty text is no value.
/// @param id  also a field of the chain's devices, "chain[].idcode"
/// @param text  as it is typed
/// @throws Refusal (unknownSetting, notSettable, badValue)
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API Value
ReadSetting(std::string_view id, const std::string &text);

/// What a change would take a value for, before there is a configuration: of
/// the type that the setting has, or a text that a person would type for it.
/// What the setting has by default is a value.
/// @param id  also a field of the chain's devices, "chain[].idcode"
/// @param asked  the value
/// @throws Refusal (unknownSetting, notSettable, badValue)
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API Value ExpectSetting(std::string_view id,
                                                          const Value &asked);

/// A value for people: "quorla_podusb", "3 MHz", "0x40000000", "not set". It is
/// UTF-8: bytes of a text that are none are shown as U+FFFD.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShowValue(const SettingInfo &setting, const Value &value);

/// A value as the records hold it: "3", "3000000", "0x40000000", "not set", a
/// text in quotes.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShowStored(const SettingInfo &setting, const Value &value);

} // namespace ZelDebugDialog

#endif
