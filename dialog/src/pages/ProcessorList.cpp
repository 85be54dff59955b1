#include "pages/ProcessorList.h"

#include <QCoreApplication>
#include <QHeaderView>

#include "pages/Columns.h"
#include "pages/Texts.h"
#include "pages/ToneDelegate.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int nameColumn = 0;
constexpr int savedColumn = 4;

struct SavedText {
  const char *sign;
  const char *text;
};

SavedText textOf(SavedAs saved) {
  switch (saved) {
  case SavedAs::saved:
    return {"✓", QT_TRANSLATE_NOOP("ZelDebugDialog::dialog::ProcessorList",
                                   "saved")};
  case SavedAs::unreadable:
    return {"⚠", QT_TRANSLATE_NOOP("ZelDebugDialog::dialog::ProcessorList",
                                   "what is saved cannot be read")};
  case SavedAs::changed:
    return {"●", QT_TRANSLATE_NOOP("ZelDebugDialog::dialog::ProcessorList",
                                   "changed, not saved yet")};
  case SavedAs::nothing:
    break;
  }
  return {"", QT_TRANSLATE_NOOP("ZelDebugDialog::dialog::ProcessorList",
                                "nothing is saved")};
}

} // namespace

ProcessorList::ProcessorList(const Board &board, QWidget *parent)
    : QTreeWidget(parent) {
  setAccessibleName(wordOf("Processors"));
  setHeaderLabels({wordOf("Processor"), wordOf("Type"), tr("No."),
                   wordOf("FPU"),
                   QCoreApplication::translate("Lists", "Saved")});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setItemDelegate(new ToneDelegate(this));
  setAllColumnsShowFocus(true);
  for (const BoardProcessor &processor : board.Processors())
    new QTreeWidgetItem(this, {shown(processor.name), shown(processor.type),
                               QString::number(processor.number),
                               shown(processor.fpuText), QString()});
  for (const UndebuggableProcessor &processor : board.Undebuggable()) {
    auto *const item = new QTreeWidgetItem(
        this, {shown(processor.name), shown(processor.type)});
    const QString why =
        tr("cannot be debugged: %1").arg(reasonOf(processor.reason));
    for (int column = 0; column < columnCount(); ++column) {
      setTone(*item, column, Tone::quiet);
      item->setToolTip(column,
                       QStringLiteral("<p>%1</p>").arg(why.toHtmlEscaped()));
    }
    item->setData(nameColumn, Qt::AccessibleDescriptionRole, why);
  }
  for (int column = 0; column < columnCount(); ++column)
    resizeColumnToContents(column);
  header()->setStretchLastSection(false);
  new Columns(this, QStringLiteral("processors"));
  header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
  connect(this, &QTreeWidget::currentItemChanged, this,
          [this](const QTreeWidgetItem *item) {
            if (item != nullptr)
              emit processorChosen(bytesOf(item->text(nameColumn)));
          });
}

QTreeWidgetItem *ProcessorList::find(const std::string &processor) const {
  const QString name = shown(processor);
  for (int i = 0; i < topLevelItemCount(); ++i)
    if (topLevelItem(i)->text(nameColumn) == name)
      return topLevelItem(i);
  return nullptr;
}

bool ProcessorList::choose(const std::string &processor) {
  QTreeWidgetItem *const item = find(processor);
  if (item == nullptr)
    return false;
  setCurrentItem(item);
  return true;
}

std::string ProcessorList::chosen() const {
  return currentItem() == nullptr ? std::string()
                                  : bytesOf(currentItem()->text(nameColumn));
}

void ProcessorList::display(const std::string &processor, SavedAs saved) {
  QTreeWidgetItem *const item = find(processor);
  if (item == nullptr)
    return;
  const SavedText text = textOf(saved);
  item->setText(savedColumn, QString::fromUtf8(text.sign));
  item->setTextAlignment(savedColumn, Qt::AlignCenter);
  item->setToolTip(savedColumn, tr(text.text));
  item->setData(savedColumn, Qt::AccessibleTextRole, tr(text.text));
  setTone(*item, savedColumn,
          saved == SavedAs::unreadable ? Tone::fault : Tone::plain);
}

} // namespace ZelDebugDialog::dialog
