// What the files of a project make of a processor, as it is told: what an
// option file has otherwise, what does not survive, and what is left out.
#ifndef ZELDEBUG_PROJECTDIFFERENCES_H
#define ZELDEBUG_PROJECTDIFFERENCES_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ProjectFile/Merge.h>

#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

/// "zeldebug.toml:3:8"; "default" where nothing says it.
std::string originOf(const ZelDebugDialog::ProjectPlace &place);

Json differencesJson(const std::vector<ZelDebugDialog::Difference> &differences,
                     const ZelDebugDialog::MergedProcessor &merged);

/// What blocks.
Json lostJson(const std::vector<ZelDebugDialog::ProjectLoss> &losses);

/// Values of another cable, and those that others displace.
Json droppedJson(const ZelDebugDialog::MergedProcessor &merged,
                 const std::vector<ZelDebugDialog::ProjectLoss> &displaced);

/// The option file, and a line for each setting that it has otherwise.
void printDifferences(
    const std::string &file,
    const std::vector<ZelDebugDialog::Difference> &differences,
    const ZelDebugDialog::MergedProcessor &merged, Output &output);

} // namespace zeldebug

#endif
