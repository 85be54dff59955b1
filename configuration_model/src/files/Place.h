// What stands at a path.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_PLACE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_PLACE_H

#include <filesystem>
#include <string>

namespace ZelDebugDialog::model {

struct Place {
  bool exists = false;
  std::string problem; ///< why it is not what was wanted, or empty
};

/// Looks behind links. Nothing is opened: a fifo would make the caller wait.
/// @param wanted  `regular` or `directory`
Place lookAt(const std::filesystem::path &path,
             std::filesystem::file_type wanted);

/// The file that a path leads to, behind links, also where only its folder is
/// there; the path itself where nothing is.
std::filesystem::path behindLinks(const std::filesystem::path &path);

/// Whether the file is there, may be read, and holds the text and nothing more.
bool holds(const std::filesystem::path &file, const std::string &text);

} // namespace ZelDebugDialog::model

#endif
