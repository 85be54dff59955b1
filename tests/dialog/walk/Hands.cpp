#include "dialog/walk/Hands.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QtGui/QDropEvent>

#include "pages/Banner.h"
#include "pages/ChainEditor.h"
#include "pages/CommandEdit.h"
#include "pages/LineEditor.h"
#include "pages/Texts.h"

using namespace ZelDebugDialog;

namespace walk {

namespace {

/// Of the example board; the last cannot be debugged.
const std::vector<std::string> processors = {
    "lumacore_0", "lumacore_1", "ppc405_0", "ppc440_0",
    "lumacore_2", "a9_0",       "a9_1",     "r5_0"};

const std::vector<const char *> texts = {
    "0",     "1",      "2",          "200",        "0x10000", "0xffffffff",
    "3 MHz", "12MHz",  "fast",       "",           "not set", "USB21",
    "a b",   "/dev/x", "0x40000000", "4294967296", "-1",      "é",
    "yes",   "a;b",    "localhost"};

const std::vector<const char *> commands = {
    "connect lc hdu",
    "connect lc sim",
    "connect ppc sim -icf board.cfg",
    "connect ppc hw -debugdevice devicenr 3",
    "connect lc hdu -cable type quorla_usb -debugdevice devicenr 200 -foo",
    "connect lc hdu -configdevice devicenr 1 partname x irlength 6 idcode 7",
    "vpconnect lc",
    "connect lc stub -comm serial -port /dev/ttyS0",
    "nonsense",
    "",
    "connect lc hdu -bscan USER9 \xc3\xa9"};

/// Letter by letter, also those that no key has.
void typeText(QWidget &widget, const char *text) {
  for (const QChar letter : QString::fromUtf8(text)) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                    QString(letter));
    QCoreApplication::sendEvent(&widget, &press);
  }
}

} // namespace

/// `weight` times as likely as one with the weight 1.
struct Hands::Event {
  const char *name;
  void (Hands::*act)();
  int weight;
};

const std::vector<Hands::Event> &Hands::events() {
  static const std::vector<Event> all = {
      {"type", &Hands::typeSetting, 12},
      {"choose", &Hands::chooseWord, 6},
      {"switch", &Hands::switchFlag, 3},
      {"command", &Hands::typeCommand, 4},
      {"paste", &Hands::pasteCommand, 4},
      {"tool", &Hands::pressTool, 3},
      {"chain", &Hands::changeChain, 4},
      {"cell", &Hands::typeCell, 3},
      {"key", &Hands::pressKey, 8},
      {"action", &Hands::triggerAction, 12},
      {"processor", &Hands::chooseProcessor, 4},
      {"file", &Hands::changeFile, 4},
      {"click", &Hands::click, 5},
      {"item", &Hands::clickItem, 4},
      {"banner", &Hands::answerBanner, 5},
      {"drop text", &Hands::dropText, 2},
      {"resize", &Hands::resize, 1},
      {"palette", &Hands::changePalette, 1},
      {"drop design", &Hands::dropDesign, 1},
      {"close", &Hands::close, 1},
  };
  return all;
}

Hands::Hands(scene::Scene &ofScene, unsigned seed)
    : scene(&ofScene), random(seed) {
  QFile broken(designs.filePath(QStringLiteral("broken.xml")));
  if (!broken.open(QIODevice::WriteOnly))
    qFatal("no file can be written");
  broken.write("<design>\n  <unclosed>\n</design>\n");
  // Whatever is asked is answered, somehow.
  QObject::connect(&answers, &QTimer::timeout, [this] { answerDialog(); });
  answers.start(1);
}

int Hands::below(int end) {
  return std::uniform_int_distribution<int>(0, end - 1)(random);
}

template <class List>
const typename List::value_type &Hands::pick(const List &list) {
  const int chosen = below(static_cast<int>(list.size()));
  return list[static_cast<typename List::size_type>(chosen)];
}

bool Hands::hasPage() {
  return scene->window().board() != nullptr &&
         scene->board().current() != nullptr;
}

/// One that can be used now; null for none.
template <class Widget> Widget *Hands::anyOf() {
  QList<Widget *> found;
  for (Widget *const one : scene->window().findChildren<Widget *>())
    if (one->isVisible() && one->isEnabled())
      found.append(one);
  return found.isEmpty() ? nullptr
                         : found[below(static_cast<int>(found.size()))];
}

void Hands::act() {
  if (scene->window().board() == nullptr)
    return openAgain();
  int sum = 0;
  for (const Event &event : events())
    sum += event.weight;
  int place = below(sum);
  for (const Event &event : events()) {
    place -= event.weight;
    if (place >= 0)
      continue;
    done = event.name;
    ++times[event.name];
    (this->*event.act)();
    break;
  }
  while (QWidget *const popup = QApplication::activePopupWidget())
    popup->close();
}

// --- Settings and the command ------------------------------------------------

void Hands::typeSetting() {
  if (auto *const line = anyOf<dialog::SessionLine>()) {
    const char *const text = pick(texts);
    done += " '" + std::string(text) + "' for " +
            dialog::bytesOf(line->accessibleName());
    line->setFocus();
    if (below(4) != 0)
      QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
    typeText(*line, text);
  }
}

void Hands::chooseWord() {
  if (auto *const box = anyOf<QComboBox>()) {
    done += " for " + dialog::bytesOf(box->accessibleName());
    QTest::keyClick(box, below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
  }
}

void Hands::switchFlag() {
  if (auto *const mark = anyOf<QCheckBox>())
    QTest::keyClick(mark, Qt::Key_Space);
}

void Hands::typeCommand() {
  auto *const line = anyOf<dialog::CommandEdit>();
  if (line == nullptr)
    return;
  line->setFocus();
  if (below(2) == 0)
    QTest::keyClick(line, Qt::Key_End);
  typeText(*line, " ");
  typeText(*line, pick(texts));
  if (below(3) != 0)
    return;
  QTest::keyClick(line, Qt::Key_Space, Qt::ControlModifier);
  if (QWidget *const words = QApplication::activePopupWidget())
    QTest::keyClick(words, below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
}

void Hands::pasteCommand() {
  if (auto *const line = anyOf<dialog::CommandEdit>()) {
    const char *const text = pick(commands);
    done += " '" + std::string(text) + "'";
    line->setFocus();
    line->selectAll();
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
    line->paste();
  }
}

void Hands::pressTool() {
  if (auto *const button = anyOf<QToolButton>()) {
    done += " " + dialog::bytesOf(button->text());
    QTest::mouseClick(button, Qt::LeftButton);
  }
}

void Hands::changeChain() {
  auto *const chain = anyOf<dialog::ChainEditor>();
  if (chain == nullptr)
    return;
  QPushButton *const button = pick(chain->findChildren<QPushButton *>());
  done += " " + dialog::bytesOf(button->text());
  if (button->isEnabled())
    QTest::mouseClick(button, Qt::LeftButton);
  auto *const table = chain->findChild<QTableWidget *>();
  if (table->rowCount() == 0)
    return;
  QTableWidgetItem *const item =
      table->item(below(table->rowCount()), below(table->columnCount()));
  if ((item->flags() & Qt::ItemIsEditable) != 0)
    item->setText(QString::fromUtf8(pick(texts)));
  else
    item->setCheckState(below(2) == 0 ? Qt::Checked : Qt::Unchecked);
}

/// The editor of the cell may stay open.
void Hands::typeCell() {
  auto *const chain = anyOf<dialog::ChainEditor>();
  auto *const table =
      chain == nullptr ? nullptr : chain->findChild<QTableWidget *>();
  if (table == nullptr || table->rowCount() == 0)
    return;
  table->setFocus();
  table->setCurrentCell(below(table->rowCount()), below(table->columnCount()));
  QTest::keyClick(table, Qt::Key_F2);
  auto *const cell = qobject_cast<QLineEdit *>(QApplication::focusWidget());
  if (cell == nullptr || !table->isAncestorOf(cell))
    return;
  cell->selectAll();
  typeText(*cell, pick(texts));
  if (below(2) == 0)
    QTest::keyClick(cell, below(3) == 0 ? Qt::Key_Escape : Qt::Key_Return);
}

// --- Keys and clicks anywhere ------------------------------------------------

void Hands::pressKey() {
  static const std::vector<Qt::Key> keys = {
      Qt::Key_Tab,      Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return,
      Qt::Key_Down,     Qt::Key_Space,  Qt::Key_Delete,  Qt::Key_Backspace,
      Qt::Key_X,        Qt::Key_1,      Qt::Key_F2,      Qt::Key_Escape,
      Qt::Key_PageDown, Qt::Key_Insert, Qt::Key_F1,      Qt::Key_Left};
  static const std::vector<Qt::KeyboardModifiers> modifiers = {
      Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
      Qt::ControlModifier};
  QWidget *const focus = QApplication::focusWidget();
  if (focus == nullptr)
    return;
  const Qt::Key key = pick(keys);
  done += " " + dialog::bytesOf(QKeySequence(key).toString());
  QTest::keyClick(focus, key, pick(modifiers));
}

void Hands::click() {
  auto *const widget = anyOf<QWidget>();
  if (widget == nullptr || widget->size().isEmpty())
    return;
  done += std::string(" ") + widget->metaObject()->className() + " " +
          dialog::bytesOf(widget->accessibleName());
  const QPoint place(below(widget->width()), below(widget->height()));
  if (below(4) == 0)
    QTest::mouseDClick(widget, Qt::LeftButton, {}, place);
  else
    QTest::mouseClick(widget, below(8) == 0 ? Qt::RightButton : Qt::LeftButton,
                      {}, place);
}

void Hands::clickItem() {
  auto *const list = anyOf<QAbstractItemView>();
  if (list == nullptr || list->model() == nullptr ||
      list->model()->rowCount() == 0 || list->model()->columnCount() == 0)
    return;
  done += " of " + dialog::bytesOf(list->accessibleName());
  const QModelIndex index = list->model()->index(
      below(list->model()->rowCount()), below(list->model()->columnCount()));
  list->scrollTo(index);
  const QPoint place = list->visualRect(index).center();
  if (below(2) == 0)
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
  else
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
}

// --- What is done to a configuration, or to all ------------------------------

void Hands::triggerAction() {
  using Operation = BoardPage::Operation;
  static const std::vector<Operation> all = {
      Operation::undo, Operation::undo,    Operation::undo, Operation::redo,
      Operation::redo, Operation::revert,  Operation::save, Operation::save,
      Operation::save, Operation::saveAll, Operation::copy, Operation::reset};
  QAction *const action = scene->action(pick(all));
  done += " " + dialog::bytesOf(action->text());
  if (action->isEnabled())
    action->trigger();
}

void Hands::chooseProcessor() {
  const std::string &name = pick(processors);
  done += " " + name;
  scene->board().choose(name);
}

void Hands::changeFile() {
  const std::string &name = pick(processors);
  if (below(3) == 0) {
    done += " of " + name + " goes";
    QFile::remove(scene->fileOf(name));
  } else {
    const char *const command = pick(commands);
    done += " of " + name + ": '" + command + "'";
    scene->write(name, command);
  }
}

void Hands::answerBanner() {
  auto *const banner = anyOf<dialog::Banner>();
  if (banner == nullptr)
    return;
  const QList<QPushButton *> buttons = banner->findChildren<QPushButton *>();
  if (buttons.isEmpty())
    return;
  QPushButton *const button = pick(buttons);
  done += " " + dialog::bytesOf(button->text());
  // Folders and kind tables come from a dialog, which finds none here.
  QTest::mouseClick(button, Qt::LeftButton);
  awaitDesign();
}

// --- Drops -------------------------------------------------------------------

void Hands::drop(QWidget &widget, const QMimeData &data) {
  const QPoint place = widget.rect().center();
  QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton,
                        Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &enter);
  QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton,
                      Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
  if (!enter.isAccepted()) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&widget, &leave);
    return;
  }
  QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton,
                     Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &dropped);
}

void Hands::dropText() {
  QMimeData data;
  const bool isCommand = below(2) == 0;
  const char *const text = isCommand ? pick(commands) : pick(texts);
  data.setText(QString::fromUtf8(text));
  QWidget *line = anyOf<dialog::SessionLine>();
  if (isCommand)
    if (auto *const command = anyOf<dialog::CommandEdit>())
      line = command->viewport();
  if (line == nullptr)
    return;
  done += " '" + std::string(text) + "'";
  drop(*line, data);
}

/// Over anything; now and then one that cannot be read.
void Hands::dropDesign() {
  const bool isBroken = below(3) == 0;
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(
      isBroken ? designs.filePath(QStringLiteral("broken.xml"))
               : QStringLiteral(TEST_BOARD))});
  done += isBroken ? " that is broken" : "";
  auto *const command = anyOf<dialog::CommandEdit>();
  if (below(2) == 0 && command != nullptr)
    drop(*command->viewport(), data);
  else
    drop(scene->window(), data);
  // Some do not wait for it.
  if (below(3) == 0)
    for (QPushButton *const one : scene->window().findChildren<QPushButton *>())
      if (one->isVisible() && one->text() == QLatin1String("Cancel"))
        one->click();
  awaitDesign();
}

/// While one is read, the board that was open cannot be seen.
void Hands::awaitDesign() {
  const auto isRead = [this] {
    for (QPushButton *const one : scene->window().findChildren<QPushButton *>())
      if (one->isVisible() && one->text() == QLatin1String("Cancel"))
        return false;
    return QApplication::activeModalWidget() == nullptr;
  };
  if (!scene::waitUntil(isRead))
    qFatal("the design is not read");
}

void Hands::openAgain() {
  done = "open the board again";
  scene->window().open(dialog::WhatToOpen(TEST_BOARD));
  awaitDesign();
}

// --- The window --------------------------------------------------------------

void Hands::resize() {
  constexpr int narrowest = 300;
  constexpr int widest = 1400;
  const int width = narrowest + below(widest - narrowest);
  scene->window().resize(width, narrowest + below(widest - narrowest) / 2);
}

void Hands::changePalette() {
  QApplication::setPalette(below(2) == 0
                               ? scene::darkPalette()
                               : QApplication::style()->standardPalette());
}

/// It comes again as it was.
void Hands::close() {
  scene->window().close();
  scene->window().show();
  scene->window().activateWindow();
}

// --- Questions ---------------------------------------------------------------

void Hands::tickItems(QDialog &dialog) {
  for (QListWidget *const list : dialog.findChildren<QListWidget *>())
    for (int row = 0; row < list->count(); ++row)
      if ((list->item(row)->flags() & Qt::ItemIsUserCheckable) != 0)
        list->item(row)->setCheckState(below(2) == 0 ? Qt::Checked
                                                     : Qt::Unchecked);
}

void Hands::answerDialog() {
  auto *const dialog =
      qobject_cast<QDialog *>(QApplication::activeModalWidget());
  if (dialog == nullptr)
    return;
  tickItems(*dialog);
  const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
  if (buttons.isEmpty() || below(4) == 0)
    dialog->reject();
  else
    pick(buttons)->click();
}

} // namespace walk
