// The JSON type of documents, for those that only name it: its own header takes
// seconds to compile.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_JSONFORWARD_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_JSONFORWARD_H

#include <nlohmann/json_fwd.hpp>

namespace ZelDebugDialog::documents {

using Json = nlohmann::ordered_json;

} // namespace ZelDebugDialog::documents

#endif
