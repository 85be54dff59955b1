#include "pages/SettingRow.h"

#include <QGridLayout>
#include <QLabel>
#include <QStringList>
#include <QToolButton>

#include "pages/Palette.h"
#include "pages/Texts.h"
#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int labelColumn = 0;
constexpr int editorColumn = 1;
constexpr int originColumn = 2;
constexpr int backColumn = 3;

void colour(QLabel &label, const QColor &text) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, text);
  label.setPalette(palette);
}

/// Sentences, a line each, as a tip that is broken into lines.
QString tipOf(const QStringList &sentences) {
  QString tip;
  for (const QString &sentence : sentences)
    if (!sentence.isEmpty())
      tip += QStringLiteral("<p>%1</p>").arg(sentence.toHtmlEscaped());
  return tip;
}

} // namespace

SettingRow::SettingRow(const SettingInfo &setting, SessionModel &sessionModel,
                       QGridLayout &grid, QWidget *parent)
    : QObject(parent), info(setting), model(sessionModel),
      label(new QLabel(labelOf(setting), parent)),
      valueEditor(makeEditor(setting, sessionModel, parent)),
      originLabel(new QLabel(parent)), errorLabel(new QLabel(parent)) {
  const int line = grid.rowCount();
  const bool isWide = valueEditor->isWide();
  QWidget *const shownEditor = valueEditor->widget();
  valueEditor->setVisible(shownEditor == valueEditor);
  label->setBuddy(valueEditor->field());
  label->setMargin(2);
  grid.addWidget(label, line, labelColumn);
  if (isWide)
    grid.addWidget(shownEditor, line + 1, labelColumn, 1, backColumn + 1);
  else
    grid.addWidget(shownEditor, line, editorColumn);
  grid.addWidget(originLabel, line, originColumn);
  if (setting.settable) {
    backButton = new QToolButton(parent);
    backButton->setText(QStringLiteral("↺"));
    backButton->setAutoRaise(true);
    backButton->setAccessibleName(
        tr("Back to default: %1").arg(labelOf(setting)));
    connect(backButton, &QToolButton::clicked, this,
            [this] { model.reset({info.id}); });
    QSizePolicy keepsPlace = backButton->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    backButton->setSizePolicy(keepsPlace);
    grid.addWidget(backButton, line, backColumn);
  }
  errorLabel->setWordWrap(true);
  errorLabel->setTextFormat(Qt::PlainText);
  errorLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  errorLabel->hide();
  grid.addWidget(errorLabel, line + 2, isWide ? labelColumn : editorColumn, 1,
                 isWide ? backColumn + 1 : backColumn);
}

bool SettingRow::has(const QWidget *widget) const {
  return widget != nullptr &&
         (valueEditor->widget() == widget ||
          valueEditor->widget()->isAncestorOf(widget) || backButton == widget);
}

QWidget *SettingRow::field() const { return valueEditor->field(); }

int SettingRow::labelWidth() const { return label->sizeHint().width(); }

void SettingRow::display(const SettingState &state) {
  valueEditor->display(state);
  const bool isOpen = !info.settable || state.applicable || state.draft;
  valueEditor->widget()->setEnabled(isOpen);
  label->setEnabled(isOpen);
  const QString problem = valueEditor->errorIn(state);
  errorLabel->setText(problem);
  errorLabel->setVisible(!problem.isEmpty());
  colour(*errorLabel, faultColour(errorLabel->palette()));

  const bool isChanged =
      state.draft.has_value() || state.origin == std::string("changed");
  originLabel->setText(state.draft ? tr("no value") : originOf(state.origin));
  QFont font = label->font();
  font.setBold(isChanged);
  originLabel->setFont(font);
  colour(*originLabel, state.draft ? faultColour(originLabel->palette())
                                   : quietColour(originLabel->palette()));
  if (backButton != nullptr) {
    const bool isDefault = state.value == state.defaultValue && !state.draft;
    // The button that was pressed keeps the focus.
    backButton->setVisible(!isDefault || backButton->hasFocus());
    backButton->setEnabled(!isDefault || backButton->hasFocus());
    backButton->setToolTip(
        tr("Back to default: %1").arg(valueOf(info.id, state.defaultValue)));
  }
  describe(state);
}

void SettingRow::describe(const SettingState &state) {
  QStringList sentences{helpOf(info)};
  if (info.settable && !state.applicable)
    sentences.append(tr("Not applicable: %1.").arg(reasonOf(state.reason)));
  if (info.settable)
    sentences.append(
        tr("Default: %1").arg(valueOf(info.id, state.defaultValue)));
  const QString tip = tipOf(sentences);
  label->setToolTip(tip);
  valueEditor->widget()->setToolTip(tip);
  originLabel->setToolTip(tr("Where the value comes from"));
  const QString problem = valueEditor->errorIn(state);
  if (!problem.isEmpty())
    sentences.prepend(problem);
  valueEditor->field()->setAccessibleDescription(
      sentences.join(QStringLiteral(" ")));
}

void SettingRow::mark(bool isMarked) {
  QPalette palette = label->palette();
  palette.setColor(QPalette::Window, markColour(palette));
  label->setPalette(isMarked ? palette : QPalette());
  label->setAutoFillBackground(isMarked);
}

} // namespace ZelDebugDialog::dialog
