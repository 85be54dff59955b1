#include "pages/Layout.h"

#include <QDataStream>
#include <QIODevice>
#include <QMap>
#include <QSplitter>
#include <QWidget>

#include "pages/Columns.h"

namespace ZelDebugDialog::dialog {

namespace {
constexpr auto format = QDataStream::Qt_6_0;
} // namespace

Layout layoutOf(const QWidget &page) {
  Layout layout;
  for (const QSplitter *const one : page.findChildren<QSplitter *>())
    if (!one->objectName().isEmpty())
      layout[one->objectName()] = one->saveState();
  for (const Columns *const one : page.findChildren<Columns *>())
    layout[one->objectName()] = one->state();
  return layout;
}

void restoreLayout(const QWidget &page, const Layout &layout) {
  const auto stateOf = [&layout](const QObject &one) {
    const auto found = layout.find(one.objectName());
    return found == layout.end() ? QByteArray() : found->second;
  };
  for (QSplitter *const one : page.findChildren<QSplitter *>())
    one->restoreState(stateOf(*one));
  for (Columns *const one : page.findChildren<Columns *>())
    one->restore(stateOf(*one));
}

QByteArray written(const Layout &layout) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setVersion(format);
  stream << QMap<QString, QByteArray>(layout);
  return bytes;
}

Layout readLayout(const QByteArray &bytes) {
  QDataStream stream(bytes);
  stream.setVersion(format);
  QMap<QString, QByteArray> layout;
  stream >> layout;
  return stream.status() == QDataStream::Ok ? layout.toStdMap() : Layout();
}

} // namespace ZelDebugDialog::dialog
