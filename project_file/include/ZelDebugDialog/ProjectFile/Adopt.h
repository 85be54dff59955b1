// The first files of a project: of a design alone, or of the option files that
// are there.
//
// Planning and writing are two steps, so that a program can show what would be
// written. Usable from any thread.
//
//   const AdoptedProject adopted = AdoptProject(board, {"board.xml"});
//   if (adopted.changes.empty()) WriteNewProject("zeldebug.toml", adopted);
#ifndef ZELDEBUGDIALOG_PROJECTFILE_ADOPT_H
#define ZELDEBUGDIALOG_PROJECTFILE_ADOPT_H

#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ProjectFile/Edit.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"

namespace ZelDebugDialog {

/// What the project file says of its design, as it is to be written there.
struct ProjectSources {
  std::string design;                    ///< Path of the design.
  std::string view = {};                 ///< Empty: none.
  std::string kinds = {};                ///< Path; empty: none.
  std::vector<std::string> library = {}; ///< Paths; empty: none.
  /// Text of a table of kinds that is to lie beside the project file, and is
  /// `kinds` then; empty: none.
  std::string kindsTable = {};
};

/// A path as a project file says it: relative to its folder.
/// @param projectFile  path of the project file
/// @param path  as the process would open it
ZELDEBUGDIALOG_PROJECTFILE_API std::string
PathFor(const std::string &projectFile, const std::string &path);

/// The name of the table of kinds that is written beside a project file.
inline constexpr const char *kindsFileName = "zeldebug.kinds";

/// An option file that would not be as it is.
struct AdoptChange {
  std::string processor;              ///< Whose it is.
  std::string file;                   ///< The option file.
  std::string before;                 ///< What it holds.
  std::optional<std::string> command; ///< What it would hold; none: refused.
  std::string reason;                 ///< Why; may be empty.
};

/// Files to be written.
struct AdoptedProject {
  std::string project;              ///< Text of the project file.
  std::optional<std::string> local; ///< Text of the local file; none: none.
  std::optional<std::string> kinds; ///< Text of the table of kinds.
  std::vector<AdoptChange> changes; ///< In the order of the board.
};

/// A project file for a design without option files: commented, with the
/// connection of each processor that does not allow the one that is there by
/// default.
ZELDEBUGDIALOG_PROJECTFILE_API AdoptedProject
InitProject(const Board &board, const ProjectSources &sources);

/// Files from which the option files follow that are there. A processor without
/// one counts as default. What all processors have goes to `[settings]`, what
/// all of a type have (two or more) to `[type.T]`, the rest to
/// `[processor.N]`; settings of a desk go to the local file the same way.
/// Nothing is written that is default.
/// @throws Refusal (unreadable) for an option file that cannot be read
ZELDEBUGDIALOG_PROJECTFILE_API AdoptedProject
AdoptProject(const Board &board, const ProjectSources &sources);

/// What the option files of processors have otherwise than the project says, as
/// changes of the project: settings of a desk in the local file, others in the
/// project file. What the files say for another connection or cable, and would
/// not survive with the option file's, is unset where it stands.
/// @param project     as it was read, without errors
/// @param choice      of the project
/// @param board       of the project's design
/// @param processors  names of some of the board's, each once
/// @param into  where all of it goes instead: its target and profile; null for
///   none
/// @throws Refusal (unknownProcessor; unreadable for an option file that is not
///   there or cannot be read; badValue for a profile that neither file has)
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<ProjectEdit>
AdoptOptionFiles(const Project &project, const ProjectChoice &choice,
                 const Board &board, const std::vector<std::string> &processors,
                 const ProjectEdit *into = nullptr);

/// Writes the files, and adds what is missing of the local file's name and
/// `etc/` to the `.gitignore` beside them.
/// @throws Refusal (fileExists) where one of the files is there already;
///   (fileSystem, noFolder). Then nothing has been touched but the
///   `.gitignore`.
ZELDEBUGDIALOG_PROJECTFILE_API void
WriteNewProject(const std::string &projectFile, const AdoptedProject &adopted);

} // namespace ZelDebugDialog

#endif
