#include "ZelDebugDialog/Dialog.h"

#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include "pages/Banner.h"
#include "pages/CommandPanel.h"
#include "pages/ElidedLabel.h"
#include "pages/FileWatch.h"
#include "pages/Lists.h"
#include "pages/Saving.h"
#include "pages/SessionModel.h"
#include "pages/SettingsForm.h"
#include "pages/Texts.h"

namespace ZelDebugDialog {

using namespace dialog;

namespace {

constexpr int faultsTab = 0;

QString withCount(const QString &title, std::size_t count) {
  return count == 0 ? title : QStringLiteral("%1 (%2)").arg(title).arg(count);
}

} // namespace

ConfigurationPage::ConfigurationPage(const Board &board,
                                     const std::string &processor,
                                     QWidget *parent)
    : ConfigurationPage(board, processor, nullptr, parent) {}

ConfigurationPage::ConfigurationPage(const Board &board,
                                     const std::string &processor,
                                     ProjectModel *project, QWidget *parent)
    : QWidget(parent), model(new SessionModel(board, processor, project, this)),
      unreadable(new Banner(this)), changedOnDisk(new Banner(this)),
      form(new SettingsForm(*model, this)), effects(new ElidedLabel(this)),
      command(new CommandPanel(*model, this)),
      watch(new FileWatch({shown(model->session().File())}, this)) {
  auto *const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(unreadable);
  layout->addWidget(changedOnDisk);
  makeBanners();

  auto *const below = new QWidget(this);
  auto *const lines = new QVBoxLayout(below);
  lines->setContentsMargins(6, 4, 6, 6);
  lines->addWidget(effects);
  lines->addWidget(command);
  lines->addWidget(makeLists(), 1);
  effects->setAccessibleName(tr("What else has changed"));

  auto *const splitter = new QSplitter(Qt::Vertical, this);
  splitter->setObjectName(QStringLiteral("page"));
  splitter->addWidget(form);
  splitter->addWidget(below);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 0);
  splitter->setChildrenCollapsible(false);
  constexpr int formLines = 34;
  constexpr int belowLines = 17;
  const int line = fontMetrics().height();
  splitter->setSizes({formLines * line, belowLines * line});
  layout->addWidget(splitter, 1);

  connect(model, &SessionModel::stateChanged, this,
          &ConfigurationPage::refresh);
  connect(model, &SessionModel::openTextNoted, this,
          &ConfigurationPage::changed);
  connect(model, &SessionModel::told, this, &ConfigurationPage::tell);
  connect(form, &SettingsForm::settingFocused, command,
          &CommandPanel::markSetting);
  connect(command, &CommandPanel::settingAsked, form,
          [this](const std::string &setting, bool takesFocus) {
            if (takesFocus)
              form->lead(setting);
            else
              form->reveal(setting);
          });
  connect(command, &CommandPanel::diagnosticsChanged, this,
          &ConfigurationPage::showFaults);
  connect(command, &CommandPanel::faultsCameUp, lists,
          [this] { lists->setCurrentIndex(faultsTab); });
  connect(watch, &FileWatch::changed, this, [this] {
    const bool didGoOn = goesOn;
    goesOn = goesOn && watch->isPassedOver();
    lookAtFile();
    if (didGoOn != goesOn)
      refresh();
  });
  refresh();
  showFaults();
}

/// What is being typed is told to the model while its widgets go.
ConfigurationPage::~ConfigurationPage() {
  blockSignals(true); // Nobody is to look at half a page.
  delete form;
  delete command;
}

QWidget *ConfigurationPage::makeLists() {
  lists = new QTabWidget(this);
  faults = new FaultList(lists);
  losses = new LossList(lists);
  differences = new DifferenceList(lists);
  lists->addTab(faults, QString());
  lists->addTab(losses, QString());
  lists->addTab(differences, QString());
  lists->setDocumentMode(true);
  constexpr int fewestLines = 4;
  lists->setMinimumHeight(fewestLines * fontMetrics().height());
  connect(faults, &FaultList::matchChosen, this,
          [this](const CommandDiagnostic &diagnostic) {
            command->apply(diagnostic);
          });
  for (List *const list : std::initializer_list<List *>{losses, differences})
    connect(list, &List::settingAsked, this, &ConfigurationPage::lead);
  return lists;
}

void ConfigurationPage::makeBanners() {
  connect(changedOnDisk->addAnswer(tr("&Keep mine and overwrite")),
          &QPushButton::clicked, this, &ConfigurationPage::keepMine);
  connect(changedOnDisk->addAnswer(tr("&Take the file's")),
          &QPushButton::clicked, this, &ConfigurationPage::revert);
  connect(changedOnDisk->addAnswer(tr("&Go on")), &QPushButton::clicked, this,
          [this] {
            watch->passOver();
            goesOn = true;
            refresh();
          });
}

const std::string &ConfigurationPage::processor() const {
  return model->state().processor;
}

bool ConfigurationPage::isModified() const { return model->isModified(); }
bool ConfigurationPage::canUndo() const { return model->state().canUndo; }
bool ConfigurationPage::canRedo() const { return model->canRedo(); }
bool ConfigurationPage::isUnreadable() const {
  return !model->state().problem.empty();
}
bool ConfigurationPage::isSaved() const { return model->state().exists; }

void ConfigurationPage::lead(const std::string &setting) {
  form->lead(setting);
}

void ConfigurationPage::copyFrom(ConfigurationPage &other) {
  model->copyFrom(*other.model);
}

bool ConfigurationPage::save() { return saveConfigurations({model}, this); }
void ConfigurationPage::undo() { model->undo(); }
void ConfigurationPage::redo() { model->redo(); }
void ConfigurationPage::revert() { model->revert(); }
void ConfigurationPage::reset() { model->reset({}); }
void ConfigurationPage::lookAtFile() { model->lookAtFile(); }
void ConfigurationPage::keepMine() { overwrite(*model, this); }

void ConfigurationPage::refresh() {
  const SessionState &state = model->state();
  unreadable->say(
      state.problem.empty()
          ? QString()
          : tr("What is saved cannot be read: %1. These are the defaults; "
               "saving them takes its place.")
                .arg(shown(state.problem)));
  goesOn = goesOn && state.changedOnDisk;
  const QString change = model->isGone()
                             ? tr("%1 is gone since it was loaded.")
                             : tr("%1 has changed since it was loaded.");
  changedOnDisk->say(state.changedOnDisk && !goesOn
                         ? change.arg(shown(state.file))
                         : QString());
  losses->display(state.losses);
  differences->display(state.differences);
  lists->setTabText(1, withCount(tr("Will not &survive"), state.losses.size()));
  lists->setTabText(2,
                    withCount(tr("Not saved &yet"), state.differences.size()));
  emit changed();
}

void ConfigurationPage::showFaults() {
  const std::vector<CommandDiagnostic> &found = command->diagnostics();
  faults->display(found);
  lists->setTabText(faultsTab, withCount(tr("Fa&ults"), found.size()));
}

void ConfigurationPage::tell(const QString &text, bool isRefusal) {
  effects->say(text);
  effects->setTone(isRefusal ? Tone::fault : Tone::quiet);
}

} // namespace ZelDebugDialog
