// What is behind a session: its history, what is saved, and the desk at which
// its commands are written and read.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_SESSIONIMP_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_SESSIONIMP_H

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "commands/Desk.h"
#include "files/LockFile.h"
#include "files/OptionFile.h"
#include "sessions/BoardState.h"
#include "sessions/Step.h"

namespace ZelDebugDialog::model {

/// The engine's code for a file without a command.
constexpr int nothingSaved = 4;

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
  void startAs(const Step &first, const std::string &origin);

  Snapshot defaults() const { return defaultsBeside(current->now, identity); }
  std::vector<Difference> differences() const;
  bool isDirty() const;
  bool isChangedOnDisk() const;
  SessionState state();
  CommandSettings loadedSettings();
  /// A field of a device by its full name.
  /// @throws Refusal (unknownSetting) where there is no such device
  Value deviceField(const SettingRow &row, const std::string &name) const;
  /// The file that is replaced, behind links.
  std::filesystem::path target() const;
  /// What a refusal says of the option file or its folder, with the names that
  /// the board was given.
  Refusal asGiven(const Refusal &refusal) const;

  mutable std::mutex mutex;
  Board shownBoard; ///< for those who ask in public
  std::shared_ptr<const BoardState> board;
  ProcessorInfoImp identity;
  std::filesystem::path file;
  std::string shownFile; ///< as the board was given its folder
  std::string noFile;    ///< why there can be none; empty if there can
  Desk desk;
  OptionFile loaded; ///< the file as it was read
  Reading loadedReading{nothingSaved, ""};
  Snapshot loadedValues; ///< what it gives by itself, also where it is refused
  std::string problem;   ///< why it could not be
  StepPointer saved;     ///< what it gives; the defaults without it
  StepPointer start;     ///< stands for it while there is no file; may be null
  StepPointer current;
  std::vector<StepPointer> past;
  std::vector<StepPointer> future;
  std::size_t savings = 0; ///< how often the file has come to be what it is
  std::unique_ptr<LockFile> lock; ///< while it is held

  /// Reads the file and takes what it gives for what is saved.
  void load();
  /// What is saved comes from the file now, without a step.
  void noteSaved();

private:
  /// What a file gives.
  struct Saved {
    OptionFile file;
    Reading reading{nothingSaved, ""};
    Snapshot values;
    std::string problem;
    StepPointer step;
  };

  OptionFile readFile() const;
  Saved read();
  void adopt(Saved &&read) noexcept;
  /// A command's settings, each with its column behind `origin`.
  void noteOrigins(Step &step, const std::string &command,
                   const std::string &origin);
  /// A step of the history, which tells what comes from the file as that is
  /// now.
  StepPointer asSaved(const StepPointer &step) const;
  /// The current step, with nothing asked for yet.
  Step startStep() const;
  /// What makes a step.
  enum class Counts { texts, textsAndOrigins };
  /// Makes a step the current one, unless nothing differs.
  std::vector<Effect> take(Step next, const std::string &why,
                           bool withAsked = true,
                           Counts counts = Counts::texts);
  /// A text that was no value may be one beside the new values.
  void dropSettledDrafts(Step &step,
                         const std::vector<FieldDifference> &differences) const;
  /// Takes the identity that discovery gave.
  void restoreIdentity(Step &step) const;
  /// @return false for a command that is refused
  bool takeCommand(Step &step, const std::string &command);
  /// @return the settings that this processor does not allow
  std::vector<std::string> takeCopy(Step &step, const Step &copied);
  Effect notCopied(const std::string &setting) const;
  void analyseStep(Step &step);
  std::vector<CommandDiagnostic> diagnosticsOf(const Step &step) const;
};

} // namespace ZelDebugDialog::model

#endif
