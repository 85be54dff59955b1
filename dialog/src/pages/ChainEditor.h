// The devices of a chain as a table: a row a device, a column a field.
//
// The chain is changed whole. Cells whose texts are no values are kept together
// as the draft of the chain, so that undoing and saving know of them.
#ifndef ZELDEBUGDIALOG_DIALOG_CHAINEDITOR_H
#define ZELDEBUGDIALOG_DIALOG_CHAINEDITOR_H

#include <map>
#include <utility>

#include <QPointer>

#include "pages/ValueEditor.h"

class QLineEdit;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace ZelDebugDialog::dialog {

/// Texts by device and field.
using CellTexts = std::map<std::pair<int, int>, QString>;

class ChainEditor : public ValueEditor {
  Q_OBJECT

public:
  ChainEditor(const SettingInfo &setting, SessionModel &sessionModel,
              QWidget *parent);
  ChainEditor(const ChainEditor &) = delete;
  ChainEditor &operator=(const ChainEditor &) = delete;
  ~ChainEditor() override;

  void display(const SettingState &state) override;
  QWidget *field() override;
  QWidget *widget() override { return this; }
  QString errorIn(const SettingState &state) const override;
  bool isWide() const override { return true; }
  void lead(const std::string &setting) override;

private:
  Value::Chain devices() const;
  CellTexts unfinished() const;
  void take(Value::Chain chain, const CellTexts &texts);
  void takeCell(QTableWidgetItem *item);
  void follow(QLineEdit &editor, const QString &before);
  void closeCell();
  void displayCell(int row, int column, const CellTexts &texts);
  void insert();
  void remove();
  void move(int by);
  void updateButtons();

  std::vector<const SettingInfo *> fields;
  QTableWidget *table;
  QPointer<QWidget> editing; ///< The line that is open.
  QObject follows;           ///< What a cell tells; ends before the cells do.
  QPushButton *removeButton;
  QPushButton *upButton;
  QPushButton *downButton;
};

} // namespace ZelDebugDialog::dialog

#endif
