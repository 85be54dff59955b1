// zeldebug-dialog [DESIGN | PROJECT]: the debug configurations of a design, to
// look at and to change.
#include <cstdio>

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>

#include "ZelDebugDialog/Dialog.h"
#include "pages/Texts.h"
#include "program/MainWindow.h"

using namespace ZelDebugDialog;

namespace {

QString said(const char *text) {
  return QCoreApplication::translate("Program", text);
}

/// @return the status of the program
int refuse(const QString &problem) {
  std::fputs(qPrintable(QStringLiteral("zeldebug-dialog: %1\n").arg(problem)),
             stderr);
  return 2;
}

} // namespace

int main(int count, char **arguments) {
  QApplication application(count, arguments);
  QApplication::setApplicationName(QStringLiteral("zeldebug-dialog"));
  QApplication::setOrganizationName(QStringLiteral("ZelDebugDialog"));
  QApplication::setApplicationVersion(
      QStringLiteral(ZELDEBUGDIALOG_DIALOG_VERSION));
  InstallDialogTexts(QLocale());

  QCommandLineParser line;
  line.setApplicationDescription(said(QT_TRANSLATE_NOOP(
      "Program", "Debug configurations of the processors of a design")));
  line.addHelpOption();
  line.addVersionOption();
  const QCommandLineOption library(
      QStringLiteral("library"),
      said(QT_TRANSLATE_NOOP(
          "Program",
          "Folder to look for components in, once for each (default: "
          "below the folder of DESIGN).")),
      QStringLiteral("DIR"));
  const QCommandLineOption view(
      QStringLiteral("view"),
      said(QT_TRANSLATE_NOOP("Program", "View of a hierarchical component.")),
      QStringLiteral("NAME"));
  const QCommandLineOption kinds(
      QStringLiteral("kinds"),
      said(QT_TRANSLATE_NOOP("Program", "One more table of component kinds.")),
      QStringLiteral("FILE"));
  const QCommandLineOption directory(
      QStringLiteral("C"),
      said(QT_TRANSLATE_NOOP(
          "Program",
          "Option files lie in etc/ below this folder (default: below "
          "the working directory).")),
      QStringLiteral("DIR"));
  const QCommandLineOption project(
      QStringLiteral("project"),
      said(QT_TRANSLATE_NOOP("Program", "Project file, in place of DESIGN.")),
      QStringLiteral("FILE"));
  const QCommandLineOption probe(
      QStringLiteral("probe"),
      said(QT_TRANSLATE_NOOP("Program", "Probe of the project, or none.")),
      QStringLiteral("NAME"));
  const QCommandLineOption profile(
      QStringLiteral("profile"),
      said(QT_TRANSLATE_NOOP("Program", "Profile of the project, or none.")),
      QStringLiteral("NAME"));
  line.addOptions({library, view, kinds, directory, project, probe, profile});
  line.addPositionalArgument(
      QStringLiteral("DESIGN"),
      said(QT_TRANSLATE_NOOP(
          "Program", "IP-XACT design file, or the component file on top of a "
                     "hierarchy; or a project file (*.toml).")),
      QStringLiteral("[DESIGN]"));
  line.process(application);
  const QStringList files = line.positionalArguments() + line.values(project);
  if (files.size() > 1)
    return refuse(
        said(QT_TRANSLATE_NOOP("Program",
                               "one design or project at a time, not %1"))
            .arg(files.join(QStringLiteral(", "))));
  dialog::WhatToOpen what;
  if (!files.isEmpty())
    what = dialog::WhatToOpen(dialog::bytesOf(files.front()));
  what.isProject = what.isProject || line.isSet(project);
  for (const QCommandLineOption &one : {probe, profile})
    if (line.isSet(one) && !what.isProject)
      return refuse(said(QT_TRANSLATE_NOOP("Program",
                                           "--%1 is of a project, and there is "
                                           "none"))
                        .arg(one.names().front()));

  const QString base = line.value(directory);
  dialog::MainWindow window(dialog::bytesOf(
      base.isEmpty() ? QStringLiteral("etc") : base + QStringLiteral("/etc")));
  window.show();
  if (!files.isEmpty()) {
    for (const QString &one : line.values(library))
      what.libraryFolders.push_back(dialog::bytesOf(one));
    what.view = dialog::bytesOf(line.value(view));
    what.kindsFile = dialog::bytesOf(line.value(kinds));
    if (line.isSet(probe))
      what.wishes.probe = dialog::bytesOf(line.value(probe));
    if (line.isSet(profile))
      what.wishes.profile = dialog::bytesOf(line.value(profile));
    window.open(what);
  }
  return QApplication::exec();
}
