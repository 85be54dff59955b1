// The connect command of a configuration, live: shown, edited, diagnosed.
#ifndef ZELDEBUGDIALOG_DIALOG_COMMANDPANEL_H
#define ZELDEBUGDIALOG_DIALOG_COMMANDPANEL_H

#include <QWidget>

#include "pages/CommandEdit.h"
#include "pages/SessionModel.h"

namespace ZelDebugDialog::dialog {

class ElidedLabel;

class CommandPanel : public QWidget {
  Q_OBJECT

public:
  CommandPanel(SessionModel &sessionModel, QWidget *parent);

  CommandEdit &edit() { return *command; }
  void markSetting(const std::string &setting) {
    command->markSetting(setting);
  }
  /// What is wrong with the text that stands there.
  const std::vector<CommandDiagnostic> &diagnostics() const { return found; }
  /// Puts the nearest match in the place of what is wrong.
  void apply(const CommandDiagnostic &diagnostic);

signals:
  void settingAsked(const std::string &setting, bool takesFocus);
  void diagnosticsChanged();
  /// A command has faults, where there was none with any.
  void faultsCameUp();

private:
  void refresh();
  void send();
  bool isAsTyped() const;
  CommandMarks marksOf(const std::string &text) const;

  SessionModel *model;
  CommandEdit *command;
  ElidedLabel *remark;
  std::vector<CommandDiagnostic> found;
  bool hadFaults = false;
  bool isTyping = false; ///< The text is the person's own.
};

} // namespace ZelDebugDialog::dialog

#endif
