// Stands alone, and can be included again.
#include "ZelDebugDialog/KvoOption_Parser.h"

#include "ZelDebugDialog/KvoOption_Parser.h"
