// How a person has divided a page: its splitters, and the columns of its lists.
#ifndef ZELDEBUGDIALOG_DIALOG_LAYOUT_H
#define ZELDEBUGDIALOG_DIALOG_LAYOUT_H

#include <map>

#include <QByteArray>
#include <QString>

class QWidget;

namespace ZelDebugDialog::dialog {

/// States by the names of what has them.
using Layout = std::map<QString, QByteArray>;

/// Of all splitters and columns below `page` that have a name.
Layout layoutOf(const QWidget &page);
void restoreLayout(const QWidget &page, const Layout &layout);

/// To be kept in a file, and back; what cannot be read is empty.
QByteArray written(const Layout &layout);
Layout readLayout(const QByteArray &bytes);

} // namespace ZelDebugDialog::dialog

#endif
