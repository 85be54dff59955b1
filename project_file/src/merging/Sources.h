// The sources of a processor's settings, low to high.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGING_SOURCES_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGING_SOURCES_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ProjectFile/Merge.h"

namespace ZelDebugDialog::project {

/// Whether a name is as a pattern says: '*' for any characters, '?' for one.
bool matches(const std::string &pattern, const std::string &name);

/// Whether a table speaks of a processor.
bool speaksOf(const ProjectTable &table, const BoardProcessor &processor);

/// Tables that count as one: one, or all patterns of a block.
using Source = std::vector<const ProjectTable *>;

std::vector<Source> sourcesOf(const Project &project,
                              const ProjectChoice &choice,
                              const BoardProcessor &processor);

} // namespace ZelDebugDialog::project

#endif
