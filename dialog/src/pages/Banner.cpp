#include "pages/Banner.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "pages/Palette.h"

namespace ZelDebugDialog::dialog {

Banner::Banner(QWidget *parent)
    : QFrame(parent), remark(new QLabel(this)), line(new QHBoxLayout(this)) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  remark->setWordWrap(true);
  remark->setTextFormat(Qt::PlainText);
  remark->setTextInteractionFlags(Qt::TextSelectableByMouse);
  line->addWidget(remark, 1);
  colour();
  hide();
}

void Banner::say(const QString &text) {
  remark->setText(text);
  setVisible(!text.isEmpty());
}

QPushButton *Banner::addAnswer(const QString &text) {
  auto *const button = new QPushButton(text, this);
  // What stands below may have been made already.
  setTabOrder(line->itemAt(line->count() - 1)->widget(), button);
  line->addWidget(button);
  return button;
}

void Banner::changeEvent(QEvent *event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !isColouring)
    colour();
}

void Banner::colour() {
  isColouring = true;
  QPalette remarkPalette;
  remarkPalette.setColor(QPalette::Window,
                         remarkColour(parentWidget()->palette()));
  setPalette(remarkPalette);
  isColouring = false;
}

} // namespace ZelDebugDialog::dialog
