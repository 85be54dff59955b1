// All settings in their groups, in the order of the table of settings.
#ifndef ZELDEBUGDIALOG_DIALOG_SETTINGSFORM_H
#define ZELDEBUGDIALOG_DIALOG_SETTINGSFORM_H

#include <string>
#include <vector>

#include <QScrollArea>

#include "pages/SessionModel.h"

class QVBoxLayout;

namespace ZelDebugDialog::dialog {

class Section;
class SettingRow;

class SettingsForm : public QScrollArea {
  Q_OBJECT

public:
  SettingsForm(SessionModel &sessionModel, QWidget *parent);
  SettingsForm(const SettingsForm &) = delete;
  SettingsForm &operator=(const SettingsForm &) = delete;
  ~SettingsForm() override;

  /// Shows and marks where a setting stands; of a device's field, the chain.
  void reveal(const std::string &setting);
  /// The same, and gives it the focus.
  void lead(const std::string &setting);
  SettingRow *rowFor(const std::string &setting) const;

signals:
  /// Empty when no setting has it.
  void settingFocused(const std::string &setting);

protected:
  void hideEvent(QHideEvent *event) override;

private:
  void refresh();
  void closeRows();
  void explain();
  void noteFocus(const QWidget *widget);
  Section *sectionOf(const SettingRow *row) const;
  bool hasSection(const std::string &group) const;
  void addSection(const SettingInfo &first, QVBoxLayout &layout);

  SessionModel *model;
  std::vector<Section *> sections;
  std::vector<SettingRow *> rows;
  QMetaObject::Connection focusNotes;
};

} // namespace ZelDebugDialog::dialog

#endif
