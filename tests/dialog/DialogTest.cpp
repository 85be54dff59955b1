// The dialog by typed keys and clicks: what people do, and what they see.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QtGui/QDropEvent>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "dialog/Scene.h"
#include "pages/Banner.h"
#include "pages/ChainEditor.h"
#include "pages/CommandEdit.h"
#include "pages/ElidedLabel.h"
#include "pages/Lists.h"
#include "pages/ProcessorList.h"
#include "pages/Section.h"
#include "pages/SessionModel.h"
#include "pages/SettingsForm.h"
#include "pages/Texts.h"
#include "program/RecentDesigns.h"

using namespace ZelDebugDialog;
using scene::Scene;
using Operation = BoardPage::Operation;

namespace {

constexpr const char *plainCommand = "connect lc hdu -debugdevice cpunr 1";
constexpr const char *storyCommand =
    "connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000 "
    "-debugdevice cpunr 1";

template <class Widget> Widget &only(QWidget &parent) {
  Widget *const found = parent.findChild<Widget *>();
  if (found == nullptr)
    qFatal("there is no such widget");
  return *found;
}

QLineEdit &lineOf(Scene &scene, const std::string &setting) {
  return *qobject_cast<QLineEdit *>(scene.field(setting));
}

QComboBox &boxOf(Scene &scene, const std::string &setting) {
  return *qobject_cast<QComboBox *>(scene.field(setting));
}

/// All that is written on the page and can be seen.
QString textsOf(QWidget &page) {
  QString texts;
  for (const QLabel *const label : page.findChildren<QLabel *>())
    if (label->isVisible())
      texts += label->text() + u'\n';
  return texts;
}

/// The words of a list, a line a row.
QStringList rowsOf(const QTreeWidget &list) {
  QStringList rows;
  for (int row = 0; row < list.topLevelItemCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < list.columnCount(); ++column)
      cells.append(list.topLevelItem(row)->text(column));
    rows.append(cells.join(QStringLiteral(" | ")));
  }
  return rows;
}

QString savedSign(Scene &scene, const QString &processor) {
  const auto &list = only<dialog::ProcessorList>(scene.window());
  for (const QString &row : rowsOf(list))
    if (row.startsWith(processor + u' '))
      return row.section(QStringLiteral(" | "), 4);
  return QStringLiteral("no such processor");
}

/// The button of a banner that can be seen.
QPushButton *answerIn(Scene &scene, const QString &text) {
  for (dialog::Banner *const banner :
       scene.window().findChildren<dialog::Banner *>())
    for (QPushButton *const button : banner->findChildren<QPushButton *>())
      if (button->isVisible() && button->text().remove(u'&') == text)
        return button;
  return nullptr;
}

void enterCell(QTableWidget &table, int row, int column, const QString &text) {
  table.setFocus();
  table.setCurrentCell(row, column);
  QTest::keyClick(&table, Qt::Key_F2);
  auto *const editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
  QVERIFY(editor != nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, text);
  QTest::keyClick(editor, Qt::Key_Return);
  QCoreApplication::processEvents();
}

/// A cell of the chain's first device with its editor open.
QLineEdit *openCell(Scene &scene, bool isNew = true) {
  scene.field("chain");
  auto &chain = only<dialog::ChainEditor>(scene.page());
  auto &table = only<QTableWidget>(chain);
  if (isNew)
    QTest::mouseClick(scene::named<QPushButton>(chain, "Add a device"),
                      Qt::LeftButton);
  constexpr int registerLength = 2;
  table.setFocus();
  table.setCurrentCell(0, registerLength);
  QTest::keyClick(&table, Qt::Key_F2);
  auto *const cell = qobject_cast<QLineEdit *>(QApplication::focusWidget());
  if (cell == nullptr)
    qFatal("no editor opens");
  cell->selectAll();
  return cell;
}

/// The example board, with a component in a folder beside its own.
QString splitBoard(const QTemporaryDir &folder) {
  const QDir from = QFileInfo(QStringLiteral(TEST_BOARD)).dir();
  const QDir to(folder.path());
  const QString moved = QStringLiteral("uart_mini_cedar.xml");
  if (!to.mkpath("elsewhere") || !to.mkpath("project"))
    qFatal("no folder can be made");
  QDirIterator files(from.path(), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const QString name = files.fileName();
    if (!QFile::copy(
            path,
            to.filePath((name == moved ? "elsewhere/" : "project/") + name)))
      qFatal("the board cannot be copied");
  }
  return to.filePath("project/board.xml");
}

QAction *menuAction(Scene &scene, const QString &text) {
  for (QAction *const one : scene.window().findChildren<QAction *>())
    if (one->text().remove(u'&') == text)
      return one;
  qFatal("there is no such action: %s", qPrintable(text));
}

/// The button below the progress of reading.
void pressCancel(Scene &scene) {
  for (QPushButton *const one : scene.window().findChildren<QPushButton *>())
    if (one->isVisible() && one->text() == QLatin1String("Cancel")) {
      one->click();
      return;
    }
  qFatal("nothing is being read");
}

} // namespace

class DialogTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { scene::prepare(); }

  // --- Settings
  // ---------------------------------------------------------------

  void WhatIsEnteredReachesTheCommand_data() {
    QTest::addColumn<QString>("processor");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("command");
    const auto row = [](const char *name, const char *processor,
                        const QStringList &steps, const char *command) {
      QTest::newRow(name) << QString::fromLatin1(processor) << steps
                          << QString::fromLatin1(command);
    };
    row("debug device", "lumacore_0", {"debugDevice", "2"},
        "connect lc hdu -debugdevice deviceNr 2 cpunr 1");
    row("cable", "lumacore_0",
        {"cable.cableType", "quorla_podusb", "cable.frequency", "3 MHz"},
        storyCommand);
    row("serial number", "lumacore_0",
        {"cable.cableType", "quorla_podusb", "cable.esn", "0042"},
        "connect lc hdu -cable type quorla_podusb esn 0042 -debugdevice cpunr "
        "1");
    row("address map", "ppc405_0",
        {"romemStartAdr", "0xfff00000", "romemSize", "65536", "icacheStartAdr",
         "0x40000000"},
        "connect ppc hw -debugdevice cpunr 1 romemStartAdr 0xfff00000 "
        "romemSize 65536 icacheStartAdr 0x40000000 fpuType sp");
    row("simulator", "lumacore_0", {"connection", "sim"}, "connect lc sim");
    row("simulator's file", "ppc405_0",
        {"connection", "sim", "ppcSimConfigFile", "board.cfg"},
        "connect ppc sim -icf board.cfg");
    row("stub over JTAG", "lumacore_0", {"connection", "stub-jtag"},
        "connect lc stub -comm jtag");
    row("stub over a serial line", "lumacore_0",
        {"connection", "stub-serial", "stubBaudRate", "115200"},
        "connect lc stub -comm serial -port /dev/ttyS0  -baud  115200 "
        "-timeout 20000");
    row("hardware of another family", "a9_1", {"connection", "hw"},
        "connect ppc hw -debugdevice cpunr 2");
  }

  void WhatIsEnteredReachesTheCommand() {
    QFETCH(QString, processor);
    QFETCH(QStringList, steps);
    QFETCH(QString, command);
    Scene scene;
    QVERIFY(scene.board().choose(processor.toStdString()));
    for (qsizetype i = 0; i + 1 < steps.size(); i += 2) {
      const std::string setting = steps[i].toStdString();
      if (FindSetting(setting)->kind == SettingKind::word)
        scene.choose(setting, steps[i + 1].toStdString());
      else
        scene.type(setting, steps[i + 1]);
    }
    QCOMPARE(scene.command(), command);
  }

  void AChoiceThatIsRefusedIsShownWithItsReason() {
    Scene scene;
    QComboBox &box = boxOf(scene, "connection");
    const int last = box.count() - 1;
    auto *const items = qobject_cast<QStandardItemModel *>(box.model());
    QVERIFY(!items->item(last)->isEnabled());
    QVERIFY(items->item(last)->text().contains("does not allow it"));
    scene.choose("connection", "vp");
    QVERIFY(box.currentIndex() != last);
  }

  /// Also of a cable that has just been added to the table.
  void EveryChoiceOfTheTableIsThere() {
    Scene scene;
    for (const SettingInfo &setting : GetSettings()) {
      if (setting.kind != SettingKind::word)
        continue;
      const QComboBox &box = boxOf(scene, setting.id);
      QCOMPARE(static_cast<std::size_t>(box.count()), setting.choices.size());
      for (int i = 0; i < box.count(); ++i)
        QVERIFY(box.itemText(i).startsWith(QString::fromStdString(
            setting.choices[static_cast<std::size_t>(i)].label)));
    }
  }

  /// What they show follows the kind of the setting alone.
  void EverySettingHasAControlOfItsKind() {
    Scene scene;
    for (const SettingInfo &setting : GetSettings()) {
      if (setting.id.find('[') != std::string::npos)
        continue;
      const QWidget *const field = scene.field(setting.id);
      const QByteArray kind = !setting.settable                   ? "QLabel"
                              : setting.kind == SettingKind::flag ? "QCheckBox"
                              : setting.kind == SettingKind::word ? "QComboBox"
                              : setting.kind == SettingKind::chain
                                  ? "QTableWidget"
                                  : "QLineEdit";
      QVERIFY2(field->inherits(kind), setting.id.c_str());
    }
  }

  void WhatIsNotApplicableIsDisabledAndSaysWhy() {
    Scene scene;
    QWidget *const line = scene.field("stubBaudRate");
    QVERIFY(!line->isEnabled());
    // Who is led there hears it.
    QCOMPARE(QApplication::focusWidget()->accessibleDescription(),
             line->accessibleDescription());
    QVERIFY(line->accessibleDescription().contains(
        "a command for this kind of connection does not carry it"));
    scene.choose("connection", "stub-serial");
    QVERIFY(line->isEnabled());
    QVERIFY(line->isVisible());
  }

  void ATextThatIsNoValueStaysAndStopsNothingElse() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    scene.type("cable.frequency", "fast");
    QVERIFY(textsOf(scene.page()).contains("'fast' is no whole number"));
    scene.type("debugDevice", "2");
    QCOMPARE(lineOf(scene, "cable.frequency").text(), QString("fast"));
    QCOMPARE(scene.command(),
             QString("connect lc hdu -cable type quorla_podusb port USB21 "
                     "frequency 6000000 -debugdevice deviceNr 2 cpunr 1"));
    QString told;
    QVERIFY(scene::answer([&] { scene.action(Operation::save)->trigger(); },
                          [&told](QDialog &dialog) {
                            told = textsOf(dialog);
                            dialog.reject();
                          }));
    QVERIFY2(told.contains("lumacore_0: Cable: Frequency: a text that is no "
                           "value stands there"),
             qPrintable(told));
    QCOMPARE(scene.saved("lumacore_0"), QByteArray("none"));
  }

  /// What was kept only because it is no value is mended letter by letter.
  void ARowStaysOpenWhileItIsTypedIn() {
    Scene scene;
    scene.type("debugDevice", "x1");
    scene.choose("connection", "sim");
    scene.type("debugDevice", "12");
    QLineEdit &line = lineOf(scene, "debugDevice");
    QCOMPARE(line.text(), QString("12"));
    QVERIFY(line.isEnabled());
    QTest::keyClick(&line, Qt::Key_Tab);
    QVERIFY(!line.isEnabled());
    scene.choose("connection", "hw");
    QVERIFY(scene.command().contains("deviceNr 12 "));
  }

  void AValueIsWrittenOutWhenOneLeaves() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    scene.type("cable.frequency", "3000000");
    QLineEdit &line = lineOf(scene, "cable.frequency");
    QCOMPARE(line.text(), QString("3000000"));
    QTest::keyClick(&line, Qt::Key_Tab);
    QCoreApplication::processEvents();
    QCOMPARE(line.text(), QString("3 MHz"));
  }

  void ALineEndThatWasCopiedAlongIsNotPasted() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    QLineEdit &line = lineOf(scene, "cable.esn");
    QGuiApplication::clipboard()->setText("00123\r\n");
    line.paste();
    QCOMPARE(line.text(), QString("00123"));
    line.home(false);
    line.paste();
    QCOMPARE(line.text(), QString("0012300123"));
    QCOMPARE(line.cursorPosition(), 5);
    QVERIFY(scene.command().contains("esn 0012300123 "));
    QLineEdit &cell = *openCell(scene);
    QGuiApplication::clipboard()->setText("6\n");
    cell.paste();
    QCOMPARE(cell.text(), QString("6"));
    QTest::keyClick(&cell, Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY2(scene.command().contains("irlength 6 "),
             qPrintable(scene.command()));
  }

  void AFlagIsSwitchedByTheSpaceKey() {
    Scene scene;
    QVERIFY(scene.board().choose("lumacore_0"));
    auto *const mark = qobject_cast<QCheckBox *>(scene.field("cpuJtag"));
    QVERIFY(mark != nullptr && mark->isEnabled());
    QTest::keyClick(mark, Qt::Key_Space);
    QVERIFY(mark->isChecked());
    const QStringList losses = rowsOf(only<dialog::LossList>(scene.page()));
    QCOMPARE(losses.size(), 1);
    QVERIFY(losses[0].contains("which no reader accepts"));
    QCOMPARE(losses[0].section(" | ", 1, 1), QString("yes"));
  }

  void TheWayBackToTheDefault() {
    Scene scene;
    scene.type("debugDevice", "2");
    auto *const back = scene::named<QToolButton>(
        scene.page(), "Back to default: Debug device");
    QVERIFY(back != nullptr);
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(scene.command(), QString(plainCommand));
  }

  void WhatElseHasChangedIsSaid() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    QVERIFY2(textsOf(scene.page())
                 .contains("choosing a cable brings its port and frequency"),
             qPrintable(textsOf(scene.page())));
  }

  void UndoingTakesBackWhatWasTypedInOneGo() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    scene.type("cable.frequency", "3 MHz");
    QCOMPARE(scene.command(), QString(storyCommand));
    QTest::keyClick(scene.field("cable.frequency"), Qt::Key_Z,
                    Qt::ControlModifier);
    QVERIFY(scene.command().contains("frequency 6000000"));
    QCOMPARE(lineOf(scene, "cable.frequency").text(), QString("6 MHz"));
    scene.action(Operation::undo)->trigger();
    while (scene.action(Operation::undo)->isEnabled())
      scene.action(Operation::undo)->trigger();
    QCOMPARE(scene.command(), QString(plainCommand));
    while (scene.action(Operation::redo)->isEnabled())
      scene.action(Operation::redo)->trigger();
    QCOMPARE(scene.command(), QString(storyCommand));
  }

  /// What was typed and taken back by typing is no step, not even to redo.
  void TypingBackAndForthLeavesNothingToRedo() {
    Scene scene;
    QAction *const undo = scene.action(Operation::undo);
    QAction *const redo = scene.action(Operation::redo);
    scene.choose("cable.cableType", "quorla_podusb");
    const QString chosen = scene.command();
    QLineEdit &line = lineOf(scene, "debugDevice");
    QCOMPARE(line.text(), QString("0"));
    QTest::keyClick(&line, Qt::Key_End);
    QTest::keyClick(&line, Qt::Key_Backspace);
    QTest::keyClicks(&line, "2");
    QVERIFY(scene.command() != chosen);
    QTest::keyClick(&line, Qt::Key_Backspace);
    QTest::keyClicks(&line, "0");
    QCOMPARE(scene.command(), chosen);
    QVERIFY(!redo->isEnabled());
    // What is undone meanwhile is done again, and no more than that.
    undo->trigger();
    QVERIFY(scene.command() != chosen);
    QVERIFY(redo->isEnabled());
    redo->trigger();
    QCOMPARE(scene.command(), chosen);
    QVERIFY(!redo->isEnabled());
    // A step that is typed can be done again as ever.
    scene.type("debugDevice", "3");
    const QString typed = scene.command();
    undo->trigger();
    QCOMPARE(scene.command(), chosen);
    redo->trigger();
    QCOMPARE(scene.command(), typed);
  }

  void ALineThatWasCutIsWholeWhereThereIsRoom() {
    Scene scene;
    const QString wanted = "choosing a cable brings its port and frequency";
    auto &line = *scene.page().findChild<dialog::ElidedLabel *>();
    scene.choose("cable.cableType", "quorla_podusb");
    QVERIFY(line.text().contains(wanted));
    constexpr int narrow = 100;
    const QSize before = line.size();
    line.resize(narrow, before.height());
    QVERIFY(!line.text().contains(wanted));
    QVERIFY(line.toolTip().contains(wanted));
    line.resize(before);
    QVERIFY(line.text().contains(wanted));
  }

  void NoKeyLeadsToTwoPlaces() {
    Scene scene;
    QCOMPARE(scene::clashingKeys(scene.window()), QStringList());
    // A clash is seen.
    QPushButton other("&Else", &scene.window());
    QCOMPARE(scene::clashingKeys(scene.window()).size(), 1);
  }

  // --- The chain
  // --------------------------------------------------------------

  void DevicesAreAddedMovedAndRemoved() {
    Scene scene;
    scene.field("chain");
    auto &chain = only<dialog::ChainEditor>(scene.page());
    auto &table = only<QTableWidget>(chain);
    const auto press = [&](const char *name) {
      QTest::mouseClick(scene::named<QPushButton>(chain, name), Qt::LeftButton);
    };
    press("Add a device");
    QCOMPARE(table.rowCount(), 1);
    enterCell(table, 0, 0, "pk9ab100");
    enterCell(table, 0, 1, "0x1234093");
    enterCell(table, 0, 2, "6");
    enterCell(table, 0, 3, "1");
    QCOMPARE(scene.command(),
             QString("connect lc hdu -configdevice devicenr 1 partname "
                     "pk9ab100 irlength 6 idcode 0x1234093 -debugdevice cpunr "
                     "1"));
    press("Add a device");
    enterCell(table, 1, 0, "second");
    press("Move the device up");
    QCOMPARE(table.item(0, 0)->text(), QString("second"));
    QCOMPARE(table.item(1, 0)->text(), QString("pk9ab100"));
    table.setCurrentCell(0, 0);
    press("Remove the device");
    QCOMPARE(table.rowCount(), 1);
    QCOMPARE(table.item(0, 0)->text(), QString("pk9ab100"));
  }

  void ACellThatIsNoValueStaysWithItsDevice() {
    Scene scene;
    scene.field("chain");
    auto &chain = only<dialog::ChainEditor>(scene.page());
    auto &table = only<QTableWidget>(chain);
    auto *const add = scene::named<QPushButton>(chain, "Add a device");
    QTest::mouseClick(add, Qt::LeftButton);
    QTest::mouseClick(add, Qt::LeftButton);
    enterCell(table, 0, 2, "many");
    enterCell(table, 1, 0, "second");
    QVERIFY(textsOf(chain.window()[0])
                .contains("Device 1, Instruction register: 'many' is no"));
    QCOMPARE(table.item(0, 2)->text(), QString("many"));
    QCOMPARE(table.item(1, 0)->text(), QString("second"));
    table.setCurrentCell(1, 0);
    QTest::mouseClick(scene::named<QPushButton>(chain, "Move the device up"),
                      Qt::LeftButton);
    QCOMPARE(table.item(1, 2)->text(), QString("many"));
    enterCell(table, 1, 2, "6");
    QVERIFY(!textsOf(*chain.window()).contains("Device 1,"));
    QVERIFY(!textsOf(*chain.window()).contains("Device 2,"));
  }

  // --- The command
  // ------------------------------------------------------------

  void TheFormFollowsTheCommand() {
    Scene scene;
    scene.typeCommand("connect lc hdu -debugdevice devicenr 7");
    QCOMPARE(lineOf(scene, "debugDevice").text(), QString("7"));
    scene.action(Operation::undo)->trigger();
    QCOMPARE(lineOf(scene, "debugDevice").text(), QString("0"));
  }

  /// No design grants a virtual platform; a command that asks for one is kept.
  void ACommandThatTheProcessorDoesNotAllowIsKept() {
    Scene scene;
    scene.typeCommand("vpconnect lc");
    QCOMPARE(scene.command(), QString("vpconnect lc"));
    const QStringList faults = rowsOf(only<dialog::FaultList>(scene.page()));
    QCOMPARE(faults.size(), 1);
    QVERIFY(faults[0].contains("does not allow"));
    QCOMPARE(boxOf(scene, "connection").currentText(), QString("Hardware"));
    scene.action(Operation::undo)->trigger();
    QCOMPARE(scene.command(), QString(plainCommand));
  }

  void EveryFaultOfAPastedCommandIsShown() {
    Scene scene;
    auto &line = only<dialog::CommandEdit>(scene.page());
    line.setFocus();
    line.selectAll();
    QGuiApplication::clipboard()->setText(
        "connect lc hdu -cable type quorla_usb -debugdevice devicenr 200 "
        "-foo\n");
    line.paste();
    auto &faults = only<dialog::FaultList>(scene.page());
    QCOMPARE(
        rowsOf(faults),
        QStringList(
            {"error | 28 | quorla_podusb | 'quorla_usb' is refused as the "
             "value",
             "warning | 61 |  | '200' does not fit: debugDevice becomes -56",
             "error | 65 |  | '-foo' is no option here"}));
    QCOMPARE(lineOf(scene, "debugDevice").text(), QString("0"));
    // The nearest match by one click.
    const QRect cell = faults.visualItemRect(faults.topLevelItem(0));
    const QPoint place(faults.columnViewportPosition(2) + 4, cell.center().y());
    QTest::mousePress(faults.viewport(), Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
    QTest::mouseRelease(faults.viewport(), Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
    QCOMPARE(scene.command(),
             QString("connect lc hdu -cable type quorla_podusb -debugdevice "
                     "devicenr 200 -foo"));
    QCOMPARE(rowsOf(faults).size(), 2);
  }

  void TheListOfFaultsComesUpOnce() {
    Scene scene;
    auto &tabs = only<QTabWidget>(scene.page());
    tabs.setCurrentIndex(2);
    scene.typeCommand("connect lc hdu -cabl");
    QCOMPARE(tabs.currentIndex(), 0);
    tabs.setCurrentIndex(2);
    scene.type("debugDevice", "2");
    QCOMPARE(tabs.currentIndex(), 2);
  }

  void AWordLeadsToItsSettingAndBack() {
    Scene scene;
    scene.type("debugDevice", "2");
    auto &line = only<dialog::CommandEdit>(scene.page());
    const auto marked = [&line] {
      QStringList words;
      for (const QTextEdit::ExtraSelection &one : line.extraSelections())
        if (one.format.hasProperty(QTextFormat::BackgroundBrush))
          words.append(one.cursor.selectedText());
      return words;
    };
    QCOMPARE(marked(), QStringList({"2"}));
    QTextCursor cursor = line.textCursor();
    cursor.setPosition(
        static_cast<int>(scene.command().indexOf(QLatin1String("hdu")) + 1));
    line.setTextCursor(cursor);
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(QApplication::focusWidget(), scene.field("connection"));
    QCOMPARE(marked(), QStringList({"hdu"}));
  }

  /// Those around it may be no UTF-8.
  void EditingTheCommandLeavesTheOtherBytesAsTheyAre() {
    Scene scene;
    const QByteArray saved = "connect lc hdu -cable type quorla_podusb port "
                             "B\xfcro\xc2\xa0"
                             "2 frequency 6000000 -debugdevice cpunr 1";
    scene.write("lumacore_0", saved);
    scene.action(Operation::revert)->trigger();
    auto &line = only<dialog::CommandEdit>(scene.page());
    QCOMPARE(line.text(), saved.toStdString());
    QCOMPARE(only<dialog::FaultList>(scene.page()).topLevelItemCount(), 0);
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&line, " ");
    QTest::keyClick(&line, Qt::Key_Backspace);
    QVERIFY(!scene.board().isModified());
    QTextCursor cursor = line.textCursor();
    cursor.setPosition(
        static_cast<int>(line.document()->toRawText().indexOf("6000000")));
    line.setTextCursor(cursor);
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, "3");
    QCOMPARE(rowsOf(only<dialog::DifferenceList>(scene.page())),
             QStringList("Cable: Frequency | 6 MHz | 3 MHz"));
    scene.action(Operation::save)->trigger();
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray(saved).replace("6000000", "3000000"));
  }

  void CompletionOffersWhatFits() {
    Scene scene;
    scene.typeCommand("connect lc hdu -cab");
    auto &line = only<dialog::CommandEdit>(scene.page());
    QTest::keyClick(&line, Qt::Key_Space, Qt::ControlModifier);
    QWidget *const words = QApplication::activePopupWidget();
    QVERIFY(words != nullptr);
    QTest::keyClick(words, Qt::Key_Return);
    QCOMPARE(scene.command().trimmed(), QString("connect lc hdu -cable"));
  }

  // --- Saving
  // -----------------------------------------------------------------

  /// docs/zeldebug.md, told here.
  void TheStoryEndsWithTheSameFiles() {
    Scene scene;
    const auto save = [&scene] { scene.action(Operation::save)->trigger(); };
    scene.choose("cable.cableType", "quorla_podusb");
    scene.type("cable.frequency", "3MHz");
    QVERIFY(!scene::answer(save, [](QDialog &dialog) { dialog.reject(); }));
    QCOMPARE(scene.saved("lumacore_0"), QByteArray(storyCommand));
    QCOMPARE(savedSign(scene, "lumacore_0"), QString("✓"));
    scene.type("debugDevice", "2");
    QCOMPARE(savedSign(scene, "lumacore_0"), QString("●"));
    save();
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -cable type quorla_podusb port USB21 "
                        "frequency 3000000 -debugdevice deviceNr 2 cpunr 1"));
    // It says what it would lose, and is let be.
    QAbstractButton *const mark =
        qobject_cast<QAbstractButton *>(scene.field("cpuJtag"));
    mark->click();
    QVERIFY(scene::answer(save, "Cancel"));
    scene.action(Operation::undo)->trigger();

    QVERIFY(scene.board().choose("lumacore_2"));
    QVERIFY(scene::answer(save, "Cancel"));
    QCOMPARE(scene.saved("lumacore_2"), QByteArray("none"));
    scene.choose("connection", "sim");
    save();
    QCOMPARE(scene.saved("lumacore_2"), QByteArray("connect lc sim"));

    QVERIFY(scene.board().choose("lumacore_0"));
    scene.choose("connection", "stub-serial");
    scene.type("stubBaudRate", "115200");
    QStringList losses;
    QVERIFY(scene::answer(save, [&losses](QDialog &dialog) {
      losses = rowsOf(only<dialog::LossList>(dialog));
      dialog.accept();
    }));
    QCOMPARE(losses.size(), 4);
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc stub -comm serial -port /dev/ttyS0  -baud  "
                        "115200 -timeout 20000"));
  }

  void AFolderThatIsNotThereIsAskedFor() {
    Scene scene;
    QVERIFY(QDir().rmdir(scene.folder()));
    scene.type("debugDevice", "2");
    const auto save = [&scene] { scene.action(Operation::save)->trigger(); };
    QVERIFY(scene::answer(save, "No"));
    QVERIFY(!QDir(scene.folder()).exists());
    QVERIFY(scene::answer(save, "Yes"));
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -debugdevice deviceNr 2 cpunr 1"));
  }

  void WhatCannotBeReadIsSaid() {
    Scene scene;
    scene.write("ppc405_0", "connect nothing\n");
    QVERIFY(scene.board().choose("ppc405_0"));
    QVERIFY(textsOf(scene.page()).contains("What is saved cannot be read"));
    QCOMPARE(savedSign(scene, "ppc405_0"), QString("⚠"));
    QVERIFY(scene::answer([&] { scene.action(Operation::save)->trigger(); },
                          "Cancel"));
    QCOMPARE(scene.saved("ppc405_0"), QByteArray("connect nothing\n"));
  }

  void AFileThatChangesMeanwhile_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    const QString mine("connect lc hdu -debugdevice deviceNr 2 cpunr 1");
    QTest::newRow("mine") << "Keep mine and overwrite" << mine << mine;
    QTest::newRow("the file's") << "Take the file's"
                                << "connect lc sim"
                                << "connect lc sim\n";
    QTest::newRow("later") << "Go on" << mine << "connect lc sim\n";
  }

  void AFileThatChangesMeanwhile() {
    QFETCH(QString, button);
    QFETCH(QString, command);
    QFETCH(QString, file);
    Scene scene;
    scene.type("debugDevice", "2");
    QVERIFY(answerIn(scene, button) == nullptr);
    scene.write("lumacore_0", "connect lc sim\n");
    QVERIFY(
        scene::waitUntil([&] { return answerIn(scene, button) != nullptr; }));
    QTest::mouseClick(answerIn(scene, button), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(answerIn(scene, button) == nullptr);
    QCOMPARE(scene.command(), command);
    QCOMPARE(QString(scene.saved("lumacore_0")), file);
  }

  void AFileThatIsGoneIsAskedFor() {
    Scene scene;
    scene.type("debugDevice", "2");
    scene.action(Operation::save)->trigger();
    QVERIFY(!scene.board().isModified());
    QVERIFY(QFile::remove(scene.fileOf("lumacore_0")));
    QVERIFY(scene::waitUntil(
        [&] { return textsOf(scene.page()).contains("is gone since it"); }));
    QCOMPARE(savedSign(scene, "lumacore_0"), QString("●"));
    QTest::mouseClick(answerIn(scene, "Go on"), Qt::LeftButton);
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Cancel"));
    QString told;
    QVERIFY(scene::answer([&] { scene.action(Operation::save)->trigger(); },
                          [&told](QDialog &dialog) {
                            told = textsOf(dialog);
                            dialog.accept();
                          }));
    QVERIFY2(told.contains("is gone since it was loaded"), qPrintable(told));
    QVERIFY(scene.saved("lumacore_0").contains("deviceNr 2"));
    // Nobody wants it any more.
    QVERIFY(QFile::remove(scene.fileOf("lumacore_0")));
    QVERIFY(scene::waitUntil(
        [&] { return answerIn(scene, "Take the file's") != nullptr; }));
    QTest::mouseClick(answerIn(scene, "Take the file's"), Qt::LeftButton);
    QCOMPARE(scene.command(), QString(plainCommand));
    QVERIFY(!scene.board().isModified());
  }

  void ClosingWithChangesAsks() {
    Scene scene;
    scene.type("debugDevice", "2");
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Cancel"));
    QVERIFY(scene.window().isVisible());
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Save All"));
    QVERIFY(!scene.window().isVisible());
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -debugdevice deviceNr 2 cpunr 1"));
  }

  void ClosingCanLetChangesGo() {
    Scene scene;
    scene.type("debugDevice", "x");
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Discard"));
    QVERIFY(!scene.window().isVisible());
    QCOMPARE(scene.saved("lumacore_0"), QByteArray("none"));
  }

  void AConfigurationIsCopiedAndAllAreSaved() {
    Scene scene;
    scene.choose("cable.cableType", "quorla_podusb");
    QVERIFY(scene::answer([&] { scene.action(Operation::copy)->trigger(); },
                          [](QDialog &dialog) {
                            auto &list = only<QListWidget>(dialog);
                            list.item(0)->setCheckState(Qt::Checked);
                            dialog.accept();
                          }));
    QCOMPARE(savedSign(scene, "lumacore_1"), QString("●"));
    scene.action(Operation::saveAll)->trigger();
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -cable type quorla_podusb port USB21 "
                        "frequency 6000000 -debugdevice cpunr 1"));
    QCOMPARE(scene.saved("lumacore_1"),
             QByteArray("connect lc hdu -cable type quorla_podusb port USB21 "
                        "frequency 6000000 -debugdevice cpunr 2"));
    QVERIFY(!scene.board().isModified());
  }

  /// A cell whose editor is open: F2, a text, no Return.
  void OneThatCannotBeSavedKeepsNoneOfTheOthers() {
    Scene scene;
    scene.type("debugDevice", "2");
    QVERIFY(scene.board().choose("lumacore_1"));
    scene.type("debugDevice", "two");
    QString told;
    QVERIFY(scene::answer([&] { scene.action(Operation::saveAll)->trigger(); },
                          [&told](QDialog &dialog) {
                            told = textsOf(dialog);
                            dialog.reject();
                          }));
    QVERIFY2(told.contains("lumacore_1: Debug device: "), qPrintable(told));
    QVERIFY2(!told.contains("lumacore_0"), qPrintable(told));
    QVERIFY(scene.saved("lumacore_0").contains("deviceNr 2"));
    QCOMPARE(scene.saved("lumacore_1"), QByteArray("none"));
    QCOMPARE(savedSign(scene, "lumacore_1"), QString("●"));
    // The window stays: not all of it is saved.
    QTimer hand;
    connect(&hand, &QTimer::timeout, [] {
      auto *const box =
          qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
      if (box == nullptr)
        return;
      QAbstractButton *const button = box->button(QMessageBox::SaveAll);
      (button != nullptr ? button : box->button(QMessageBox::Ok))->click();
    });
    hand.start(5);
    QVERIFY(!scene.window().close());
  }

  void ACellThatIsBeingTypedIsSaved() {
    Scene scene;
    QTest::keyClicks(openCell(scene), "6");
    QVERIFY(scene.board().isModified());
    QVERIFY(scene.action(Operation::saveAll)->isEnabled());
    scene.action(Operation::save)->trigger();
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -configdevice devicenr 0 partname "
                        "UNKNOWN irlength 6 idcode 0x0 -debugdevice cpunr 1"));
    QVERIFY(!scene.board().isModified());
  }

  void ACellThatIsBeingTypedIsAskedFor() {
    Scene scene;
    QLineEdit *const cell = openCell(scene);
    scene.action(Operation::save)->trigger();
    QVERIFY(!scene.board().isModified());
    QVERIFY(cell != nullptr);
    QTest::keyClicks(openCell(scene, false), "7");
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Cancel"));
    QVERIFY(scene.window().isVisible());
  }

  void RevertingEndsTheCellThatIsBeingTyped() {
    Scene scene;
    QTest::keyClicks(openCell(scene), "9");
    scene.action(Operation::revert)->trigger();
    QCOMPARE(
        only<QTableWidget>(only<dialog::ChainEditor>(scene.page())).rowCount(),
        0);
    QVERIFY(!scene.board().isModified());
  }

  void ACellThatIsBeingTypedMayGoWithItsDevice() {
    Scene scene;
    QTest::keyClicks(openCell(scene), "9");
    scene.page().findChild<dialog::SessionModel *>()->typeCommand(
        "connect lc hdu -debugdevice cpunr 1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(
        only<QTableWidget>(only<dialog::ChainEditor>(scene.page())).rowCount(),
        0);
    QVERIFY(!scene.board().isModified());
  }

  void APageMayGoWhileACellIsBeingTyped() {
    DesignModel design;
    QVERIFY(ReadDesign({TEST_BOARD, {}, "", ""}, design));
    QTemporaryDir folder;
    const Board board(design, folder.path().toStdString());
    QMainWindow window;
    auto *const page = new ConfigurationPage(board, "lumacore_0", &window);
    window.setCentralWidget(page);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    page->lead("chain");
    QTest::mouseClick(scene::named<QPushButton>(*page, "Add a device"),
                      Qt::LeftButton);
    auto &table = only<QTableWidget>(only<dialog::ChainEditor>(*page));
    table.setFocus();
    table.setCurrentCell(0, 0);
    QTest::keyClick(&table, Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), "x");
    // The widgets that tell the model of what is typed go before it does.
    QStringList order;
    connect(page->findChild<dialog::SessionModel *>(), &QObject::destroyed,
            [&order] { order.append("model"); });
    connect(page->findChild<dialog::SettingsForm *>(), &QObject::destroyed,
            [&order] { order.append("form"); });
    connect(page->findChild<dialog::CommandEdit *>(), &QObject::destroyed,
            [&order] { order.append("command"); });
    delete page;
    QCOMPARE(order.size(), 3);
    QCOMPARE(order.last(), QString("model"));
  }

  /// What has been agreed to is all that is overruled.
  void AFileThatChangesWhileOneAgreesIsAskedForAgain() {
    Scene scene;
    qobject_cast<QAbstractButton *>(scene.field("cpuJtag"))->click();
    QVERIFY(scene.board().choose("lumacore_1"));
    scene.type("debugDevice", "2");
    QStringList asked;
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, [&] {
      auto *const question =
          qobject_cast<QDialog *>(QApplication::activeModalWidget());
      if (question == nullptr)
        return;
      asked.append(textsOf(*question));
      if (asked.size() == 1)
        scene.write("lumacore_1", "connect lc sim\n");
      if (asked.size() == 1)
        question->accept();
      else
        question->reject();
    });
    answers.start(5);
    scene.action(Operation::saveAll)->trigger();
    QCOMPARE(asked.size(), 2);
    QVERIFY2(asked[0].contains("lumacore_0: these settings will not survive"),
             qPrintable(asked[0]));
    QVERIFY(!asked[0].contains("lumacore_1: "));
    QVERIFY2(asked[1].contains("lumacore_1: the file has changed"),
             qPrintable(asked[1]));
    QCOMPARE(scene.saved("lumacore_0"), QByteArray("none"));
    QCOMPARE(scene.saved("lumacore_1"), QByteArray("connect lc sim\n"));
  }

  void WhatIsOverruledIsNamedInFull() {
    Scene scene;
    scene.write("lumacore_0", "connect lc sim\n");
    QVERIFY(scene::waitUntil(
        [&] { return answerIn(scene, "Keep mine and overwrite") != nullptr; }));
    qobject_cast<QAbstractButton *>(scene.field("cpuJtag"))->click();
    QString told;
    QVERIFY(scene::answer([&] { scene.action(Operation::save)->trigger(); },
                          [&told](QDialog &dialog) {
                            told = textsOf(dialog);
                            dialog.reject();
                          }));
    QVERIFY2(told.contains("these settings will not survive: " +
                           dialog::nameOf("cpuJtag")),
             qPrintable(told));
    QVERIFY2(told.contains("the file has changed"), qPrintable(told));
    QVERIFY2(!told.contains("nothing is saved"), qPrintable(told));
    // Overwriting has agreed to the change of the file, and to nothing else.
    QVERIFY(scene::answer(
        [&] {
          QTest::mouseClick(answerIn(scene, "Keep mine and overwrite"),
                            Qt::LeftButton);
        },
        [&told](QDialog &dialog) {
          told = textsOf(dialog);
          dialog.reject();
        }));
    QVERIFY2(told.contains("these settings will not survive"),
             qPrintable(told));
    QVERIFY2(!told.contains("the file has changed"), qPrintable(told));
    QCOMPARE(scene.saved("lumacore_0"), QByteArray("connect lc sim\n"));
    QVERIFY(scene::answer([&] { scene.action(Operation::save)->trigger(); },
                          "Save anyway"));
    QCOMPARE(scene.saved("lumacore_0"),
             QByteArray("connect lc hdu -configdevice jtagpin cpujtag "
                        "-debugdevice cpunr 1"));
  }

  void AChangeThatWasPassedOverStaysSoUntilTheNext() {
    Scene scene;
    scene.type("debugDevice", "2");
    scene.write("lumacore_0", "connect lc sim\n");
    const auto isAsked = [&] { return answerIn(scene, "Go on") != nullptr; };
    QVERIFY(scene::waitUntil(isAsked));
    QTest::mouseClick(answerIn(scene, "Go on"), Qt::LeftButton);
    QVERIFY(!isAsked());
    // Something else in the folder.
    scene.write("another", "connect lc sim\n");
    constexpr int settled = 400; // ms
    QTest::qWait(settled);
    scene.type("debugDevice", "3");
    QVERIFY(!isAsked());
    scene.write("lumacore_0", "connect lc hdu\n");
    QVERIFY(scene::waitUntil(isAsked));
  }

  // --- Boards
  // -----------------------------------------------------------------

  void ProcessorsThatCannotBeDebuggedSayWhy() {
    Scene scene;
    QVERIFY(scene.board().choose("r5_0"));
    QVERIFY(scene.board().current() == nullptr);
    QVERIFY(textsOf(scene.board())
                .contains("no debug module or controller is connected to it"));
    QVERIFY(!scene.action(Operation::save)->isEnabled());
    QVERIFY(!scene.board().choose("no_such"));
  }

  void ProcessorsThatWereNotVisitedHaveTheirSigns() {
    Scene scene;
    QCOMPARE(savedSign(scene, "lumacore_1"), QString());
    scene.write("lumacore_1", "connect lc hdu\n");
    scene.write("ppc405_0", "connect nothing\n");
    const auto isSeen = [&scene] {
      return savedSign(scene, "lumacore_1") == QString("✓") &&
             savedSign(scene, "ppc405_0") == QString("⚠");
    };
    // While the board is open ...
    QVERIFY(scene::waitUntil(isSeen));
    QVERIFY(QFile::remove(scene.fileOf("lumacore_1")));
    QVERIFY(scene::waitUntil(
        [&scene] { return savedSign(scene, "lumacore_1").isEmpty(); }));
    // ... and from the start.
    scene.write("lumacore_1", "connect lc hdu\n");
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    scene.window().open(dialog::WhatToOpen(TEST_BOARD));
    QVERIFY(opened.wait(60000));
    QVERIFY(isSeen());
  }

  void ThePagesAreDividedAsTheyWere() {
    Scene scene;
    const auto reopen = [&scene] {
      QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
      scene.window().open(dialog::WhatToOpen(TEST_BOARD));
      QVERIFY(opened.wait(60000));
      QCoreApplication::processEvents();
    };
    const auto widthOf = [&scene](const char *column) {
      auto &list = only<dialog::DifferenceList>(scene.page());
      for (int i = 0; i < list.columnCount(); ++i)
        if (list.headerItem()->text(i) == QLatin1String(column))
          return list.columnWidth(i);
      return -1;
    };
    auto *const board =
        scene.window().findChild<QSplitter *>(QStringLiteral("board"));
    board->setSizes({300, 900});
    const QList<int> sizes = board->sizes();
    // A person's hand on the edge of a column.
    scene.page().findChild<QTabWidget *>()->setCurrentIndex(2);
    auto &list = only<dialog::DifferenceList>(scene.page());
    QWidget *const header = list.header()->viewport();
    const int before = widthOf("Setting");
    const QPoint edge(before - 1, header->height() / 2);
    QTest::mousePress(header, Qt::LeftButton, {}, edge);
    QTest::mouseMove(header, edge + QPoint(70, 0));
    QMouseEvent move(QEvent::MouseMove, edge + QPoint(70, 0),
                     header->mapToGlobal(edge + QPoint(70, 0)), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(header, &move);
    QTest::mouseRelease(header, Qt::LeftButton, {}, edge + QPoint(70, 0));
    const int wide = widthOf("Setting");
    QVERIFY2(wide > before + 50, qPrintable(QString::number(wide)));
    // It stays when there is something to show, ...
    scene.type("debugDevice", "2");
    QCOMPARE(widthOf("Setting"), wide);
    scene.action(Operation::undo)->trigger();
    // ... for another processor, and for the next board.
    QVERIFY(scene.board().choose("a9_0"));
    QCOMPARE(widthOf("Setting"), wide);
    reopen();
    QCOMPARE(
        scene.window().findChild<QSplitter *>(QStringLiteral("board"))->sizes(),
        sizes);
    QCOMPARE(widthOf("Setting"), wide);
    // Nothing else is taken for such a state.
    QVERIFY(!scene.board().restoreLayoutState("no state"));
    QCOMPARE(widthOf("Setting"), wide);
  }

  void ARecentDesignComesWithItsLibraries() {
    QTemporaryDir folder;
    const QString design = splitBoard(folder);
    DesignSources sources;
    sources.designFile = design.toStdString();
    sources.libraryFolders = {folder.filePath("project").toStdString(),
                              folder.filePath("elsewhere").toStdString()};
    Scene scene;
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    scene.window().open(dialog::WhatToOpen(sources));
    QVERIFY(opened.wait(60000));
    scene.window().open(dialog::WhatToOpen(TEST_BOARD));
    QVERIFY(opened.wait(60000));
    const std::vector<dialog::WhatToOpen> recent = dialog::recentDesigns();
    QVERIFY(recent.size() >= 2);
    QCOMPARE(recent[0].designFile, std::string(TEST_BOARD));
    QVERIFY(recent[0].libraryFolders.empty());
    QCOMPARE(recent[1].designFile, sources.designFile);
    QCOMPARE(recent[1].libraryFolders, sources.libraryFolders);
    for (QAction *const one : scene.window().findChildren<QAction *>())
      if (one->text() == QDir::toNativeSeparators(design)) {
        one->trigger();
        break;
      }
    QVERIFY(opened.wait(60000));
    // Nothing is missing.
    QVERIFY(answerIn(scene, "Take them from there") == nullptr);
    QVERIFY(scene.window().board() != nullptr);
  }

  void RecentDesignsKeepAllThatTheyWereOpenedWith() {
    const dialog::WhatToOpen sources(
        DesignSources{"/b/board.xml", {"/b", "/lib"}, "rtl", "/b/kinds.txt"});
    dialog::noteRecentDesign(sources);
    dialog::WhatToOpen other("/b/other.xml");
    dialog::noteRecentDesign(other);
    dialog::noteRecentDesign(sources);
    const std::vector<dialog::WhatToOpen> recent = dialog::recentDesigns();
    QCOMPARE(recent[0].designFile, sources.designFile);
    QCOMPARE(recent[0].libraryFolders, sources.libraryFolders);
    QCOMPARE(recent[0].view, sources.view);
    QCOMPARE(recent[0].kindsFile, sources.kindsFile);
    QCOMPARE(recent[1].designFile, other.designFile);
    QVERIFY(recent[1].kindsFile.empty() && recent[1].view.empty());
    // Once each, and not without end.
    for (int i = 0; i < 20; ++i) {
      other.designFile = "/b/" + std::to_string(i) + ".xml";
      dialog::noteRecentDesign(other);
    }
    QCOMPARE(dialog::recentDesigns().size(), std::size_t(8));
    QCOMPARE(dialog::recentDesigns()[0].designFile, std::string("/b/19.xml"));
  }

  void ADesignIsOpenedByDroppingIt() {
    Scene scene;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral(TEST_OTHER_BOARD))});
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.window(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.window(), &drop);
    QVERIFY(opened.wait(60000));
    // Its components lie elsewhere, and are found there.
    QPushButton *const there = answerIn(scene, "Take them from there");
    QVERIFY(there != nullptr);
    QTest::mouseClick(there, Qt::LeftButton);
    QVERIFY(opened.wait(60000));
    QVERIFY(scene.window().board() != nullptr);
    QVERIFY(answerIn(scene, "Take them from there") == nullptr);
    // None of them is a processor that is known by its name.
    QVERIFY(textsOf(scene.window()).contains("A kind table says"));
  }

  void TakingTheFoundLibraryAsksForChanges() {
    QTemporaryDir folder;
    const QString design = splitBoard(folder);
    Scene scene(design.toStdString());
    QVERIFY(scene.window().board() != nullptr);
    scene.type("debugDevice", "2");
    QPushButton *const there = answerIn(scene, "Take them from there");
    QVERIFY(there != nullptr);
    QVERIFY(scene::answer([&] { QTest::mouseClick(there, Qt::LeftButton); },
                          "Cancel"));
    QVERIFY(scene.board().isModified());
    QCOMPARE(lineOf(scene, "debugDevice").text(), QString("2"));
  }

  void AFileOverATextOpensTheDesign_data() {
    QTest::addColumn<bool>("isCommand");
    QTest::newRow("command") << true;
    QTest::newRow("setting") << false;
  }

  void AFileOverATextOpensTheDesign() {
    QFETCH(bool, isCommand);
    Scene scene;
    const QString before = scene.command();
    QMimeData data;
    const QUrl file = QUrl::fromLocalFile(QStringLiteral(TEST_OTHER_BOARD));
    data.setUrls({file});
    data.setText(file.toString());
    QWidget *const line =
        isCommand ? only<dialog::CommandEdit>(scene.page()).viewport()
                  : scene.field("debugDevice");
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(line, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(line, &drop);
    QCOMPARE(scene.command(), before);
    QVERIFY(opened.wait(60000));
  }

  void WhileADesignIsReadNothingIsDoneToTheOther() {
    Scene scene;
    scene.type("debugDevice", "2");
    QVERIFY(scene.action(Operation::undo)->isEnabled());
    QVERIFY(scene::answer(
        [&] { scene.window().open(dialog::WhatToOpen(TEST_OTHER_BOARD)); },
        "Discard"));
    QVERIFY(!scene.board().isVisible());
    for (const Operation one :
         {Operation::save, Operation::saveAll, Operation::undo,
          Operation::revert, Operation::reset, Operation::copy})
      QVERIFY(!scene.action(one)->isEnabled());
    // Nor is anything of the other taken along.
    QVERIFY(!menuAction(scene, "Library folder…")->isEnabled());
    QVERIFY(!menuAction(scene, "Kind table…")->isEnabled());
    pressCancel(scene);
    QVERIFY(menuAction(scene, "Library folder…")->isEnabled());
    QVERIFY(scene.board().isVisible());
    QVERIFY(scene.action(Operation::save)->isEnabled());
    QVERIFY(scene.action(Operation::undo)->isEnabled());
    QVERIFY(!scene.action(Operation::redo)->isEnabled());
  }

  /// By the keyboard as well, and without waiting for what is being read.
  void ReadingIsCancelledAtOnce() {
    Scene scene;
    BoardPage *const before = scene.window().board();
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    scene.window().open(dialog::WhatToOpen(TEST_OTHER_BOARD));
    auto *const bar = scene.window().findChild<QProgressBar *>();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->minimum(), bar->maximum()); // It is not known how much.
    QWidget *const focus = QApplication::focusWidget();
    QVERIFY(focus != nullptr);
    QTest::keyClick(focus, Qt::Key_Escape);
    QVERIFY(scene.board().isVisible());
    QVERIFY(!bar->isVisible());
    constexpr int longer = 400; // ms
    QTest::qWait(longer);
    QVERIFY(opened.isEmpty());
    QCOMPARE(scene.window().board(), before);
  }

  /// It was read while a question was open, and is not wanted any more.
  void ADesignThatIsNotWantedAnyMoreDoesNotComeLater() {
    Scene scene;
    BoardPage *const before = scene.window().board();
    QSignalSpy read(scene.window().findChild<dialog::DesignLoader *>(),
                    &dialog::DesignLoader::loaded);
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    QDialog question(&scene.window());
    question.setModal(true);
    question.show();
    scene.window().open(dialog::WhatToOpen(TEST_OTHER_BOARD));
    QVERIFY(read.wait(60000));
    QVERIFY(opened.isEmpty());
    pressCancel(scene);
    question.hide();
    constexpr int longer = 400; // ms
    QTest::qWait(longer);
    QVERIFY(opened.isEmpty());
    QCOMPARE(scene.window().board(), before);
  }

  /// In a program that embeds it, and in the middle of typing.
  void APageMayGoWithItsWindow() {
    DesignModel design;
    QVERIFY(ReadDesign({TEST_BOARD, {}, "", ""}, design));
    QTemporaryDir folder;
    const Board board(design, folder.path().toStdString());
    for (const char *const setting : {"debugDevice", "chain"}) {
      auto window = std::make_unique<QMainWindow>();
      auto *const page = new BoardPage(board, window.get());
      window->setCentralWidget(page);
      window->show();
      QVERIFY(QTest::qWaitForWindowActive(window.get()));
      QVERIFY(page->choose("lumacore_0"));
      page->current()->lead(setting);
      if (auto *const add =
              scene::named<QPushButton>(*page->current(), "Add a device"))
        QTest::mouseClick(add, Qt::LeftButton);
      QWidget *const focus = QApplication::focusWidget();
      QVERIFY(focus != nullptr);
      QTest::keyClick(focus, Qt::Key_F2);
      QTest::keyClicks(QApplication::focusWidget(), "x");
      window.reset();
      QCoreApplication::processEvents();
    }
  }

  void ADesignThatCannotBeReadIsToldWithItsLine() {
    QTemporaryDir folder;
    const QString path = folder.filePath("broken.xml");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<design>\n  <unclosed>\n</design>\n");
    file.close();
    Scene scene(path.toStdString());
    QVERIFY(scene.window().board() == nullptr);
    auto *const messages =
        scene::named<QTreeWidget>(scene.window(), "Messages about the design");
    QVERIFY(messages != nullptr);
    QVERIFY(messages->topLevelItemCount() > 0);
    QString shownSource;
    QVERIFY(scene::answer(
        [&] { emit messages->itemActivated(messages->topLevelItem(0), 0); },
        [&shownSource](QDialog &dialog) {
          shownSource = only<QPlainTextEdit>(dialog).toPlainText();
          dialog.reject();
        }));
    QVERIFY(shownSource.contains("<unclosed>"));
  }
};

QTEST_MAIN(DialogTest)
#include "DialogTest.moc"
