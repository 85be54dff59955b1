#include "pages/ProjectModel.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "pages/FileWatch.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

QString nameOfFile(const std::string &path) {
  return QFileInfo(shown(path)).fileName();
}

QString layerWord(const char *text) {
  return QCoreApplication::translate("Layers", text);
}

QString probeNamed(const QString &name) {
  return layerWord(QT_TRANSLATE_NOOP("Layers", "probe %1")).arg(name);
}

QString profileNamed(const QString &name) {
  return layerWord(QT_TRANSLATE_NOOP("Layers", "profile %1")).arg(name);
}

ChangeTarget optionFilesAlone() {
  return {ProjectModel::tr("Option file"),
          ProjectModel::tr("Saving writes the option file and leaves the "
                           "project as it is."),
          false, std::nullopt};
}

/// "probe:lab" is "lab" behind "probe:".
QString behind(const std::string &front, const std::string &layer) {
  return layer.compare(0, front.size(), front) == 0
             ? shown(layer.substr(front.size()))
             : QString();
}

} // namespace

ProjectModel::ProjectModel(const ProjectBoard &ofBoard, QObject *parent)
    : QObject(parent), live(ofBoard), chosen(optionFilesAlone()),
      watch(new FileWatch({shown(live.File()), shown(LocalFileOf(live.File()))},
                          this)) {
  connect(watch, &FileWatch::changed, this, &ProjectModel::lookAtFiles);
}

std::vector<ChangeTarget> ProjectModel::targets() const {
  const QString project = nameOfFile(live.File());
  const QString local = nameOfFile(LocalFileOf(live.File()));
  std::vector<ChangeTarget> all{optionFilesAlone()};
  all.push_back({tr("Project, each where it belongs"),
                 tr("Saving writes the option file and takes the changes into "
                    "the project: what belongs to this desk to %1, the rest "
                    "to %2.")
                     .arg(local, project),
                 true, std::nullopt});
  const auto add = [&all](const QString &label, const QString &file,
                          const ProjectEdit &edit) {
    all.push_back({label,
                   tr("Saving writes the option file and takes the changes "
                      "into %1.")
                       .arg(file),
                   true, edit});
  };
  ProjectEdit edit;
  add(project, project, edit);
  edit.target = ProjectTarget::local;
  add(local, local, edit);
  edit.target = ProjectTarget::profile;
  for (const std::string &profile : live.Profiles()) {
    edit.profile = profile;
    const QString label = tr("Profile %1").arg(shown(profile));
    add(label, label, edit);
  }
  return all;
}

void ProjectModel::choose(const ChangeTarget &one) {
  chosen = one;
  emit changed();
}

/// A profile goes with the files.
void ProjectModel::keepTarget() {
  for (const ChangeTarget &one : targets())
    if (one.label == chosen.label)
      return;
  tell(tr("%1 is not there any more: changes go to the option file.")
           .arg(chosen.label));
  chosen = optionFilesAlone();
}

QString ProjectModel::title() const {
  const ProjectChoice choice = live.Choice();
  QStringList parts{nameOfFile(live.File())};
  if (!choice.probe.name.empty())
    parts.append(probeNamed(shown(choice.probe.name)));
  if (!choice.profile.name.empty())
    parts.append(profileNamed(shown(choice.profile.name)));
  return parts.join(QStringLiteral(", "));
}

QString ProjectModel::takeIn(const std::vector<std::string> &processors,
                             QStringList &remarks) {
  if (!chosen.isTaken)
    return {};
  QString refusal;
  try {
    const std::vector<WrittenProject> files =
        live.Adopt(processors, chosen.edit ? &*chosen.edit : nullptr);
    for (const WrittenProject &file : files) {
      if (file.isChanged)
        remarks.append(tr("%1 is changed").arg(nameOfFile(file.file)));
      for (const ProjectFault &remark : file.remarks)
        remarks.append(shown(remark.message));
    }
    known.clear();
  } catch (const Refusal &refused) {
    refusal = shown(refused.what());
  }
  keepTarget();
  emit changed();
  return refusal;
}

void ProjectModel::lookAtFiles() {
  QString problem;
  bool isOther = false;
  try {
    isOther = live.ReadAgain();
  } catch (const FaultyProject &faulty) {
    problem = shown(faulty.what());
    const auto more = static_cast<int>(faulty.faults.size()) - 1;
    if (more > 0)
      problem = tr("%1, and %2 more").arg(problem, QString::number(more));
  } catch (const Refusal &refused) {
    problem = shown(refused.what());
  }
  if (!isOther && problem == known)
    return;
  known = problem;
  keepTarget();
  emit changed();
}

QString placeOf(const ProjectPlace &place) {
  return QStringLiteral("%1:%2:%3")
      .arg(nameOfFile(place.file), QString::number(place.line),
           QString::number(place.column));
}

QString layerOf(const SaidSetting &one) {
  const std::string &layer = one.layer;
  if (const QString probe = behind("probe:", layer); !probe.isEmpty())
    return probeNamed(probe);
  if (const QString profile = behind("profile:", layer); !profile.isEmpty())
    return profileNamed(profile);
  return layer == std::string("local")
             ? layerWord(QT_TRANSLATE_NOOP("Layers", "local file"))
             : layerWord(QT_TRANSLATE_NOOP("Layers", "project file"));
}

} // namespace ZelDebugDialog::dialog
