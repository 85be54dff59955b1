// Edits of a list of texts that leave its other items, its lines and its
// comments byte for byte.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDITING_EDITLIST_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDITING_EDITLIST_H

#include <string>

namespace ZelDebugDialog::project {

/// A list with one item more, behind the others.
/// @param list  with its brackets, valid TOML; empty for none
std::string listWith(const std::string &list, const std::string &item);

/// A list without an item, however often it has it. The comment of a line that
/// has nothing else goes with it.
/// @param list  with its brackets, valid TOML
std::string listWithout(const std::string &list, const std::string &item);

} // namespace ZelDebugDialog::project

#endif
