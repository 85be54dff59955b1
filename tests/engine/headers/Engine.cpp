// Stands alone, and can be included again.
#include "ZelDebugDialog/Engine.h"

#include "ZelDebugDialog/Engine.h"
