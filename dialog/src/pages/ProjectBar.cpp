#include "pages/ProjectBar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include "pages/ElidedLabel.h"
#include "pages/SessionModel.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

ProjectBar::ProjectBar(ProjectModel &ofProject, QWidget *parent)
    : QWidget(parent), project(&ofProject), title(new QLabel(this)),
      state(new ElidedLabel(this)), box(new QComboBox(this)) {
  auto *const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 6);
  title->setTextFormat(Qt::PlainText);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  state->setAccessibleName(tr("How the option file stands to the project"));
  auto *const question = new QLabel(tr("Ch&anges go to:"), this);
  question->setBuddy(box);
  box->setAccessibleName(tr("Where changes go"));
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  layout->addWidget(title);
  layout->addSpacing(fontMetrics().averageCharWidth());
  layout->addWidget(state, 1);
  layout->addWidget(question);
  layout->addWidget(box);
  fillTargets();
  connect(box, &QComboBox::activated, this, [this](int index) {
    project->choose(targets[static_cast<std::size_t>(index)]);
  });
}

/// Profiles come and go with the files.
void ProjectBar::fillTargets() {
  targets = project->targets();
  QStringList labels;
  for (const ChangeTarget &one : targets)
    labels.append(one.label);
  QStringList there;
  for (int i = 0; i < box->count(); ++i)
    there.append(box->itemText(i));
  if (labels != there) {
    box->clear();
    box->addItems(labels);
    for (int i = 0; i < box->count(); ++i)
      box->setItemData(i, targets[static_cast<std::size_t>(i)].help,
                       Qt::ToolTipRole);
  }
  box->setCurrentIndex(
      static_cast<int>(labels.indexOf(project->target().label)));
  box->setToolTip(project->target().help);
}

void ProjectBar::display(SessionModel *session) {
  fillTargets();
  title->setText(project->title());
  title->setToolTip(shown(project->project().File()));
  state->setTone(Tone::quiet);
  if (!project->problem().isEmpty()) {
    state->setTone(Tone::fault);
    state->say(project->problem());
  } else if (session == nullptr) {
    state->say(QString());
  } else if (const auto &refusal = session->said().refusal) {
    state->setTone(Tone::fault);
    state->say(QStringLiteral("%1: %2").arg(placeOf(session->said().place),
                                            shown(refusal->problem)));
  } else if (!session->state().exists) {
    state->say(tr("There is no option file yet."));
  } else {
    state->say(session->isSavedAsSaid()
                   ? tr("The option file is as the project says.")
                   : tr("The option file is not as the project says."));
  }
}

} // namespace ZelDebugDialog::dialog
