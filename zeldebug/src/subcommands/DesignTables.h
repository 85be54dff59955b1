// What the design model knows, for people as tables, for programs as JSON.
#ifndef ZELDEBUG_DESIGNTABLES_H
#define ZELDEBUG_DESIGNTABLES_H

#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

Json designJson(ZelDebugDialog::DesignModel &design);

void printDesign(ZelDebugDialog::DesignModel &design, Output &output);

} // namespace zeldebug

#endif
