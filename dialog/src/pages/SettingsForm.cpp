#include "pages/SettingsForm.h"

#include <algorithm>

#include <QApplication>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWhatsThis>

#include "pages/Section.h"
#include "pages/SettingRow.h"
#include "pages/Texts.h"
#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

SettingsForm::SettingsForm(SessionModel &sessionModel, QWidget *parent)
    : QScrollArea(parent), model(&sessionModel) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  // Each control in it takes the focus itself.
  setFocusPolicy(Qt::NoFocus);
  auto *const content = new QWidget(this);
  auto *const layout = new QVBoxLayout(content);
  for (const SettingInfo &setting : GetSettings())
    if (!hasSection(setting.group))
      addSection(setting, *layout);
  layout->addStretch();
  int widest = 0;
  for (const Section *const section : sections)
    widest = std::max(widest, section->labelWidth());
  for (Section *const section : sections)
    section->setLabelWidth(widest);
  setWidget(content);
  connect(model, &SessionModel::stateChanged, this, &SettingsForm::refresh);
  focusNotes =
      connect(qApp, &QApplication::focusChanged, this,
              [this](const QWidget *, const QWidget *now) { noteFocus(now); });
  auto *const help = new QShortcut(QKeySequence::WhatsThis, this);
  help->setContext(Qt::WidgetWithChildrenShortcut);
  connect(help, &QShortcut::activated, this, &SettingsForm::explain);
  refresh();
}

bool SettingsForm::hasSection(const std::string &group) const {
  return std::any_of(
      sections.begin(), sections.end(),
      [&group](const Section *one) { return one->group() == group; });
}

/// With all its rows: the tabulator goes in the order in which they are made.
void SettingsForm::addSection(const SettingInfo &first, QVBoxLayout &layout) {
  sections.push_back(new Section(first, this));
  layout.addWidget(sections.back());
  for (const SettingInfo &setting : GetSettings())
    // The fields of a device stand in the table of the chain.
    if (setting.group == first.group && rowOf(setting.id) == setting.id)
      rows.push_back(sections.back()->add(setting, *model));
}

/// What the control with the focus is for, and why it cannot be changed.
void SettingsForm::explain() {
  const QWidget *const focus = QApplication::focusWidget();
  for (const QWidget *one = focus; one != nullptr && one != this;
       one = one->parentWidget())
    if (!one->whatsThis().isEmpty()) {
      QWhatsThis::showText(focus->mapToGlobal(focus->rect().bottomLeft()),
                           one->whatsThis());
      return;
    }
}

void SettingsForm::refresh() {
  for (Section *const section : sections)
    section->refresh(*model);
}

SettingRow *SettingsForm::rowFor(const std::string &setting) const {
  const std::string name = rowOf(setting);
  const auto found =
      std::find_if(rows.begin(), rows.end(), [&name](const SettingRow *row) {
        return row->setting().id == name;
      });
  return found == rows.end() ? nullptr : *found;
}

Section *SettingsForm::sectionOf(const SettingRow *row) const {
  const auto found =
      std::find_if(sections.begin(), sections.end(),
                   [row](const Section *section) { return section->has(row); });
  return found == sections.end() ? nullptr : *found;
}

void SettingsForm::reveal(const std::string &setting) {
  SettingRow *const wanted = rowFor(setting);
  for (SettingRow *const row : rows)
    row->mark(row == wanted);
  if (wanted == nullptr)
    return;
  sectionOf(wanted)->unfold();
  // The place is known once the section is laid out.
  QApplication::sendPostedEvents(widget(), QEvent::LayoutRequest);
  widget()->adjustSize();
  ensureWidgetVisible(wanted->editor().widget());
  wanted->editor().lead(setting);
}

void SettingsForm::lead(const std::string &setting) {
  reveal(setting);
  if (SettingRow *const row = rowFor(setting))
    row->takeFocus();
}

/// Its controls lose the focus while they go.
SettingsForm::~SettingsForm() { QObject::disconnect(focusNotes); }

/// Not only the one that had the focus: in a window that is not active it is
/// moved without a word.
void SettingsForm::closeRows() {
  for (SettingRow *const row : rows)
    row->closeUnlessWorkedOn();
}

void SettingsForm::hideEvent(QHideEvent *event) {
  QScrollArea::hideEvent(event);
  closeRows();
}

void SettingsForm::noteFocus(const QWidget *widget) {
  if (widget == nullptr)
    return;
  closeRows();
  if (!isAncestorOf(widget))
    return;
  for (SettingRow *const row : rows) {
    const bool isFocused = row->has(widget);
    row->mark(false);
    if (isFocused)
      emit settingFocused(row->setting().id);
  }
}

} // namespace ZelDebugDialog::dialog
