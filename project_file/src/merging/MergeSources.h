// What some of a processor's sources make together.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGING_MERGESOURCES_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGING_MERGESOURCES_H

#include <string>
#include <vector>

#include "merging/Sources.h"

namespace ZelDebugDialog::project {

/// @param sources  low to high
MergedProcessor mergeSources(const std::vector<Source> &sources,
                             const std::string &processor);

} // namespace ZelDebugDialog::project

#endif
