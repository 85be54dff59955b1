// What the configuration model refuses, as the program ends with it.
#ifndef ZELDEBUG_REFUSED_H
#define ZELDEBUG_REFUSED_H

#include <string>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>

#include "output/Failure.h"

namespace zeldebug {

/// @param subject  what the person typed, in front of the problem; empty for
///   the file or the setting that the refusal names
Failure failureOf(const ZelDebugDialog::Refusal &refusal,
                  const std::string &subject = "");

} // namespace zeldebug

#endif
