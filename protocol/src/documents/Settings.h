// The table of settings, and a configuration with all that is known of it.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_SETTINGS_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_SETTINGS_H

#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "documents/JsonForward.h"

namespace ZelDebugDialog::documents {

// What does not apply to a row is left out of it.

/// [{"id", "group", "label", "help", "kind", "unit", "minimum", "maximum",
/// "settable", "together", "choices"}]
Json settingsJson();

// Texts that are no UTF-8 are shown with U+FFFD, and stand in base64 in
// "bytes", by the member that shows them.

/// [{"field", "value", "readBack", "bytes", "reason", "code", "anchor",
/// "displacedBy", "blocking"}]
Json lossesJson(const std::vector<Loss> &losses);

/// [{"setting", "before", "after", "bytes", "why"}]
Json effectsJson(const std::vector<Effect> &effects);

Json stateJson(const SessionState &state);

} // namespace ZelDebugDialog::documents

#endif
