// The widget for the value of one setting, made from its kind.
//
// It shows a state and hands what people do to the model; it keeps nothing but
// the text that is being typed.
#ifndef ZELDEBUGDIALOG_DIALOG_VALUEEDITOR_H
#define ZELDEBUGDIALOG_DIALOG_VALUEEDITOR_H

#include <QWidget>

#include "pages/SessionModel.h"

namespace ZelDebugDialog::dialog {

class ValueEditor : public QWidget {
  Q_OBJECT

public:
  ValueEditor(const SettingInfo &setting, SessionModel &sessionModel,
              QWidget *parent)
      : QWidget(parent), info(&setting), model(&sessionModel) {}

  virtual void display(const SettingState &state) = 0;
  /// The widget that takes the focus.
  virtual QWidget *field() = 0;
  /// What is wrong with what stands there; empty for nothing.
  virtual QString errorIn(const SettingState &state) const;
  /// What stands in the form: the field alone, so that its label is told with
  /// it, or this with all that is beside the field.
  virtual QWidget *widget() { return field(); }
  /// Whether it takes a line of its own, beneath its label.
  virtual bool isWide() const { return false; }
  /// Leads to a part of it, such as the field of a device.
  virtual void lead(const std::string &setting);

protected:
  const SettingInfo *info; ///< A row of a table that never goes.
  SessionModel *model;
};

ValueEditor *makeEditor(const SettingInfo &setting, SessionModel &model,
                        QWidget *parent);

} // namespace ZelDebugDialog::dialog

#endif
