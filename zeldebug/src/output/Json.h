// The JSON type of the program: that of the documents.
#ifndef ZELDEBUG_JSON_H
#define ZELDEBUG_JSON_H

#include "documents/Json.h"

namespace zeldebug {

using ZelDebugDialog::documents::Json;

} // namespace zeldebug

#endif
