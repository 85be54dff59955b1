// What the files say together: of a design, and for one processor.
//
// Functions without a state of their own. A board is asked, and sessions of it
// are made; no option file is written. Usable from any thread.
//
//   const ProjectChoice choice = ChooseProject(project, {});
//   const MergedProcessor merged = MergeProject(project, choice, processor);
//   const AppliedProject applied = ApplyProject(project, board, merged);
//   if (applied.command) show(*applied.command);
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGE_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGE_H

#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// What was asked for beside the files.
struct ProjectWishes {
  std::optional<std::string> probe;   ///< `--probe`
  std::optional<std::string> profile; ///< `--profile`
  std::string environmentProbe;       ///< ZELDEBUG_PROBE; empty: not set
  std::string environmentProfile;     ///< ZELDEBUG_PROFILE; empty: not set
};

/// One that was chosen.
struct ProjectChosen {
  std::string name; ///< Empty: none.
  /// Who chose it: "project", "local", "environment", "option"; empty: nobody.
  std::string by;
  ProjectPlace place; ///< Where, in a file.
};

/// Which probe and which profile count.
struct ProjectChoice {
  ProjectChosen probe;   ///< Its name is empty where there is none.
  ProjectChosen profile; ///< The same.
};

/// Project, local file, environment, line: the last one that says something.
/// @throws Refusal (badValue; `setting` is "--probe", "ZELDEBUG_PROFILE", ...)
///   for a name from the line or the environment that neither file defines
ZELDEBUGDIALOG_PROJECTFILE_API ProjectChoice
ChooseProject(const Project &project, const ProjectWishes &wishes);

/// What is wrong with the files for a design: names and types that it does not
/// have, patterns that contradict each other. By line and column.
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<ProjectFault>
CheckProject(const Project &project, const Board &board);

/// Everything that is wrong with the files: what reading found, and what
/// `CheckProject` finds. The project file's first, by line and column.
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<ProjectFault>
AllFaults(const Project &project, const Board &board);

/// A value that counts for a processor.
struct MergedValue {
  ProjectValue value; ///< Without a place for one of the line.
  /// Which source it is of; a higher one counts more.
  int rank = 0;
};

/// A value that belongs to another cable.
struct DroppedValue {
  ProjectValue value; ///< What was said.
  ProjectPlace by;    ///< Where another cable is named, or none.
};

/// Everything that counts for a processor.
struct MergedProcessor {
  std::string processor;             ///< Its instance name.
  std::vector<MergedValue> values;   ///< In the order of `GetSettings`.
  std::vector<DroppedValue> dropped; ///< Those of other cables.

  /// @return null if no source says anything of a setting
  ZELDEBUGDIALOG_PROJECTFILE_API const MergedValue *
  Find(const std::string &setting) const;
};

/// Merges the sources for one processor: the block of the project, the probe,
/// the profile, the block of the local file, the line.
/// @param project    without errors
/// @param choice     of the project
/// @param processor  of the board of its design
/// @param line       settings of the command line
ZELDEBUGDIALOG_PROJECTFILE_API MergedProcessor
MergeProject(const Project &project, const ProjectChoice &choice,
             const BoardProcessor &processor, const SettingValues &line = {});

/// A merged value that the command does not bring back.
struct ProjectLoss {
  Loss loss;             ///< As the session tells it.
  ProjectPlace place;    ///< Of the value.
  std::string displacer; ///< The setting of a higher source; empty: it is lost.
};

/// The configuration that the files give a processor.
struct AppliedProject {
  std::optional<std::string> command; ///< The option file; none: refused.
  std::optional<Refusal> refusal;     ///< Why it is refused.
  ProjectPlace place;                 ///< Where the refused value stands.
  /// These block. Of a connection that is refused, it alone.
  std::vector<ProjectLoss> lost;
  std::vector<ProjectLoss> displaced; ///< These are only told.
};

/// Makes the merged values the settings of a session, from its defaults.
/// @param project  without errors
/// @param merged   as `MergeProject` has merged them
/// @param board    of the project's design
/// @param session  of the processor; afterwards it has them, but for those that
///   are displaced, where the command is the same without them
ZELDEBUGDIALOG_PROJECTFILE_API AppliedProject
ApplyProject(const Project &project, const MergedProcessor &merged,
             const Board &board, Session &session);

} // namespace ZelDebugDialog

#endif
