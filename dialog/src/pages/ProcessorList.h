// The processors of a board, debuggable or not.
#ifndef ZELDEBUGDIALOG_DIALOG_PROCESSORLIST_H
#define ZELDEBUGDIALOG_DIALOG_PROCESSORLIST_H

#include <string>

#include <QTreeWidget>

#include "ZelDebugDialog/ConfigurationModel/Board.h"

namespace ZelDebugDialog::dialog {

/// What is known of the option file of a processor.
enum class SavedAs { nothing, saved, unreadable, changed };

class ProcessorList : public QTreeWidget {
  Q_OBJECT

public:
  ProcessorList(const Board &board, QWidget *parent);

  bool choose(const std::string &processor);
  std::string chosen() const;
  void display(const std::string &processor, SavedAs saved);

signals:
  void processorChosen(const std::string &processor);

private:
  QTreeWidgetItem *find(const std::string &processor) const;
};

} // namespace ZelDebugDialog::dialog

#endif
