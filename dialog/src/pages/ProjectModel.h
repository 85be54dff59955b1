// The project that a board is of, as widgets see it: what its files say, where
// people want their changes to go, and a signal when any of that is otherwise.
//
// Nothing is thrown to a widget: what is wrong with the files is told.
#ifndef ZELDEBUGDIALOG_DIALOG_PROJECTMODEL_H
#define ZELDEBUGDIALOG_DIALOG_PROJECTMODEL_H

#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QStringList>

#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

namespace ZelDebugDialog::dialog {

class FileWatch;

/// Where changes can go when they are saved.
struct ChangeTarget {
  QString label;
  QString help;
  bool isTaken = true; ///< False: to the option file alone.
  /// In the files; none: each where it belongs.
  std::optional<ProjectEdit> edit;
};

class ProjectModel : public QObject {
  Q_OBJECT

public:
  ProjectModel(const ProjectBoard &ofBoard, QObject *parent);

  const ProjectBoard &project() const { return live; }
  /// Option files alone first.
  std::vector<ChangeTarget> targets() const;
  /// The one of them that people have chosen.
  const ChangeTarget &target() const { return chosen; }
  void choose(const ChangeTarget &one);
  /// "zeldebug.toml, probe lab, profile slow"
  QString title() const;
  /// What is wrong with the files as they are now; empty for nothing.
  QString problem() const { return known; }

  /// Takes what is saved of processors into the files, as far as people want
  /// it.
  /// @return why it was refused; empty: it was not
  QString takeIn(const std::vector<std::string> &processors,
                 QStringList &remarks);
  /// Looks whether the files say something else.
  void lookAtFiles();
  /// To the person, whichever page is shown.
  void tell(const QString &text) { emit told(text); }

signals:
  void changed();
  void told(const QString &text);

private:
  void keepTarget();

  ProjectBoard live;
  ChangeTarget chosen;
  QString known;
  FileWatch *watch;
};

/// "zeldebug.toml:5:19"
QString placeOf(const ProjectPlace &place);
/// "project", "probe lab", as people read it.
QString layerOf(const SaidSetting &said);

} // namespace ZelDebugDialog::dialog

#endif
