// A group of settings under a heading, by which it is folded away.
#ifndef ZELDEBUGDIALOG_DIALOG_SECTION_H
#define ZELDEBUGDIALOG_DIALOG_SECTION_H

#include <string>
#include <vector>

#include <QWidget>

#include "pages/SessionModel.h"

class QGridLayout;
class QToolButton;

namespace ZelDebugDialog::dialog {

class ElidedLabel;
class SettingRow;

class Section : public QWidget {
  Q_OBJECT

public:
  Section(const SettingInfo &first, QWidget *parent);

  const std::string &group() const { return name; }
  SettingRow *add(const SettingInfo &setting, SessionModel &model);
  bool has(const SettingRow *row) const;
  /// Of the widest label; and what labels get in all sections alike.
  int labelWidth() const;
  void setLabelWidth(int width);
  void unfold();
  /// Shows the rows. Where none of them has become applicable or none is any
  /// longer, unfolds or folds.
  void refresh(const SessionModel &model);

private:
  void fold(bool isFolded);
  void describe();

  std::string name;
  QString reason; ///< Why none of its settings is applicable.
  QToolButton *heading;
  ElidedLabel *remark;
  QWidget *body;
  QGridLayout *grid;
  std::vector<SettingRow *> rows;
  bool isNew = true;
  bool wasOpen = false; ///< Whether one of its settings was applicable.
};

} // namespace ZelDebugDialog::dialog

#endif
