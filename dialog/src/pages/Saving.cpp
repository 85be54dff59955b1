#include "pages/Saving.h"

#include <algorithm>
#include <utility>

#include <QByteArray>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "pages/FileWatch.h"
#include "pages/Lists.h"
#include "pages/ProjectModel.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

QString said(const char *text) {
  return QCoreApplication::translate("Saving", text);
}

/// What a person is to agree to before one configuration is saved.
struct Doubts {
  QStringList sentences;  ///< None: there is nothing to ask.
  QByteArray overwritten; ///< What stands in a file that has changed.
  bool isRefused = false; ///< Whether saving has to be forced.

  bool isWithin(const Doubts &agreed) const {
    return std::all_of(sentences.begin(), sentences.end(),
                       [&agreed](const QString &one) {
                         return agreed.sentences.contains(one);
                       }) &&
           (overwritten.isNull() || overwritten == agreed.overwritten);
  }
};

using AllDoubts = std::vector<Doubts>; // One for each configuration.

/// Forces those that are refused, and no others.
std::vector<SaveOutcome> saveAll(const std::vector<SessionModel *> &models,
                                 const SaveOptions &options,
                                 const AllDoubts &agreed) {
  std::vector<SaveOutcome> outcomes(models.size());
  for (const bool isForced : {false, true}) {
    std::vector<Session *> sessions;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < models.size(); ++i)
      if (agreed[i].isRefused == isForced) {
        sessions.push_back(&models[i]->session());
        places.push_back(i);
      }
    SaveOptions own = options;
    own.force = isForced;
    const std::vector<SaveOutcome> some = SaveSessions(sessions, own);
    for (std::size_t i = 0; i < some.size(); ++i)
      outcomes[places[i]] = some[i];
  }
  return outcomes;
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
  return !CanBeForced(refusal.kind) && !isForFolder(refusal);
}

/// A setting is called as it is in the form.
QString whyRefused(const Refusal &refusal) {
  return FindSetting(refusal.setting) != nullptr && refusal.file.empty()
             ? QStringLiteral("%1: %2").arg(nameOf(refusal.setting),
                                            shown(refusal.problem))
             : shown(refusal.what());
}

/// "cpu0: why", a line each.
QString shownRefusals(const std::vector<SessionModel *> &models,
                      const std::vector<SaveOutcome> &outcomes) {
  QStringList lines;
  for (std::size_t i = 0; i < models.size(); ++i)
    if (outcomes[i].refusal)
      lines.append(
          QStringLiteral("%1: %2").arg(shown(models[i]->state().processor),
                                       whyRefused(*outcomes[i].refusal)));
  return lines.join(u'\n');
}

// --- What is to be agreed to -------------------------------------------------

QString changeSentence(const SessionState &state) {
  const char *const sentence =
      state.exists
          ? QT_TRANSLATE_NOOP("Saving",
                              "%1: the file has changed since it was loaded, "
                              "and will be overwritten.")
          : QT_TRANSLATE_NOOP("Saving",
                              "%1: the file is gone since it was loaded, and "
                              "will be written anew.");
  return said(sentence).arg(shown(state.processor));
}

QString lossSentence(const SessionState &state) {
  QStringList names;
  for (const Loss &loss : state.losses)
    names.append(nameOf(loss.field));
  names.removeDuplicates();
  return said(QT_TRANSLATE_NOOP("Saving",
                                "%1: these settings will not survive: %2."))
      .arg(shown(state.processor), names.join(QStringLiteral(", ")));
}

/// The model tells the first reason of several; all are to be known.
Doubts doubtsOf(SessionModel &model, const SaveOutcome &outcome) {
  const SessionState &state = model.state();
  const QString processor = shown(state.processor);
  Doubts doubts;
  doubts.isRefused = outcome.refusal && CanBeForced(outcome.refusal->kind);
  const bool isWritten = !state.differences.empty() || !state.problem.empty();
  if (!state.losses.empty() && (doubts.isRefused || isWritten))
    doubts.sentences.append(lossSentence(state));
  if (!doubts.isRefused)
    return doubts;
  if (!state.problem.empty())
    doubts.sentences.append(
        said(QT_TRANSLATE_NOOP(
                 "Saving",
                 "%1: what is saved cannot be read, and will be replaced: %2."))
            .arg(processor, shown(state.problem)));
  if (state.changedOnDisk) {
    doubts.sentences.append(changeSentence(state));
    doubts.overwritten = contentOf(shown(state.file));
  }
  if (outcome.refusal->kind == RefusalKind::readOnly)
    doubts.sentences.append(
        said(QT_TRANSLATE_NOOP(
                 "Saving", "%1: the file is read-only, and will be replaced."))
            .arg(processor));
  if (doubts.sentences.isEmpty())
    doubts.sentences.append(
        QStringLiteral("%1: %2").arg(processor, whyRefused(*outcome.refusal)));
  return doubts;
}

void addList(QVBoxLayout &layout, const QString &title, QWidget &list) {
  auto *const label = new QLabel(title);
  label->setBuddy(&list);
  layout.addWidget(label);
  layout.addWidget(&list);
}

/// Whether to save although there is something to say.
bool agrees(const std::vector<SessionModel *> &models, const AllDoubts &doubts,
            QWidget *parent) {
  constexpr int width = 860;
  constexpr int height = 460;
  QDialog dialog(parent);
  dialog.setWindowTitle(said(QT_TRANSLATE_NOOP("Saving", "Before saving")));
  dialog.resize(width, height);
  auto *const layout = new QVBoxLayout(&dialog);
  QStringList sentences;
  for (const Doubts &one : doubts)
    sentences.append(one.sentences);
  auto *const text = new QLabel(sentences.join(u'\n'), &dialog);
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  layout->addWidget(text);
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
      buttons->addButton(said(QT_TRANSLATE_NOOP("Saving", "Save anyway")),
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

void tellRefusals(const QString &refusals, QWidget *parent) {
  QMessageBox::warning(parent, said(QT_TRANSLATE_NOOP("Saving", "Not saved")),
                       refusals);
}

/// @return those that are saved
std::vector<SessionModel *> finish(const std::vector<SessionModel *> &models,
                                   const AllDoubts &agreed, QWidget *parent) {
  SaveOptions options;
  std::vector<SaveOutcome> outcomes = saveAll(models, options, agreed);
  if (hasRefusal(outcomes, isForFolder)) {
    if (!wantsFolder(shownRefusals(models, outcomes), parent))
      return {};
    // Those above it as well: the person has seen where it is to be.
    for (const SessionModel *const model : models)
      QFileInfo(QFileInfo(shown(model->state().file)).path())
          .dir()
          .mkpath(QStringLiteral("."));
    options.makeFolder = true;
    outcomes = saveAll(models, options, agreed);
  }
  std::vector<SessionModel *> saved;
  for (std::size_t i = 0; i < models.size(); ++i) {
    models[i]->endTyping();
    models[i]->refresh();
    if (!outcomes[i].refusal)
      saved.push_back(models[i]);
  }
  if (saved.size() < models.size())
    tellRefusals(shownRefusals(models, outcomes), parent);
  return saved;
}

/// Tells of those that nobody can agree to, and takes them out.
void leaveOut(std::vector<SessionModel *> &models, AllDoubts &agreed,
              const std::vector<SaveOutcome> &outcomes, QWidget *parent) {
  std::vector<SessionModel *> left;
  AllDoubts agreedOfLeft;
  std::vector<SessionModel *> out;
  std::vector<SaveOutcome> outcomesOfOut;
  for (std::size_t i = 0; i < models.size(); ++i)
    if (outcomes[i].refusal && isFinal(*outcomes[i].refusal)) {
      out.push_back(models[i]);
      outcomesOfOut.push_back(outcomes[i]);
    } else {
      left.push_back(models[i]);
      agreedOfLeft.push_back(agreed[i]);
    }
  tellRefusals(shownRefusals(out, outcomesOfOut), parent);
  models = std::move(left);
  agreed = std::move(agreedOfLeft);
}

/// Asks until nothing has come up since that was not agreed to.
/// @return those that are saved
std::vector<SessionModel *> saveWith(AllDoubts agreed,
                                     std::vector<SessionModel *> models,
                                     QWidget *parent) {
  SaveOptions options;
  options.dryRun = true;
  while (!models.empty()) {
    for (SessionModel *const model : models)
      model->lookAtFile();
    const std::vector<SaveOutcome> outcomes =
        saveAll(models, options, AllDoubts(models.size()));
    if (hasRefusal(outcomes, isFinal)) {
      leaveOut(models, agreed, outcomes, parent);
      continue;
    }
    AllDoubts doubts;
    bool isAgreed = true;
    for (std::size_t i = 0; i < models.size(); ++i) {
      doubts.push_back(doubtsOf(*models[i], outcomes[i]));
      isAgreed = isAgreed && doubts[i].isWithin(agreed[i]);
    }
    if (isAgreed)
      return finish(models, doubts, parent);
    // What has been agreed to already is not asked for again alone.
    AllDoubts asked = doubts;
    for (std::size_t i = 0; i < models.size(); ++i)
      if (asked[i].isWithin(agreed[i]))
        asked[i].sentences.clear();
      else if (asked[i].overwritten == agreed[i].overwritten &&
               !asked[i].overwritten.isNull())
        asked[i].sentences.removeAll(changeSentence(models[i]->state()));
    if (!agrees(models, asked, parent))
      return {};
    agreed = doubts;
  }
  return {};
}

/// What has been saved goes to the files of the project as well, where the
/// person wants it.
bool takeIn(const std::vector<SessionModel *> &models, QWidget *parent) {
  if (models.empty() || models.front()->project() == nullptr)
    return true;
  std::vector<std::string> processors;
  for (const SessionModel *const model : models)
    processors.push_back(model->state().processor);
  QStringList remarks;
  const QString refusal =
      models.front()->project()->takeIn(processors, remarks);
  if (!refusal.isEmpty())
    QMessageBox::warning(
        parent, said(QT_TRANSLATE_NOOP("Saving", "Not in the project")),
        said(QT_TRANSLATE_NOOP("Saving",
                               "The option file is saved, and the project is "
                               "as it was: %1"))
            .arg(refusal));
  else if (!remarks.isEmpty())
    models.front()->project()->tell(remarks.join(QStringLiteral("; ")));
  return refusal.isEmpty();
}

bool saveAndTakeIn(const AllDoubts &agreed,
                   const std::vector<SessionModel *> &models, QWidget *parent) {
  const std::vector<SessionModel *> saved = saveWith(agreed, models, parent);
  return takeIn(saved, parent) && saved.size() == models.size();
}

} // namespace

bool saveConfigurations(const std::vector<SessionModel *> &models,
                        QWidget *parent) {
  for (SessionModel *const model : models)
    model->takeOpenText();
  return saveAndTakeIn(AllDoubts(models.size()), models, parent);
}

bool overwrite(SessionModel &model, QWidget *parent) {
  model.takeOpenText();
  model.lookAtFile();
  Doubts agreed;
  agreed.sentences.append(changeSentence(model.state()));
  agreed.overwritten = contentOf(shown(model.state().file));
  return saveAndTakeIn({agreed}, {&model}, parent);
}

} // namespace ZelDebugDialog::dialog
