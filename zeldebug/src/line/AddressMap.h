// The PowerPC debug address map as a whole: six regions in a row.
#ifndef ZELDEBUG_ADDRESSMAP_H
#define ZELDEBUG_ADDRESSMAP_H

#include <cstdint>
#include <string>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

namespace zeldebug {

/// The settings of the map that begins at the base which a text gives: each
/// region 0x10000 behind the one before.
/// @param option  for messages
/// @throws Failure (wrong use)
ZelDebugDialog::SettingValues expectAddressMap(const std::string &option,
                                               const std::string &text);

/// Those of no map at all.
ZelDebugDialog::SettingValues noAddressMap();

/// The setting that follows the first region, and has the map's base.
extern const char *const addressMapBase;
/// The first region.
extern const char *const firstRegion;

} // namespace zeldebug

#endif
