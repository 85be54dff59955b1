// What is behind a session: its history, what is saved, and the desk at which
// its commands are written and read.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "commands/Desk.h"
#include "files/FileLock.h"
#include "files/OptionFile.h"
#include "sessions/BoardState.h"
#include "sessions/Step.h"

namespace ZelDebugDialog::model {

/// Operations of one session; whoever calls holds its mutex.
class SessionImp {
public:
  SessionImp(const Board &ofBoard,
             std::shared_ptr<const BoardState> stateOfBoard,
             const std::string &processor, Session::Hold hold);

  std::vector<Effect> change(const ChangeRequest &request, const Step *copied);
  std::vector<Effect> draft(const std::string &setting,
                            const std::string &text);
  std::vector<Effect> dropDraft(const std::string &setting);
  std::vector<Effect> edit(const std::string &command);
  std::vector<Effect> undo();
  std::vector<Effect> redo();
  std::vector<Effect> revert();
  std::vector<Effect> reset(std::vector<std::string> settings);
  std::vector<Effect> copyFrom(const Step &other);

  Snapshot defaults() const { return defaultsBeside(current->now, identity); }
  std::vector<Difference> differences() const;
  bool isDirty() const;
  bool isChangedOnDisk() const;
  SessionState state();

  mutable std::mutex mutex;
  Board shownBoard; ///< for those who ask in public
  std::shared_ptr<const BoardState> board;
  ProcessorInfoImp identity;
  std::filesystem::path file;
  std::string shownFile; ///< as the board was given its folder
  Desk desk;
  OptionFile loaded;   ///< the file as it was read
  std::string problem; ///< why it could not be
  StepPointer saved;   ///< what it gives; the defaults without it
  StepPointer current;
  std::vector<StepPointer> past;
  std::vector<StepPointer> future;
  std::unique_ptr<FileLock> lock; ///< while it is held

  /// Reads the file and takes what it gives for what is saved.
  void load();

private:
  /// A command's settings, each with its column behind `origin`.
  void noteOrigins(Step &step, const std::string &command,
                   const std::string &origin);
  /// The current step, with nothing asked for yet.
  Step startStep() const;
  /// Makes a step the current one, unless nothing differs.
  std::vector<Effect> take(Step next, const std::string &why,
                           bool withAsked = true);
  /// @return false for a command that is refused
  bool takeCommand(Step &step, const std::string &command);
  /// @return the settings that this processor does not allow
  std::vector<std::string> takeCopy(Step &step, const Step &copied);
  Effect notCopied(const std::string &setting) const;
  void analyseStep(Step &step);
  std::vector<CommandDiagnostic> diagnosticsOf(const Step &step) const;
};

} // namespace ZelDebugDialog::model
