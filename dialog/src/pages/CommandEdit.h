// The line of the connect command: words coloured by their roles, faults
// underlined, the words of one setting marked, completion.
#ifndef ZELDEBUGDIALOG_DIALOG_COMMANDEDIT_H
#define ZELDEBUGDIALOG_DIALOG_COMMANDEDIT_H

#include <string>
#include <vector>

#include <QPlainTextEdit>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"

class QCompleter;

namespace ZelDebugDialog::dialog {

/// A word of the command, with the settings that stand in it.
struct EditWord {
  std::size_t offset = 0; ///< In bytes.
  std::size_t length = 0; ///< In bytes.
  std::string role;
  std::vector<std::string> settings;
};

/// What there is to say of a text.
struct CommandMarks {
  std::vector<EditWord> words;
  std::vector<CommandDiagnostic> diagnostics;
};

class CommandEdit : public QPlainTextEdit {
  Q_OBJECT

public:
  explicit CommandEdit(QWidget *parent);

  /// Shows a text, unless it is there already.
  void showText(const std::string &text);
  void showMarks(const CommandMarks &commandMarks);
  /// Marks the words of a setting; of none where it is empty.
  void markSetting(const std::string &setting);
  /// What stands there, also what is no UTF-8.
  const std::string &text() const { return bytes; }
  /// Puts `with` in the place of some bytes, as if it had been typed.
  void replace(std::size_t offset, std::size_t length, const std::string &with);

signals:
  void typed();
  void left();
  /// A word has been clicked; `takesFocus` where its setting is to be edited.
  void settingAsked(const std::string &setting, bool takesFocus);

protected:
  bool event(QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;
  void changeEvent(QEvent *event) override;
  bool canInsertFromMimeData(const QMimeData *source) const override;
  void insertFromMimeData(const QMimeData *source) override;

private:
  QString letters() const;
  void takeEdited(const QString &now);
  void draw();
  void ask(int position, bool takesFocus);
  void offerCompletion();
  void complete(const QString &word);
  QString diagnosisAt(int position) const;
  QTextEdit::ExtraSelection selectionOf(std::size_t offset,
                                        std::size_t length) const;

  std::string bytes;
  QString seen; ///< The letters of `bytes`, as they stand there.
  CommandMarks marks;
  std::string marked;
  QCompleter *completer;
  CommandCompletion completion;
  bool isShowing = false; ///< The text that comes is not a person's.
};

} // namespace ZelDebugDialog::dialog

#endif
