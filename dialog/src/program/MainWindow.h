// The window of the program: a design is opened, and its board is the page.
#ifndef ZELDEBUGDIALOG_DIALOG_MAINWINDOW_H
#define ZELDEBUGDIALOG_DIALOG_MAINWINDOW_H

#include <memory>
#include <string>

#include <QMainWindow>

#include "program/DesignLoader.h"

class QActionGroup;
class QDockWidget;
class QLabel;
class QMenu;
class QPushButton;
class QStackedWidget;
class QToolBar;
class QVBoxLayout;

namespace ZelDebugDialog {

class BoardPage;

namespace dialog {

class Banner;
class DesignMessages;

class MainWindow : public QMainWindow {
  Q_OBJECT

public:
  /// @param optionFolder  holds the option files of every design
  explicit MainWindow(const std::string &optionFolder);
  MainWindow(const MainWindow &) = delete;
  MainWindow &operator=(const MainWindow &) = delete;
  ~MainWindow() override;

  /// Reads a design or a project, unless the person wants to keep what is not
  /// saved yet.
  void open(const WhatToOpen &what);
  /// The board that is open; null for none.
  BoardPage *board() const { return page; }

signals:
  /// A design has been read, or could not be.
  void opened();

protected:
  void closeEvent(QCloseEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dropEvent(QDropEvent *event) override;

private:
  void makeProgress();
  void makeMenus();
  void makeMissingBanner();
  void fillRecent();
  void askForDesign();
  void askForLibrary();
  void askForKinds();
  void askForFolder();
  void openIn(const WhatToOpen &what, const std::string &optionFolder);
  void cancel();
  void take(const std::shared_ptr<LoadedDesign> &loaded);
  void showReady();
  void showMissing();
  void addPageActions();
  void keepLayout() const;
  void refresh();

  std::string folder; ///< Of designs without a project.
  DesignLoader loader;
  std::shared_ptr<LoadedDesign> design; ///< Outlives `page`.
  std::shared_ptr<LoadedDesign> ready;  ///< Is shown as soon as it can be.
  BoardPage *page = nullptr;
  QActionGroup *pageActions = nullptr; ///< The page's; goes with it.
  QStackedWidget *stack;
  QLabel *welcome;
  QWidget *progress = nullptr;
  QLabel *progressText = nullptr;
  Banner *missing;
  QPushButton *stop = nullptr;
  QPushButton *useFound = nullptr;
  DesignMessages *messages;
  QDockWidget *messagesDock = nullptr;
  QToolBar *tools = nullptr;
  QMenu *editMenu = nullptr;
  QMenu *fileMenu = nullptr;
  QMenu *recentMenu = nullptr;
  QAction *saveSeparator = nullptr;
  QAction *libraryAction = nullptr;
  QAction *kindsAction = nullptr;
  QAction *folderAction = nullptr;
  WhatToOpen asked; ///< What is being read, or was last.
};

} // namespace dialog
} // namespace ZelDebugDialog

#endif
