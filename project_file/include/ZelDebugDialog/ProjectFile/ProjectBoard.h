// A board of a project, to be worked on: its configurations start as the files
// say, each value is known with its place, and changes go to the files.
//
// It keeps what the files say as they were read, or as it wrote them last. The
// board's design stays alive as long as it is used. Any thread may use it;
// changes take turns.
//
//   ProjectBoard project(ReadProject("zeldebug.toml"), board);
//   Session session(board, "cpu0");
//   project.Start(session);
//   for (const SaidSetting &one : project.Said("cpu0").settings)
//     tell(one.value.setting, one.layer, one.value.place);
#ifndef ZELDEBUGDIALOG_PROJECTFILE_PROJECTBOARD_H
#define ZELDEBUGDIALOG_PROJECTFILE_PROJECTBOARD_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Edit.h"
#include "ZelDebugDialog/ProjectFile/Export.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

namespace ZelDebugDialog {

/// Files with errors: every one of them. As a refusal (unreadable) it tells the
/// first.
class ZELDEBUGDIALOG_PROJECTFILE_API FaultyProject : public Refusal {
public:
  /// @param ofFiles  with an error; what is none is left out
  explicit FaultyProject(const std::vector<ProjectFault> &ofFiles);
  /// The same faults.
  FaultyProject(const FaultyProject &copied);
  /// The same faults.
  FaultyProject &operator=(const FaultyProject &copied);
  ~FaultyProject() override;

  std::vector<ProjectFault> faults; ///< In the order of `Project::faults`.
};

/// What the files say of a setting of one processor.
struct SaidSetting {
  ProjectValue value; ///< With the place that it stands at.
  /// "project" and "local" for what stands in no probe and no profile, else
  /// "probe:NAME" or "profile:NAME"; the place says in which file.
  std::string layer;
};

/// What the files say of one processor.
struct SaidProcessor {
  std::vector<SaidSetting> settings;  ///< In the order of `GetSettings`.
  std::optional<std::string> command; ///< Its option file; none: refused.
  std::optional<Refusal> refusal;     ///< Why it is refused.
  ProjectPlace place;                 ///< Where the refused value stands.
  /// What became of values: "cable-dropped" and "displaced" as notes, those
  /// that would be lost as warnings with the code of the loss.
  std::vector<ProjectFault> remarks;

  /// Of what is shown of the connection, that of the connection.
  /// @return null if they say nothing of it
  ZELDEBUGDIALOG_PROJECTFILE_API const SaidSetting *
  Find(const std::string &setting) const;
};

/// A change that has been written.
struct WrittenProject {
  std::string file;      ///< The file that says it now.
  bool isChanged = true; ///< False where it said so already.
  /// As of `EditedProject`, and what became of the processor's values.
  std::vector<ProjectFault> remarks;
  std::vector<Effect> effects; ///< As of `Session::Change`.
};

/// Where a change can go, as people write it: "local", "project",
/// "profile:NAME".
/// @throws Refusal (badValue) for anything else
ZELDEBUGDIALOG_PROJECTFILE_API void ReadTarget(const std::string &text,
                                               ProjectEdit &edit);

/// What the environment chooses.
/// @param lookUp  `std::getenv`, which is for the program to call: no other
///   thread may change the environment meanwhile
ZELDEBUGDIALOG_PROJECTFILE_API ProjectWishes
AskEnvironment(char *(*lookUp)(const char *));

/// The folder of the option files of a project.
ZELDEBUGDIALOG_PROJECTFILE_API std::string
OptionFolderOf(const Project &project);

class ProjectBoardState;

/// A board of a project. Copies are the same.
class ZELDEBUGDIALOG_PROJECTFILE_API ProjectBoard {
public:
  /// @param project  as it was read
  /// @param board  with the design and the option folder that the files name
  /// @param wishes  what is chosen beside the files
  /// @throws FaultyProject; Refusal (badValue) for a probe or a profile of
  ///   `wishes` that is none
  ProjectBoard(const Project &project, const Board &board,
               const ProjectWishes &wishes = {});
  /// The same one.
  ProjectBoard(const ProjectBoard &other);
  /// The same one.
  ProjectBoard &operator=(const ProjectBoard &other);
  ~ProjectBoard();

  /// The board itself.
  const Board &GetBoard() const;
  /// The project file, as it was opened.
  std::string File() const;
  /// What both files say.
  Project Files() const;
  /// Which probe and which profile count.
  ProjectChoice Choice() const;
  /// What is to be told of the files.
  std::vector<ProjectFault> Warnings() const;
  /// The names of the probes and the profiles of both files, each once.
  std::vector<std::string> Probes() const;
  /// The same of profiles.
  std::vector<std::string> Profiles() const;
  /// Counts how often something else is said.
  unsigned Version() const;

  /// What the files say of a processor of the board.
  SaidProcessor Said(const std::string &processor) const;
  /// Lets a session start as the files say, where nothing is saved; one that
  /// they refuse starts from the defaults.
  void Start(Session &session) const;
  /// Writes a change for the processor of a session. It is checked before as
  /// `EditProject` does, also that the session can have it; then the session
  /// has what of it counts. Undoing takes nothing back in the files.
  /// @throws FaultyProject, Refusal (changedOnDisk as of `ReadAgain`, others);
  ///   then nothing is changed
  WrittenProject Write(Session &session, ProjectEdit edit);
  /// Takes what the option files of processors have otherwise than the files
  /// say into the files, and takes the option files for written as they are.
  /// @param processors  names of some of the board's
  /// @param into  its target and profile; null: what belongs to a desk goes to
  ///   the local file, the rest to the project file
  /// @return one a file that is concerned
  /// @throws FaultyProject; Refusal as of `AdoptOptionFiles`, `EditProject` and
  ///   `ReadAgain`; then nothing is changed
  std::vector<WrittenProject> Adopt(const std::vector<std::string> &processors,
                                    const ProjectEdit *into = nullptr);
  /// Reads the files again.
  /// @return whether they say something else
  /// @throws FaultyProject, Refusal (unreadable; changedOnDisk: they name
  ///   another design, or another folder of the option files, than those of the
  ///   board); then it stays as it was
  bool ReadAgain();

private:
  std::shared_ptr<ProjectBoardState> state;
};

} // namespace ZelDebugDialog

#endif
