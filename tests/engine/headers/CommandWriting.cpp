// Stands alone, and can be included again.
#include "ZelDebugDialog/CommandWriting.h"

#include "ZelDebugDialog/CommandWriting.h"
