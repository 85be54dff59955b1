// The widths of the columns of a list: those of its texts, until a person sets
// others.
#ifndef ZELDEBUGDIALOG_DIALOG_COLUMNS_H
#define ZELDEBUGDIALOG_DIALOG_COLUMNS_H

#include <QByteArray>
#include <QObject>

class QTreeView;

namespace ZelDebugDialog::dialog {

class Columns : public QObject {
  Q_OBJECT

public:
  /// @param name  by which they are remembered
  Columns(QTreeView *ofView, const QString &name);

  /// All but the last as wide as their texts, unless a person wants otherwise.
  void fit();
  /// What a person has set; empty for nothing.
  QByteArray state() const;
  void restore(const QByteArray &state);

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  QTreeView *view;
  bool isHeld = false; ///< The mouse may be moving an edge.
  bool arePersons = false;
};

} // namespace ZelDebugDialog::dialog

#endif
