// What is wrong with the files of a project, as it is told.
#ifndef ZELDEBUG_PROJECTFAULTS_H
#define ZELDEBUG_PROJECTFAULTS_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>
#include <ZelDebugDialog/ProjectFile/Merge.h>
#include <ZelDebugDialog/ProjectFile/Project.h>

#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

/// "zeldebug.toml:3:8"; "option" for what stands in no file.
std::string shownPlace(const ZelDebugDialog::ProjectPlace &place);

/// "zeldebug.toml:3:8" without the folder; "option" for what stands in no file.
std::string originAt(const ZelDebugDialog::ProjectPlace &place);

/// {"file", "line", "column"}; null for what stands in no file.
Json placeJson(const ZelDebugDialog::ProjectPlace &place);

/// "zeldebug.toml:3:1: 'desing' is no key [unknown-key]"
std::string shownFault(const ZelDebugDialog::ProjectFault &fault);

/// What a processor cannot have of the files.
/// @param applied  refused
Failure refusedAt(const ZelDebugDialog::AppliedProject &applied);

/// What was said for a processor and is no part of what counts: values of
/// another cable, and those that others displace.
void tellLeftOut(const ZelDebugDialog::MergedProcessor &merged,
                 const std::vector<ZelDebugDialog::ProjectLoss> &displaced,
                 Output &output);

/// A warning or a note, at its place.
void tellRemark(const ZelDebugDialog::ProjectFault &fault, Output &output);

/// Tells what is no error; where there are errors, all of them and nothing
/// else.
/// @throws ToldFailure (unreadable), of the first error
void expectNoFaults(const std::vector<ZelDebugDialog::ProjectFault> &faults,
                    Output &output);

} // namespace zeldebug

#endif
