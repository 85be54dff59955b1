#include "pages/Columns.h"

#include <QEvent>
#include <QHeaderView>
#include <QTreeView>

namespace ZelDebugDialog::dialog {

Columns::Columns(QTreeView *ofView, const QString &name)
    : QObject(ofView), view(ofView) {
  setObjectName(name);
  view->header()->viewport()->installEventFilter(this);
  connect(view->header(), &QHeaderView::sectionResized, this,
          [this] { arePersons = arePersons || isHeld; });
}

bool Columns::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() == QEvent::MouseButtonPress)
    isHeld = true;
  if (event->type() == QEvent::MouseButtonRelease)
    isHeld = false;
  return QObject::eventFilter(watched, event);
}

void Columns::fit() {
  if (arePersons)
    return;
  for (int column = 0; column + 1 < view->header()->count(); ++column)
    view->resizeColumnToContents(column);
}

QByteArray Columns::state() const {
  return arePersons ? view->header()->saveState() : QByteArray();
}

void Columns::restore(const QByteArray &state) {
  arePersons = !state.isEmpty() && view->header()->restoreState(state);
}

} // namespace ZelDebugDialog::dialog
