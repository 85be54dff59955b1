// Notices that option files are not what they were, also when one comes or
// goes.
#ifndef ZELDEBUGDIALOG_DIALOG_FILEWATCH_H
#define ZELDEBUGDIALOG_DIALOG_FILEWATCH_H

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace ZelDebugDialog::dialog {

/// What a file holds, as far as a command can be long; null for no file.
QByteArray contentOf(const QString &path);

class FileWatch : public QObject {
  Q_OBJECT

public:
  FileWatch(const QStringList &paths, QObject *parent);

  /// What they hold now is known, and no news any more.
  void passOver();
  /// Whether they still hold what was passed over last.
  bool isPassedOver() const;

signals:
  void changed();

private:
  void follow();

  QStringList files;
  QList<QByteArray> passedOver; ///< One for each file.
  QFileSystemWatcher watcher;
  QTimer delay; ///< A file that is replaced changes several times at once.
};

} // namespace ZelDebugDialog::dialog

#endif
