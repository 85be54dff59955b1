// Stands alone, and can be included again.
#include "ComMsgMgr.h"

#include "ComMsgMgr.h"
