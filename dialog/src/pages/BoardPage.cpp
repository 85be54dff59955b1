#include "ZelDebugDialog/Dialog.h"

#include <algorithm>

#include <QAction>
#include <QFocusEvent>
#include <QLabel>
#include <QMessageBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "pages/CopyDialog.h"
#include "pages/FileWatch.h"
#include "pages/Layout.h"
#include "pages/ProcessorList.h"
#include "pages/ProjectBar.h"
#include "pages/ProjectModel.h"
#include "pages/Saving.h"
#include "pages/SessionModel.h"
#include "pages/Texts.h"

namespace ZelDebugDialog {

using namespace dialog;

namespace {

SavedAs savedAs(const ConfigurationPage &page) {
  if (page.isModified())
    return SavedAs::changed;
  if (page.isUnreadable())
    return SavedAs::unreadable;
  return page.isSaved() ? SavedAs::saved : SavedAs::nothing;
}

/// Before there is a page.
SavedAs savedAs(const Board &board, const std::string &processor) {
  const Session session(board, processor);
  if (!session.Problem().empty())
    return SavedAs::unreadable;
  return session.State().exists ? SavedAs::saved : SavedAs::nothing;
}

} // namespace

BoardPage::BoardPage(const Board &ofBoard, QWidget *parent)
    : BoardPage(ofBoard, nullptr, parent) {}

BoardPage::BoardPage(const ProjectBoard &ofProject, QWidget *parent)
    : BoardPage(ofProject.GetBoard(), &ofProject, parent) {}

BoardPage::BoardPage(const Board &ofBoard, const ProjectBoard *ofProject,
                     QWidget *parent)
    : QWidget(parent), board(ofBoard),
      project(ofProject == nullptr ? nullptr
                                   : new ProjectModel(*ofProject, this)),
      // In front of what stands below, for the tabulator.
      bar(project == nullptr ? nullptr : new ProjectBar(*project, this)),
      list(new ProcessorList(ofBoard, this)), stack(new QStackedWidget(this)),
      remark(new QLabel(stack)) {
  auto *const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  if (bar != nullptr) {
    layout->addWidget(bar);
    connect(project, &ProjectModel::changed, this, &BoardPage::refresh);
    connect(project, &ProjectModel::told, this, [this](const QString &text) {
      if (ConfigurationPage *const page = current())
        page->tell(text, false);
    });
  }
  auto *const splitter = new QSplitter(this);
  splitter->setObjectName(QStringLiteral("board"));
  splitter->addWidget(list);
  splitter->addWidget(stack);
  splitter->setStretchFactor(0, 0);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  constexpr int listLetters = 50;
  constexpr int pageLetters = 110;
  const int letter = fontMetrics().averageCharWidth();
  splitter->setSizes({listLetters * letter, pageLetters * letter});
  layout->addWidget(splitter, 1);

  remark->setWordWrap(true);
  remark->setAlignment(Qt::AlignCenter);
  remark->setTextFormat(Qt::PlainText);
  remark->setMargin(3 * letter);
  stack->addWidget(remark);
  makeActions();
  watchUnvisited();
  connect(list, &ProcessorList::processorChosen, this, &BoardPage::choose);
  if (!board.Processors().empty())
    choose(board.Processors().front().name);
  else
    remark->setText(tr("No processor of this design can be debugged."));
  refresh();
}

/// A proxy would be led to by the tabulator, past the bar.
void BoardPage::focusInEvent(QFocusEvent *event) {
  list->setFocus(event->reason());
}

/// Each has its sign from the start, and keeps it true.
void BoardPage::watchUnvisited() {
  QStringList files;
  for (const BoardProcessor &processor : board.Processors())
    files.append(shown(board.FileOf(processor.name)));
  watch = new FileWatch(files, this);
  connect(watch, &FileWatch::changed, this, &BoardPage::displayUnvisited);
  displayUnvisited();
}

void BoardPage::displayUnvisited() {
  for (const BoardProcessor &processor : board.Processors())
    if (pages.count(processor.name) == 0)
      list->display(processor.name, savedAs(board, processor.name));
}

void BoardPage::makeActions() {
  const auto add = [this](Operation operation, const QString &text,
                          const QKeySequence &keys) {
    auto *const made = new QAction(text, this);
    made->setShortcut(keys);
    actions[operation] = made;
    return made;
  };
  const auto withPage = [this](auto operation) {
    return [this, operation] {
      if (ConfigurationPage *const page = current())
        (page->*operation)();
    };
  };
  connect(add(Operation::save, tr("&Save"), QKeySequence::Save),
          &QAction::triggered, this, withPage(&ConfigurationPage::save));
  connect(add(Operation::saveAll, tr("Save &all"),
              QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)),
          &QAction::triggered, this, &BoardPage::saveAll);
  connect(add(Operation::undo, tr("&Undo"), QKeySequence::Undo),
          &QAction::triggered, this, withPage(&ConfigurationPage::undo));
  connect(add(Operation::redo, tr("&Redo"), QKeySequence::Redo),
          &QAction::triggered, this, withPage(&ConfigurationPage::redo));
  connect(add(Operation::revert, tr("Re&vert to what is saved"), {}),
          &QAction::triggered, this, withPage(&ConfigurationPage::revert));
  connect(add(Operation::reset, tr("Back to the &defaults"), {}),
          &QAction::triggered, this, withPage(&ConfigurationPage::reset));
  connect(add(Operation::copy, tr("&Copy to other processors…"),
              QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C)),
          &QAction::triggered, this, &BoardPage::copyToOthers);
}

QAction *BoardPage::action(Operation operation) const {
  return actions.at(operation);
}

ConfigurationPage *BoardPage::pageOf(const std::string &processor) {
  const auto known = pages.find(processor);
  if (known != pages.end())
    return known->second;
  // It may refuse the processor.
  auto *const page = new ConfigurationPage(board, processor, project, stack);
  pages.emplace(processor, page);
  stack->addWidget(page);
  connect(page, &ConfigurationPage::changed, this, &BoardPage::refresh);
  return page;
}

bool BoardPage::choose(const std::string &processor) {
  if (!list->choose(processor))
    return false;
  for (const UndebuggableProcessor &none : board.Undebuggable())
    if (none.name == processor) {
      remark->setText(
          tr("%1 (%2) cannot be debugged: %3.")
              .arg(shown(none.name), shown(none.type), reasonOf(none.reason)));
      stack->setCurrentWidget(remark);
      refresh();
      return true;
    }
  laidOut = pageLayout();
  ConfigurationPage *const page = pageOf(processor);
  if (page != current())
    restoreLayout(*page, laidOut);
  stack->setCurrentWidget(page);
  page->lookAtFile();
  refresh();
  return true;
}

ConfigurationPage *BoardPage::current() const {
  return qobject_cast<ConfigurationPage *>(stack->currentWidget());
}

// --- Layout ------------------------------------------------------------------

/// Of the page that is shown: another one is to look the same.
std::map<QString, QByteArray> BoardPage::pageLayout() const {
  const ConfigurationPage *const page = current();
  return page != nullptr ? layoutOf(*page) : laidOut;
}

QByteArray BoardPage::layoutState() const {
  Layout layout = layoutOf(*this);
  for (const auto &[name, state] : pageLayout())
    layout[name] = state;
  return written(layout);
}

bool BoardPage::restoreLayoutState(const QByteArray &state) {
  const Layout layout = readLayout(state);
  if (layout.empty())
    return false;
  laidOut = layout;
  restoreLayout(*this, layout);
  return true;
}

// --- Saving, closing, copying ------------------------------------------------

std::vector<ConfigurationPage *> BoardPage::modifiedPages() const {
  std::vector<ConfigurationPage *> found;
  for (const BoardProcessor &processor : board.Processors()) {
    const auto page = pages.find(processor.name);
    if (page != pages.end() && page->second->isModified())
      found.push_back(page->second);
  }
  return found;
}

bool BoardPage::isModified() const { return !modifiedPages().empty(); }

bool BoardPage::savePages(const std::vector<ConfigurationPage *> &chosen) {
  std::vector<SessionModel *> models;
  models.reserve(chosen.size());
  for (const ConfigurationPage *const page : chosen)
    models.push_back(page->model);
  return models.empty() || saveConfigurations(models, this);
}

bool BoardPage::saveAll() { return savePages(modifiedPages()); }

bool BoardPage::mayClose() {
  const std::vector<ConfigurationPage *> modified = modifiedPages();
  if (modified.empty())
    return true;
  QStringList names;
  for (const ConfigurationPage *const page : modified)
    names.append(shown(page->processor()));
  const auto answer = QMessageBox::question(
      this, tr("Not saved yet"),
      tr("These configurations are changed: %1.\n\nSave them?")
          .arg(names.join(QStringLiteral(", "))),
      QMessageBox::SaveAll | QMessageBox::Discard | QMessageBox::Cancel,
      QMessageBox::SaveAll);
  if (answer == QMessageBox::SaveAll)
    return savePages(modified);
  return answer == QMessageBox::Discard;
}

void BoardPage::copyToOthers() {
  ConfigurationPage *const from = current();
  if (from == nullptr)
    return;
  CopyDialog question(board, from->processor(), this);
  if (question.exec() != QDialog::Accepted)
    return;
  for (const std::string &processor : question.chosen())
    pageOf(processor)->copyFrom(*from);
  refresh();
}

void BoardPage::refresh() {
  for (const auto &[processor, page] : pages)
    list->display(processor, savedAs(*page));
  const ConfigurationPage *const page = current();
  const bool isThere = page != nullptr;
  const auto enable = [this](Operation operation, bool isOn) {
    actions[operation]->setEnabled(isOn);
  };
  enable(Operation::save, isThere);
  enable(Operation::saveAll, isModified());
  enable(Operation::undo, isThere && page->canUndo());
  enable(Operation::redo, isThere && page->canRedo());
  enable(Operation::revert, isThere);
  enable(Operation::reset, isThere);
  enable(Operation::copy, isThere && board.Processors().size() > 1);
  if (bar != nullptr)
    bar->display(isThere ? page->model : nullptr);
  emit changed();
}

} // namespace ZelDebugDialog
