// The names in one folder.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_LISTFOLDER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_LISTFOLDER_H

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

namespace ZelDebugDialog {

/// Appends what is in a folder, at most `most`. By the system's own calls: the
/// standard library's iterator ends the program when memory runs out.
std::error_code listFolder(const std::filesystem::path &folder,
                           std::size_t most,
                           std::vector<std::filesystem::path> &entries);

/// A folder, not a link to one: links could lead round in a circle.
bool isOwnFolder(const std::filesystem::path &path);

} // namespace ZelDebugDialog

#endif
