// The PowerPC debug address map as a whole.
#ifndef ZELDEBUG_ADDRESSMAP_H
#define ZELDEBUG_ADDRESSMAP_H

#include <string>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

namespace zeldebug {

/// The settings of the map that begins at the base which a text gives: each
/// region right behind the one before.
/// @param option  for messages
/// @throws Failure (wrong use)
ZelDebugDialog::SettingValues expectAddressMap(const std::string &option,
                                               const std::string &text);

/// Those of no map at all.
ZelDebugDialog::SettingValues noAddressMap();

} // namespace zeldebug

#endif
