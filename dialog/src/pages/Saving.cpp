#include "pages/Saving.h"

#include <algorithm>
#include <array>

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "pages/Lists.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

QString said(const char *text) {
  return QCoreApplication::translate("Saving", text);
}

/// The refusals that a person may overrule.
constexpr std::array<RefusalKind, 4> overruled{
    RefusalKind::wouldBeLost, RefusalKind::unreadable,
    RefusalKind::changedOnDisk, RefusalKind::readOnly};

bool canBeOverruled(const Refusal &refusal) {
  return std::find(overruled.begin(), overruled.end(), refusal.kind) !=
         overruled.end();
}

std::vector<SaveOutcome> saveAll(const std::vector<SessionModel *> &models,
                                 const SaveOptions &options) {
  std::vector<Session *> sessions;
  sessions.reserve(models.size());
  for (SessionModel *const model : models)
    sessions.push_back(&model->session());
  return SaveSessions(sessions, options);
}

bool hasRefusal(const std::vector<SaveOutcome> &outcomes,
                bool (*counts)(const Refusal &)) {
  return std::any_of(outcomes.begin(), outcomes.end(),
                     [counts](const SaveOutcome &outcome) {
                       return outcome.refusal && counts(*outcome.refusal);
                     });
}

bool isForFolder(const Refusal &refusal) {
  return refusal.kind == RefusalKind::noFolder;
}

bool isFinal(const Refusal &refusal) {
  return !canBeOverruled(refusal) && !isForFolder(refusal);
}

/// "cpu0: why", a line each.
QString shownRefusals(const std::vector<SessionModel *> &models,
                      const std::vector<SaveOutcome> &outcomes) {
  QStringList lines;
  for (std::size_t i = 0; i < models.size(); ++i)
    if (outcomes[i].refusal)
      lines.append(
          QStringLiteral("%1: %2").arg(shown(models[i]->state().processor),
                                       shown(outcomes[i].refusal->what())));
  return lines.join(u'\n');
}

void addList(QVBoxLayout &layout, const QString &title, QWidget &list) {
  auto *const label = new QLabel(title);
  label->setBuddy(&list);
  layout.addWidget(label);
  layout.addWidget(&list);
}

/// Whether to save although there is something to say.
bool agrees(const std::vector<SessionModel *> &models, const QString &refusals,
            QWidget *parent) {
  constexpr int width = 860;
  constexpr int height = 460;
  QDialog dialog(parent);
  dialog.setWindowTitle(said(QT_TRANSLATE_NOOP("Saving", "Before saving")));
  dialog.resize(width, height);
  auto *const layout = new QVBoxLayout(&dialog);
  if (!refusals.isEmpty()) {
    auto *const text = new QLabel(refusals, &dialog);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    layout->addWidget(text);
  }
  auto *const losses = new LossList(&dialog);
  auto *const differences = new DifferenceList(&dialog);
  for (SessionModel *const model : models) {
    const QString processor =
        models.size() > 1 ? shown(model->state().processor) : QString();
    losses->append(model->state().losses, processor);
    differences->append(model->state().differences, processor);
  }
  addList(*layout, said(QT_TRANSLATE_NOOP("Saving", "What will not &survive")),
          *losses);
  addList(*layout,
          said(QT_TRANSLATE_NOOP("Saving", "What &differs from what is saved")),
          *differences);
  auto *const buttons = new QDialogButtonBox(&dialog);
  QPushButton *const save =
      buttons->addButton(said(QT_TRANSLATE_NOOP("Saving", "Save all the same")),
                         QDialogButtonBox::AcceptRole);
  QPushButton *const cancel = buttons->addButton(QDialogButtonBox::Cancel);
  cancel->setDefault(true);
  save->setAutoDefault(false);
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog,
                   &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog,
                   &QDialog::reject);
  return dialog.exec() == QDialog::Accepted;
}

bool wantsFolder(const QString &refusals, QWidget *parent) {
  return QMessageBox::question(
             parent,
             said(QT_TRANSLATE_NOOP("Saving", "The folder is not there")),
             said(QT_TRANSLATE_NOOP("Saving", "%1\n\nMake the folder?"))
                 .arg(refusals),
             QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool isLossy(const SessionModel *model) {
  return !model->state().losses.empty() &&
         (!model->state().differences.empty() ||
          !model->state().problem.empty());
}

bool finish(const std::vector<SessionModel *> &models, SaveOptions options,
            QWidget *parent) {
  std::vector<SaveOutcome> outcomes = saveAll(models, options);
  if (hasRefusal(outcomes, isForFolder)) {
    if (!wantsFolder(shownRefusals(models, outcomes), parent))
      return false;
    options.makeFolder = true;
    outcomes = saveAll(models, options);
  }
  for (SessionModel *const model : models) {
    model->endTyping();
    model->refresh();
  }
  const QString refusals = shownRefusals(models, outcomes);
  if (!refusals.isEmpty())
    QMessageBox::warning(parent, said(QT_TRANSLATE_NOOP("Saving", "Not saved")),
                         refusals);
  return refusals.isEmpty();
}

} // namespace

bool saveConfigurations(const std::vector<SessionModel *> &models,
                        QWidget *parent) {
  SaveOptions options;
  options.dryRun = true;
  const std::vector<SaveOutcome> outcomes = saveAll(models, options);
  if (hasRefusal(outcomes, isFinal)) {
    QMessageBox::warning(parent, said(QT_TRANSLATE_NOOP("Saving", "Not saved")),
                         shownRefusals(models, outcomes));
    return false;
  }
  const bool isRefused = hasRefusal(outcomes, canBeOverruled);
  if (isRefused || std::any_of(models.begin(), models.end(), isLossy)) {
    if (!agrees(models, shownRefusals(models, outcomes), parent))
      return false;
    options.force = isRefused;
  }
  options.dryRun = false;
  return finish(models, options, parent);
}

bool overwrite(SessionModel &model, QWidget *parent) {
  if (isLossy(&model) && !agrees({&model}, QString(), parent))
    return false;
  SaveOptions options;
  options.force = true;
  return finish({&model}, options, parent);
}

} // namespace ZelDebugDialog::dialog
