// Stands alone, and can be included again.
#include "ZelDebugDialog/CableCatalogue.h"

#include "ZelDebugDialog/CableCatalogue.h"
