#include "program/RecentDesigns.h"

#include <algorithm>

#include <QFileInfo>
#include <QSettings>
#include <QStringList>

#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int mostRecent = 8;
const QString listKey = QStringLiteral("designs");
const QString fileKey = QStringLiteral("file");
const QString librariesKey = QStringLiteral("libraries");
const QString kindsKey = QStringLiteral("kinds");
const QString viewKey = QStringLiteral("view");

/// The program may be started in another folder next time.
std::string absolute(const std::string &path) {
  return path.empty() ? path
                      : bytesOf(QFileInfo(shown(path)).absoluteFilePath());
}

} // namespace

std::vector<DesignSources> recentDesigns() {
  std::vector<DesignSources> designs;
  QSettings settings;
  const int count = settings.beginReadArray(listKey);
  for (int i = 0; i < std::min(count, mostRecent); ++i) {
    settings.setArrayIndex(i);
    DesignSources sources;
    sources.designFile = bytesOf(settings.value(fileKey).toString());
    for (const QString &one : settings.value(librariesKey).toStringList())
      sources.libraryFolders.push_back(bytesOf(one));
    sources.kindsFile = bytesOf(settings.value(kindsKey).toString());
    sources.view = bytesOf(settings.value(viewKey).toString());
    if (!sources.designFile.empty())
      designs.push_back(sources);
  }
  settings.endArray();
  return designs;
}

void noteRecentDesign(const DesignSources &sources) {
  DesignSources newest = sources;
  newest.designFile = absolute(sources.designFile);
  newest.kindsFile = absolute(sources.kindsFile);
  for (std::string &folder : newest.libraryFolders)
    folder = absolute(folder);
  std::vector<DesignSources> designs = recentDesigns();
  designs.erase(std::remove_if(designs.begin(), designs.end(),
                               [&newest](const DesignSources &one) {
                                 return one.designFile == newest.designFile;
                               }),
                designs.end());
  designs.insert(designs.begin(), newest);
  QSettings settings;
  settings.remove(listKey);
  settings.beginWriteArray(listKey);
  for (int i = 0; i < std::min(static_cast<int>(designs.size()), mostRecent);
       ++i) {
    settings.setArrayIndex(i);
    const DesignSources &one = designs[static_cast<std::size_t>(i)];
    QStringList libraries;
    for (const std::string &folder : one.libraryFolders)
      libraries.append(shown(folder));
    settings.setValue(fileKey, shown(one.designFile));
    settings.setValue(librariesKey, libraries);
    settings.setValue(kindsKey, shown(one.kindsFile));
    settings.setValue(viewKey, shown(one.view));
  }
  settings.endArray();
}

} // namespace ZelDebugDialog::dialog
