// The names inside a component, resolved.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_RESOLVECOMPONENT_H
#define ZELDEBUGDIALOG_DESIGNMODEL_RESOLVECOMPONENT_H

#include "graph/ConnectionGraph.h"
#include "messages/DiagnosticList.h"

namespace ZelDebugDialog {

/// What doesn't resolve, or stands twice, is reported and left out.
GraphComponent resolveComponent(DesignComponent component,
                                DiagnosticList &diagnostics);

} // namespace ZelDebugDialog

#endif
