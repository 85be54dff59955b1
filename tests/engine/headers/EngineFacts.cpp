// Stands alone, and can be included again.
#include "ZelDebugDialog/EngineFacts.h"

#include "ZelDebugDialog/EngineFacts.h"
