// One configuration, as widgets see it: the state of a session, a signal when
// it is another one, and the operations of people.
//
// What is typed letter by letter is one step of undoing until something else is
// done. Nothing is thrown to a widget: what is refused is told.
#ifndef ZELDEBUGDIALOG_DIALOG_SESSIONMODEL_H
#define ZELDEBUGDIALOG_DIALOG_SESSIONMODEL_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

namespace ZelDebugDialog::dialog {

class ProjectModel;

class SessionModel : public QObject {
  Q_OBJECT

public:
  /// @param ofBoard  the project that the board is of; null for none
  /// @throws Refusal for a processor that cannot be debugged
  SessionModel(const Board &board, const std::string &processor,
               ProjectModel *ofBoard = nullptr, QObject *parent = nullptr);

  const SessionState &state() const { return known; }
  /// The state of a setting of the table; null for one that has none.
  const SettingState *find(const std::string &setting) const;
  const Board &board() const { return ofBoard; }
  Session &session() { return live; }
  ProjectModel *project() const { return ofProject; }
  /// What the files of the project say; nothing without one.
  const SaidProcessor &said() const { return saidNow; }
  /// Whether the option file is what the project asks for.
  bool isSavedAsSaid();
  /// Whether closing would lose something: unfinished texts count.
  bool isModified() const;
  bool hasDrafts() const;
  /// Whether others have taken the file away.
  bool isGone() const;
  /// Whether `redo` has a step. What was typed and taken back by typing is
  /// none.
  bool canRedo() const;

  /// Lets the editor that is open hand over its text. What is done to the whole
  /// configuration begins with it.
  void takeOpenText() { emit openTextWanted(); }
  /// Whether an open editor has a text that is not the session's yet.
  void noteOpenText(bool isThere);

  /// A text as it is typed for a setting.
  void type(const std::string &setting, const QString &text);
  /// The same for the whole command.
  void typeCommand(const std::string &text);
  /// What is typed next is another step.
  void endTyping() { typed.clear(); }
  /// The same where this setting is what is typed for.
  void endTypingFor(const std::string &setting);
  void endTypingCommand();

  bool change(const std::string &setting, const Value &value);
  /// A text that is no value, or a value of the chain with cells that are none.
  void keepDraft(const std::string &setting, const QString &text);
  void dropDraft(const std::string &setting);
  void reset(const std::vector<std::string> &settings);
  void undo();
  void redo();
  void revert();
  void copyFrom(SessionModel &other);

  /// Looks whether the file is still what was loaded.
  void lookAtFile();
  /// Takes what has happened to the session elsewhere, such as saving.
  void refresh();

signals:
  void stateChanged();
  void openTextWanted();
  void openTextNoted();
  /// What else a change has changed, or why it was refused; may be empty.
  void told(const QString &text, bool isRefusal);

private:
  using Operation = std::function<std::vector<Effect>()>;

  bool perform(const Operation &operation);
  void performTyping(const std::string &typedFor, const Operation &operation);

  /// Starts as the files of the project say now, as far as nothing is done.
  void start();
  /// Takes what one starts from that nothing is done to.
  void noteStart();
  /// Whether its values are those that it is opened with the next time.
  bool isAsOpened() const;

  Board ofBoard;
  ProjectModel *ofProject;
  Session live;
  SaidProcessor saidNow;
  unsigned startedFrom = 0; ///< The version of the project.
  /// Of a project: the value of each setting where nothing is saved.
  std::vector<Value> started;
  SessionState known;
  std::string typed; ///< What is being typed for; empty for nothing.
  bool hasOpenText = false;
  SessionState beforeTyping; ///< While something is typed.
  /// Steps that are undone beside what was typed back and forth, which is
  /// undone, too; none where nothing was.
  std::optional<int> undoneSince;
  bool typingIsStep = false; ///< Whether undoing takes it back.
};

/// "Cable: Port becomes USB21, ... (choosing a cable brings ...); ..."
QString shownEffects(const std::vector<Effect> &effects);

} // namespace ZelDebugDialog::dialog

#endif
