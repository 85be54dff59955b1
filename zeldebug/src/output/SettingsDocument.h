// A JSON document of settings, as `show --json` prints them.
#ifndef ZELDEBUG_SETTINGSDOCUMENT_H
#define ZELDEBUG_SETTINGSDOCUMENT_H

#include <string>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

namespace zeldebug {

struct SettingsDocument {
  ZelDebugDialog::SettingValues values;
  /// Those that are only shown: identity, and what follows from others.
  ZelDebugDialog::SettingValues leftOut;
};

/// Takes any part of such a document; results in it are passed over.
/// @param file  where the text comes from, for messages
/// @throws Failure (unreadable) for what is no JSON, no document of settings,
/// or
///   names a setting that there is not
SettingsDocument readSettingsDocument(const std::string &text,
                                      const std::string &file);

} // namespace zeldebug

#endif
