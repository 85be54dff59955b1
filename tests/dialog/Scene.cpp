#include "dialog/Scene.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include "pages/CommandEdit.h"
#include "pages/SettingRow.h"
#include "pages/SettingsForm.h"

namespace scene {

using namespace ZelDebugDialog;
using dialog::MainWindow;

namespace {
constexpr int patience = 60000; // ms, under sanitizers on a busy machine
constexpr int letterSize = 10;  // points
} // namespace

void prepare() {
  QApplication::setApplicationName(QStringLiteral("zeldebug-dialog-test"));
  QApplication::setOrganizationName(QStringLiteral("ZelDebugDialog"));
  static const QTemporaryDir settings;
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                     settings.path());
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), letterSize));
}

QPalette darkPalette() {
  QPalette dark;
  const QColor window(0x2b, 0x2d, 0x30);
  const QColor base(0x1e, 0x1f, 0x22);
  const QColor text(0xe6, 0xe6, 0xe6);
  const QColor dim(0x86, 0x86, 0x86);
  dark.setColor(QPalette::Window, window);
  dark.setColor(QPalette::Base, base);
  dark.setColor(QPalette::AlternateBase, window);
  dark.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x41));
  dark.setColor(QPalette::ToolTipBase, window);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
        QPalette::ToolTipText, QPalette::BrightText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, dim);
  }
  dark.setColor(QPalette::PlaceholderText, dim);
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

Scene::Scene(const std::string &design) {
  QDir(files.path()).mkdir(QStringLiteral("etc"));
  mainWindow = std::make_unique<MainWindow>(folder().toStdString());
  mainWindow->show();
  // A window manager may come up later than the window.
  const bool isActive = waitUntil([this] {
    if (!mainWindow->isActiveWindow())
      mainWindow->activateWindow();
    return mainWindow->isActiveWindow();
  });
  if (!isActive)
    qFatal("the window does not come up");
  QSignalSpy opened(mainWindow.get(), &MainWindow::opened);
  mainWindow->open(
      dialog::WhatToOpen(design.empty() ? std::string(TEST_BOARD) : design));
  if (opened.isEmpty() && !opened.wait(patience))
    qFatal("the design is not read");
  QCoreApplication::processEvents();
}

QString Scene::fileOf(const std::string &processor) const {
  return QStringLiteral("%1/kvo_%2.opt")
      .arg(folder(), QString::fromStdString(processor));
}

QByteArray Scene::saved(const std::string &processor) const {
  QFile file(fileOf(processor));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

void Scene::write(const std::string &processor,
                  const QByteArray &content) const {
  QFile file(fileOf(processor));
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
    qFatal("the option file cannot be written");
}

QWidget *Scene::field(const std::string &setting) {
  auto *const form = page().findChild<dialog::SettingsForm *>();
  dialog::SettingRow *const row = form->rowFor(setting);
  if (row == nullptr)
    qFatal("there is no such setting");
  page().lead(setting);
  return row->field();
}

void Scene::type(const std::string &setting, const QString &text) {
  QWidget *const line = field(setting);
  QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(line, text);
}

void Scene::choose(const std::string &setting, const std::string &word) {
  auto *const box = qobject_cast<QComboBox *>(field(setting));
  const SettingInfo *const info = FindSetting(setting);
  for (int i = 0; i < box->count(); ++i) {
    if (info->choices[static_cast<std::size_t>(i)].text != word)
      continue;
    // Up and down over what can be chosen.
    for (int steps = box->count(); steps > 0 && box->currentIndex() != i;
         --steps)
      QTest::keyClick(box, box->currentIndex() < i ? Qt::Key_Down : Qt::Key_Up);
    return;
  }
  qFatal("there is no such choice");
}

QString Scene::command() {
  return page().findChild<dialog::CommandEdit *>()->toPlainText();
}

void Scene::typeCommand(const QString &text) {
  auto *const line = page().findChild<dialog::CommandEdit *>();
  line->setFocus();
  QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(line, text);
}

QAction *Scene::action(BoardPage::Operation operation) {
  return board().action(operation);
}

bool answer(const std::function<void()> &operation,
            const std::function<void(QDialog &)> &reply) {
  bool wasAsked = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    auto *const dialog =
        qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr || wasAsked)
      return;
    wasAsked = true;
    timer.stop();
    reply(*dialog);
  });
  timer.start(5);
  operation();
  return wasAsked;
}

bool answer(const std::function<void()> &operation, const QString &button) {
  return answer(operation, [&button](QDialog &dialog) {
    for (QAbstractButton *const one : dialog.findChildren<QAbstractButton *>())
      if (one->text().remove(u'&') == button) {
        one->click();
        return;
      }
    qFatal("there is no such button: %s", qPrintable(button));
  });
}

namespace {

void addClashes(QStringList &clashes, const QStringList &texts) {
  QMap<QString, QString> holders;
  for (const QString &text : texts) {
    const QString key = QKeySequence::mnemonic(text).toString();
    if (key.isEmpty())
      continue;
    if (holders.contains(key))
      clashes.append(
          QStringLiteral("%1: '%2' and '%3'").arg(key, holders[key], text));
    holders[key] = text;
  }
}

QStringList textsOf(const QList<QAction *> &actions) {
  QStringList texts;
  for (const QAction *const action : actions)
    texts.append(action->text());
  return texts;
}

} // namespace

/// Also what is hidden at the moment: it may come up beside anything else.
QStringList clashingKeys(const QWidget &window) {
  QStringList clashes;
  QStringList texts;
  for (const QMenuBar *const bar : window.findChildren<QMenuBar *>())
    texts += textsOf(bar->actions());
  for (const QAbstractButton *const button :
       window.findChildren<QAbstractButton *>())
    // A button of the tool bar has its key in the menu.
    if (qobject_cast<QToolBar *>(button->parentWidget()) == nullptr)
      texts.append(button->text());
  for (const QLabel *const label : window.findChildren<QLabel *>())
    if (label->buddy() != nullptr)
      texts.append(label->text());
  for (const QTabBar *const bar : window.findChildren<QTabBar *>())
    for (int i = 0; i < bar->count(); ++i)
      texts.append(bar->tabText(i));
  addClashes(clashes, texts);
  for (const QMenu *const menu : window.findChildren<QMenu *>())
    addClashes(clashes, textsOf(menu->actions()));
  return clashes;
}

bool waitUntil(const std::function<bool()> &holds) {
  return QTest::qWaitFor(holds, patience);
}

} // namespace scene
