// Notices that an option file is not what it was, also when it comes or goes.
#ifndef ZELDEBUGDIALOG_DIALOG_FILEWATCH_H
#define ZELDEBUGDIALOG_DIALOG_FILEWATCH_H

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace ZelDebugDialog::dialog {

class FileWatch : public QObject {
  Q_OBJECT

public:
  FileWatch(const QString &path, QObject *parent);

signals:
  void changed();

private:
  void follow();

  QString file;
  QFileSystemWatcher watcher;
  QTimer delay; ///< A file that is replaced changes several times at once.
};

} // namespace ZelDebugDialog::dialog

#endif
