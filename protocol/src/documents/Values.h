// Values of settings in documents, and what became of them.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_VALUES_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_VALUES_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "documents/JsonForward.h"

namespace ZelDebugDialog::documents {

/// As the records hold it: null, a flag, a number, a text, or the devices of a
/// chain.
Json toJson(const Value &value);

/// The same of a field: a whole device ("chain[2]") is an object.
Json fieldJson(const std::string &name, const Value &value);

/// What of a value is no UTF-8, in base64: of a text all of it, of a chain an
/// object a device, with the fields that are such texts. Null if there is
/// nothing.
Json bytesOf(const Value &value);

/// [{"field", "value", "readBack", "reason", "anchor"}]
Json toJson(const std::vector<Loss> &losses);

/// [{"setting", "before", "after", "why"}]
Json toJson(const std::vector<Effect> &effects);

} // namespace ZelDebugDialog::documents

#endif
