// What the files of a project say, as documents.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_PROJECTS_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_PROJECTS_H

#include <vector>

#include <ZelDebugDialog/ProjectFile/ProjectBoard.h>

#include "documents/JsonForward.h"

namespace ZelDebugDialog::documents {

/// [{"file", "line", "column", "code", "message", "accepted", "suggestion"}]
Json faultsJson(const std::vector<ProjectFault> &faults);

// What does not apply to a row is left out of it.

/// {"file", "local", "probe", "profile", "probes", "profiles", "warnings"}
Json projectJson(const ProjectBoard &project);

/// {"file", "changed", "remarks"}
Json writtenJson(const WrittenProject &written);

/// Adds "project" to the document of a state, and to those of its settings.
void addSaid(Json &state, const SaidProcessor &said);

} // namespace ZelDebugDialog::documents

#endif
