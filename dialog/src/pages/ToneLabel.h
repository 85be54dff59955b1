// A text in a colour that says what it is to the person, also after the palette
// has changed.
#ifndef ZELDEBUGDIALOG_DIALOG_TONELABEL_H
#define ZELDEBUGDIALOG_DIALOG_TONELABEL_H

#include <QLabel>

#include "pages/Palette.h"

namespace ZelDebugDialog::dialog {

class ToneLabel : public QLabel {
  Q_OBJECT

public:
  ToneLabel(Tone ofText, QWidget *parent);

  void setTone(Tone ofText);
  /// With the colour of a mark behind it.
  void setMarked(bool isOn);

protected:
  void changeEvent(QEvent *event) override;
  /// It may take the focus, to be told.
  void focusInEvent(QFocusEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  void colour();

  Tone tone;
  bool isMarked = false;
  bool isColouring = false;
};

} // namespace ZelDebugDialog::dialog

#endif
