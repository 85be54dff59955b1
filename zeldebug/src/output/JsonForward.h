// The JSON type of the program, for those that only name it.
#ifndef ZELDEBUG_JSONFORWARD_H
#define ZELDEBUG_JSONFORWARD_H

#include "documents/JsonForward.h"

namespace zeldebug {

using ZelDebugDialog::documents::Json;

} // namespace zeldebug

#endif
