// What is wrong with the files of a project, as it is told.
#ifndef ZELDEBUG_PROJECTFAULTS_H
#define ZELDEBUG_PROJECTFAULTS_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ProjectFile/Project.h>

#include "output/Json.h"
#include "output/Output.h"

namespace zeldebug {

/// "zeldebug.toml:3:8"; "option" for what stands in no file.
std::string shownPlace(const ZelDebugDialog::ProjectPlace &place);

/// {"file", "line", "column"}; null for what stands in no file.
Json placeJson(const ZelDebugDialog::ProjectPlace &place);

/// "zeldebug.toml:3:1: 'desing' is no key [unknown-key]"
std::string shownFault(const ZelDebugDialog::ProjectFault &fault);

/// A warning or a note, at its place.
void tellRemark(const ZelDebugDialog::ProjectFault &fault, Output &output);

/// Tells what is no error; where there are errors, all of them and nothing
/// else.
/// @throws ToldFailure (unreadable), of the first error
void expectNoFaults(const std::vector<ZelDebugDialog::ProjectFault> &faults,
                    Output &output);

} // namespace zeldebug

#endif
