#include "pages/ChoiceEditors.h"

#include <QAbstractItemView>
#include <QStandardItemModel>
#include <QWheelEvent>

#include "pages/Texts.h"
#include "pages/ToneLabel.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int narrowest = 18; // letters

/// The wheel scrolls the form and not the choices, unless they have the focus.
class QuietBox : public QComboBox {
public:
  using QComboBox::QComboBox;

protected:
  void wheelEvent(QWheelEvent *event) override {
    if (hasFocus())
      QComboBox::wheelEvent(event);
    else
      event->ignore();
  }
};

} // namespace

WordEditor::WordEditor(const SettingInfo &setting, SessionModel &sessionModel,
                       QWidget *parent)
    : ValueEditor(setting, sessionModel, parent), box(new QuietBox(this)) {
  box->setAccessibleName(labelOf(setting));
  box->setFocusPolicy(Qt::StrongFocus);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(narrowest);
  for (const Choice &choice : setting.choices) {
    box->addItem(labelOf(choice));
    box->setItemData(box->count() - 1, shown(choice.text), Qt::ToolTipRole);
  }
  connect(box, &QComboBox::activated, this, [this](int index) {
    model->change(info->id,
                  info->choices[static_cast<std::size_t>(index)].value);
  });
}

void WordEditor::display(const SettingState &state) {
  auto *const items = qobject_cast<QStandardItemModel *>(box->model());
  int present = -1;
  for (std::size_t i = 0; i < state.choices.size(); ++i) {
    const ChoiceState &choice = state.choices[i];
    QStandardItem *const item = items->item(static_cast<int>(i));
    const QString label = labelOf(choice.choice);
    const bool isPresent = choice.choice.value == state.value;
    if (isPresent)
      present = static_cast<int>(i);
    item->setEnabled(choice.reason.empty());
    item->setText(choice.reason.empty() || isPresent
                      ? label
                      : tr("%1 – %2").arg(label, shown(choice.reason)));
    if (!choice.reason.empty())
      item->setToolTip(shown(choice.reason));
  }
  box->setPlaceholderText(shown(state.text));
  box->setCurrentIndex(present);
  box->view()->setMinimumWidth(0);
}

FlagEditor::FlagEditor(const SettingInfo &setting, SessionModel &sessionModel,
                       QWidget *parent)
    : ValueEditor(setting, sessionModel, parent), mark(new QCheckBox(this)) {
  mark->setAccessibleName(labelOf(setting));
  connect(mark, &QCheckBox::clicked, this, [this](bool isOn) {
    if (!model->change(info->id, isOn))
      if (const SettingState *const state = model->find(info->id))
        display(*state);
  });
}

void FlagEditor::display(const SettingState &state) {
  const Value &value = state.value;
  mark->setChecked(value.IsFlag() ? value.Flag()
                                  : value.IsNumber() && value.Number() != 0);
}

ShownValue::ShownValue(const SettingInfo &setting, SessionModel &sessionModel,
                       QWidget *parent)
    : ValueEditor(setting, sessionModel, parent),
      text(new ToneLabel(Tone::quiet, this)) {
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                Qt::TextSelectableByKeyboard);
}

QWidget *ShownValue::field() { return text; }

void ShownValue::display(const SettingState &state) {
  text->setText(valueOf(info->id, state.value));
  text->setAccessibleName(labelOf(*info));
}

} // namespace ZelDebugDialog::dialog
