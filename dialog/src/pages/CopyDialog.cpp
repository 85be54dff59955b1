#include "pages/CopyDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

CopyDialog::CopyDialog(const Board &board, const std::string &from,
                       QWidget *parent)
    : QDialog(parent), list(new QListWidget(this)) {
  setWindowTitle(tr("Copy the configuration"));
  auto *const layout = new QVBoxLayout(this);
  auto *const label =
      new QLabel(tr("&Copy the settings of %1 to:").arg(shown(from)), this);
  label->setBuddy(list);
  list->setAccessibleName(tr("Other processors"));
  layout->addWidget(label);
  layout->addWidget(list);
  for (const BoardProcessor &processor : board.Processors()) {
    if (processor.name == from)
      continue;
    auto *const item = new QListWidgetItem(shown(processor.name), list);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    item->setToolTip(shown(processor.type));
  }
  auto *const buttons = new QDialogButtonBox(
      QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setText(tr("Copy"));
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::vector<std::string> CopyDialog::chosen() const {
  std::vector<std::string> names;
  for (int i = 0; i < list->count(); ++i)
    if (list->item(i)->checkState() == Qt::Checked)
      names.push_back(bytesOf(list->item(i)->text()));
  return names;
}

} // namespace ZelDebugDialog::dialog
