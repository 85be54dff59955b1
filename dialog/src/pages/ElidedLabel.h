// A line of text that is cut where there is no room for it, and is whole again
// where there is.
#ifndef ZELDEBUGDIALOG_DIALOG_ELIDEDLABEL_H
#define ZELDEBUGDIALOG_DIALOG_ELIDEDLABEL_H

#include <QString>

#include "pages/ToneLabel.h"

namespace ZelDebugDialog::dialog {

/// One line, always: nothing moves while one types. The tip has the whole text.
class ElidedLabel : public ToneLabel {
  Q_OBJECT

public:
  explicit ElidedLabel(QWidget *parent);

  void say(const QString &text);

protected:
  void changeEvent(QEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;

private:
  void elide();

  QString whole;
};

} // namespace ZelDebugDialog::dialog

#endif
