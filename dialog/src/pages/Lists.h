// What there is to say of a configuration, a line each; a line leads to its
// setting.
#ifndef ZELDEBUGDIALOG_DIALOG_LISTS_H
#define ZELDEBUGDIALOG_DIALOG_LISTS_H

#include <vector>

#include <QTreeWidget>

#include "ZelDebugDialog/ConfigurationModel/Session.h"

namespace ZelDebugDialog::dialog {

class Columns;

class List : public QTreeWidget {
  Q_OBJECT

public:
  /// @param key  by which the widths of its columns are remembered
  List(const QString &key, const QString &name, const QStringList &titles,
       QWidget *parent);

signals:
  void settingAsked(const std::string &setting);

protected:
  QTreeWidgetItem &add(const QStringList &texts, const std::string &setting);
  void fitColumns();

private:
  Columns *columns;
};

/// What does not survive saving.
class LossList : public List {
  Q_OBJECT

public:
  explicit LossList(QWidget *parent);
  void display(const std::vector<Loss> &losses);
  /// Those of one of several processors.
  void append(const std::vector<Loss> &losses, const QString &processor);
};

/// What is not as it is saved.
class DifferenceList : public List {
  Q_OBJECT

public:
  explicit DifferenceList(QWidget *parent);
  void display(const std::vector<Difference> &differences);
  /// Those of one of several processors.
  void append(const std::vector<Difference> &differences,
              const QString &processor);
};

/// What is wrong with the command.
class FaultList : public List {
  Q_OBJECT

public:
  explicit FaultList(QWidget *parent);
  void display(const std::vector<CommandDiagnostic> &diagnostics);

signals:
  void matchChosen(const CommandDiagnostic &diagnostic);

protected:
  void keyPressEvent(QKeyEvent *event) override;

private:
  void takeMatch();

  std::vector<CommandDiagnostic> known;
};

} // namespace ZelDebugDialog::dialog

#endif
