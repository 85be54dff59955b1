// The texts of new files.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_ADOPTING_NEWTEXT_H
#define ZELDEBUGDIALOG_PROJECTFILE_ADOPTING_NEWTEXT_H

#include <string>
#include <utility>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

/// The comment and the keys in front of all tables.
std::string newHead(const ProjectSources &sources);

/// The comment of a local file.
std::string newLocalHead();

/// A blank line, a header, a line a setting.
std::string newTable(const Path &table, const SettingValues &values);

} // namespace ZelDebugDialog::project

#endif
