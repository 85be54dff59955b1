// Changes of what the files say. One value's bytes change; comments, order,
// blank lines and line ends stay.
//
// Planning and writing are two steps, so that a program can show what would
// change. Usable from any thread; two programs that write one file at once
// take turns, and the later one is refused.
//
//   ProjectEdit edit;
//   edit.processor = "cpu0";
//   edit.values = {{"cable.esn", "0042"}};
//   WriteProject(EditProject("zeldebug.toml", edit, board, {}));
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDIT_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDIT_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// Where a change goes.
enum class ProjectTarget : std::uint8_t {
  project, ///< the block of the project file
  local,   ///< the block of the local file, which is made if it is missing
  profile, ///< in the project file, or in the local one if only that has it
};

/// One change.
struct ProjectEdit {
  ProjectTarget target = ProjectTarget::project; ///< Where it goes.
  std::string profile;   ///< Of `ProjectTarget::profile`: its name.
  std::string processor; ///< Whose table; empty: that of all.
  SettingValues values;  ///< What it is to say.
  /// What it is to say nothing of, so that nothing counts that is below.
  std::vector<std::string> unset;
};

/// A change, planned.
struct EditedProject {
  std::string file;                  ///< The file that changes.
  std::optional<std::string> before; ///< Its text; none: it is not there.
  std::string after;                 ///< What it is to be.
  Project project;                   ///< What both files say afterwards.
  /// Warnings: what is told of the files only now, and "overridden", at the
  /// place of what counts instead.
  std::vector<ProjectFault> warnings;

  /// Whether there is anything to write. A file that is not there, and is to
  /// say nothing, is not made.
  bool IsChanged() const { return before.value_or("") != after; }
};

/// Plans a change and checks what it makes of the files and of the processors
/// concerned.
/// @param projectFile  path of the project file
/// @param edit         the change
/// @param board        of the project's design
/// @param wishes  what is chosen beside the files
/// @throws Refusal (unknownSetting, notSettable, badValue; excluded for a
///   setting that is asked for twice; unknownProcessor; badValue for a profile
///   that neither file has; unreadable for files with errors; notAllowed,
///   excluded, noCommand, wouldBeLost for what a processor cannot have)
ZELDEBUGDIALOG_PROJECTFILE_API EditedProject
EditProject(const std::string &projectFile, const ProjectEdit &edit,
            const Board &board, const ProjectWishes &wishes);

/// The same for changes that belong together, which may go to both files: what
/// they make of the processors is looked at once, behind the last of them.
/// @return one a file that is to change, the project file first
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<EditedProject>
EditProjectFiles(const std::string &projectFile,
                 const std::vector<ProjectEdit> &edits, const Board &board,
                 const ProjectWishes &wishes);

/// Writes what was planned.
/// @throws Refusal (changedOnDisk, fileSystem, noFolder, noRegularFile); then
///   the file is as it was
ZELDEBUGDIALOG_PROJECTFILE_API void WriteProject(const EditedProject &edited);

/// The same for changes that belong together. Before either file is written,
/// both are as they were when it was planned.
/// @throws Refusal (as above, and changedOnDisk for two changes of one file);
///   then both files are as they were, or the first one is new where it could
///   not be put back either
ZELDEBUGDIALOG_PROJECTFILE_API void
WriteProjectFiles(const std::vector<EditedProject> &files);

} // namespace ZelDebugDialog

#endif
