// One configuration that a person works on: the settings of one processor,
// changed, checked, undone, and saved without losing anything.
//
// A session starts from what is saved. Every operation either does all that it
// was asked for or throws a `Refusal` and leaves everything as it was. It
// writes nothing but in `Save` and `SaveSessions`, neither uses nor changes the
// working directory of the process, and is independent of other sessions, also
// of those of its own processor. Any thread may use any session; two threads
// that use one at once take turns.
//
//   Session session(board, "cpu0");
//   session.Change({{"cable.cableType", "quorla_podusb"},
//                   {"cable.frequency", "3 MHz"}});
//   for (const Loss &loss : session.Losses()) tell(loss.field, loss.reason);
//   session.Save();
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSION_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSION_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/CommandSettings.h"
#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Value.h"

namespace ZelDebugDialog {

/// Settings by their names, with the values that are asked for. A value is of
/// the type that the setting has, or a text that a person would type for it.
using SettingValues = std::vector<std::pair<std::string, Value>>;

/// A setting that is not what it was.
struct Effect {
  std::string setting; ///< Its name; the chain is always "chain".
  Value before;        ///< What it was.
  Value after;         ///< What it is.
  std::string why;     ///< "choosing a cable brings its port and frequency"
};

/// A setting that the written command does not bring back.
struct Loss {
  /// Its name; the chain is always "chain"; "connectCommand" for the whole.
  std::string field;
  Value value;    ///< What was to be saved.
  Value readBack; ///< What comes back; nothing where no command can be read.
  std::string reason;      ///< Why, without a full stop.
  std::string code;        ///< Known to `FindCode`; the anchor as well.
  std::string anchor;      ///< Where docs/round-trip.md tells what to do.
  std::string displacedBy; ///< The setting that takes its place, or empty.
  /// Whether saving is refused because of it. Not for a setting at its default
  /// that comes back as another value, nor for one that was displaced by a
  /// change that did not ask for it.
  bool blocking = true;
};

/// A setting that is not as it is saved.
struct Difference {
  std::string setting; ///< Its name; the chain is always "chain".
  Value saved;         ///< What the file, read anew, gives.
  Value now;           ///< What the session has.
};

/// A choice of a setting, as this processor has it.
struct ChoiceState {
  Choice choice;      ///< The choice itself.
  std::string reason; ///< Why it cannot be chosen; empty if it can.
};

/// One setting of a configuration.
struct SettingState {
  std::string id;     ///< Its name.
  Value value;        ///< What it is.
  std::string text;   ///< The value for people.
  Value defaultValue; ///< Of a cable's setting: that of the present cable.
  /// "default", "design", "file:<column>", "command:<column>", "changed", or
  /// what `Session::StartAs` was given. Once another value is saved, one that
  /// undoing brings back from the file before is "changed".
  std::string origin;
  /// Whether changing it, together with those that its row names, can change
  /// the command that is written.
  bool applicable = false;
  std::string reason;               ///< Why it is not applicable.
  std::optional<std::string> draft; ///< A text that is no value.
  std::string error;                ///< What is wrong with the draft.
  std::vector<ChoiceState> choices; ///< Of a setting that has few.
};

/// A word of the command that would be written, once for each setting in it.
struct StateWord {
  std::size_t offset = 0; ///< In bytes.
  std::size_t length = 0; ///< In bytes.
  std::string role;       ///< "head", "target", "option", "name", "value", ...
  std::string setting;    ///< One that stands in it; may be empty.
};

/// Everything that is known of a configuration.
struct SessionState {
  std::string processor;      ///< Its name.
  std::string file;           ///< The option file.
  bool exists = false;        ///< Whether the file is there.
  bool changedOnDisk = false; ///< Whether it is no longer what was loaded.
  std::string problem;  ///< Why what is saved could not be read; may be empty.
  bool dirty = false;   ///< Whether it is not what is saved.
  bool canUndo = false; ///< Whether `Undo` has a step.
  bool canRedo = false; ///< Whether `Redo` has a step.
  /// What would be written; none where no command can be written.
  std::optional<std::string> command;
  std::string commandError; ///< Why none can be written.
  /// The command that was accepted, where it is not the one that would be
  /// written.
  std::optional<std::string> editedCommand;
  std::optional<std::string> draft;             ///< A command that is refused.
  std::vector<SettingState> settings;           ///< In the order of the table.
  std::vector<std::vector<SettingState>> chain; ///< A device's fields each.
  std::vector<StateWord> words;                 ///< Of the command.
  std::vector<Loss> losses;                     ///< As `Session::Losses`.
  std::vector<Difference> differences;          ///< As `Session::Differences`.
  /// Of the draft where there is one, else of the command. What was wrong with
  /// the text that it comes from, such as a number that was cut, stands at the
  /// word that its setting has become, or behind the command.
  std::vector<CommandDiagnostic> diagnostics;
};

/// What one change asks for. Its parts hold together.
struct ChangeRequest {
  /// Starts from the settings of another processor, all but identity.
  const class Session *copyFrom = nullptr;
  /// Starts from the settings of a whole command.
  std::optional<std::string> command = std::nullopt;
  SettingValues values = {}; ///< What each is to become.
  /// Settings that go back to their defaults; those in `values` stand over
  /// them.
  std::vector<std::string> reset = {};
};

/// What became of one session in `SaveSessions`.
struct SaveOutcome {
  std::optional<Refusal> refusal; ///< Why it was not saved.
  bool written = false;           ///< False as well where nothing had changed.
  bool unchanged = false;         ///< The file gives it already.
  std::string file;               ///< The option file.
  std::string command;            ///< What the file holds now, or would hold.
  std::vector<Loss> losses;       ///< What does not come back.
};

/// How to save.
struct SaveOptions {
  /// Saves what would be lost, and over a file that cannot be read, has changed
  /// or is read-only.
  bool force = false;
  bool makeFolder = false; ///< Makes the folder if it is missing.
  bool dryRun = false;     ///< Tells what would become of it; writes nothing.
  /// Also replaces a file that gives the same in other bytes.
  bool reword = false;
};

namespace model {
class SessionImp;
}

/// A configuration. A moved-from session may only be assigned to or destroyed.
class ZELDEBUGDIALOG_CONFIGURATIONMODEL_API Session {
public:
  /// Whether others that would save the same configuration wait.
  enum class Hold {
    whileSaving, ///< Only while this one saves.
    untilSaved, ///< From now until it has saved or is closed. Refused where the
                ///< folder is not there or another one holds it too long.
  };

  /// Starts from what is saved, or from the defaults where nothing is. Where
  /// what is saved cannot be read, `Problem` says so and it starts from the
  /// defaults.
  /// @throws Refusal (unknownProcessor, notDebuggable; with `untilSaved` also
  ///   noFolder, fileSystem)
  Session(const Board &board, const std::string &processor,
          Hold hold = Hold::whileSaving);
  /// The same session.
  Session(Session &&other) noexcept;
  /// Closes this one first.
  Session &operator=(Session &&other) noexcept;
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;
  ~Session();

  // Changing. Each returns what is not as it was: `Change` and `Draft` what
  // changed besides what was asked for, the others everything.

  /// Gives settings values. Afterwards each has the value that was asked for,
  /// whatever the order in which they were named.
  /// @throws Refusal (unknownSetting, notSettable, badValue, notAllowed,
  ///   excluded)
  std::vector<Effect> Change(const SettingValues &values);
  /// The same with more to start from. A command that is refused: badCommand.
  std::vector<Effect> Change(const ChangeRequest &request);
  /// A text as it is typed: a value acts as `Change`; another text is kept with
  /// its error and changes nothing. The setting "command" takes a whole
  /// command.
  /// @throws Refusal (unknownSetting, notSettable)
  std::vector<Effect> Draft(const std::string &setting,
                            const std::string &text);
  /// Drops the draft of a setting, or of "command".
  std::vector<Effect> DropDraft(const std::string &setting);
  /// Makes the settings of a command its own; a command with faults stays as
  /// the draft of "command".
  std::vector<Effect> Edit(const std::string &command);
  /// @throws Refusal (nothingToUndo)
  std::vector<Effect> Undo();
  /// @throws Refusal (nothingToRedo)
  std::vector<Effect> Redo();
  /// Back to what is saved, drafts and all.
  std::vector<Effect> Revert();
  /// Back to the defaults: of these settings, or of all where none is named.
  /// @throws Refusal (unknownSetting, notSettable)
  std::vector<Effect> Reset(const std::vector<std::string> &settings);
  /// Everything of another session but what says which processor it is. What
  /// this processor does not allow stays as it is, and is told as an effect
  /// without a difference.
  std::vector<Effect> CopyFrom(const Session &other);
  /// Starts from the settings of another session of the same processor in the
  /// place of the defaults, as long as nothing is saved: `Revert` comes back to
  /// them, and where nothing has been done yet, they are there now. That is no
  /// change, and nothing that can be undone.
  /// @param other   of the same processor
  /// @param origin  where those that are not the defaults come from
  void StartAs(const Session &other, const std::string &origin);

  // Asking.

  /// The name of its processor.
  const std::string &Processor() const;
  /// The option file that it saves.
  std::string File() const;
  /// Why what is saved could not be read; empty if it could.
  std::string Problem() const;
  /// What the file gives by itself, also where it cannot be taken whole; the
  /// defaults without a file.
  CommandSettings Loaded();
  /// Everything at once.
  SessionState State() const;
  /// Of a device's field: "chain[0].partname".
  /// @throws Refusal (unknownSetting), also for a device that is not there
  Value Get(const std::string &setting) const;
  /// @throws Refusal (noCommand)
  std::string Command() const;
  /// What would not survive saving.
  std::vector<Loss> Losses() const;
  /// What is not as it is saved.
  std::vector<Difference> Differences() const;
  /// Whether the file is no longer what was loaded or saved last.
  bool ChangedOnDisk() const;

  /// Saves this one.
  /// @throws Refusal (wouldBeLost, unreadable, changedOnDisk, readOnly: not
  ///   with `force`; draft, noCommand, noRegularFile, noFolder, fileSystem)
  SaveOutcome Save(const SaveOptions &options = {});

private:
  friend ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::vector<SaveOutcome>
  SaveSessions(const std::vector<Session *> &sessions,
               const SaveOptions &options);

  std::unique_ptr<model::SessionImp> imp;
};

/// Saves several at once: each whole or not at all, with one flush for all that
/// are written, and one of their folder. Refusals stand in the outcomes, in the
/// order of the sessions. Of several that have one file the first is saved, or
/// the one that holds it; the others are refused (changedOnDisk), with `force`
/// as well.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::vector<SaveOutcome>
SaveSessions(const std::vector<Session *> &sessions,
             const SaveOptions &options = {});

} // namespace ZelDebugDialog

#endif
