// The whole tool, for its own program and for those that call it in process.
#ifndef ZELDEBUG_TOOL_H
#define ZELDEBUG_TOOL_H

#include "output/Output.h"

namespace zeldebug {

/// Does what the line asks for. What there is to say has gone to `output`,
/// whose `finish` is still to be called.
ExitStatus runTool(int argc, const char *const *argv, Output &output);

} // namespace zeldebug

#endif
