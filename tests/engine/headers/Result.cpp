// Stands alone, and can be included again.
#include "ZelDebugDialog/Result.h"

#include "ZelDebugDialog/Result.h"
