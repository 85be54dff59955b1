// The manual page, made from what --help is made from.
#ifndef ZELDEBUG_MANUALPAGE_H
#define ZELDEBUG_MANUALPAGE_H

#include <string>

#include "line/CommandLine.h"

namespace zeldebug {

/// Text for troff.
std::string manualPage(CommandLine &line);

} // namespace zeldebug

#endif
