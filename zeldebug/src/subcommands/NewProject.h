// The first files of a project, as init and adopt write and show them.
#ifndef ZELDEBUG_NEWPROJECT_H
#define ZELDEBUG_NEWPROJECT_H

#include <string>

#include <ZelDebugDialog/ProjectFile/Adopt.h>

#include "line/DesignOptions.h"
#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

/// The project file of a folder, as it is shown.
std::string newProjectFile(const std::string &workingFolder);

/// What the line says of the design, as the project file is to say it.
ZelDebugDialog::ProjectSources sourcesFor(const DesignOptions &options,
                                          const std::string &projectFile);

/// Writes the files, and tells which they are.
/// @param members  of the document, besides them
/// @throws Refusal
/// @throws Failure where a warning is one
void writeProject(const std::string &projectFile,
                  const ZelDebugDialog::AdoptedProject &made,
                  const Json &members, Output &output);

} // namespace zeldebug

#endif
