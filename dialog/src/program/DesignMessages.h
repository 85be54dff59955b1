// What there is to say of the files of a design, as a list that leads to file
// and line.
#ifndef ZELDEBUGDIALOG_DIALOG_DESIGNMESSAGES_H
#define ZELDEBUGDIALOG_DIALOG_DESIGNMESSAGES_H

#include <vector>

#include <QTreeWidget>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog::dialog {

class Columns;

class DesignMessages : public QTreeWidget {
  Q_OBJECT

public:
  explicit DesignMessages(QWidget *parent);

  void display(const std::vector<DesignDiagnostic> &diagnostics);

private:
  void showSource(const QTreeWidgetItem &item);

  Columns *columns;
};

} // namespace ZelDebugDialog::dialog

#endif
