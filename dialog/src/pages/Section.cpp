#include "pages/Section.h"

#include <algorithm>

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "pages/ElidedLabel.h"
#include "pages/SettingRow.h"
#include "pages/Texts.h"
#include "pages/ValueEditor.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int originWidth = 16; // letters

/// Why nothing of a group is applicable.
QString commonReason(const std::vector<const SettingState *> &states) {
  if (states.empty())
    return {};
  for (const SettingState *const state : states)
    if (state->reason != states.front()->reason)
      return Section::tr("none of its settings is applicable");
  return reasonOf(states.front()->reason);
}

} // namespace

Section::Section(const SettingInfo &first, QWidget *parent)
    : QWidget(parent), name(first.group), heading(new QToolButton(this)),
      remark(new ElidedLabel(this)), body(new QWidget(this)),
      grid(new QGridLayout(body)) {
  auto *const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  auto *const line = new QHBoxLayout;
  line->addWidget(heading);
  line->addWidget(remark, 1);
  layout->addLayout(line);
  layout->addWidget(body);

  heading->setText(groupOf(first));
  heading->setAccessibleName(groupOf(first));
  heading->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  heading->setAutoRaise(true);
  heading->setFocusPolicy(Qt::StrongFocus);
  QFont font = heading->font();
  font.setBold(true);
  heading->setFont(font);
  connect(heading, &QToolButton::clicked, this,
          [this] { fold(!body->isHidden()); });
  remark->setTone(Tone::quiet);

  const int letter = fontMetrics().averageCharWidth();
  grid->setContentsMargins(3 * letter, 0, 0, letter);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(2, originWidth * letter);
  grid->setVerticalSpacing(4);
}

SettingRow *Section::add(const SettingInfo &setting, SessionModel &model) {
  rows.push_back(new SettingRow(setting, model, *grid, body));
  return rows.back();
}

bool Section::has(const SettingRow *row) const {
  return std::find(rows.begin(), rows.end(), row) != rows.end();
}

int Section::labelWidth() const {
  int widest = 0;
  for (const SettingRow *const row : rows)
    widest = std::max(widest, row->labelWidth());
  return widest;
}

void Section::setLabelWidth(int width) {
  grid->setColumnMinimumWidth(0, width);
}

void Section::unfold() { fold(false); }

void Section::fold(bool isFolded) {
  heading->setArrowType(isFolded ? Qt::RightArrow : Qt::DownArrow);
  body->setVisible(!isFolded);
  describe();
}

/// "folded: a command for this kind of connection does not carry it"
void Section::describe() {
  const QString fold = body->isHidden() ? tr("folded") : tr("unfolded");
  heading->setAccessibleDescription(
      reason.isEmpty() ? fold : QStringLiteral("%1: %2").arg(fold, reason));
  heading->setWhatsThis(reason.toHtmlEscaped());
}

void Section::refresh(const SessionModel &model) {
  bool isOpen = false;
  std::vector<const SettingState *> closed;
  for (SettingRow *const row : rows) {
    const SettingState *const state = model.find(row->setting().id);
    if (state == nullptr)
      continue;
    row->display(*state);
    if (!row->setting().settable)
      continue;
    isOpen = isOpen || state->applicable || state->draft.has_value();
    closed.push_back(state);
  }
  reason = isOpen ? QString() : commonReason(closed);
  remark->say(reason);
  const QWidget *const focus = QApplication::focusWidget();
  const bool holdsFocus = focus != nullptr && body->isAncestorOf(focus);
  if (isNew || isOpen != wasOpen)
    fold(!isOpen && !holdsFocus);
  else
    describe();
  isNew = false;
  wasOpen = isOpen;
}

} // namespace ZelDebugDialog::dialog
