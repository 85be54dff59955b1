// The codes of what is wrong with project files, and of what is told of them.
//
// One row a code. Codes are stable: programs may rely on them. The table is
// made once and never changes; usable from any thread.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_CODES_H
#define ZELDEBUGDIALOG_PROJECTFILE_CODES_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// What a code stands for.
struct ProjectCode {
  std::string code;                                  ///< The word in brackets.
  ProjectSeverity severity = ProjectSeverity::error; ///< How much it matters.
  std::string meaning;                               ///< Sentences.
  std::string example; ///< Lines of a file that has it; may be empty.
  std::string advice;  ///< What to do.
};

/// "error", "warning", "note"
ZELDEBUGDIALOG_PROJECTFILE_API const char *
ShowSeverity(ProjectSeverity severity);

/// All of them, errors first.
ZELDEBUGDIALOG_PROJECTFILE_API const std::vector<ProjectCode> &
GetProjectCodes();

/// @return null for an unknown code.
ZELDEBUGDIALOG_PROJECTFILE_API const ProjectCode *
FindProjectCode(std::string_view code);

} // namespace ZelDebugDialog

#endif
