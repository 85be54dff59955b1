// Where each value of a configuration comes from that the files give, and what
// an option file has otherwise.
//
// Functions without a state of their own; no option file is written. Usable
// from any thread.
//
//   const MergedProcessor merged = MergeProject(project, choice, processor);
//   Session session(board, merged.processor);
//   if (ApplyProject(project, merged, board, session).command)
//     for (const CommandSetting &one : ShowProject(merged, session).settings)
//       tell(one.id, one.value, one.origin);
#ifndef ZELDEBUGDIALOG_PROJECTFILE_ORIGINS_H
#define ZELDEBUGDIALOG_PROJECTFILE_ORIGINS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/CommandSettings.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// "zeldebug.toml:3:8", the name of the file alone; "option" for what stands in
/// no file.
ZELDEBUGDIALOG_PROJECTFILE_API std::string
ShowOrigin(const ProjectPlace &place);

/// Every setting of a configuration, with its origin: "default", "design", or
/// as of `ShowOrigin`. What follows from another setting has the origin of that
/// one: the type of a connection, and a chain's devices each their own.
/// @param merged   what the session was made of
/// @param session  as `ApplyProject` leaves it; not refused
ZELDEBUGDIALOG_PROJECTFILE_API CommandSettings
ShowProject(const MergedProcessor &merged, const Session &session);

/// The settings that the option file has otherwise, `saved` of the file: those
/// that the command carries, and what else the file's command says. None where
/// there is no file, or one that cannot be read.
/// @param board      of the session
/// @param session    as `ApplyProject` leaves it; not refused
/// @param displaced  what it says of them; they are told of and no difference
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<Difference>
CompareWithOptionFile(const Board &board, const Session &session,
                      const std::vector<ProjectLoss> &displaced);

/// What is to be told of values that are said of a processor and do not count:
/// those of another cable ("cable-dropped"), and those that others displace
/// ("displaced"), as notes at their places.
/// @param merged     what was merged
/// @param displaced  as `ApplyProject` has found it
ZELDEBUGDIALOG_PROJECTFILE_API std::vector<ProjectFault>
ExplainLeftOut(const MergedProcessor &merged,
               const std::vector<ProjectLoss> &displaced);

} // namespace ZelDebugDialog

#endif
