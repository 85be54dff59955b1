// A project in the window: where its values come from, where changes go, and
// what is wrong with its files.
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTreeWidget>
#include <QUrl>
#include <QtGui/QDropEvent>

#include "dialog/Scene.h"
#include "pages/Banner.h"
#include "pages/ElidedLabel.h"
#include "pages/ProcessorList.h"
#include "pages/ProjectBar.h"
#include "pages/SettingRow.h"
#include "pages/SettingsForm.h"
#include "program/DesignMessages.h"
#include "program/RecentDesigns.h"

using namespace ZelDebugDialog;
using scene::Scene;
using Operation = BoardPage::Operation;

namespace {

constexpr int patience = 60000; // ms

constexpr const char *text = "\n[settings]\n"
                             "cable.cableType = \"quorla_podusb\"\n"
                             "cable.frequency = \"3 MHz\"\n"
                             "\n[processor.lumacore_2]\n"
                             "connection = \"sim\"\n"
                             "\n[probe.lab]\n"
                             "esn = \"0042\"\n"
                             "\n[profile.slow.settings]\n"
                             "cable.frequency = \"750 kHz\"\n";

constexpr const char *command = "connect lc hdu -cable type quorla_podusb port "
                                "USB21 frequency 3000000 -debugdevice cpunr 1";

/// The files of a project in a folder of their own.
class Files {
public:
  explicit Files(const QByteArray &project = text,
                 const QByteArray &local = {}) {
    write("zeldebug.toml", "design = \"" TEST_BOARD "\"\n" + project);
    if (!local.isEmpty())
      write("zeldebug.local.toml", local);
  }

  QString path(const QString &name) const { return folder.filePath(name); }
  std::string project() const { return path("zeldebug.toml").toStdString(); }
  void write(const QString &name, const QByteArray &content) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size())
      qFatal("a file of the project cannot be written");
  }
  /// "none" without one.
  QByteArray read(const QString &name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
  }
  QByteArray saved() const { return read("etc/kvo_lumacore_0.opt"); }

private:
  QTemporaryDir folder;
};

/// Opens it and waits for the end of that. @return whether it came
bool opens(Scene &scene, const dialog::WhatToOpen &what) {
  QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
  scene.window().open(what);
  return opened.wait(patience);
}

/// Of the list of those that were opened last. @return whether it is there
bool chooseRecent(Scene &scene, const QString &name) {
  for (QAction *const one : scene.window().findChildren<QAction *>())
    if (one->text().endsWith(name)) {
      one->trigger();
      return true;
    }
  return false;
}

const dialog::SettingRow &rowOf(Scene &scene, const std::string &setting) {
  return *scene.page().findChild<dialog::SettingsForm *>()->rowFor(setting);
}

QString originOf(Scene &scene, const std::string &setting) {
  return rowOf(scene, setting).origin().text();
}

QString tipOf(Scene &scene, const std::string &setting) {
  return rowOf(scene, setting).origin().toolTip();
}

QComboBox &targets(Scene &scene) {
  return *scene::named<QComboBox>(scene.window(), "Where changes go");
}

/// By the keyboard.
void goTo(Scene &scene, const QString &target) {
  QComboBox &box = targets(scene);
  box.setFocus();
  for (int steps = box.count(); steps > 0 && box.currentText() != target;
       --steps)
    QTest::keyClick(&box, box.currentIndex() < box.findText(target)
                              ? Qt::Key_Down
                              : Qt::Key_Up);
}

QString standing(Scene &scene) {
  const auto *const label = scene::named<dialog::ElidedLabel>(
      scene.window(), "How the option file stands to the project");
  return QTextDocumentFragment::fromHtml(label->toolTip()).toPlainText();
}

/// What the banner of the page asks; empty for none.
QString banner(Scene &scene) {
  for (const auto *const one : scene.page().findChildren<dialog::Banner *>())
    if (one->isVisible())
      return one->findChild<QLabel *>()->text();
  return {};
}

QString savedSign(Scene &scene, const QString &processor) {
  constexpr int columnOfSign = 4;
  const auto *const list = scene.window().findChild<dialog::ProcessorList *>();
  return list->findItems(processor, Qt::MatchExactly)
      .value(0)
      ->text(columnOfSign);
}

/// Saves, and agrees to make the folder of the option files.
void save(Scene &scene, Operation operation = Operation::save) {
  scene::answer([&] { scene.action(operation)->trigger(); },
                [](QDialog &dialog) {
                  auto *const question = qobject_cast<QMessageBox *>(&dialog);
                  if (question == nullptr ||
                      question->button(QMessageBox::Yes) == nullptr)
                    qFatal("%s", question == nullptr
                                     ? "there is something to agree to"
                                     : qPrintable(question->text()));
                  question->button(QMessageBox::Yes)->click();
                });
  // Without a window manager nobody gives the focus back.
  scene.window().activateWindow();
  scene::waitUntil([&scene] { return scene.window().isActiveWindow(); });
}

} // namespace

class ProjectTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { scene::prepare(); }

  void StartsAsTheFilesSay() {
    const Files files;
    Scene scene(files.project());
    QCOMPARE(scene.command(), QString(command));
    QVERIFY(!scene.action(Operation::undo)->isEnabled());
    // Who only looks has nothing to save.
    QVERIFY(!scene.board().isModified());
    QVERIFY(scene.window().windowTitle().contains("zeldebug.toml"));
    QCOMPARE(standing(scene), QString("There is no option file yet."));
    scene.type("debugDevice", "4");
    QVERIFY(scene.board().isModified());
    scene.action(Operation::revert)->trigger();
    QCOMPARE(scene.command(), QString(command));
    QVERIFY(!scene.board().isModified());
  }

  /// Whatever the command makes of it.
  void WhatIsChangedIsAskedForWhenItIsNotSavedYet_data() {
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("processor");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("value");
    const QString rest = QStringLiteral("[processor.lumacore_2]\n"
                                        "connection = \"sim\"\n");
    QTest::newRow("back to the default")
        << "[settings]\ndebugDevice = 3\n" + rest << "lumacore_0"
        << "debugDevice"
        << "0";
    QTest::newRow("half of a pair") << rest << "lumacore_0"
                                    << "romemStartAdr"
                                    << "0x1000";
    QTest::newRow("what only another tool reads")
        << rest + "[processor.ppc405_0]\nconnection = \"sim\"\n"
        << "ppc405_0"
        << "simIpcPort"
        << "1234";
  }

  void WhatIsChangedIsAskedForWhenItIsNotSavedYet() {
    QFETCH(QString, project);
    QFETCH(QString, processor);
    QFETCH(QString, setting);
    QFETCH(QString, value);
    const Files files(project.toUtf8());
    Scene scene(files.project());
    QVERIFY(scene.board().choose(processor.toStdString()));
    QVERIFY(!scene.board().isModified());
    scene.type(setting.toStdString(), value);
    QVERIFY(scene.window().isWindowModified());
    QVERIFY(scene.action(Operation::saveAll)->isEnabled());
    QVERIFY(scene::answer([&] { scene.window().close(); }, "Cancel"));
    QVERIFY(scene.window().isVisible());
    scene.action(Operation::revert)->trigger();
    QVERIFY(!scene.board().isModified());
  }

  void SaysOfEachValueWhichFileItIsOf() {
    const Files files(text, "use.probe = \"lab\"\n"
                            "[processor.lumacore_0]\ndebugDevice = 2\n");
    Scene scene(files.project());
    QCOMPARE(originOf(scene, "cable.cableType"), QString("project file"));
    QVERIFY2(tipOf(scene, "cable.cableType").contains("zeldebug.toml:4:19"),
             qPrintable(tipOf(scene, "cable.cableType")));
    QVERIFY(tipOf(scene, "cable.cableType").contains("says quorla_podusb"));
    QCOMPARE(originOf(scene, "cable.esn"), QString("probe lab"));
    QCOMPARE(originOf(scene, "debugDevice"), QString("local file"));
    QVERIFY(tipOf(scene, "debugDevice")
                .contains("zeldebug.local.toml:3:15 says 2"));
    QVERIFY(rowOf(scene, "debugDevice")
                .field()
                ->accessibleDescription()
                .contains("zeldebug.local.toml:3:15"));
    QCOMPARE(originOf(scene, "icacheStartAdr"), QString("default"));
    // What is changed is nobody else's, and what the files say is still told.
    scene.type("debugDevice", "5");
    QCOMPARE(originOf(scene, "debugDevice"), QString("changed"));
    QVERIFY(tipOf(scene, "debugDevice")
                .contains("zeldebug.local.toml:3:15 says 2"));
  }

  void SavesTheOptionFileAloneUnlessAPersonChooses() {
    const Files files;
    Scene scene(files.project());
    const QByteArray before = files.read("zeldebug.toml");
    QCOMPARE(targets(scene).currentText(), QString("Option file"));
    scene.type("debugDevice", "4");
    save(scene);
    QVERIFY(files.saved().contains("deviceNr 4"));
    QCOMPARE(files.read("zeldebug.toml"), before);
    QCOMPARE(files.read("zeldebug.local.toml"), QByteArray("none"));
    QCOMPARE(standing(scene),
             QString("The option file is not as the project says."));
  }

  void WhatHappensInAFolderThatSavingMadeIsNoticed() {
    const Files files;
    Scene scene(files.project());
    scene.type("debugDevice", "4");
    save(scene);
    files.write("etc/kvo_lumacore_0.opt", "connect lc sim\n");
    QVERIFY(scene::waitUntil(
        [&] { return banner(scene).contains("has changed"); }));
    files.write("etc/kvo_lumacore_1.opt", "connect lc hdu\n");
    QVERIFY(scene::waitUntil(
        [&] { return savedSign(scene, "lumacore_1") == QString("✓"); }));
  }

  void FoldersAboveThatOfTheOptionFilesAreMade() {
    const Files files;
    files.write("zeldebug.toml",
                "directory = \"build/board\"\n" + files.read("zeldebug.toml"));
    Scene scene(files.project());
    scene.type("debugDevice", "4");
    save(scene);
    QVERIFY(files.read("build/board/etc/kvo_lumacore_0.opt")
                .contains("deviceNr 4"));
  }

  void SavesIntoTheFileThatIsChosen() {
    const Files files;
    Scene scene(files.project());
    goTo(scene, "zeldebug.local.toml");
    QVERIFY(targets(scene).toolTip().contains("zeldebug.local.toml"));
    scene.type("debugDevice", "4");
    save(scene);
    QCOMPARE(files.read("zeldebug.local.toml"),
             QByteArray("[processor.lumacore_0]\ndebugDevice = 4\n"));
    QVERIFY(files.saved().contains("deviceNr 4"));
    QCOMPARE(originOf(scene, "debugDevice"), QString("local file"));
    QCOMPARE(standing(scene),
             QString("The option file is as the project says."));
    QVERIFY(!scene.board().isModified());

    goTo(scene, "zeldebug.toml");
    scene.type("cable.frequency", "6 MHz");
    save(scene);
    QVERIFY(files.read("zeldebug.toml")
                .endsWith("\n[processor.lumacore_0]\n"
                          "cable.frequency = \"6 MHz\"\n"));
    QCOMPARE(standing(scene),
             QString("The option file is as the project says."));
  }

  void ChoosingWhereChangesGoLeavesWhatCanBeDoneAgain() {
    const Files files;
    Scene scene(files.project());
    scene.type("debugDevice", "4");
    scene.action(Operation::undo)->trigger();
    goTo(scene, "zeldebug.toml");
    scene.action(Operation::redo)->trigger();
    QVERIFY(scene.command().contains("deviceNr 4"));
  }

  void PutsEachWhereItBelongs() {
    const Files files;
    Scene scene(files.project());
    goTo(scene, "Project, each where it belongs");
    scene.type("debugDevice", "4");
    scene.type("cable.port", "USB23");
    save(scene);
    QVERIFY(files.read("zeldebug.toml").contains("debugDevice = 4"));
    QCOMPARE(files.read("zeldebug.local.toml"),
             QByteArray("[processor.lumacore_0]\ncable.port = \"USB23\"\n"));
  }

  void ProfilesAreThereToBeChosen() {
    const Files files("\n[processor.lumacore_2]\nconnection = \"sim\"\n"
                      "[profile.slow.settings]\ndebugDevice = 2\n",
                      "use.profile = \"slow\"\n");
    Scene scene(files.project());
    QCOMPARE(originOf(scene, "debugDevice"), QString("profile slow"));
    goTo(scene, "Profile slow");
    scene.type("debugDevice", "7");
    save(scene);
    QVERIFY(files.read("zeldebug.toml")
                .contains("[profile.slow.processor.lumacore_0]\n"
                          "debugDevice = 7\n"));
    QCOMPARE(originOf(scene, "debugDevice"), QString("profile slow"));
  }

  void AnotherFolderOfOptionFilesIsOpenedAnew() {
    const Files files;
    Scene scene(files.project());
    const QByteArray before = files.read("zeldebug.toml");
    files.write("zeldebug.toml", "directory = \"build\"\n" + before);
    QVERIFY(scene::waitUntil(
        [&] { return standing(scene).contains("open the project anew"); }));
    files.write("zeldebug.toml", before);
    QVERIFY(scene::waitUntil([&] {
      return standing(scene) == QString("There is no option file yet.");
    }));
  }

  void ProfilesComeAndGoWithTheFiles() {
    const Files files;
    Scene scene(files.project());
    goTo(scene, "Profile slow");
    QByteArray changed = files.read("zeldebug.toml");
    changed.replace("profile.slow", "profile.fast");
    files.write("zeldebug.toml", changed);
    QVERIFY(scene::waitUntil(
        [&] { return targets(scene).findText("Profile fast") >= 0; }));
    QCOMPARE(targets(scene).findText("Profile slow"), -1);
    QCOMPARE(targets(scene).currentText(), QString("Option file"));
    const auto *const told = scene::named<dialog::ElidedLabel>(
        scene.page(), "What else has changed");
    QVERIFY(told != nullptr);
    QVERIFY2(told->toolTip().contains("Profile slow is not there any more"),
             qPrintable(told->toolTip()));
  }

  void WhatIsHiddenIsTold_data() {
    QTest::addColumn<bool>("fromAnother");
    QTest::newRow("on its own page") << false;
    QTest::newRow("on the page that is shown") << true;
  }

  void WhatIsHiddenIsTold() {
    QFETCH(bool, fromAnother);
    const Files files(text, "[processor.lumacore_0]\ndebugDevice = 2\n");
    Scene scene(files.project());
    goTo(scene, "zeldebug.toml");
    scene.type("debugDevice", "4");
    if (fromAnother)
      QVERIFY(scene.board().choose("lumacore_1"));
    save(scene, Operation::saveAll);
    const auto *const told = scene::named<dialog::ElidedLabel>(
        scene.page(), "What else has changed");
    QVERIFY(told != nullptr);
    QVERIFY2(told->toolTip().contains("'debugDevice' of 'lumacore_0' is still "
                                      "2"),
             qPrintable(told->toolTip()));
    QVERIFY(scene.board().choose("lumacore_0"));
    QCOMPARE(standing(scene),
             QString("The option file is not as the project says."));
  }

  void WhatTheProjectRefusesIsToldAndNothingIsTaken() {
    const Files files;
    Scene scene(files.project());
    goTo(scene, "zeldebug.toml");
    scene.type("debugDevice", "4");
    save(scene);
    files.write("zeldebug.local.toml", "[settings]\na = 1\n");
    const QByteArray before = files.read("zeldebug.toml");
    scene.type("debugDevice", "5");
    QVERIFY(
        scene::answer([&] { scene.action(Operation::save)->trigger(); }, "OK"));
    QVERIFY(files.saved().contains("deviceNr 5"));
    QCOMPARE(files.read("zeldebug.toml"), before);
  }

  void AFileThatChangesIsNoticed() {
    const Files files;
    Scene scene(files.project());
    QByteArray changed = files.read("zeldebug.toml");
    changed.replace("3 MHz", "12 MHz");
    files.write("zeldebug.toml", changed);
    QVERIFY(scene::waitUntil(
        [&] { return scene.command().contains("frequency 12000000"); }));
    // A sign of ours in a text of theirs is one of theirs.
    files.write("zeldebug.local.toml",
                "[settings]\ndebugDevice = \"%2\"\nmore = 2\n");
    QVERIFY(scene::waitUntil([&] {
      return standing(scene).contains("zeldebug.local.toml:2:15") &&
             standing(scene).contains("'%2'") &&
             standing(scene).endsWith(", and 1 more");
    }));
    QVERIFY(QFile::remove(files.path("zeldebug.local.toml")));
    QVERIFY(scene::waitUntil([&] {
      return standing(scene) == QString("There is no option file yet.");
    }));
  }

  void AProcessorThatTheFilesRefuseSaysWhere() {
    const Files files("[settings]\nconnection = \"hw\"\n");
    Scene scene(files.project());
    QVERIFY(scene.board().choose("lumacore_2"));
    QVERIFY2(standing(scene).contains("zeldebug.toml:3:14"),
             qPrintable(standing(scene)));
    QVERIFY(scene.board().choose("lumacore_0"));
    QVERIFY(!standing(scene).contains("zeldebug.toml"));
  }

  void EveryFaultIsListedWithItsPlace() {
    const Files files("[settings]\ndebugDevise = 1\n[processor.nobody]\n",
                      "[settings]\ncable.esn = 42\n");
    Scene scene(files.project());
    QVERIFY(scene.window().board() == nullptr);
    auto *const messages = scene.window().findChild<dialog::DesignMessages *>();
    QCOMPARE(messages->topLevelItemCount(), 3);
    QStringList lines;
    for (int column = 0; column < messages->columnCount(); ++column)
      lines.append(messages->topLevelItem(0)->text(column));
    QVERIFY2(lines.join(u' ').contains("debugDevise"),
             qPrintable(lines.join(u' ')));
    QVERIFY(messages->isVisible());
  }

  void AProjectIsOpenedByDroppingItAndFromTheRecentOnes() {
    const Files files;
    Scene scene;
    QVERIFY(scene::named<QComboBox>(scene.window(), "Where changes go") ==
            nullptr);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(files.path("zeldebug.toml"))});
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.window(), &enter);
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(&scene.window(), &drop);
    QVERIFY(opened.wait(patience));
    QCOMPARE(scene.command(), QString(command));
    // A design alone is as ever, in the folder that it had.
    QVERIFY(opens(scene, dialog::WhatToOpen(TEST_BOARD)));
    QVERIFY(!scene.command().contains("-cable"));
    scene.type("debugDevice", "4");
    scene.action(Operation::save)->trigger();
    QVERIFY(scene.saved("lumacore_0").contains("deviceNr 4"));
    QCOMPARE(files.saved(), QByteArray("none"));
    QVERIFY(chooseRecent(scene, "zeldebug.toml"));
    QVERIFY(opened.wait(patience));
    QCOMPARE(scene.command(), QString(command));
  }

  void AProjectOfAnyNameIsReopenedAsOne() {
    const Files files;
    files.write("board.conf", files.read("zeldebug.toml"));
    dialog::WhatToOpen what(files.path("board.conf").toStdString());
    QVERIFY(!what.isProject);
    what.isProject = true;
    what.wishes.profile = "slow";
    Scene scene;
    QSignalSpy opened(&scene.window(), &dialog::MainWindow::opened);
    QVERIFY(opens(scene, what));
    QVERIFY(scene.command().contains("frequency 750000"));
    QVERIFY(opens(scene, dialog::WhatToOpen(TEST_BOARD)));
    QVERIFY(!scene.command().contains("frequency 750000"));
    QVERIFY(chooseRecent(scene, "board.conf"));
    QVERIFY(opened.wait(patience));
    QVERIFY(scene.command().contains("frequency 750000"));
    const std::vector<dialog::WhatToOpen> recent = dialog::recentDesigns();
    QVERIFY(recent.size() >= 2);
    QVERIFY(recent[0].isProject && !recent[1].isProject);
    QVERIFY(!recent[1].wishes.profile);
  }

  void ProbeAndProfileCanBeAskedFor() {
    const Files files;
    dialog::WhatToOpen what(files.project());
    QVERIFY(what.isProject);
    what.wishes.profile = "slow";
    Scene scene;
    QVERIFY(opens(scene, what));
    QVERIFY(scene.command().contains("frequency 750000"));
    what.wishes.profile = "slov";
    QVERIFY(opens(scene, what));
    QVERIFY(scene.window().board() == nullptr);
  }

  void NoKeyLeadsToTwoPlaces() {
    const Files files;
    Scene scene(files.project());
    const QStringList clashes = scene::clashingKeys(scene.window());
    QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(u' ')));
  }
};

QTEST_MAIN(ProjectTest)
#include "ProjectTest.moc"
