// A window over the example board in a folder of its own, and people's hands.
#ifndef TESTS_DIALOG_SCENE_H
#define TESTS_DIALOG_SCENE_H

#include <functional>
#include <memory>
#include <string>

#include <QPalette>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/Dialog.h"
#include "program/MainWindow.h"

class QAction;
class QDialog;
class QLineEdit;

namespace scene {

/// Settings of the program that are gone afterwards, style, font and size of
/// letters: the same everywhere. Once in a process, before the first window.
void prepare();

/// Of a dark desktop.
QPalette darkPalette();

class Scene {
public:
  /// Opens the board and waits for it; the option files' folder is there.
  explicit Scene(const std::string &design = "");

  ZelDebugDialog::dialog::MainWindow &window() { return *mainWindow; }
  ZelDebugDialog::BoardPage &board() { return *mainWindow->board(); }
  ZelDebugDialog::ConfigurationPage &page() { return *board().current(); }

  QString folder() const { return files.filePath(QStringLiteral("etc")); }
  QString fileOf(const std::string &processor) const;
  /// The content of an option file; "none" without one.
  QByteArray saved(const std::string &processor) const;
  void write(const std::string &processor, const QByteArray &content) const;

  /// The control of a setting, by its name in the table; never null.
  QWidget *field(const std::string &setting);
  /// Types letters into the line of a setting, as a person does.
  void type(const std::string &setting, const QString &text);
  /// Chooses the choice whose word is `word` by the keyboard.
  void choose(const std::string &setting, const std::string &word);
  /// The line of the connect command.
  QString command();
  void typeCommand(const QString &text);
  QAction *action(ZelDebugDialog::BoardPage::Operation operation);

private:
  QTemporaryDir files;
  std::unique_ptr<ZelDebugDialog::dialog::MainWindow> mainWindow;
};

/// Does something that asks, and answers in the dialog that comes up.
/// @return whether there was one
bool answer(const std::function<void()> &operation,
            const std::function<void(QDialog &)> &reply);
/// The same by the button that has this text, "&" not counted.
bool answer(const std::function<void()> &operation, const QString &button);
/// The keys that would lead to two places at once: those of the window, and of
/// each of its menus. Nothing: every key is alone.
QStringList clashingKeys(const QWidget &window);
/// As soon as `holds` does; false after a while.
bool waitUntil(const std::function<bool()> &holds);

/// The one control below `parent` that is called so; null for none or several.
template <class Widget>
Widget *named(const QWidget &parent, const QString &name) {
  Widget *found = nullptr;
  for (Widget *const one : parent.findChildren<Widget *>())
    if (one->accessibleName() == name && one->isVisible()) {
      if (found != nullptr)
        return nullptr;
      found = one;
    }
  return found;
}

} // namespace scene

#endif
