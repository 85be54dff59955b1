#include "program/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include "ZelDebugDialog/Dialog.h"
#include "pages/Banner.h"
#include "pages/Texts.h"
#include "program/DesignMessages.h"
#include "program/RecentDesigns.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr const char *geometryKey = "window/geometry";
constexpr const char *layoutKey = "window/layout";
constexpr const char *pageKey = "window/page";
constexpr int mostNamed = 4;

/// The folder that was dropped, or the file.
QString droppedFile(const QMimeData &data) {
  return data.urls().isEmpty() ? QString() : data.urls().front().toLocalFile();
}

/// "component a:b:c:1, component a:b:d:1 …"
QString shownDocuments(const std::vector<MissingDocument> &documents) {
  QStringList names;
  for (const MissingDocument &document : documents)
    if (names.size() < mostNamed)
      names.append(shown(document.identity));
  QString text = names.join(QStringLiteral(", "));
  if (documents.size() > static_cast<std::size_t>(mostNamed))
    text += QStringLiteral(", …");
  return text;
}

} // namespace

MainWindow::MainWindow(const std::string &optionFolder)
    : folder(optionFolder), loader(this) {
  setAcceptDrops(true);
  auto *const content = new QWidget(this);
  auto *const layout = new QVBoxLayout(content);
  layout->setContentsMargins(6, 6, 6, 0);
  missing = new Banner(content);
  layout->addWidget(missing);
  stack = new QStackedWidget(content);
  layout->addWidget(stack, 1);
  setCentralWidget(content);
  welcome = new QLabel(tr("Open a design or a project, or drop its file here."),
                       stack);
  welcome->setAlignment(Qt::AlignCenter);
  welcome->setWordWrap(true);
  welcome->setTextFormat(Qt::PlainText);
  stack->addWidget(welcome);
  makeProgress();

  messagesDock = new QDockWidget(this);
  messagesDock->setObjectName(QStringLiteral("messages"));
  messages = new DesignMessages(messagesDock);
  messagesDock->setWindowTitle(messages->accessibleName());
  messagesDock->setWidget(messages);
  addDockWidget(Qt::BottomDockWidgetArea, messagesDock);
  messagesDock->hide();
  makeMissingBanner();
  makeMenus();
  connect(&loader, &DesignLoader::loaded, this, &MainWindow::take);

  constexpr int width = 1240;
  constexpr int height = 860;
  resize(width, height);
  const QSettings settings;
  restoreGeometry(settings.value(QLatin1String(geometryKey)).toByteArray());
  restoreState(settings.value(QLatin1String(layoutKey)).toByteArray());
  messagesDock->hide();
  refresh();
}

/// The page goes before the design that it asks.
MainWindow::~MainWindow() { delete page; }

void MainWindow::makeProgress() {
  progress = new QWidget(stack);
  auto *const layout = new QVBoxLayout(progress);
  progressText = new QLabel(progress);
  progressText->setAlignment(Qt::AlignCenter);
  auto *const bar = new QProgressBar(progress);
  bar->setRange(0, 0);
  bar->setAccessibleName(tr("Reading the design"));
  stop = new QPushButton(tr("Cancel"), progress);
  // At once, and not when a button has come up again.
  auto *const escape = new QShortcut(Qt::Key_Escape, progress);
  connect(escape, &QShortcut::activated, this, &MainWindow::cancel);
  connect(stop, &QPushButton::clicked, this, &MainWindow::cancel);
  layout->addStretch();
  layout->addWidget(progressText);
  layout->addWidget(bar, 0, Qt::AlignHCenter);
  layout->addWidget(stop, 0, Qt::AlignHCenter);
  layout->addStretch();
  stack->addWidget(progress);
}

void MainWindow::makeMissingBanner() {
  useFound = missing->addAnswer(tr("Take them from t&here"));
  connect(useFound, &QPushButton::clicked, this, [this] {
    WhatToOpen sources = asked;
    sources.libraryFolders = design->search.folders;
    open(sources);
  });
  connect(missing->addAnswer(tr("Choose a &library folder…")),
          &QPushButton::clicked, this, &MainWindow::askForLibrary);
  connect(missing->addAnswer(tr("Choose a ki&nd table…")),
          &QPushButton::clicked, this, &MainWindow::askForKinds);
}

void MainWindow::makeMenus() {
  fileMenu = menuBar()->addMenu(tr("&File"));
  QAction *const openAction = fileMenu->addAction(tr("&Open…"));
  openAction->setShortcut(QKeySequence::Open);
  connect(openAction, &QAction::triggered, this, &MainWindow::askForDesign);
  recentMenu = fileMenu->addMenu(tr("&Recent designs"));
  libraryAction = fileMenu->addAction(tr("&Library folder…"));
  connect(libraryAction, &QAction::triggered, this, &MainWindow::askForLibrary);
  kindsAction = fileMenu->addAction(tr("&Kind table…"));
  connect(kindsAction, &QAction::triggered, this, &MainWindow::askForKinds);
  folderAction = fileMenu->addAction(tr("&Folder of the option files…"));
  connect(folderAction, &QAction::triggered, this, &MainWindow::askForFolder);
  saveSeparator = fileMenu->addSeparator();
  QAction *const quit = fileMenu->addAction(tr("&Quit"));
  quit->setShortcut(QKeySequence::Quit);
  connect(quit, &QAction::triggered, this, &QWidget::close);
  editMenu = menuBar()->addMenu(tr("&Edit"));
  tools = addToolBar(tr("Tools"));
  tools->setObjectName(QStringLiteral("tools"));
  tools->setMovable(false);
  tools->addAction(openAction);
  QMenu *const view = menuBar()->addMenu(tr("&View"));
  view->addAction(messagesDock->toggleViewAction());
  fillRecent();
}

// --- Designs -----------------------------------------------------------------

void MainWindow::open(const WhatToOpen &what) { openIn(what, folder); }

void MainWindow::openIn(const WhatToOpen &what,
                        const std::string &optionFolder) {
  if (page != nullptr && !page->mayClose())
    return;
  ready.reset();
  asked = what;
  folder = optionFolder;
  // What cannot be seen is not to be changed, either.
  if (pageActions != nullptr)
    pageActions->setEnabled(false);
  progressText->setText(tr("Reading %1 …").arg(shown(what.designFile)));
  missing->say(QString());
  stack->setCurrentWidget(progress);
  stop->setFocus();
  loader.start(what, folder);
  refresh();
}

/// Back to what was there before.
void MainWindow::cancel() {
  loader.cancel();
  ready.reset();
  asked = design != nullptr ? design->sources : WhatToOpen();
  if (design != nullptr && !design->sources.isProject)
    folder = design->folder;
  if (pageActions != nullptr)
    pageActions->setEnabled(true);
  stack->setCurrentWidget(page != nullptr ? static_cast<QWidget *>(page)
                                          : welcome);
  if (design != nullptr)
    showMissing();
  refresh();
}

void MainWindow::take(const std::shared_ptr<LoadedDesign> &loaded) {
  ready = loaded;
  showReady();
}

void MainWindow::showReady() {
  if (ready == nullptr)
    return;
  // A question that is open belongs to the page.
  if (QApplication::activeModalWidget() != nullptr) {
    constexpr int later = 100; // ms
    QTimer::singleShot(later, this, &MainWindow::showReady);
    return;
  }
  keepLayout();
  // The page asks its design until it is gone.
  delete page;
  page = nullptr;
  pageActions = nullptr;
  design = std::move(ready);
  ready.reset();
  if (design->board) {
    page = design->project ? new BoardPage(*design->project, stack)
                           : new BoardPage(*design->board, stack);
    stack->addWidget(page);
    stack->setCurrentWidget(page);
    page->setFocus();
    page->restoreLayoutState(
        QSettings().value(QLatin1String(pageKey)).toByteArray());
    addPageActions();
    connect(page, &BoardPage::changed, this, &MainWindow::refresh);
    noteRecentDesign(design->sources);
    fillRecent();
  } else {
    welcome->setText(
        tr("%1 cannot be read: %2")
            .arg(shown(design->sources.designFile), shown(design->problem)));
    stack->setCurrentWidget(welcome);
  }
  messages->display(design->diagnostics);
  const bool hasError = design->model.Missing().empty() && !design->board;
  messagesDock->setVisible(!design->diagnostics.empty() || hasError);
  showMissing();
  refresh();
  emit opened();
}

void MainWindow::addPageActions() {
  using Operation = BoardPage::Operation;
  pageActions = new QActionGroup(page);
  pageActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
  for (const Operation one :
       {Operation::save, Operation::saveAll, Operation::undo, Operation::redo,
        Operation::revert, Operation::reset, Operation::copy})
    pageActions->addAction(page->action(one));
  for (const Operation one : {Operation::save, Operation::saveAll})
    fileMenu->insertAction(saveSeparator, page->action(one));
  for (const Operation one :
       {Operation::save, Operation::undo, Operation::redo, Operation::revert})
    tools->addAction(page->action(one));
  for (const Operation one :
       {Operation::undo, Operation::redo, Operation::revert, Operation::reset,
        Operation::copy})
    editMenu->addAction(page->action(one));
}

/// For the next board, and the next time.
void MainWindow::keepLayout() const {
  if (page != nullptr)
    QSettings().setValue(QLatin1String(pageKey), page->layoutState());
}

void MainWindow::showMissing() {
  const std::vector<MissingDocument> &documents = design->model.Missing();
  const bool isFound = !design->search.folders.empty();
  useFound->setVisible(isFound);
  QString text;
  if (!documents.empty()) {
    text = tr("The design refers to what was not found: %1.")
               .arg(shownDocuments(documents));
    QStringList folders;
    for (const std::string &one : design->search.folders)
      folders.append(shown(one));
    if (isFound)
      text += u' ' + tr("There is some of it in %1.")
                         .arg(folders.join(QStringLiteral(", ")));
  } else if (page != nullptr && design->board->Processors().empty()) {
    text = tr("No processor of the design can be debugged. A kind table says "
              "which of its components are processors and debug modules.");
  }
  missing->say(text);
}

void MainWindow::refresh() {
  const bool hasPage = page != nullptr && stack->currentWidget() == page;
  setWindowModified(page != nullptr && page->isModified());
  const QString name =
      design != nullptr && page != nullptr
          ? QFileInfo(shown(design->sources.designFile)).fileName()
          : QString();
  setWindowTitle(name.isEmpty() ? tr("Debug configurations[*]")
                                : tr("%1[*] – Debug configurations").arg(name));
  // What a design was read with is known once it has been read.
  const bool isRead =
      !asked.designFile.empty() && stack->currentWidget() != progress;
  libraryAction->setEnabled(isRead);
  kindsAction->setEnabled(isRead);
  // A project says where they lie.
  folderAction->setEnabled(!asked.isProject);
  statusBar()->showMessage(
      hasPage ? tr("Option files: %1")
                    .arg(QDir::toNativeSeparators(
                        QFileInfo(shown(design->folder)).absoluteFilePath()))
              : QString());
}

void MainWindow::askForDesign() {
  const QString file = QFileDialog::getOpenFileName(
      this, tr("Open a design or a project"), QString(),
      tr("Designs and projects (*.xml *.toml);;"
         "All files (*)"));
  if (!file.isEmpty())
    open(WhatToOpen(bytesOf(file)));
}

void MainWindow::askForLibrary() {
  const QString chosen =
      QFileDialog::getExistingDirectory(this, tr("Choose a library folder"));
  if (chosen.isEmpty())
    return;
  WhatToOpen sources = asked;
  // Where none is named, the folder of the design is the library.
  if (sources.libraryFolders.empty() && design != nullptr)
    sources.libraryFolders = design->ofModel.libraryFolders;
  if (sources.libraryFolders.empty())
    sources.libraryFolders.push_back(
        bytesOf(QFileInfo(shown(design != nullptr ? design->ofModel.designFile
                                                  : sources.designFile))
                    .path()));
  sources.libraryFolders.push_back(bytesOf(chosen));
  open(sources);
}

void MainWindow::askForKinds() {
  const QString chosen =
      QFileDialog::getOpenFileName(this, tr("Choose a kind table"));
  if (chosen.isEmpty())
    return;
  WhatToOpen sources = asked;
  sources.kindsFile = bytesOf(chosen);
  open(sources);
}

void MainWindow::askForFolder() {
  const QString chosen = QFileDialog::getExistingDirectory(
      this, tr("Folder of the option files"), shown(folder));
  if (chosen.isEmpty())
    return;
  if (asked.designFile.empty())
    folder = bytesOf(chosen);
  else
    openIn(asked, bytesOf(chosen));
  refresh();
}

// --- Recent designs ----------------------------------------------------------

void MainWindow::fillRecent() {
  recentMenu->clear();
  const std::vector<WhatToOpen> recent = recentDesigns();
  for (const WhatToOpen &one : recent) {
    QString text = QDir::toNativeSeparators(shown(one.designFile));
    connect(recentMenu->addAction(text.replace(u'&', QLatin1String("&&"))),
            &QAction::triggered, this, [this, one] { open(one); });
  }
  recentMenu->setEnabled(!recent.empty());
}

// --- Events ------------------------------------------------------------------

void MainWindow::closeEvent(QCloseEvent *event) {
  if (page != nullptr && !page->mayClose()) {
    event->ignore();
    return;
  }
  keepLayout();
  QSettings settings;
  settings.setValue(QLatin1String(geometryKey), saveGeometry());
  settings.setValue(QLatin1String(layoutKey), saveState());
  event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event) {
  if (!droppedFile(*event->mimeData()).isEmpty())
    event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event) {
  const QString file = droppedFile(*event->mimeData());
  if (file.isEmpty())
    return;
  event->acceptProposedAction();
  open(WhatToOpen(bytesOf(file)));
}

} // namespace ZelDebugDialog::dialog
