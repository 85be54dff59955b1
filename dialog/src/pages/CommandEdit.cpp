#include "pages/CommandEdit.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QToolTip>

#include "pages/Palette.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int linesShown = 3;

bool isUndoing(const QKeyEvent &key) {
  return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

bool isEnter(const QKeyEvent &key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool isIn(std::size_t place, std::size_t offset, std::size_t length) {
  return place >= offset && place <= offset + length;
}

} // namespace

CommandEdit::CommandEdit(QWidget *parent)
    : QPlainTextEdit(parent), completer(new QCompleter(this)) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setTabChangesFocus(true);
  setUndoRedoEnabled(false); // The session undoes.
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setFixedHeight(linesShown * fontMetrics().lineSpacing() +
                 2 * static_cast<int>(document()->documentMargin()) + 4);
  setAccessibleName(tr("Connect command"));
  completer->setWidget(this);
  completer->setModel(new QStandardItemModel(completer));
  completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer->popup()->setAccessibleName(tr("Words that fit here"));
  connect(completer, QOverload<const QString &>::of(&QCompleter::activated),
          this, &CommandEdit::complete);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    const QString now = letters();
    if (isShowing)
      seen = now;
    else
      takeEdited(now);
  });
}

/// A no-break space is a letter of its own.
QString CommandEdit::letters() const {
  return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

/// Only what was edited is other bytes: what stands around it may be no UTF-8.
void CommandEdit::takeEdited(const QString &now) {
  // A line end stands there as another one.
  if (seen != shown(bytes))
    bytes = bytesOf(seen);
  qsizetype front =
      std::mismatch(seen.begin(), seen.end(), now.begin(), now.end()).first -
      seen.begin();
  if (front > 0 && seen[front - 1].isHighSurrogate())
    --front;
  qsizetype back = std::mismatch(seen.rbegin(), seen.rend() - front,
                                 now.rbegin(), now.rend() - front)
                       .first -
                   seen.rbegin();
  if (back > 0 && seen[seen.size() - back].isLowSurrogate())
    --back;
  const std::size_t from = offsetOf(bytes, static_cast<int>(front));
  const std::size_t to = offsetOf(bytes, static_cast<int>(seen.size() - back));
  bytes.replace(from, to - from,
                bytesOf(now.mid(front, now.size() - front - back)));
  seen = now;
  emit typed();
}

void CommandEdit::showText(const std::string &text) {
  const QString wanted = shown(text);
  bytes = text;
  if (letters() == wanted)
    return;
  isShowing = true;
  const int position = textCursor().position();
  setPlainText(wanted);
  QTextCursor cursor = textCursor();
  cursor.setPosition(std::min(position, static_cast<int>(wanted.size())));
  setTextCursor(cursor);
  isShowing = false;
}

void CommandEdit::showMarks(const CommandMarks &commandMarks) {
  marks = commandMarks;
  draw();
}

void CommandEdit::markSetting(const std::string &setting) {
  marked = setting;
  draw();
}

QTextEdit::ExtraSelection CommandEdit::selectionOf(std::size_t offset,
                                                   std::size_t length) const {
  QTextEdit::ExtraSelection selection;
  selection.cursor = QTextCursor(document());
  selection.cursor.setPosition(positionOf(bytes, offset));
  selection.cursor.setPosition(positionOf(bytes, offset + length),
                               QTextCursor::KeepAnchor);
  return selection;
}

void CommandEdit::draw() {
  QList<QTextEdit::ExtraSelection> selections;
  for (const EditWord &word : marks.words) {
    QTextEdit::ExtraSelection selection = selectionOf(word.offset, word.length);
    selection.format.setForeground(roleColour(word.role, palette()));
    const bool isMarked =
        !marked.empty() &&
        std::any_of(word.settings.begin(), word.settings.end(),
                    [this](const std::string &setting) {
                      return rowOf(setting) == marked;
                    });
    if (isMarked)
      selection.format.setBackground(markColour(palette()));
    selections.append(selection);
  }
  for (const CommandDiagnostic &diagnostic : marks.diagnostics) {
    QTextEdit::ExtraSelection selection =
        selectionOf(diagnostic.offset, diagnostic.length);
    const bool isError = diagnostic.severity == CodeSeverity::error;
    selection.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    selection.format.setUnderlineColor(isError ? faultColour(palette())
                                               : doubtColour(palette()));
    selections.append(selection);
  }
  setExtraSelections(selections);
}

void CommandEdit::ask(int position, bool takesFocus) {
  const std::size_t place = offsetOf(bytes, position);
  for (const EditWord &word : marks.words)
    if (isIn(place, word.offset, word.length) && !word.settings.empty()) {
      emit settingAsked(word.settings.front(), takesFocus);
      return;
    }
}

QString CommandEdit::diagnosisAt(int position) const {
  const std::size_t place = offsetOf(bytes, position);
  QString text;
  for (const CommandDiagnostic &diagnostic : marks.diagnostics)
    if (isIn(place, diagnostic.offset, diagnostic.length))
      text += QStringLiteral("<p>%1</p>")
                  .arg(shown(diagnostic.message).toHtmlEscaped());
  if (!text.isEmpty())
    return text;
  for (const EditWord &word : marks.words)
    if (isIn(place, word.offset, word.length) && !word.settings.empty())
      return QStringLiteral("<p>%1</p>")
          .arg(nameOf(word.settings.front()).toHtmlEscaped());
  return {};
}

void CommandEdit::replace(std::size_t offset, std::size_t length,
                          const std::string &with) {
  QTextCursor cursor = selectionOf(offset, length).cursor;
  cursor.insertText(shown(with));
  setTextCursor(cursor);
}

// --- Events ------------------------------------------------------------------

bool CommandEdit::event(QEvent *event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto *const key = static_cast<QKeyEvent *>(event);
    if (isUndoing(*key)) {
      event->ignore();
      return false;
    }
  }
  if (event->type() == QEvent::ToolTip) {
    const auto *const help = static_cast<QHelpEvent *>(event);
    const QPoint place = viewport()->mapFrom(this, help->pos());
    QToolTip::showText(help->globalPos(),
                       diagnosisAt(cursorForPosition(place).position()), this);
    return true;
  }
  return QPlainTextEdit::event(event);
}

void CommandEdit::keyPressEvent(QKeyEvent *event) {
  const bool hasControl = event->modifiers().testFlag(Qt::ControlModifier);
  const bool takesPopup = isEnter(*event) || event->key() == Qt::Key_Escape ||
                          event->key() == Qt::Key_Tab ||
                          event->key() == Qt::Key_Backtab;
  if (completer->popup()->isVisible() && takesPopup) {
    event->ignore(); // The list of words takes it.
    return;
  }
  if (hasControl && event->key() == Qt::Key_Space)
    return offerCompletion();
  if (isEnter(*event)) {
    if (hasControl)
      ask(textCursor().position(), true);
    return; // A command is one line.
  }
  if (isUndoing(*event)) {
    event->ignore();
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
  if (completer->popup()->isVisible())
    offerCompletion();
}

void CommandEdit::mouseReleaseEvent(QMouseEvent *event) {
  QPlainTextEdit::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton && !textCursor().hasSelection())
    ask(cursorForPosition(event->pos()).position(),
        event->modifiers().testFlag(Qt::ControlModifier));
}

void CommandEdit::focusOutEvent(QFocusEvent *event) {
  QPlainTextEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason)
    emit left();
}

void CommandEdit::changeEvent(QEvent *event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange)
    draw();
}

/// A file that is dropped is for the window.
bool CommandEdit::canInsertFromMimeData(const QMimeData *source) const {
  return !source->hasUrls() && QPlainTextEdit::canInsertFromMimeData(source);
}

void CommandEdit::insertFromMimeData(const QMimeData *source) {
  if (!source->hasText())
    return;
  QString text = source->text();
  // A line end that was copied along is no part of a command.
  while (text.endsWith(u'\n') || text.endsWith(u'\r'))
    text.chop(1);
  text.replace(u'\n', u' ').replace(u'\r', u' ');
  insertPlainText(text);
}

// --- Completion --------------------------------------------------------------

void CommandEdit::offerCompletion() {
  completion = CompleteCommand(bytes, offsetOf(bytes, textCursor().position()));
  auto *const words = qobject_cast<QStandardItemModel *>(completer->model());
  words->clear();
  for (const CompletionWord &word : completion.words) {
    auto *const item = new QStandardItem(shown(word.text));
    item->setToolTip(shown(word.label));
    words->appendRow(item);
  }
  if (completion.words.empty()) {
    completer->popup()->hide();
    return;
  }
  QRect place = cursorRect();
  place.setWidth(completer->popup()->sizeHintForColumn(0) +
                 completer->popup()->verticalScrollBar()->sizeHint().width());
  completer->complete(place);
  completer->popup()->setCurrentIndex(words->index(0, 0));
}

void CommandEdit::complete(const QString &word) {
  replace(completion.from, completion.to - completion.from, bytesOf(word));
}

} // namespace ZelDebugDialog::dialog
