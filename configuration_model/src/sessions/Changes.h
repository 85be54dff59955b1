// From what a change asks for to the configuration that it makes.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_CHANGES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_CHANGES_H

#include <set>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// Gives a configuration values, whatever the order in which they are named,
/// and takes settings back to their defaults.
/// @param snapshot  half changed if it throws
/// @param identity  the processor as discovery found it
/// @return the settings that were asked for
/// @throws Refusal (unknownSetting, notSettable, badValue, notAllowed,
/// excluded)
std::set<std::string> applyValues(Snapshot &snapshot,
                                  const ProcessorInfoImp &identity,
                                  const SettingValues &values,
                                  const std::vector<std::string> &reset);

/// Gives a configuration all settings of another one but those that say which
/// processor it is.
/// @param identity  the processor as discovery found it
/// @return those that this processor does not allow, which stay as they are
std::vector<std::string> copySettings(Snapshot &snapshot,
                                      const ProcessorInfoImp &identity,
                                      const Snapshot &from);

/// What differs between two configurations, with the reason of each: that of
/// the setting in `asked` that brings it along, or `why`.
std::vector<Effect> effectsBetween(const Snapshot &before,
                                   const Snapshot &after,
                                   const std::set<std::string> &asked,
                                   const std::string &why);

} // namespace ZelDebugDialog::model

#endif
