#include "program/RecentDesigns.h"

#include <algorithm>
#include <optional>
#include <utility>

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
const QString projectKey = QStringLiteral("project");
const QString probeKey = QStringLiteral("probe");
const QString profileKey = QStringLiteral("profile");

/// The program may be started in another folder next time.
std::string absolute(const std::string &path) {
  return path.empty() ? path
                      : bytesOf(QFileInfo(shown(path)).absoluteFilePath());
}

/// What was asked for by name; "none" is a name, too.
std::optional<std::string> chosen(const QSettings &settings,
                                  const QString &key) {
  if (!settings.contains(key))
    return std::nullopt;
  return bytesOf(settings.value(key).toString());
}

void note(QSettings &settings, const QString &key,
          const std::optional<std::string> &name) {
  if (name)
    settings.setValue(key, shown(*name));
}

} // namespace

std::vector<WhatToOpen> recentDesigns() {
  std::vector<WhatToOpen> designs;
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
    if (sources.designFile.empty())
      continue;
    WhatToOpen what(sources);
    // A project may have any name.
    if (settings.contains(projectKey))
      what.isProject = settings.value(projectKey).toBool();
    what.wishes.probe = chosen(settings, probeKey);
    what.wishes.profile = chosen(settings, profileKey);
    designs.push_back(std::move(what));
  }
  settings.endArray();
  return designs;
}

void noteRecentDesign(const WhatToOpen &sources) {
  WhatToOpen newest = sources;
  newest.designFile = absolute(sources.designFile);
  newest.kindsFile = absolute(sources.kindsFile);
  for (std::string &folder : newest.libraryFolders)
    folder = absolute(folder);
  std::vector<WhatToOpen> designs = recentDesigns();
  designs.erase(std::remove_if(designs.begin(), designs.end(),
                               [&newest](const WhatToOpen &one) {
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
    const WhatToOpen &one = designs[static_cast<std::size_t>(i)];
    QStringList libraries;
    for (const std::string &folder : one.libraryFolders)
      libraries.append(shown(folder));
    settings.setValue(fileKey, shown(one.designFile));
    settings.setValue(librariesKey, libraries);
    settings.setValue(kindsKey, shown(one.kindsFile));
    settings.setValue(viewKey, shown(one.view));
    settings.setValue(projectKey, one.isProject);
    note(settings, probeKey, one.wishes.probe);
    note(settings, profileKey, one.wishes.profile);
  }
  settings.endArray();
}

} // namespace ZelDebugDialog::dialog
