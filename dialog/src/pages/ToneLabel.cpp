#include "pages/ToneLabel.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>

namespace ZelDebugDialog::dialog {

ToneLabel::ToneLabel(Tone ofText, QWidget *parent)
    : QLabel(parent), tone(ofText) {
  colour();
}

void ToneLabel::setTone(Tone ofText) {
  if (tone == ofText)
    return;
  tone = ofText;
  colour();
}

void ToneLabel::setMarked(bool isOn) {
  if (isMarked == isOn)
    return;
  isMarked = isOn;
  setAutoFillBackground(isOn);
  colour();
}

void ToneLabel::changeEvent(QEvent *event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !isColouring)
    colour();
}

/// What is not its own comes from around it.
void ToneLabel::colour() {
  isColouring = true;
  const QPalette around = parentWidget()->palette();
  QPalette own;
  if (tone != Tone::plain)
    own.setColor(QPalette::WindowText, toneColour(tone, around));
  if (isMarked)
    own.setColor(QPalette::Window, markColour(around));
  setPalette(own);
  isColouring = false;
}

void ToneLabel::focusInEvent(QFocusEvent *event) {
  QLabel::focusInEvent(event);
  const bool isByKey = event->reason() == Qt::TabFocusReason ||
                       event->reason() == Qt::BacktabFocusReason;
  if (isByKey)
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), toolTip(), this);
  update();
}

void ToneLabel::focusOutEvent(QFocusEvent *event) {
  QLabel::focusOutEvent(event);
  update();
}

void ToneLabel::paintEvent(QPaintEvent *event) {
  QLabel::paintEvent(event);
  if (!hasFocus())
    return;
  QPainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace ZelDebugDialog::dialog
