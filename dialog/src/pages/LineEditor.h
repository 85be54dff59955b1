// A line for texts, numbers, addresses and frequencies; with a button for
// files.
#ifndef ZELDEBUGDIALOG_DIALOG_LINEEDITOR_H
#define ZELDEBUGDIALOG_DIALOG_LINEEDITOR_H

#include <QLineEdit>
#include <QValidator>

#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

/// A line end that was copied along is no part of what is pasted into a line.
class PastedText : public QValidator {
  Q_OBJECT

public:
  using QValidator::QValidator;

  State validate(QString &text, int &position) const override;
};

/// Leaves undoing to the session, and a file that is dropped to the window.
class SessionLine : public QLineEdit {
  Q_OBJECT

public:
  explicit SessionLine(QWidget *parent);

signals:
  void left();

protected:
  bool event(QEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;
};

class LineEditor : public ValueEditor {
  Q_OBJECT

public:
  LineEditor(const SettingInfo &setting, SessionModel &sessionModel,
             QWidget *parent);

  void display(const SettingState &state) override;
  QWidget *field() override { return line; }
  QWidget *widget() override { return this; }

private:
  void send();
  void finish();
  void browse();
  bool isAsTyped(const SettingState &state) const;

  SessionLine *line;
  bool isTyping = false;  ///< The text is the person's own.
  bool isSending = false; ///< The state that comes is the answer to it.
  Value typedValue;       ///< What the text means.
};

} // namespace ZelDebugDialog::dialog

#endif
