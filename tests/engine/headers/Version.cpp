// Stands alone, and can be included again.
#include "ZelDebugDialog/Version.h"

#include "ZelDebugDialog/Version.h"
