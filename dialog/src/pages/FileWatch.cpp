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
  // A folder that was not there, or on a file system that tells nothing.
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

/// A file that has been replaced is another one, and has to be watched anew.
void FileWatch::follow() {
  for (const QString &file : files) {
    const QFileInfo info(file);
    const QString folder = info.absolutePath();
    if (QFileInfo::exists(folder) && !watcher.directories().contains(folder))
      watcher.addPath(folder);
    if (info.exists() && !watcher.files().contains(file))
      watcher.addPath(file);
  }
}

} // namespace ZelDebugDialog::dialog
