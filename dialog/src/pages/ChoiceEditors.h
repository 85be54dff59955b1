// Words as a box of choices, flags as a mark, and what is only shown as a text.
#ifndef ZELDEBUGDIALOG_DIALOG_CHOICEEDITORS_H
#define ZELDEBUGDIALOG_DIALOG_CHOICEEDITORS_H

#include <QCheckBox>
#include <QComboBox>

#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

/// Choices that are refused are there, with the reason.
class WordEditor : public ValueEditor {
  Q_OBJECT

public:
  WordEditor(const SettingInfo &setting, SessionModel &sessionModel,
             QWidget *parent);

  void display(const SettingState &state) override;
  QWidget *field() override { return box; }

private:
  QComboBox *box;
};

class FlagEditor : public ValueEditor {
  Q_OBJECT

public:
  FlagEditor(const SettingInfo &setting, SessionModel &sessionModel,
             QWidget *parent);

  void display(const SettingState &state) override;
  QWidget *field() override { return mark; }

private:
  QCheckBox *mark;
};

class ToneLabel;

/// Of what cannot be set.
class ShownValue : public ValueEditor {
  Q_OBJECT

public:
  ShownValue(const SettingInfo &setting, SessionModel &sessionModel,
             QWidget *parent);

  void display(const SettingState &state) override;
  QWidget *field() override;

private:
  ToneLabel *text;
};

} // namespace ZelDebugDialog::dialog

#endif
