// Asks to which other processors a configuration is to be copied.
#ifndef ZELDEBUGDIALOG_DIALOG_COPYDIALOG_H
#define ZELDEBUGDIALOG_DIALOG_COPYDIALOG_H

#include <string>
#include <vector>

#include <QDialog>

#include "ZelDebugDialog/ConfigurationModel/Board.h"

class QListWidget;

namespace ZelDebugDialog::dialog {

class CopyDialog : public QDialog {
  Q_OBJECT

public:
  CopyDialog(const Board &board, const std::string &from, QWidget *parent);

  std::vector<std::string> chosen() const;

private:
  QListWidget *list;
};

} // namespace ZelDebugDialog::dialog

#endif
