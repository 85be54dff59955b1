// Stands alone, and can be included again.
#include "HHSMHwManager.h"

#include "HHSMHwManager.h"
