#include "pages/FileWatch.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

namespace ZelDebugDialog::dialog {

namespace {
constexpr int settlingTime = 100;    // ms
constexpr qint64 mostRead = 1 << 20; // bytes
} // namespace

QByteArray contentOf(const QString &path) {
  QFile opened(path);
  if (!QFileInfo(path).isFile() || !opened.open(QIODevice::ReadOnly))
    return {};
  const QByteArray content = opened.read(mostRead);
  return content.isNull() ? QByteArray("") : content;
}

FileWatch::FileWatch(const QStringList &paths, QObject *parent)
    : QObject(parent) {
  for (const QString &path : paths)
    files.append(QFileInfo(path).absoluteFilePath());
  delay.setSingleShot(true);
  delay.setInterval(settlingTime);
  const auto note = [this] {
    follow();
    delay.start();
  };
  connect(&watcher, &QFileSystemWatcher::fileChanged, this, note);
  connect(&watcher, &QFileSystemWatcher::directoryChanged, this, note);
  connect(&delay, &QTimer::timeout, this, &FileWatch::changed);
  // On a file system that tells nothing.
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
          [note](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
              note();
          });
  follow();
}

void FileWatch::passOver() {
  passedOver.clear();
  for (const QString &file : files)
    passedOver.append(contentOf(file));
}

bool FileWatch::isPassedOver() const {
  return std::equal(files.begin(), files.end(), passedOver.begin(),
                    passedOver.end(),
                    [](const QString &file, const QByteArray &then) {
                      const QByteArray now = contentOf(file);
                      return now == then && now.isNull() == then.isNull();
                    });
}

/// A file that has been replaced is another one, and has to be watched anew. A
/// folder that is not there comes into the nearest one that is.
void FileWatch::follow() {
  QStringList folders;
  for (const QString &file : files) {
    QString folder = QFileInfo(file).absolutePath();
    while (!QFileInfo::exists(folder))
      folder = QFileInfo(folder).absolutePath();
    folders.append(folder);
    if (!watcher.directories().contains(folder))
      watcher.addPath(folder);
    if (QFileInfo::exists(file) && !watcher.files().contains(file))
      watcher.addPath(file);
  }
  for (const QString &folder : watcher.directories())
    if (!folders.contains(folder))
      watcher.removePath(folder);
}

} // namespace ZelDebugDialog::dialog
