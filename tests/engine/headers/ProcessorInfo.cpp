// Stands alone, and can be included again.
#include "ZelDebugDialog/ProcessorInfo.h"

#include "ZelDebugDialog/ProcessorInfo.h"
