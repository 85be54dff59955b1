#include "pages/ElidedLabel.h"

#include <QEvent>

namespace ZelDebugDialog::dialog {

ElidedLabel::ElidedLabel(QWidget *parent) : ToneLabel(Tone::plain, parent) {
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setFixedHeight(fontMetrics().height());
}

void ElidedLabel::say(const QString &text) {
  whole = text;
  setToolTip(text.isEmpty()
                 ? QString()
                 : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
  setAccessibleDescription(text);
  elide();
}

void ElidedLabel::changeEvent(QEvent *event) {
  ToneLabel::changeEvent(event);
  if (event->type() != QEvent::FontChange)
    return;
  setFixedHeight(fontMetrics().height());
  elide();
}

void ElidedLabel::resizeEvent(QResizeEvent *event) {
  ToneLabel::resizeEvent(event);
  elide();
}

void ElidedLabel::elide() {
  const QString fitting =
      fontMetrics().elidedText(whole, Qt::ElideRight, width());
  if (fitting != text())
    setText(fitting);
}

} // namespace ZelDebugDialog::dialog
