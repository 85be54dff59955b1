// Option files that follow from the files of a project.
//
// Nothing that a person changed in an option file is overwritten unless it is
// forced: what was written last is remembered beside the option files, in
// `.zeldebug-sync`. Usable from any thread; two programs that synchronize one
// folder at once take turns.
//
//   const SyncRun run = SyncProject(project, choice, board, {});
//   for (const SyncResult &result : run.results)
//     tell(result.processor, ShowOutcome(result.outcome));
#ifndef ZELDEBUGDIALOG_PROJECTFILE_SYNC_H
#define ZELDEBUGDIALOG_PROJECTFILE_SYNC_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// What became of an option file.
enum class SyncOutcome : std::uint8_t {
  same,     ///< it was as the files say, byte for byte
  created,  ///< there was none
  updated,  ///< nobody had changed it since it was written last
  conflict, ///< somebody had: it is untouched
  refused,  ///< no option file can be written
};

/// "same", "created", "updated", "conflict", "refused"
ZELDEBUGDIALOG_PROJECTFILE_API const char *ShowOutcome(SyncOutcome outcome);

/// How to synchronize.
struct SyncOptions {
  std::vector<std::string> processors; ///< Which; empty: all.
  bool force = false;                  ///< Over conflicts and losses.
  bool dryRun = false; ///< Writes nothing; tells what it would have done.
  bool check = false;  ///< Writes nothing; what is not the same is a failure.
};

/// One processor.
struct SyncResult {
  std::string processor;                      ///< Its name.
  SyncOutcome outcome = SyncOutcome::refused; ///< What became of its file.
  std::string file;                           ///< The option file.
  std::optional<std::string> command;         ///< What it is to hold.
  /// Settings that the file has otherwise; `saved` of the file. Of a conflict,
  /// and of what was, or would be, updated.
  std::vector<Difference> differences;
  MergedProcessor merged;             ///< What counts, with what was dropped.
  std::vector<ProjectLoss> lost;      ///< What blocks.
  std::vector<ProjectLoss> displaced; ///< What only is told.
  ProjectPlace place;                 ///< Of what is refused.
  /// Why it is refused, or why a conflict has no differences; may be empty.
  std::string message;
};

/// All of them.
struct SyncRun {
  std::vector<SyncResult> results;    ///< In the order of the board.
  std::vector<ProjectFault> warnings; ///< Of the folder of option files.
  /// Whether something was refused, is a conflict or, where it was only
  /// checked, not the same.
  bool isRefused = false;
  /// Whether the option files are now as the results say. Not where something
  /// is refused and nothing was forced, nor where nothing was to be written.
  bool isDone = false;
};

/// Writes the option files of the board's folder as the files of the project
/// say. Where something is refused or would be lost, nothing is written at all
/// without `force`.
/// @param project  without errors, also none of `CheckProject`
/// @param choice   of the project
/// @param board    of the project's design and folder
/// @param options  which processors, and how
/// @throws Refusal (unknownProcessor; fileSystem, noFolder for the folder)
ZELDEBUGDIALOG_PROJECTFILE_API SyncRun
SyncProject(const Project &project, const ProjectChoice &choice,
            const Board &board, const SyncOptions &options = {});

/// Takes the option files of processors for written as they are: what they hold
/// is nobody's change any more.
/// @throws Refusal (unreadable, fileSystem, noFolder)
ZELDEBUGDIALOG_PROJECTFILE_API void
RememberOptionFiles(const Board &board,
                    const std::vector<std::string> &processors);

} // namespace ZelDebugDialog

#endif
