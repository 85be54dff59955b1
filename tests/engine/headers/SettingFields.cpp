// Stands alone, and can be included again.
#include "ZelDebugDialog/SettingFields.h"

#include "ZelDebugDialog/SettingFields.h"
