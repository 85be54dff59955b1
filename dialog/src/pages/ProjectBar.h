// Above a board of a project: which one it is, how the option file stands to
// it, and where changes go.
#ifndef ZELDEBUGDIALOG_DIALOG_PROJECTBAR_H
#define ZELDEBUGDIALOG_DIALOG_PROJECTBAR_H

#include <vector>

#include <QWidget>

#include "pages/ProjectModel.h"

class QComboBox;
class QLabel;

namespace ZelDebugDialog::dialog {

class ElidedLabel;
class SessionModel;

class ProjectBar : public QWidget {
  Q_OBJECT

public:
  ProjectBar(ProjectModel &ofProject, QWidget *parent);

  /// @param session  of the processor that is shown; null for none
  void display(SessionModel *session);

private:
  void fillTargets();

  ProjectModel *project;
  QLabel *title;
  ElidedLabel *state;
  QComboBox *box;
  std::vector<ChangeTarget> targets;
};

} // namespace ZelDebugDialog::dialog

#endif
