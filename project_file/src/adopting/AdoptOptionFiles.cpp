#include <set>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "editing/TargetProfile.h"
#include "files/ReadFile.h"
#include "merging/Applicable.h"
#include "merging/Processors.h"
#include "reading/DeskSettings.h"
#include "reading/Keys.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

/// What is saved for a processor.
/// @throws Refusal (unreadable)
Session expectSaved(const Board &board, const std::string &processor) {
  Session session(board, processor);
  std::string problem = session.Problem();
  if (problem.empty() && !findFile(session.File()))
    problem = "there is no such file";
  if (problem.empty())
    return session;
  Refusal refusal(RefusalKind::unreadable, ShowText(session.File()), problem);
  refusal.file = session.File();
  throw refusal;
}

/// What the project says of a processor; its defaults where that is refused.
Session wanted(const Project &project, const ProjectChoice &choice,
               const Board &board, const BoardProcessor &processor) {
  Session session(board, processor.name);
  const AppliedProject applied = ApplyProject(
      project, MergeProject(project, choice, processor), board, session);
  if (applied.refusal)
    session.Reset({});
  return session;
}

} // namespace

std::vector<ProjectEdit>
AdoptOptionFiles(const Project &project, const ProjectChoice &choice,
                 const Board &board, const std::vector<std::string> &processors,
                 const ProjectEdit *into) {
  // Also where there is nothing to take.
  if (into != nullptr && into->target == ProjectTarget::profile)
    isProfileLocal(project, into->profile);
  std::vector<ProjectEdit> edits;
  for (const std::string &name : processors) {
    const BoardProcessor &processor = expectProcessor(board, name);
    const Session saved = expectSaved(board, name);
    const Session now = wanted(project, choice, board, processor);
    ProjectEdit shared = into == nullptr ? ProjectEdit() : *into;
    shared.processor = name;
    ProjectEdit ofDesk;
    ofDesk.target = ProjectTarget::local;
    ofDesk.processor = name;
    const std::set<std::string> applicable = applicableIn(saved);
    const Value cable = saved.Get(cableType);
    const Value cableBefore = now.Get(cableType);
    for (const SettingInfo &setting : GetSettings()) {
      if (findAccepted(setting.id) == nullptr ||
          applicable.count(setting.id) == 0)
        continue;
      const Value value = saved.Get(setting.id);
      const Value before = now.Get(setting.id);
      if (value == before)
        continue;
      // What takes a desk's value away is said where that one is.
      const bool isLocal =
          into == nullptr && (isOfDesk(setting.id, value, &cable) ||
                              isOfDesk(setting.id, before, &cableBefore));
      (isLocal ? ofDesk : shared).values.emplace_back(setting.id, value);
    }
    for (ProjectEdit *const edit : {&shared, &ofDesk})
      if (!edit->values.empty())
        edits.push_back(std::move(*edit));
  }
  return edits;
}

} // namespace ZelDebugDialog
