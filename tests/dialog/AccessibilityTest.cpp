// What programs for people who do not see the window are told of it: each
// control has a name, and the keyboard alone reaches each.
#include <set>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include "dialog/Scene.h"
#include "pages/Banner.h"
#include "pages/SessionModel.h"
#include "pages/SettingRow.h"
#include "pages/SettingsForm.h"
#include "pages/ToneLabel.h"

using namespace ZelDebugDialog;
using scene::Scene;

namespace {

/// Whether people work with it.
bool isControl(const QWidget &widget) {
  if (qobject_cast<const QHeaderView *>(&widget) != nullptr)
    return false; // It is a part of its table.
  return qobject_cast<const QAbstractButton *>(&widget) != nullptr ||
         qobject_cast<const QLineEdit *>(&widget) != nullptr ||
         qobject_cast<const QComboBox *>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView *>(&widget) != nullptr ||
         qobject_cast<const QPlainTextEdit *>(&widget) != nullptr;
}

/// Parts that the library of widgets makes itself, for the mouse only.
bool isOfQt(const QWidget &widget) {
  return widget.objectName().startsWith(QLatin1String("qt_")) ||
         qobject_cast<const QTabBar *>(widget.parentWidget()) != nullptr ||
         qobject_cast<const QAbstractItemView *>(widget.parentWidget()) !=
             nullptr;
}

QString nameOf(QWidget &widget) {
  QAccessibleInterface *const told =
      QAccessible::queryAccessibleInterface(&widget);
  return told == nullptr ? QString() : told->text(QAccessible::Name);
}

/// How many there are; each of them has a name.
int controlsOf(Scene &scene) {
  int controls = 0;
  for (QWidget *const widget : scene.window().findChildren<QWidget *>()) {
    if (!isControl(*widget) || isOfQt(*widget) ||
        widget->window() != &scene.window())
      continue;
    ++controls;
    if (nameOf(*widget).isEmpty())
      qFatal("%s in %s has no name", widget->metaObject()->className(),
             widget->parentWidget()->metaObject()->className());
  }
  return controls;
}

/// Whatever has the focus from here on; nothing where it gets lost.
std::set<QWidget *> reachedByTabulator() {
  std::set<QWidget *> reached;
  for (int i = 0; i < 400; ++i) {
    QWidget *const focus = QApplication::focusWidget();
    if (focus == nullptr)
      return {};
    reached.insert(focus);
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  return reached;
}

} // namespace

class AccessibilityTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() { scene::prepare(); }

  void EveryControlHasAName() {
    Scene scene;
    const int ofDesign = controlsOf(scene);
    QVERIFY(ofDesign > 100);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("zeldebug.toml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("design = \"" TEST_BOARD "\"\n") > 0);
    file.close();
    Scene ofProject(file.fileName().toStdString());
    QVERIFY(controlsOf(ofProject) > ofDesign);
    auto *const box = scene::named<QComboBox>(ofProject.window(),
                                              QStringLiteral("Where changes "
                                                             "go"));
    QVERIFY(box != nullptr);
    ofProject.field("connection");
    QVERIFY(reachedByTabulator().count(box) == 1);
  }

  void TheNameOfAControlIsTheLabelOfItsSetting() {
    Scene scene;
    auto *const form = scene.page().findChild<dialog::SettingsForm *>();
    int settings = 0;
    for (const SettingInfo &setting : GetSettings()) {
      if (setting.id.find('[') != std::string::npos)
        continue;
      ++settings;
      dialog::SettingRow *const row = form->rowFor(setting.id);
      QVERIFY2(row != nullptr, setting.id.c_str());
      QCOMPARE(row->field()->accessibleName(),
               QString::fromStdString(setting.label));
    }
    QVERIFY(settings > 40);
  }

  void WhereAValueComesFromIsTold() {
    Scene scene;
    const QWidget *const line = scene.field("debugDevice");
    QVERIFY2(line->accessibleDescription().endsWith(
                 "Where the value comes from: default."),
             qPrintable(line->accessibleDescription()));
    scene.type("debugDevice", "2");
    QVERIFY2(line->accessibleDescription().endsWith(
                 "Where the value comes from: changed."),
             qPrintable(line->accessibleDescription()));
  }

  /// From the first control on, by the tabulator key.
  void TheKeyboardReachesEverySettingThatCanBeSet() {
    Scene scene;
    scene.board().choose("ppc405_0");
    auto *const form = scene.page().findChild<dialog::SettingsForm *>();
    const std::set<QWidget *> reached = reachedByTabulator();
    QVERIFY(!reached.empty());
    for (const SettingInfo &setting : GetSettings()) {
      dialog::SettingRow *const row = form->rowFor(setting.id);
      if (row == nullptr || !setting.settable || !row->field()->isEnabled() ||
          !row->field()->isVisible())
        continue;
      QVERIFY2(reached.count(row->field()) == 1, setting.id.c_str());
    }
    for (const char *const name :
         {"Connect command", "What will not survive saving",
          "What differs from what is saved", "Processors"}) {
      auto *const control = scene::named<QWidget>(scene.window(), name);
      QVERIFY2(control == nullptr || reached.count(control) == 1, name);
    }
  }

  /// Downwards, from the first control of the board to its last.
  void TheTabulatorGoesInTheOrderInWhichThingsStand_data() {
    QTest::addColumn<bool>("isOfProject");
    QTest::newRow("design") << false;
    QTest::newRow("project") << true;
  }

  void TheTabulatorGoesInTheOrderInWhichThingsStand() {
    QFETCH(bool, isOfProject);
    const QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("zeldebug.toml"));
    QFile file(project);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("design = \"" TEST_BOARD "\"\n") > 0);
    file.close();
    Scene scene(isOfProject ? project.toStdString() : "");
    // With a banner above the page.
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("etc")));
    QFile saved(isOfProject
                    ? folder.filePath(QStringLiteral("etc/kvo_lumacore_0.opt"))
                    : scene.fileOf("lumacore_0"));
    QVERIFY(saved.open(QIODevice::WriteOnly));
    QVERIFY(saved.write("connect lc sim\n") > 0);
    saved.close();
    scene.page().lookAtFile();
    const QWidget &content =
        *scene.page().findChild<dialog::SettingsForm *>()->widget();
    // The form is scrolled: as if all of it were to be seen.
    const auto placeIn = [&](const QWidget &widget) {
      const QPoint corner;
      const int y = widget.mapTo(&scene.board(), corner).y();
      const int top = content.parentWidget()->mapTo(&scene.board(), corner).y();
      if (content.isAncestorOf(&widget))
        return top + widget.mapTo(&content, corner).y();
      return y > top && scene.page().isAncestorOf(&widget)
                 ? y + content.height()
                 : y;
    };
    QWidget *focus = nullptr;
    for (QWidget *const one : scene.board().findChildren<QWidget *>())
      if (one->isVisible() && one->isEnabled() &&
          (one->focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
          (focus == nullptr || placeIn(*one) < placeIn(*focus)))
        focus = one;
    QVERIFY(focus != nullptr);
    focus->setFocus();
    const QWidget *const first = focus;
    int controls = 0;
    int banners = 0;
    int before = 0;
    do {
      const int place = placeIn(*focus);
      // What stands side by side is of several heights.
      QVERIFY2(place + focus->height() > before, qPrintable(nameOf(*focus)));
      before = place;
      ++controls;
      banners += qobject_cast<dialog::Banner *>(focus->parentWidget()) ? 1 : 0;
      QTest::keyClick(focus, Qt::Key_Tab);
      focus = QApplication::focusWidget();
      QVERIFY(focus != nullptr && controls < 300);
    } while (focus != first && scene.board().isAncestorOf(focus));
    QVERIFY(controls > 30);
    QCOMPARE(banners, 3);
  }

  /// Their labels take the focus in their place, and tell the reason.
  void TheKeyboardLeadsToTheReasonsOfWhatIsDisabled() {
    Scene scene;
    scene.board().choose("ppc405_0");
    const auto state = [&scene](const std::string &setting) {
      return *scene.page().findChild<dialog::SessionModel *>()->find(setting);
    };
    auto *const form = scene.page().findChild<dialog::SettingsForm *>();
    const std::set<QWidget *> reached = reachedByTabulator();
    QVERIFY(!reached.empty());
    int disabled = 0;
    for (const SettingInfo &setting : GetSettings()) {
      dialog::SettingRow *const row = form->rowFor(setting.id);
      if (row == nullptr || row->setting().id != setting.id ||
          !row->label().isVisible() || !setting.settable)
        continue;
      auto *const label = const_cast<dialog::ToneLabel *>(&row->label());
      const QString told = QAccessible::queryAccessibleInterface(label)->text(
          QAccessible::Description);
      if (row->field()->isEnabled()) {
        QVERIFY2(reached.count(label) == 0, setting.id.c_str());
        continue;
      }
      ++disabled;
      QVERIFY2(reached.count(label) == 1, setting.id.c_str());
      const QString reason = QString::fromStdString(state(setting.id).reason);
      QVERIFY2(!reason.isEmpty() && told.contains(reason), setting.id.c_str());
      // To those who see it as well.
      label->setFocus(Qt::TabFocusReason);
      QTest::keyClick(label, Qt::Key_F1, Qt::ShiftModifier);
      QWidget *const help = QApplication::activePopupWidget();
      QVERIFY2(help != nullptr, setting.id.c_str());
      QTest::keyClick(help, Qt::Key_Escape);
      QCoreApplication::processEvents();
    }
    QVERIFY(disabled > 0);
    // Groups that are folded away say why.
    auto *const heading =
        scene::named<QAbstractButton>(scene.page(), "Simulator");
    QVERIFY(heading != nullptr);
    QVERIFY2(heading->accessibleDescription().startsWith("folded: "),
             qPrintable(heading->accessibleDescription()));
  }

  /// Such a box is told by what is chosen; its name is its label's.
  void ABoxOfChoicesIsToldWithItsLabel() {
    Scene scene;
    auto *const form = scene.page().findChild<dialog::SettingsForm *>();
    int boxes = 0;
    for (const SettingInfo &setting : GetSettings()) {
      if (setting.kind != SettingKind::word)
        continue;
      ++boxes;
      const auto relations = QAccessible::queryAccessibleInterface(
                                 form->rowFor(setting.id)->field())
                                 ->relations(QAccessible::Label);
      QCOMPARE(relations.size(), 1);
      QCOMPARE(relations[0].first->text(QAccessible::Name),
               QString::fromStdString(setting.label));
    }
    QVERIFY(boxes > 1);
  }
};

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
