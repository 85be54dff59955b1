// Stands alone, and can be included again.
#include "ZelDebugDialog/CommandTables.h"

#include "ZelDebugDialog/CommandTables.h"
