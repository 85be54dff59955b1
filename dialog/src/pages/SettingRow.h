// A setting in the form: label, editor, where its value comes from, the way
// back to its default, and what is wrong beneath.
#ifndef ZELDEBUGDIALOG_DIALOG_SETTINGROW_H
#define ZELDEBUGDIALOG_DIALOG_SETTINGROW_H

#include <QObject>

#include "pages/SessionModel.h"

class QGridLayout;
class QToolButton;

namespace ZelDebugDialog::dialog {

class ToneLabel;
class ValueEditor;

class SettingRow : public QObject {
  Q_OBJECT

public:
  /// Appends its widgets, children of `parent`, to the grid.
  SettingRow(const SettingInfo &setting, SessionModel &sessionModel,
             QGridLayout &grid, QWidget *parent);

  const SettingInfo &setting() const { return *info; }
  bool has(const QWidget *widget) const;
  QWidget *field() const;
  /// The label takes it where the setting is disabled, to say why.
  void takeFocus();
  int labelWidth() const;
  ValueEditor &editor() const { return *valueEditor; }
  const ToneLabel &label() const { return *nameLabel; }
  const ToneLabel &origin() const { return *originLabel; }
  const ToneLabel &error() const { return *errorLabel; }
  /// Leads back to the default; null for what is only shown.
  const QToolButton *back() const { return backButton; }
  /// Disables what is not applicable, unless a person works on it.
  void display(const SettingState &state);
  /// Disables it again where the person works on something else now.
  void closeUnlessWorkedOn();
  /// Marks it as the one that a word of the command has led to.
  void mark(bool isMarked);

private:
  void describe(const SettingState &state);
  QString shownOrigin(const SettingState &state) const;
  bool isWorkedOn() const;
  void displayOpen(const SettingState &state);
  void displayBack(const SettingState &state);

  const SettingInfo *info;
  SessionModel *model;
  ToneLabel *nameLabel;
  ValueEditor *valueEditor;
  ToneLabel *originLabel;
  QToolButton *backButton = nullptr;
  ToneLabel *errorLabel;
};

} // namespace ZelDebugDialog::dialog

#endif
