// The design of the consumers: "cpu0", a Lumacore on the debug module "hdu_0".
// Answered by a class of their own, or by a vendor's library.
#ifndef ONELUMACORE_H
#define ONELUMACORE_H

#include "HHSMHwManager.h"

HHSMHwManager &oneLumacore();

#endif
