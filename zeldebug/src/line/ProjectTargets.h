// Which part of a project a change goes to, as a line says it.
#ifndef ZELDEBUG_PROJECTTARGETS_H
#define ZELDEBUG_PROJECTTARGETS_H

#include <string>

#include <ZelDebugDialog/ProjectFile/Edit.h>

#include "line/Options.h"

namespace zeldebug {

/// Adds --into.
void addTargetOption(Options &options, std::optional<std::string> &value,
                     const std::string &help);

/// Gives `edit` the target of "local", "project" or "profile:NAME".
/// @throws Failure (wrong use) for anything else
void expectTarget(const std::string &text, ZelDebugDialog::ProjectEdit &edit);

} // namespace zeldebug

#endif
