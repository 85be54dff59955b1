// Notices that an option file is not what it was, also when it comes or goes.
#ifndef ZELDEBUGDIALOG_DIALOG_FILEWATCH_H
#define ZELDEBUGDIALOG_DIALOG_FILEWATCH_H

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace ZelDebugDialog::dialog {

/// What a file holds, as far as a command can be long; null for no file.
QByteArray contentOf(const QString &path);

class FileWatch : public QObject {
  Q_OBJECT

public:
  FileWatch(const QString &path, QObject *parent);

  /// What the file holds now is known, and no news any more.
  void passOver();
  /// Whether it still holds what was passed over last.
  bool isPassedOver() const;

signals:
  void changed();

private:
  void follow();

  QString file;
  QByteArray passedOver;
  QFileSystemWatcher watcher;
  QTimer delay; ///< A file that is replaced changes several times at once.
};

} // namespace ZelDebugDialog::dialog

#endif
