// A JSON document of settings, as `show --json` prints them.
#ifndef ZELDEBUG_SETTINGSDOCUMENT_H
#define ZELDEBUG_SETTINGSDOCUMENT_H

#include <map>
#include <string>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

namespace zeldebug {

struct SettingsDocument {
  ZelDebugDialog::SettingValues values;
  /// Those that are only shown: identity, and what follows from others.
  ZelDebugDialog::SettingValues leftOut;
  std::map<std::string, int> lines; ///< setting → where it stands, from 1
};

/// Takes any part of such a document; what else `show` says is passed over.
/// @param file  where the text comes from, for messages
/// @throws Failure (unreadable) for what is no JSON or no document of settings,
///   gives a member twice, is nested too deeply, or names a setting that there
///   is not
SettingsDocument readSettingsDocument(const std::string &text,
                                      const std::string &file);

} // namespace zeldebug

#endif
