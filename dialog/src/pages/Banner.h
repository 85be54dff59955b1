// A remark above a page that asks for an answer, with a button for each.
#ifndef ZELDEBUGDIALOG_DIALOG_BANNER_H
#define ZELDEBUGDIALOG_DIALOG_BANNER_H

#include <QFrame>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace ZelDebugDialog::dialog {

class Banner : public QFrame {
  Q_OBJECT

public:
  explicit Banner(QWidget *parent);

  void say(const QString &text);
  QPushButton *addAnswer(const QString &text);

protected:
  void changeEvent(QEvent *event) override;

private:
  void colour();

  QLabel *remark;
  QHBoxLayout *line;
  bool isColouring = false;
};

} // namespace ZelDebugDialog::dialog

#endif
