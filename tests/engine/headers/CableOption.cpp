// Stands alone, and can be included again.
#include "ZelDebugDialog/CableOption.h"

#include "ZelDebugDialog/CableOption.h"
