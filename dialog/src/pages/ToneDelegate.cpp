#include "pages/ToneDelegate.h"

#include <QTableWidgetItem>
#include <QTreeWidgetItem>

namespace ZelDebugDialog::dialog {

namespace {
constexpr int toneRole = Qt::UserRole + 100; // behind those of the lists
} // namespace

void ToneDelegate::initStyleOption(QStyleOptionViewItem *option,
                                   const QModelIndex &index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const QVariant tone = index.data(toneRole);
  if (tone.isValid())
    option->palette.setColor(
        QPalette::Text,
        toneColour(static_cast<Tone>(tone.toInt()), option->palette));
}

void setTone(QTreeWidgetItem &item, int column, Tone tone) {
  item.setData(column, toneRole, static_cast<int>(tone));
}

void setTone(QTableWidgetItem &item, Tone tone) {
  item.setData(toneRole, static_cast<int>(tone));
}

} // namespace ZelDebugDialog::dialog
