#include "pages/Lists.h"

#include <algorithm>

#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>

#include "pages/Columns.h"
#include "pages/Texts.h"
#include "pages/ToneDelegate.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int settingRole = Qt::UserRole;

enum FaultColumn { severityColumn, placeColumn, matchColumn, textColumn };

bool isSame(const CommandDiagnostic &one, const CommandDiagnostic &other) {
  return one.offset == other.offset && one.length == other.length &&
         one.severity == other.severity && one.message == other.message &&
         one.suggestion == other.suggestion;
}

/// A row is as high as its longest text in the width of its column.
class WrappingDelegate : public ToneDelegate {
public:
  explicit WrappingDelegate(QTreeView *ofView)
      : ToneDelegate(ofView), view(ofView) {}

  QSize sizeHint(const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override {
    constexpr int margin = 6;
    constexpr int boundless = 10000;
    const QSize plain = ToneDelegate::sizeHint(option, index);
    const int width =
        std::max(view->columnWidth(index.column()) - margin, margin);
    const QRect wrapped = option.fontMetrics.boundingRect(
        QRect(0, 0, width, boundless), Qt::TextWordWrap,
        index.data().toString());
    return {plain.width(), std::max(plain.height(), wrapped.height() + 2)};
  }

private:
  QTreeView *view;
};

/// "cpu0: Cable: Frequency" where there are several processors.
QString nameIn(const QString &processor, const std::string &setting) {
  return processor.isEmpty()
             ? nameOf(setting)
             : QStringLiteral("%1: %2").arg(processor, nameOf(setting));
}

/// All of a cell is in its tip as well: it may be cut.
void addTips(QTreeWidgetItem &item) {
  for (int column = 0; column < item.columnCount(); ++column)
    item.setToolTip(column, item.text(column).isEmpty()
                                ? QString()
                                : QStringLiteral("<p>%1</p>")
                                      .arg(item.text(column).toHtmlEscaped()));
}

} // namespace

List::List(const QString &key, const QString &name, const QStringList &titles,
           QWidget *parent)
    : QTreeWidget(parent), columns(new Columns(this, key)) {
  setItemDelegate(new ToneDelegate(this));
  setAccessibleName(name);
  setHeaderLabels(titles);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setTextElideMode(Qt::ElideRight);
  header()->setStretchLastSection(true);
  connect(this, &QTreeWidget::itemActivated, this,
          [this](const QTreeWidgetItem *item) {
            const QString setting = item->data(0, settingRole).toString();
            if (!setting.isEmpty())
              emit settingAsked(bytesOf(setting));
          });
}

void List::fitColumns() { columns->fit(); }

QTreeWidgetItem &List::add(const QStringList &texts,
                           const std::string &setting) {
  auto *const item = new QTreeWidgetItem(this, texts);
  item->setData(0, settingRole, shown(setting));
  addTips(*item);
  return *item;
}

LossList::LossList(QWidget *parent)
    : List(QStringLiteral("losses"), tr("What will not survive saving"),
           {listWord(QT_TRANSLATE_NOOP("Lists", "Setting")), tr("Stops saving"),
            tr("Value"), tr("Comes back as"), tr("Why"), tr("What to do")},
           parent) {
  setWordWrap(true);
  setUniformRowHeights(false);
  setItemDelegate(new WrappingDelegate(this));
  // Where the lines of a text end depends on the width.
  connect(header(), &QHeaderView::sectionResized, this,
          [this] { scheduleDelayedItemsLayout(); });
}

void LossList::display(const std::vector<Loss> &losses) {
  clear();
  append(losses, QString());
}

void LossList::append(const std::vector<Loss> &losses,
                      const QString &processor) {
  for (const Loss &loss : losses) {
    const Code *const code = FindCode(loss.code);
    QTreeWidgetItem &item = add(
        {nameIn(processor, loss.field), wordOf(loss.blocking ? "yes" : "no"),
         valueOf(loss.field, loss.value), valueOf(loss.field, loss.readBack),
         reasonOf(loss.reason),
         code != nullptr ? shown(code->advice) : QString()},
        loss.field);
    if (loss.blocking)
      setTone(item, 0, Tone::fault);
  }
  fitColumns();
}

DifferenceList::DifferenceList(QWidget *parent)
    : List(QStringLiteral("differences"), tr("What differs from what is saved"),
           {listWord(QT_TRANSLATE_NOOP("Lists", "Setting")),
            listWord(QT_TRANSLATE_NOOP("Lists", "Saved")), tr("Now")},
           parent) {}

void DifferenceList::display(const std::vector<Difference> &differences) {
  clear();
  append(differences, QString());
}

void DifferenceList::append(const std::vector<Difference> &differences,
                            const QString &processor) {
  for (const Difference &difference : differences)
    add({nameIn(processor, difference.setting),
         valueOf(difference.setting, difference.saved),
         valueOf(difference.setting, difference.now)},
        difference.setting);
  fitColumns();
}

FaultList::FaultList(QWidget *parent)
    : List(QStringLiteral("faults"), tr("What is wrong with the command"),
           {listWord(QT_TRANSLATE_NOOP("Lists", "Severity")), tr("Column"),
            tr("Nearest match"), tr("What is wrong")},
           parent) {
  // One click takes the match; by the keyboard, Return does. What is clicked
  // is gone by then, so not at once.
  connect(this, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem *, int column) {
            if (column == matchColumn)
              takeMatch();
          });
}

void FaultList::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    takeMatch();
  else
    List::keyPressEvent(event);
}

void FaultList::takeMatch() {
  const int row = indexOfTopLevelItem(currentItem());
  if (row < 0 || static_cast<std::size_t>(row) >= known.size())
    return;
  const CommandDiagnostic diagnostic = known[static_cast<std::size_t>(row)];
  if (!diagnostic.suggestion.empty())
    QTimer::singleShot(0, this,
                       [this, diagnostic] { emit matchChosen(diagnostic); });
}

void FaultList::display(const std::vector<CommandDiagnostic> &diagnostics) {
  // A click begins and ends on the same item.
  const bool isKnown =
      std::equal(known.begin(), known.end(), diagnostics.begin(),
                 diagnostics.end(), isSame) &&
      !diagnostics.empty();
  if (isKnown)
    return;
  known = diagnostics;
  clear();
  for (const CommandDiagnostic &diagnostic : diagnostics) {
    const bool isError = diagnostic.severity == CodeSeverity::error;
    QTreeWidgetItem &item =
        add({listWord(isError ? QT_TRANSLATE_NOOP("Lists", "error")
                              : QT_TRANSLATE_NOOP("Lists", "warning")),
             QString::number(diagnostic.offset + 1), QString(),
             shown(diagnostic.message)},
            "");
    setTone(item, textColumn, isError ? Tone::fault : Tone::doubt);
    if (diagnostic.suggestion.empty())
      continue;
    item.setText(matchColumn, shown(diagnostic.suggestion));
    setTone(item, matchColumn, Tone::link);
    item.setToolTip(matchColumn,
                    tr("Replace by %1").arg(shown(diagnostic.suggestion)));
    QFont font = item.font(matchColumn);
    font.setUnderline(true);
    item.setFont(matchColumn, font);
  }
  fitColumns();
}

} // namespace ZelDebugDialog::dialog
