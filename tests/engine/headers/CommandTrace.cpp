// Stands alone, and can be included again.
#include "ZelDebugDialog/CommandTrace.h"

#include "ZelDebugDialog/CommandTrace.h"
