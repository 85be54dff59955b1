// Reads one of the two files into a layer, with all its faults.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_FILEREADER_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_FILEREADER_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ProjectFile/Project.h"
#include "reading/Keys.h"

namespace ZelDebugDialog::project {

/// @param given  the whole file
/// @param list   gets what is wrong with it
ProjectLayer readLayer(FileKind kind, const std::string &file,
                       const std::string &given,
                       std::vector<ProjectFault> &list);

/// `text` without the mark that some editors put in front.
std::string withoutMark(const std::string &text);

/// Whether a name holds '*' or '?'.
bool isPattern(const std::string &name);

} // namespace ZelDebugDialog::project

#endif
