// Which part of a project a change goes to, as a line says it.
#ifndef ZELDEBUG_PROJECTTARGETS_H
#define ZELDEBUG_PROJECTTARGETS_H

#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/ProjectFile/Edit.h>

#include "line/Options.h"

namespace zeldebug {

/// Adds --into.
void addTargetOption(Options &options, std::optional<std::string> &value,
                     const std::string &help);

/// Gives `edit` the target of "local", "project" or "profile:NAME".
/// @throws Failure (wrong use) for anything else
void expectTarget(const std::string &text, ZelDebugDialog::ProjectEdit &edit);

/// @throws Failure for a refusal of the target itself; others do nothing
void expectTargetTaken(const ZelDebugDialog::Refusal &refusal);

/// Writes files of a project as they are meant.
/// @return false where somebody else has written one meanwhile; then none is
bool writeFiles(const std::vector<ZelDebugDialog::EditedProject> &files);

/// @throws Failure (refused), of files that somebody else writes
[[noreturn]] void failOvertaken();

} // namespace zeldebug

#endif
