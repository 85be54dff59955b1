#include "sessions/Saving.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "files/FileSaver.h"
#include "files/Place.h"
#include "losses/Writing.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

/// Makes the folder where it may, and takes it away again if nothing came into
/// it.
class SaveFolder {
public:
  SaveFolder(fs::path path, bool mayMake) : folder(std::move(path)) {
    if (!mayMake || lookAt(folder, fs::file_type::directory).exists)
      return;
    std::error_code error;
    isMade = fs::create_directory(folder, error);
    if (error)
      refuseFile(folder, error.message());
  }
  ~SaveFolder() {
    std::error_code ignored;
    if (isMade)
      fs::remove(folder, ignored);
  }
  SaveFolder(const SaveFolder &) = delete;
  SaveFolder &operator=(const SaveFolder &) = delete;

private:
  fs::path folder;
  bool isMade = false;
};

/// One session on its way into its file.
class Save {
public:
  Save(SessionImp &saved, const SaveOptions &how, SaveOutcome &result)
      : session(saved), options(how), outcome(result), target(saved.target()) {}

  /// Everything that can be refused, up to a file beside the one that it is to
  /// replace.
  void prepare(std::set<fs::path> &taken);
  /// @return null where there is nothing to write
  const ScratchFile *written() const { return scratch ? &*scratch : nullptr; }
  void finish();
  /// The file that is replaced, behind links.
  const fs::path &place() const { return target; }
  void refuse(const Refusal &refusal) {
    outcome.refusal = session.asGiven(refusal);
    scratch.reset();
    lock.reset();
    folder.reset();
  }

private:
  /// About the option file.
  Refusal refusalOf(RefusalKind kind, const std::string &problem) const {
    Refusal refusal(kind, printable(session.shownFile), problem);
    refusal.file = session.shownFile;
    return refusal;
  }
  void expectNoDraft();
  void expectCommand();
  void expectPlace();
  void expectReadable();
  void expectNoLoss();
  void expectSameOnDisk();
  bool isSavedAlready() const;
  bool isWrittenAlready() const;
  void writeAndReadBack();

  SessionImp &session;
  const SaveOptions &options;
  SaveOutcome &outcome;
  fs::path target;
  std::unique_ptr<SaveFolder> folder;
  std::unique_ptr<LockFile> lock;
  std::optional<ScratchFile> scratch;
};

void Save::expectNoDraft() {
  const Step &step = *session.current;
  if (step.drafts.empty() && !step.commandDraft)
    return;
  const std::string setting =
      step.drafts.empty() ? "command" : step.drafts.begin()->first;
  Refusal refusal(RefusalKind::draft, setting,
                  "a text that is no value stands there");
  refusal.setting = setting;
  refusal.value = step.drafts.empty() ? *step.commandDraft
                                      : step.drafts.begin()->second.text;
  throw refusal;
}

void Save::expectCommand() {
  const Analysis &analysis = session.current->analysis;
  if (!analysis.command)
    throw noCommandOf(analysis);
}

/// A dry run makes no folder, and says nothing against one that is missing.
void Save::expectPlace() {
  if (!session.noFile.empty())
    throw refusalOf(RefusalKind::noRegularFile, session.noFile);
  const fs::path around = target.parent_path();
  if (!options.dryRun)
    folder = std::make_unique<SaveFolder>(around, options.makeFolder);
  // What cannot be entered says nothing of what is in it.
  const Place here = lookAt(around, fs::file_type::directory);
  if (here.exists && here.problem.empty())
    expectWritable(around, options.makeFolder);
  if (!options.dryRun || lookAt(around, fs::file_type::directory).exists)
    expectReplaceable(target, options.force);
  if (options.dryRun && !here.exists)
    expectWritable(around, options.makeFolder);
}

void Save::expectReadable() {
  if (session.problem.empty() || options.force)
    return;
  Refusal refusal =
      refusalOf(RefusalKind::unreadable,
                fmt::format("{}; it stays as it is", session.problem));
  refusal.line = session.loaded.line;
  throw refusal;
}

void Save::expectNoLoss() {
  const auto blocking =
      std::find_if(outcome.losses.begin(), outcome.losses.end(),
                   [](const Loss &loss) { return loss.blocking; });
  if (blocking == outcome.losses.end() || options.force)
    return;
  std::string list;
  for (const Loss &loss : outcome.losses)
    if (loss.blocking)
      list += (list.empty() ? "" : ", ") + loss.field;
  Refusal refusal = refusalOf(
      RefusalKind::wouldBeLost,
      fmt::format("nothing is saved, because it would not survive: {}", list));
  refusal.setting = blocking->field;
  throw refusal;
}

void Save::expectSameOnDisk() {
  if (options.force || !session.isChangedOnDisk())
    return;
  throw refusalOf(RefusalKind::changedOnDisk,
                  "it has changed on disk since it was loaded");
}

/// A file that reads as what is wanted stays as it is, however it is worded.
bool Save::isSavedAlready() const {
  const OptionFile &file = session.loaded;
  if (options.reword && file.bytes != session.current->analysis.command)
    return false;
  return session.problem.empty() && file.exists && file.line != 0 &&
         session.differences().empty();
}

/// What cannot be saved makes no difference to the file.
bool Save::isWrittenAlready() const {
  const OptionFile &file = session.loaded;
  return session.problem.empty() &&
         (options.reword ? file.bytes : file.text) ==
             session.current->analysis.command &&
         !session.isChangedOnDisk();
}

void Save::prepare(std::set<fs::path> &taken) {
  const bool isSaved = isSavedAlready();
  outcome.file = session.shownFile;
  outcome.command = isSaved ? session.loaded.text
                            : session.current->analysis.command.value_or("");
  expectNoDraft();
  if (isSaved && !session.isChangedOnDisk()) {
    outcome.unchanged = true;
    return;
  }
  outcome.losses = lossesOf(*session.current, session.defaults());
  expectCommand();
  expectPlace();
  expectReadable();
  expectNoLoss();
  if (!taken.insert(target).second)
    throw refusalOf(RefusalKind::changedOnDisk,
                    "another of the sessions that are saved has it, too");
  if (options.dryRun) {
    expectSameOnDisk();
    outcome.unchanged = isWrittenAlready();
    return;
  }
  if (session.lock == nullptr)
    lock = std::make_unique<LockFile>(target);
  expectSameOnDisk();
  if (isWrittenAlready())
    outcome.unchanged = true;
  else
    writeAndReadBack();
}

/// What is not as the analysis has foretold is refused like any other loss.
void Save::writeAndReadBack() {
  const Step &step = *session.current;
  scratch.emplace(target);
  const Reading writing =
      writeSnapshotTo(session.desk, step.now, scratch->path().string());
  if (writing.result != 0)
    refuseFile(target, reasonOf(writing.message));
  scratch->expectContent(*step.analysis.command);
  Desk second(session.board->design, session.identity);
  const ReadBack back =
      readBackFile(second, scratch->path().string(), *step.analysis.command);
  const std::vector<RawLoss> losses =
      lossesOf(step.now, *step.analysis.command, step.analysis.writing,
               back.snapshot ? &*back.snapshot : nullptr, back.refusal);
  const bool isForetold =
      std::all_of(losses.begin(), losses.end(), [&step](const RawLoss &loss) {
        return step.analysis.findLoss(loss.setting) != nullptr;
      });
  if (!isForetold && !options.force)
    throw refusalOf(
        RefusalKind::wouldBeLost,
        "nothing is saved, because the file is read back differently");
}

void Save::finish() {
  if (scratch) {
    scratch->moveIntoPlace();
    outcome.written = true;
    session.load();
  }
  if (outcome.written || (outcome.unchanged && !options.dryRun))
    session.noteSaved();
  if (options.dryRun)
    return;
  session.lock.reset();
  lock.reset();
}

} // namespace

std::vector<SaveOutcome> saveAll(const std::vector<SessionImp *> &sessions,
                                 const SaveOptions &options) {
  std::vector<SaveOutcome> outcomes(sessions.size());
  std::vector<Save> saves;
  saves.reserve(sessions.size());
  // Two programs that save the same files take their locks in one order. Of two
  // sessions that have one file, the one that holds its lock comes first: the
  // other is refused then, and does not wait for it.
  std::vector<std::tuple<fs::path, bool, std::size_t>> places;
  for (std::size_t i = 0; i < sessions.size(); ++i) {
    saves.emplace_back(*sessions[i], options, outcomes[i]);
    places.emplace_back(saves[i].place(), sessions[i]->lock == nullptr, i);
  }
  std::sort(places.begin(), places.end());
  std::vector<std::size_t> order(places.size());
  std::transform(
      places.begin(), places.end(), order.begin(),
      [](const auto &place) { return std::get<std::size_t>(place); });
  std::set<fs::path> taken;
  std::vector<const ScratchFile *> written;
  const auto attempt = [&](std::size_t i, const auto &step) {
    if (outcomes[i].refusal)
      return;
    try {
      step(saves[i]);
    } catch (const Refusal &refusal) {
      saves[i].refuse(refusal);
    }
  };
  for (const std::size_t i : order)
    attempt(i, [&](Save &save) { save.prepare(taken); });
  for (const Save &save : saves)
    if (save.written() != nullptr)
      written.push_back(save.written());
  try {
    flushFiles(written);
  } catch (const Refusal &refusal) {
    for (const std::size_t i : order)
      if (saves[i].written() != nullptr)
        saves[i].refuse(refusal);
  }
  for (const std::size_t i : order)
    attempt(i, [](Save &save) { save.finish(); });
  std::set<fs::path> folders;
  for (const std::size_t i : order)
    if (outcomes[i].written)
      folders.insert(saves[i].place().parent_path());
  for (const fs::path &folder : folders)
    flushFolder(folder);
  return outcomes;
}

} // namespace ZelDebugDialog::model
