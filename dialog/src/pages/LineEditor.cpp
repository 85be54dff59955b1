#include "pages/LineEditor.h"

#include <QDragEnterEvent>
#include <QEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QToolButton>

#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

QValidator::State PastedText::validate(QString &text, int &position) const {
  // It stands in front of the place to type at.
  while (position > 0 &&
         (text[position - 1] == u'\n' || text[position - 1] == u'\r'))
    text.remove(--position, 1);
  return Acceptable;
}

SessionLine::SessionLine(QWidget *parent) : QLineEdit(parent) {
  setValidator(new PastedText(this));
}

bool SessionLine::event(QEvent *event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto *const key = static_cast<QKeyEvent *>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
      event->ignore();
      return false;
    }
  }
  return QLineEdit::event(event);
}

void SessionLine::dragEnterEvent(QDragEnterEvent *event) {
  if (event->mimeData()->hasUrls())
    event->ignore();
  else
    QLineEdit::dragEnterEvent(event);
}

void SessionLine::focusOutEvent(QFocusEvent *event) {
  QLineEdit::focusOutEvent(event);
  // A menu over the line is no leaving.
  if (event->reason() != Qt::PopupFocusReason)
    emit left();
}

LineEditor::LineEditor(const SettingInfo &setting, SessionModel &sessionModel,
                       QWidget *parent)
    : ValueEditor(setting, sessionModel, parent), line(new SessionLine(this)) {
  auto *const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(line);
  line->setAccessibleName(labelOf(setting));
  connect(line, &QLineEdit::textEdited, this, [this] { send(); });
  connect(line, &QLineEdit::returnPressed, this, &LineEditor::finish);
  // Not at once: a window that is closed leaves its lines, too.
  connect(line, &SessionLine::left, this, &LineEditor::finish,
          Qt::QueuedConnection);
  if (setting.kind == SettingKind::file) {
    auto *const button = new QToolButton(this);
    button->setText(QStringLiteral("…"));
    button->setToolTip(tr("Choose a file"));
    button->setAccessibleName(tr("Choose a file: %1").arg(labelOf(setting)));
    connect(button, &QToolButton::clicked, this, &LineEditor::browse);
    layout->addWidget(button);
  }
  // A frequency says its unit itself.
  if (!setting.unit.empty() && setting.kind != SettingKind::frequency)
    layout->addWidget(new QLabel(unitOf(setting), this));
  setFocusProxy(line);
}

bool LineEditor::isAsTyped(const SettingState &state) const {
  if (!isTyping || !line->hasFocus())
    return false;
  if (state.draft)
    return shown(*state.draft) == line->text();
  return isSending || state.value == typedValue;
}

void LineEditor::display(const SettingState &state) {
  if (isAsTyped(state)) {
    typedValue = state.draft ? Value() : state.value;
    return;
  }
  isTyping = false;
  const QString text = shown(state.draft ? *state.draft : state.text);
  if (line->text() != text)
    line->setText(text);
}

void LineEditor::send() {
  isTyping = true;
  isSending = true;
  model->type(info->id, line->text());
  isSending = false;
}

void LineEditor::finish() {
  model->endTypingFor(info->id);
  isTyping = false;
  if (const SettingState *const state = model->find(info->id))
    display(*state);
}

void LineEditor::browse() {
  const QString path = QFileDialog::getOpenFileName(
      this, labelOf(*info), line->text(), QString(), nullptr);
  if (path.isEmpty())
    return;
  model->endTyping();
  model->type(info->id, path);
  model->endTyping();
}

} // namespace ZelDebugDialog::dialog
