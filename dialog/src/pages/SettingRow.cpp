#include "pages/SettingRow.h"

#include <QGridLayout>
#include <QStringList>
#include <QToolButton>

#include "pages/ProjectModel.h"
#include "pages/Texts.h"
#include "pages/ToneLabel.h"
#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int labelColumn = 0;
constexpr int editorColumn = 1;
constexpr int originColumn = 2;
constexpr int backColumn = 3;

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
    : QObject(parent), info(&setting), model(&sessionModel),
      nameLabel(new ToneLabel(Tone::plain, parent)),
      valueEditor(makeEditor(setting, sessionModel, parent)),
      originLabel(new ToneLabel(Tone::quiet, parent)),
      errorLabel(new ToneLabel(Tone::fault, parent)) {
  const int line = grid.rowCount();
  const bool isWide = valueEditor->isWide();
  QWidget *const shownEditor = valueEditor->widget();
  valueEditor->setVisible(shownEditor == valueEditor);
  nameLabel->setText(labelOf(setting));
  nameLabel->setBuddy(valueEditor->field());
  nameLabel->setMargin(2);
  grid.addWidget(nameLabel, line, labelColumn);
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
            [this] { model->reset({info->id}); });
    QSizePolicy keepsPlace = backButton->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    backButton->setSizePolicy(keepsPlace);
    grid.addWidget(backButton, line, backColumn);
    if (isWide) {
      // It stands above the editor.
      nameLabel->setFocusPolicy(Qt::TabFocus);
      QWidget::setTabOrder(nameLabel, backButton);
    }
  }
  errorLabel->setWordWrap(true);
  errorLabel->setTextFormat(Qt::PlainText);
  errorLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  errorLabel->hide();
  grid.addWidget(errorLabel, line + 2, isWide ? labelColumn : editorColumn, 1,
                 isWide ? backColumn + 1 : backColumn);
}

bool SettingRow::has(const QWidget *widget) const {
  return widget != nullptr && (valueEditor->widget() == widget ||
                               valueEditor->widget()->isAncestorOf(widget) ||
                               backButton == widget || nameLabel == widget);
}

QWidget *SettingRow::field() const { return valueEditor->field(); }

void SettingRow::takeFocus() {
  QWidget *const taker = field()->isEnabled() ? field() : nameLabel;
  taker->setFocus(Qt::OtherFocusReason);
}

int SettingRow::labelWidth() const { return nameLabel->sizeHint().width(); }

void SettingRow::display(const SettingState &state) {
  valueEditor->display(state);
  displayOpen(state);
  const QString problem = valueEditor->errorIn(state);
  errorLabel->setText(problem);
  errorLabel->setVisible(!problem.isEmpty());

  const bool isChanged =
      state.draft.has_value() || state.origin == std::string("changed");
  originLabel->setText(state.draft ? tr("no value") : shownOrigin(state));
  QFont font = nameLabel->font();
  font.setBold(isChanged);
  originLabel->setFont(font);
  originLabel->setTone(state.draft ? Tone::fault : Tone::quiet);
  displayBack(state);
  describe(state);
}

/// A value that the files of a project say is theirs, wherever the session has
/// it from.
QString SettingRow::shownOrigin(const SettingState &state) const {
  const SaidSetting *const said = model->said().Find(info->id);
  const bool isTheirs = said != nullptr && said->value.setting == info->id &&
                        said->value.value == state.value;
  return isTheirs ? layerOf(*said) : originOf(state.origin);
}

bool SettingRow::isWorkedOn() const {
  const QWidget *const editor = valueEditor->widget();
  const QWidget *const focus = editor->window()->focusWidget();
  return focus != nullptr && editor->isVisible() &&
         (focus == editor || editor->isAncestorOf(focus));
}

void SettingRow::closeUnlessWorkedOn() {
  if (const SettingState *const state = model->find(info->id))
    displayOpen(*state);
}

/// What is disabled takes no focus: its label does, so that the keyboard leads
/// to the reason as well.
void SettingRow::displayOpen(const SettingState &state) {
  const bool isOpen =
      !info->settable || state.applicable || state.draft || isWorkedOn();
  valueEditor->widget()->setEnabled(isOpen);
  nameLabel->setTone(isOpen ? Tone::plain : Tone::disabled);
  nameLabel->setFocusPolicy(isOpen ? Qt::NoFocus : Qt::TabFocus);
}

void SettingRow::displayBack(const SettingState &state) {
  if (backButton == nullptr)
    return;
  const bool isDefault = state.value == state.defaultValue && !state.draft;
  // The button that was pressed keeps the focus.
  backButton->setVisible(!isDefault || backButton->hasFocus());
  backButton->setEnabled(!isDefault || backButton->hasFocus());
  backButton->setToolTip(
      tr("Back to default: %1").arg(valueOf(info->id, state.defaultValue)));
}

void SettingRow::describe(const SettingState &state) {
  QStringList sentences{helpOf(*info)};
  if (info->settable && !state.applicable)
    sentences.append(tr("Not applicable: %1.").arg(reasonOf(state.reason)));
  if (info->settable)
    sentences.append(
        tr("Default: %1").arg(valueOf(info->id, state.defaultValue)));
  const QString ofOrigins = tr("Where the value comes from");
  QStringList origins{ofOrigins};
  if (const SaidSetting *const said = model->said().Find(info->id)) {
    const QString place = placeOf(said->value.place);
    const QString told =
        tr("%1 says %2")
            .arg(place, valueOf(said->value.setting, said->value.value));
    origins.append(told);
    sentences.append(told);
  }
  const QString problem = valueEditor->errorIn(state);
  const QString tip = tipOf(sentences);
  // What stands beside the field for those who see it.
  sentences.append(
      QStringLiteral("%1: %2.").arg(ofOrigins, originLabel->text()));
  if (!problem.isEmpty())
    sentences.prepend(problem);
  const QString description = sentences.join(QStringLiteral(" "));
  for (QWidget *const one : {static_cast<QWidget *>(nameLabel),
                             valueEditor->widget(), valueEditor->field()}) {
    one->setToolTip(tip);
    one->setWhatsThis(tip);
  }
  originLabel->setToolTip(tipOf(origins));
  nameLabel->setAccessibleDescription(description);
  valueEditor->field()->setAccessibleDescription(description);
}

void SettingRow::mark(bool isMarked) { nameLabel->setMarked(isMarked); }

} // namespace ZelDebugDialog::dialog
