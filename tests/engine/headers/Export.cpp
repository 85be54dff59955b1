// Stands alone, and can be included again.
#include "ZelDebugDialog/Export.h"

#include "ZelDebugDialog/Export.h"
