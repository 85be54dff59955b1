#include <algorithm>
#include <set>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "adopting/WithEdit.h"
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

/// The changes of one processor's tables.
class Adopting {
public:
  Adopting(const Project &ofProject, const ProjectChoice &chosen,
           const Board &ofBoard, const BoardProcessor &adopted,
           const ProjectEdit *into)
      : project(ofProject), choice(chosen), board(ofBoard), processor(adopted),
        isTargetGiven(into != nullptr) {
    if (into != nullptr)
      shared = *into;
    ofDesk.target = ProjectTarget::local;
    shared.processor = ofDesk.processor = processor.name;
  }

  std::vector<ProjectEdit> edits() {
    takeValues();
    while (takeAwayWhatIsLost())
      ;
    std::vector<ProjectEdit> all;
    for (ProjectEdit *const edit : {&shared, &ofDesk})
      if (!edit->values.empty() || !edit->unset.empty())
        all.push_back(std::move(*edit));
    return all;
  }

private:
  void takeValues() {
    const Session saved = expectSaved(board, processor.name);
    const Session now = wanted(project, choice, board, processor);
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
          !isTargetGiven && (isOfDesk(setting.id, value, &cable) ||
                             isOfDesk(setting.id, before, &cableBefore));
      (isLocal ? ofDesk : shared).values.emplace_back(setting.id, value);
    }
  }

  /// What the files say for another connection or cable does not survive with
  /// the option file's. It is taken away where it stands, and where that does
  /// not reach it, in the local file.
  /// @return whether anything was
  bool takeAwayWhatIsLost() {
    const Project after = withEdit(withEdit(project, shared), ofDesk);
    // What a profile is given is looked at where it is in use.
    ProjectChoice inUse = choice;
    if (shared.target == ProjectTarget::profile)
      inUse.profile.name = shared.profile;
    const MergedProcessor merged = MergeProject(after, inUse, processor);
    Session session(board, processor.name);
    bool isTaken = false;
    for (const ProjectLoss &one :
         ApplyProject(after, merged, board, session).lost) {
      const MergedValue *const said = merged.Find(one.loss.field);
      // A value of the option file's own is none of another one's.
      if (said != nullptr && said->value.place.line != 0 &&
          takeAway(*said, after.local.file))
        isTaken = true;
    }
    return isTaken;
  }

  bool takeAway(const MergedValue &said, const std::string &localFile) {
    const std::string &setting = said.value.setting;
    const bool isOfShared = isTargetGiven || said.value.place.file != localFile;
    if (isOfShared && unsets(shared, setting) == shared.unset.end()) {
      shared.unset.push_back(setting);
      return true;
    }
    if (isTargetGiven || unsets(ofDesk, setting) != ofDesk.unset.end())
      return false;
    if (isOfShared)
      shared.unset.erase(unsets(shared, setting));
    ofDesk.unset.push_back(setting);
    return true;
  }

  static std::vector<std::string>::iterator unsets(ProjectEdit &edit,
                                                   const std::string &setting) {
    return std::find(edit.unset.begin(), edit.unset.end(), setting);
  }

  const Project &project;
  const ProjectChoice &choice;
  const Board &board;
  const BoardProcessor &processor;
  bool isTargetGiven;
  ProjectEdit shared;
  ProjectEdit ofDesk;
};

} // namespace

std::vector<ProjectEdit>
AdoptOptionFiles(const Project &project, const ProjectChoice &choice,
                 const Board &board, const std::vector<std::string> &processors,
                 const ProjectEdit *into) {
  // Also where there is nothing to take.
  if (into != nullptr && into->target == ProjectTarget::profile)
    isProfileLocal(project, into->profile);
  std::vector<ProjectEdit> edits;
  for (const std::string &name : processors)
    for (ProjectEdit &edit :
         Adopting(project, choice, board, expectProcessor(board, name), into)
             .edits())
      edits.push_back(std::move(edit));
  return edits;
}

} // namespace ZelDebugDialog
