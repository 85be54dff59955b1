// From what is asked for to a value of a setting: its type, its range, and what
// this processor allows.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_VALUES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_VALUES_H

#include <string>
#include <string_view>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "settings/SettingTable.h"

namespace ZelDebugDialog::model {

/// @throws Refusal (unknownSetting) with the nearest name
const SettingRow &expectRow(std::string_view id);
/// @throws Refusal (unknownSetting, notSettable)
const SettingRow &expectSettable(std::string_view id);

/// The value that a change to `asked` gives a setting. What the setting has
/// already, or has by default, is taken whatever it is.
/// @param asked     of the setting's type, or a text as a person types it
/// @param defaults  of the processor as discovery found it
/// @throws Refusal (badValue, notAllowed)
Value expectValue(const SettingRow &row, const Value &asked,
                  const Snapshot &current, const Snapshot &defaults);

/// The value that a text means for a setting; a default is no exception.
/// @throws Refusal (badValue)
Value readValue(const SettingRow &row, const std::string &text);

/// The value that a change would take, of a fresh configuration.
/// @throws Refusal (badValue)
Value takenValue(const SettingRow &row, const Value &asked);

/// Why the processor cannot have a choice; empty if it can.
std::string whyNotAllowed(const SettingRow &row, const Choice &choice,
                          const ProcessorInfoImp &processor);

/// Values that a change takes, the present one first, each once: as many as it
/// takes to tell apart whatever a writer may look at, which are all choices,
/// none and some, unset and set, empty and not.
std::vector<Value> sampleValues(const SettingRow &row, const Snapshot &current,
                                const Snapshot &defaults);

} // namespace ZelDebugDialog::model

#endif
