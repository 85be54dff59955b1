// Stands alone, and can be included again.
#include "ZelDebugDialog/EngineImp.h"

#include "ZelDebugDialog/EngineImp.h"
