// The debug-configuration dialog as widgets: a page for one configuration, and
// a page for all processors of a board.
//
// The pages show sessions of the configuration model (Session.h) and write
// nothing but what people save. They belong to the thread of the application,
// and keep a copy of the board: its design stays alive as long as they do.
//
//   Board board(design, "build/etc");
//   auto *page = new BoardPage(board, &window);
//   page->choose("cpu0");
//   toolBar.addAction(page->action(BoardPage::Operation::save));
#ifndef ZELDEBUGDIALOG_DIALOG_H
#define ZELDEBUGDIALOG_DIALOG_H

#include <map>
#include <string>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QWidget>

#include "ZelDebugDialog/ConfigurationModel/Board.h"

#if defined(__GNUC__)
#define ZELDEBUGDIALOG_DIALOG_API __attribute__((visibility("default")))
#else
#define ZELDEBUGDIALOG_DIALOG_API
#endif

class QAction;
class QLabel;
class QLocale;
class QStackedWidget;
class QTabWidget;

namespace ZelDebugDialog {

class ProjectBoard;

namespace dialog {
class Banner;
class CommandPanel;
class DifferenceList;
class ElidedLabel;
class FaultList;
class FileWatch;
class LossList;
class ProcessorList;
class ProjectBar;
class ProjectModel;
class SessionModel;
class SettingsForm;
} // namespace dialog

/// The configuration of one processor: its settings, the command, what will not
/// survive and what differs from what is saved.
class ZELDEBUGDIALOG_DIALOG_API ConfigurationPage : public QWidget {
  Q_OBJECT

public:
  /// Opens what is saved, or the defaults.
  /// @throws Refusal (unknownProcessor, notDebuggable)
  ConfigurationPage(const Board &board, const std::string &processor,
                    QWidget *parent = nullptr);
  ConfigurationPage(const ConfigurationPage &) = delete;
  ConfigurationPage &operator=(const ConfigurationPage &) = delete;
  ~ConfigurationPage() override;

  /// The name of its processor.
  const std::string &processor() const;
  /// Whether closing would lose something; unfinished texts count.
  bool isModified() const;
  bool canUndo() const; ///< Whether `undo` has a step.
  bool canRedo() const; ///< Whether `redo` has a step.
  /// Whether what is saved could not be read.
  bool isUnreadable() const;
  /// Whether something is saved.
  bool isSaved() const;

  /// Shows a setting by its name ("cable.port") and gives it the focus.
  void lead(const std::string &setting);
  /// Takes all settings of another page but what says which processor it is.
  void copyFrom(ConfigurationPage &other);

public slots:
  /// Saves; asks where something would be lost.
  bool save();
  void undo();
  void redo();
  /// Back to what is saved.
  void revert();
  /// Back to the defaults.
  void reset();
  /// Looks whether the file is still what was loaded.
  void lookAtFile();

signals:
  /// Something is not as it was.
  void changed();

private:
  friend class BoardPage;

  ConfigurationPage(const Board &board, const std::string &processor,
                    dialog::ProjectModel *project, QWidget *parent);

  QWidget *makeLists();
  void makeBanners();
  void refresh();
  void showFaults();
  void tell(const QString &text, bool isRefusal);
  void keepMine();

  dialog::SessionModel *model;
  dialog::Banner *unreadable;
  dialog::Banner *changedOnDisk;
  dialog::SettingsForm *form;
  dialog::ElidedLabel *effects;
  dialog::CommandPanel *command;
  QTabWidget *lists;
  dialog::FaultList *faults;
  dialog::LossList *losses;
  dialog::DifferenceList *differences;
  dialog::FileWatch *watch;
  bool goesOn = false; ///< A change of the file has been passed over.
};

/// All processors of a board, and the page of the one that is chosen.
class ZELDEBUGDIALOG_DIALOG_API BoardPage : public QWidget {
  Q_OBJECT

public:
  /// What a person can do to the chosen configuration, or to all.
  enum class Operation { save, saveAll, undo, redo, revert, reset, copy };

  explicit BoardPage(const Board &board, QWidget *parent = nullptr);
  /// Also shows which of the project's files says what, and takes what is saved
  /// into them, where the person wants it.
  explicit BoardPage(const ProjectBoard &project, QWidget *parent = nullptr);

  /// Shows a processor; false for a name that the board does not have.
  bool choose(const std::string &processor);
  /// The page that is shown; null for a processor that cannot be debugged.
  ConfigurationPage *current() const;
  /// Whether closing would lose something of any processor.
  bool isModified() const;
  /// For menus and tool bars. It stays the page's.
  QAction *action(Operation operation) const;
  /// Saves what is changed, or lets it go, as the person wants it.
  /// @return false: the person wants to go on instead
  bool mayClose();

  /// How the person has divided it: widths, heights, columns. A program may
  /// keep it, as it keeps `QMainWindow::saveState`.
  QByteArray layoutState() const;
  /// False, and nothing has changed, for what is no such state.
  bool restoreLayoutState(const QByteArray &state);

public slots:
  /// Saves every configuration that is not as it is saved.
  bool saveAll();

signals:
  /// Something is not as it was.
  void changed();

protected:
  /// The list of processors takes it.
  void focusInEvent(QFocusEvent *event) override;

private:
  BoardPage(const Board &ofBoard, const ProjectBoard *ofProject,
            QWidget *parent);

  void makeActions();
  void watchUnvisited();
  void displayUnvisited();
  std::map<QString, QByteArray> pageLayout() const;
  ConfigurationPage *pageOf(const std::string &processor);
  std::vector<ConfigurationPage *> modifiedPages() const;
  bool savePages(const std::vector<ConfigurationPage *> &pages);
  void copyToOthers();
  void refresh();

  Board board;
  dialog::ProjectModel *project = nullptr; ///< Null: none is used.
  dialog::ProjectBar *bar = nullptr;       ///< The same.
  dialog::ProcessorList *list;
  QStackedWidget *stack;
  QLabel *remark;                     ///< In place of a page.
  dialog::FileWatch *watch = nullptr; ///< Of processors without a page.
  std::map<std::string, ConfigurationPage *> pages;
  std::map<QString, QByteArray> laidOut; ///< What the next page is to be like.
  std::map<Operation, QAction *> actions;
};

/// Lets the texts of the dialog be those of a language, as far as there are
/// any; English otherwise. Call it before the first page is made.
/// @return whether there are any
ZELDEBUGDIALOG_DIALOG_API bool InstallDialogTexts(const QLocale &locale);

} // namespace ZelDebugDialog

#endif
