// Colours the texts of lists and tables by what they are to the person, by the
// palette that there is when they are drawn.
#ifndef ZELDEBUGDIALOG_DIALOG_TONEDELEGATE_H
#define ZELDEBUGDIALOG_DIALOG_TONEDELEGATE_H

#include <QStyledItemDelegate>
#include <QVariant>

#include "pages/Palette.h"

class QTableWidgetItem;
class QTreeWidgetItem;

namespace ZelDebugDialog::dialog {

class ToneDelegate : public QStyledItemDelegate {
  Q_OBJECT

public:
  using QStyledItemDelegate::QStyledItemDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem *option,
                       const QModelIndex &index) const override;
};

/// Of a list or table with such a delegate.
void setTone(QTreeWidgetItem &item, int column, Tone tone);
void setTone(QTableWidgetItem &item, Tone tone);

} // namespace ZelDebugDialog::dialog

#endif
