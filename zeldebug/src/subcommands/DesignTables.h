// What the design model knows, for people as tables, for programs as JSON.
#ifndef ZELDEBUG_DESIGNTABLES_H
#define ZELDEBUG_DESIGNTABLES_H

#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "Session.h"
#include "output/Json.h"
#include "output/Output.h"

namespace zeldebug {

Json designJson(ZelDebugDialog::DesignModel &design, Session &session);

void printDesign(ZelDebugDialog::DesignModel &design, Session &session,
                 Output &output);

} // namespace zeldebug

#endif
