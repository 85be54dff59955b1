// Every setting of a configuration, as it is shown.
#ifndef ZELDEBUG_SHOWNSETTINGS_H
#define ZELDEBUG_SHOWNSETTINGS_H

#include <ZelDebugDialog/ConfigurationModel/CommandSettings.h>

#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

/// The command, and a table of the settings.
/// @param withOrigin  with a column that tells where each comes from
/// @param onlySaid    without those at their defaults, and without those of the
///   design
void printSettings(const ZelDebugDialog::CommandSettings &shown,
                   bool withOrigin, Output &output, bool onlySaid = false);

/// The members of a document.
Json settingsJson(const ZelDebugDialog::CommandSettings &shown,
                  bool withOrigin);

} // namespace zeldebug

#endif
