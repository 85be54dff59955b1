#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>
#include <utility>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "ZelDebugDialog/ProjectFile/Sync.h"
#include "boards/Saying.h"
#include "merging/Processors.h"
#include "reading/Names.h"

namespace ZelDebugDialog {

using project::sayingOf;

namespace {

/// Where a session's values come from that the files say.
constexpr const char *projectOrigin = "project";

/// What both files say, and what follows from it.
struct Content {
  Project project;
  ProjectChoice choice;
  std::vector<ProjectFault> warnings;
  std::map<std::string, SaidProcessor> said; ///< Those that were asked for.
};

Content contentOf(const Project &project, const Board &board,
                  const ProjectWishes &wishes) {
  std::vector<ProjectFault> faults = AllFaults(project, board);
  const auto isError = [](const ProjectFault &fault) {
    return fault.severity == ProjectSeverity::error;
  };
  if (std::any_of(faults.begin(), faults.end(), isError))
    throw FaultyProject(faults);
  return {project, ChooseProject(project, wishes), std::move(faults), {}};
}

template <class Named>
std::vector<std::string> namesIn(const std::vector<Named> &project,
                                 const std::vector<Named> &local) {
  std::vector<std::string> names;
  project::addNames(project, names);
  project::addNames(local, names);
  return names;
}

std::vector<std::string> probesOf(const Project &files) {
  return namesIn(files.project.probes, files.local.probes);
}

std::vector<std::string> profilesOf(const Project &files) {
  return namesIn(files.project.profiles, files.local.profiles);
}

/// What a board is made from cannot become another beneath it.
void expectSameBoard(const Project &before, const Project &now) {
  using Row = std::pair<const char *, bool>;
  for (const auto &[key, isSame] :
       {Row("design", before.Design() == now.Design()),
        Row("library", before.Libraries() == now.Libraries()),
        Row("view", before.View() == now.View()),
        Row("kinds", before.Kinds() == now.Kinds()),
        Row("directory", OptionFolderOf(before) == OptionFolderOf(now))}) {
    if (isSame)
      continue;
    Refusal refusal(RefusalKind::changedOnDisk, ShowText(now.project.file),
                    fmt::format("'{}' is no longer what the board was opened "
                                "with: open the project anew",
                                key));
    refusal.file = now.project.file;
    throw refusal;
  }
}

bool operator==(const ProjectPlace &left, const ProjectPlace &right) {
  return left.file == right.file && left.line == right.line &&
         left.column == right.column;
}

/// Whether a processor hears something else, or from somewhere else.
bool isSame(const SaidProcessor &left, const SaidProcessor &right) {
  return left.command == right.command &&
         std::equal(left.settings.begin(), left.settings.end(),
                    right.settings.begin(), right.settings.end(),
                    [](const SaidSetting &one, const SaidSetting &other) {
                      return one.value.setting == other.value.setting &&
                             one.value.value == other.value.value &&
                             one.layer == other.layer &&
                             one.value.place == other.value.place;
                    });
}

} // namespace

class ProjectBoardState {
public:
  ProjectBoardState(const Project &project, const Board &ofProject,
                    ProjectWishes ofRun)
      : board(ofProject), wishes(std::move(ofRun)),
        content(contentOf(project, board, wishes)) {}

  const BoardProcessor *find(const std::string &name) const {
    return project::findProcessor(board, name);
  }

  const SaidProcessor &said(const std::string &name) {
    const auto known = content.said.find(name);
    if (known != content.said.end())
      return known->second;
    return content.said.emplace(name, saidBy(content, content.choice, name))
        .first->second;
  }

  SaidProcessor saidBy(const Content &by, const ProjectChoice &choice,
                       const std::string &name) const {
    const BoardProcessor *const processor = find(name);
    return processor == nullptr
               ? SaidProcessor()
               : sayingOf(by.project, choice, board, *processor);
  }

  void start(Session &session) const {
    const BoardProcessor *const processor = find(session.Processor());
    if (processor == nullptr)
      return;
    Session first(board, processor->name);
    const MergedProcessor merged =
        MergeProject(content.project, content.choice, *processor);
    if (ApplyProject(content.project, merged, board, first).command)
      session.StartAs(first, projectOrigin);
  }

  WrittenProject write(Session &session, ProjectEdit edit);
  std::vector<WrittenProject> adopt(const std::vector<std::string> &processors,
                                    const ProjectEdit *into);
  bool readAgain();

  std::mutex mutex;
  Board board;
  ProjectWishes wishes;
  Content content;
  unsigned version = 0;

private:
  /// What the files say now.
  Content read() const {
    const Project files = ReadProject(content.project.project.file);
    if (!files.HasErrors())
      expectSameBoard(content.project, files);
    return contentOf(files, board, wishes);
  }
  /// What of a change counts now, as one of the session.
  ChangeRequest countingOf(const ProjectEdit &edit, const Content &after) const;
  void take(Content &&next) {
    content = std::move(next);
    ++version;
  }
};

ChangeRequest ProjectBoardState::countingOf(const ProjectEdit &edit,
                                            const Content &after) const {
  ChangeRequest request;
  const MergedProcessor merged =
      MergeProject(after.project, after.choice, *find(edit.processor));
  for (const auto &[setting, value] : edit.values) {
    const MergedValue *const counting = merged.Find(setting);
    if (counting != nullptr &&
        counting->value.value == ExpectSetting(setting, value))
      request.values.emplace_back(setting, counting->value.value);
  }
  for (const std::string &setting : edit.unset) {
    if (const MergedValue *const below = merged.Find(setting))
      request.values.emplace_back(setting, below->value.value);
    else
      request.reset.push_back(setting);
  }
  return request;
}

WrittenProject ProjectBoardState::write(Session &session, ProjectEdit edit) {
  edit.processor = session.Processor();
  const std::string &file = content.project.project.file;
  // All faults are told, where the change alone would tell the first.
  read();
  const EditedProject edited = EditProject(file, edit, board, wishes);
  Content after = contentOf(edited.project, board, wishes);
  ProjectChoice choice = after.choice;
  // What a profile is given is looked at where it is in use.
  if (edit.target == ProjectTarget::profile)
    choice.profile.name = edit.profile;
  WrittenProject written{edited.file, edited.IsChanged(), edited.warnings, {}};
  for (ProjectFault &remark : saidBy(after, choice, edit.processor).remarks)
    written.remarks.push_back(std::move(remark));
  const ChangeRequest request = countingOf(edit, after);
  const bool hasToChange = !request.values.empty() || !request.reset.empty();
  if (hasToChange) {
    Session trial(board, edit.processor);
    trial.CopyFrom(session);
    trial.Change(request);
  }
  WriteProject(edited);
  take(std::move(after));
  if (hasToChange)
    written.effects = session.Change(request);
  start(session);
  return written;
}

std::vector<WrittenProject>
ProjectBoardState::adopt(const std::vector<std::string> &processors,
                         const ProjectEdit *into) {
  const std::string &file = content.project.project.file;
  const Content before = read();
  const std::vector<ProjectEdit> edits =
      AdoptOptionFiles(before.project, before.choice, board, processors, into);
  std::vector<WrittenProject> all;
  if (!edits.empty()) {
    const std::vector<EditedProject> edited =
        EditProjectFiles(file, edits, board, wishes);
    Content after = contentOf(edited.front().project, board, wishes);
    WriteProjectFiles(edited);
    take(std::move(after));
    for (const EditedProject &one : edited)
      all.push_back({one.file, one.IsChanged(), one.warnings, {}});
  }
  RememberOptionFiles(board, processors);
  return all;
}

bool ProjectBoardState::readAgain() {
  Content next = read();
  bool isOther = content.warnings.size() != next.warnings.size() ||
                 content.choice.probe.name != next.choice.probe.name ||
                 content.choice.profile.name != next.choice.profile.name ||
                 probesOf(content.project) != probesOf(next.project) ||
                 profilesOf(content.project) != profilesOf(next.project);
  for (const BoardProcessor &one : board.Processors()) {
    if (isOther)
      break;
    isOther = !isSame(said(one.name), saidBy(next, next.choice, one.name));
  }
  if (isOther)
    take(std::move(next));
  return isOther;
}

using Turn = std::lock_guard<std::mutex>;

ProjectBoard::ProjectBoard(const Project &project, const Board &board,
                           const ProjectWishes &wishes)
    : state(std::make_shared<ProjectBoardState>(project, board, wishes)) {}
ProjectBoard::ProjectBoard(const ProjectBoard &other) = default;
ProjectBoard &ProjectBoard::operator=(const ProjectBoard &other) = default;
ProjectBoard::~ProjectBoard() = default;

const Board &ProjectBoard::GetBoard() const { return state->board; }

std::string ProjectBoard::File() const {
  const Turn turn(state->mutex);
  return state->content.project.project.file;
}

Project ProjectBoard::Files() const {
  const Turn turn(state->mutex);
  return state->content.project;
}

ProjectChoice ProjectBoard::Choice() const {
  const Turn turn(state->mutex);
  return state->content.choice;
}

std::vector<ProjectFault> ProjectBoard::Warnings() const {
  const Turn turn(state->mutex);
  return state->content.warnings;
}

std::vector<std::string> ProjectBoard::Probes() const {
  return probesOf(Files());
}

std::vector<std::string> ProjectBoard::Profiles() const {
  return profilesOf(Files());
}

unsigned ProjectBoard::Version() const {
  const Turn turn(state->mutex);
  return state->version;
}

SaidProcessor ProjectBoard::Said(const std::string &processor) const {
  const Turn turn(state->mutex);
  return state->said(processor);
}

void ProjectBoard::Start(Session &session) const {
  const Turn turn(state->mutex);
  state->start(session);
}

WrittenProject ProjectBoard::Write(Session &session, ProjectEdit edit) {
  const Turn turn(state->mutex);
  return state->write(session, std::move(edit));
}

std::vector<WrittenProject>
ProjectBoard::Adopt(const std::vector<std::string> &processors,
                    const ProjectEdit *into) {
  const Turn turn(state->mutex);
  return state->adopt(processors, into);
}

bool ProjectBoard::ReadAgain() {
  const Turn turn(state->mutex);
  return state->readAgain();
}

std::string OptionFolderOf(const Project &project) {
  return (std::filesystem::path(project.Directory()) / "etc")
      .lexically_normal()
      .string();
}

} // namespace ZelDebugDialog
