#include "ZelDebugDialog/ProjectFile/Sync.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Files.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Origins.h"
#include "files/ReadFile.h"
#include "merging/Processors.h"
#include "merging/Sources.h"
#include "reading/Faults.h"
#include "syncing/Remembered.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

using namespace project;

// A thousand processors are synchronized in seconds: whoever takes longer has
// been stopped.
constexpr auto longestWait = std::chrono::seconds(60);

/// Makes the folders up to that of the option files, and takes those that it
/// made away again if nothing came into them.
class MadeFolders {
public:
  explicit MadeFolders(const fs::path &folder) {
    std::error_code error;
    std::vector<fs::path> missing;
    for (fs::path at = folder; !at.empty() && !fs::exists(at, error);
         at = at.parent_path())
      missing.push_back(at);
    for (auto path = missing.rbegin(); path != missing.rend(); ++path) {
      if (!fs::create_directory(*path, error) && error) {
        Refusal refusal(RefusalKind::fileSystem, ShowText(path->string()),
                        error.message());
        refusal.file = path->string();
        throw refusal;
      }
      made.push_back(*path);
    }
  }
  ~MadeFolders() {
    std::error_code ignored;
    for (auto path = made.rbegin(); path != made.rend(); ++path)
      fs::remove(*path, ignored);
  }
  MadeFolders(const MadeFolders &) = delete;
  MadeFolders &operator=(const MadeFolders &) = delete;

private:
  std::vector<fs::path> made;
};

/// One processor on its way.
struct Task {
  SyncResult result;
  std::unique_ptr<Session> session;
  std::optional<std::string> disk; ///< what the option file holds
  bool isForced = false;           ///< its save
};

class Sync {
public:
  Sync(const Project &ofProject, const ProjectChoice &chosen,
       const Board &ofBoard, const SyncOptions &how)
      : project(ofProject), choice(chosen), board(ofBoard), options(how),
        folder(ofBoard.Folder().empty() ? "." : ofBoard.Folder()),
        writes(!how.dryRun && !how.check) {}

  SyncRun run() {
    expectProcessors();
    std::unique_ptr<MadeFolders> made;
    std::unique_ptr<FileLock> lock;
    if (writes) {
      made = std::make_unique<MadeFolders>(folder);
      lock = std::make_unique<FileLock>(rememberedFile(), longestWait);
    }
    remember();
    for (const BoardProcessor &processor : board.Processors())
      if (isAsked(processor.name))
        tasks.push_back(prepared(processor));
    const bool isBlocked =
        std::any_of(tasks.begin(), tasks.end(), [this](const Task &task) {
          return !task.result.command ||
                 (!task.result.lost.empty() && !options.force);
        });
    if (!isBlocked || options.force) {
      save();
      if (writes)
        noteWritten(*lock);
      run_.isDone = writes;
    }
    warnOfStale();
    return finished();
  }

private:
  void expectProcessors() const {
    for (const std::string &name : options.processors)
      expectProcessor(board, name);
  }

  bool isAsked(const std::string &name) const {
    return options.processors.empty() ||
           std::find(options.processors.begin(), options.processors.end(),
                     name) != options.processors.end();
  }

  std::string rememberedFile() const {
    return (folder / rememberedName).string();
  }

  void remember() {
    std::string problem;
    try {
      const auto text = findFile(rememberedFile());
      ReadRemembered read = readRemembered(text.value_or(""));
      problem = read.problem;
      remembered = std::move(read.texts);
      rememberedText = text;
    } catch (const Refusal &refusal) {
      problem = refusal.problem;
    }
    if (!problem.empty())
      run_.warnings.push_back(
          faultOf("sync-unreadable", {rememberedFile(), 1, 1},
                  fmt::format("what was synchronized last cannot be read: {}",
                              problem)));
  }

  Task prepared(const BoardProcessor &processor) {
    Task task;
    SyncResult &result = task.result;
    result.processor = processor.name;
    result.file = board.FileOf(processor.name);
    result.merged = MergeProject(project, choice, processor);
    try {
      // What is loaded is what is compared when it is saved: the file is looked
      // at behind it, and a change in between is noticed.
      task.session = std::make_unique<Session>(board, processor.name);
      const bool isReadable = task.session->Problem().empty();
      AppliedProject applied =
          ApplyProject(project, result.merged, board, *task.session);
      result.command = std::move(applied.command);
      result.lost = std::move(applied.lost);
      result.displaced = std::move(applied.displaced);
      if (applied.refusal) {
        result.message = applied.refusal->problem;
        result.place = applied.place;
        return task;
      }
      task.disk = findFile(result.file);
      decide(task, isReadable);
      if (!isReadable && result.outcome == SyncOutcome::conflict)
        result.message = task.session->Problem();
      if (task.disk && result.outcome != SyncOutcome::same)
        result.differences =
            CompareWithOptionFile(board, *task.session, result.displaced);
    } catch (const Refusal &refusal) {
      result.outcome = SyncOutcome::refused;
      result.message = shownProblem(refusal, result);
      result.command.reset();
    }
    if (!result.lost.empty() && !options.force) {
      result.outcome = SyncOutcome::refused;
      result.message = fmt::format("'{}' would not survive: {}",
                                   result.lost.front().loss.field,
                                   result.lost.front().loss.reason);
      result.place = result.lost.front().place;
    }
    return task;
  }

  void decide(Task &task, bool isReadable) const {
    SyncResult &result = task.result;
    const std::string &wanted = *result.command;
    const auto last = remembered.find(result.processor);
    const bool isUntouched =
        last != remembered.end() && task.disk == last->second;
    if (task.disk == wanted)
      result.outcome = SyncOutcome::same;
    else if (!task.disk)
      result.outcome = SyncOutcome::created;
    else if (isUntouched || options.force)
      result.outcome = SyncOutcome::updated;
    else
      result.outcome = SyncOutcome::conflict;
    task.isForced = options.force || !isReadable;
  }

  bool isWritten(const Task &task) const {
    return task.result.outcome == SyncOutcome::created ||
           task.result.outcome == SyncOutcome::updated;
  }

  /// What is not to be written is refused all the same where it cannot be.
  void save() {
    for (const bool isForced : {false, true}) {
      std::vector<Session *> sessions;
      std::vector<Task *> written;
      for (Task &task : tasks)
        if (isWritten(task) && task.isForced == isForced) {
          sessions.push_back(task.session.get());
          written.push_back(&task);
        }
      if (sessions.empty())
        continue;
      SaveOptions how;
      how.reword = true;
      how.force = isForced;
      how.dryRun = !writes;
      const std::vector<SaveOutcome> outcomes = SaveSessions(sessions, how);
      for (std::size_t at = 0; at < outcomes.size(); ++at)
        if (outcomes[at].refusal)
          refuse(*written[at], *outcomes[at].refusal);
    }
  }

  void noteWritten(const FileLock &lock) {
    Remembered now = remembered;
    for (const Task &task : tasks)
      if (isWritten(task) || task.result.outcome == SyncOutcome::same)
        now[task.result.processor] = *task.result.command;
    const std::string text = writtenRemembered(now);
    if (rememberedText != text && !(now.empty() && !rememberedText))
      WriteWholeFile(lock, text, ExistingFile::replace);
  }

  /// What the file system refuses, it refuses of the option file.
  static std::string shownProblem(const Refusal &refusal,
                                  const SyncResult &result) {
    return refusal.file.empty()
               ? refusal.problem
               : fmt::format("{}: {}", ShowText(result.file), refusal.problem);
  }

  /// A file that has changed since it was looked at is somebody's change.
  static void refuse(Task &task, const Refusal &refusal) {
    task.result.outcome = refusal.kind == RefusalKind::changedOnDisk
                              ? SyncOutcome::conflict
                              : SyncOutcome::refused;
    task.result.message = task.result.outcome == SyncOutcome::conflict
                              ? refusal.problem
                              : shownProblem(refusal, task.result);
  }

  void warnOfStale() {
    std::set<std::string> names;
    for (const BoardProcessor &processor : board.Processors())
      names.insert(fs::path(board.FileOf(processor.name)).filename().string());
    const std::string anyOptionFile =
        fs::path(board.FileOf("?*")).filename().string();
    std::set<std::string> stale;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end;
         !error && entry != end; entry.increment(error)) {
      const std::string name = entry->path().filename().string();
      if (matches(anyOptionFile, name) && names.count(name) == 0)
        stale.insert((folder / name).string());
    }
    for (const std::string &file : stale)
      run_.warnings.push_back(
          faultOf("stale-option-file", {file, 1, 1},
                  fmt::format("'{}' belongs to no processor of the design "
                              "that can be debugged",
                              ShowText(file))));
  }

  SyncRun finished() {
    for (Task &task : tasks) {
      const SyncOutcome outcome = task.result.outcome;
      run_.isRefused = run_.isRefused || outcome == SyncOutcome::conflict ||
                       outcome == SyncOutcome::refused ||
                       (options.check && outcome != SyncOutcome::same);
      run_.results.push_back(std::move(task.result));
    }
    return std::move(run_);
  }

  const Project &project;
  const ProjectChoice &choice;
  const Board &board;
  const SyncOptions &options;
  fs::path folder;
  bool writes;
  Remembered remembered;
  std::optional<std::string> rememberedText;
  std::vector<Task> tasks;
  SyncRun run_;
};

} // namespace

const char *ShowOutcome(SyncOutcome outcome) {
  switch (outcome) {
  case SyncOutcome::same:
    return "same";
  case SyncOutcome::created:
    return "created";
  case SyncOutcome::updated:
    return "updated";
  case SyncOutcome::conflict:
    return "conflict";
  case SyncOutcome::refused:
    break;
  }
  return "refused";
}

void RememberOptionFiles(const Board &board,
                         const std::vector<std::string> &processors) {
  const fs::path folder = board.Folder().empty() ? "." : board.Folder();
  const std::string file = (folder / rememberedName).string();
  const FileLock lock(file, longestWait);
  const auto before = findFile(file);
  Remembered texts = readRemembered(before.value_or("")).texts;
  for (const std::string &processor : processors)
    if (const auto text = findFile(board.FileOf(processor)))
      texts[processor] = *text;
  const std::string after = writtenRemembered(texts);
  if (before != after)
    WriteWholeFile(lock, after, ExistingFile::replace);
}

SyncRun SyncProject(const Project &project, const ProjectChoice &choice,
                    const Board &board, const SyncOptions &options) {
  return Sync(project, choice, board, options).run();
}

} // namespace ZelDebugDialog
