// How the window looks: at the scale that the environment sets, and on a
// palette that changes while it is open.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include "dialog/Scene.h"
#include "pages/CommandEdit.h"
#include "pages/ElidedLabel.h"

using namespace ZelDebugDialog;
using scene::Scene;

namespace {

/// Something of everything that has a colour of its own.
void fill(Scene &scene) {
  scene.write("lumacore_1", "connect nothing\n");
  scene.write("ppc405_0", "connect nothing\n");
  scene.board().choose("lumacore_1");
  scene.board().choose("ppc405_0");
  qobject_cast<QAbstractButton *>(scene.field("cpuJtag"))->click();
  scene.type("romemSize", QStringLiteral("much"));
  auto *const line = scene.page().findChild<dialog::CommandEdit *>();
  line->setFocus();
  line->selectAll();
  QGuiApplication::clipboard()->setText(QStringLiteral(
      "connect ppc hw -cable type quorla_usb -debugdevice devicenr 200 -foo"));
  line->paste();
}

/// A tab after the other, without the folder of this run.
QList<QImage> picturesOf(Scene &scene) {
  QList<QImage> pictures;
  auto *const tabs = scene.page().findChild<QTabWidget *>();
  for (int tab = 0; tab < tabs->count(); ++tab) {
    tabs->setCurrentIndex(tab);
    scene.window().statusBar()->clearMessage();
    QCoreApplication::processEvents();
    pictures.append(
        scene.window().grab().toImage().convertToFormat(QImage::Format_RGB32));
  }
  return pictures;
}

/// Pixels that differ.
int differences(const QImage &left, const QImage &right) {
  int count = 0;
  for (int y = 0; y < left.height(); ++y)
    for (int x = 0; x < left.width(); ++x)
      count += left.pixel(x, y) != right.pixel(x, y) ? 1 : 0;
  return count;
}

QPalette paletteOf(bool isDark) {
  return isDark ? scene::darkPalette()
                : QApplication::style()->standardPalette();
}

/// What of a widget does not fit into it; empty for nothing.
QString clippedIn(const QWidget &widget) {
  const auto *const label = qobject_cast<const QLabel *>(&widget);
  if (label != nullptr && label->text().isEmpty())
    return {};
  if (qobject_cast<const dialog::ElidedLabel *>(label) != nullptr)
    return {}; // It is cut with a sign, and its tip has all of it.
  QSize needed;
  if (label != nullptr && label->wordWrap())
    needed = QSize(0, label->heightForWidth(label->width()));
  else if (label != nullptr ||
           qobject_cast<const QPushButton *>(&widget) != nullptr ||
           qobject_cast<const QToolButton *>(&widget) != nullptr)
    needed = widget.sizeHint();
  else if (qobject_cast<const QLineEdit *>(&widget) != nullptr ||
           qobject_cast<const QComboBox *>(&widget) != nullptr)
    needed = widget.minimumSizeHint();
  if (needed.width() <= widget.width() && needed.height() <= widget.height())
    return {};
  return QStringLiteral("%1 '%2' has %3 x %4 and needs %5 x %6")
      .arg(widget.metaObject()->className(),
           label != nullptr ? label->text() : widget.accessibleName())
      .arg(widget.width())
      .arg(widget.height())
      .arg(needed.width())
      .arg(needed.height());
}

/// The same of the heading of a column.
QString clippedHeading(const QHeaderView &header, int column) {
  constexpr int margin = 4;
  constexpr int boundless = 10000;
  const QString text =
      header.model()->headerData(column, Qt::Horizontal).toString();
  const QRect needed = header.fontMetrics().boundingRect(
      QRect(0, 0, header.sectionSize(column) - margin, boundless),
      Qt::TextWordWrap, text);
  const bool isWhole = needed.width() <= header.sectionSize(column) &&
                       needed.height() <= header.height();
  return isWhole ? QString() : QStringLiteral("heading '%1'").arg(text);
}

QStringList clippedIn(Scene &scene) {
  QStringList clipped;
  for (const QWidget *const one : scene.window().findChildren<QWidget *>()) {
    if (!one->isVisible() || one->objectName().startsWith(QLatin1String("qt_")))
      continue;
    clipped.append(clippedIn(*one));
    const auto *const header = qobject_cast<const QHeaderView *>(one);
    if (header != nullptr && header->orientation() == Qt::Horizontal)
      for (int column = 0; column < header->count(); ++column)
        clipped.append(clippedHeading(*header, column));
    if (const auto *const bar = qobject_cast<const QTabBar *>(one))
      for (int tab = 0; tab < bar->count(); ++tab)
        if (bar->tabRect(tab).width() <
            bar->fontMetrics()
                .size(Qt::TextShowMnemonic, bar->tabText(tab))
                .width())
          clipped.append(QStringLiteral("tab '%1'").arg(bar->tabText(tab)));
  }
  clipped.removeAll(QString());
  return clipped;
}

} // namespace

class LooksTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() {
    scene::prepare();
    QApplication::setCursorFlashTime(0);
  }
  void cleanup() { QApplication::setPalette(paletteOf(false)); }

  void ItHasTheScaleOfTheEnvironment() {
    const double scale =
        qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
    Scene scene;
    QCOMPARE(scene.window().devicePixelRatio(), scale);
    QCOMPARE(scene.window().grab().devicePixelRatio(), scale);
  }

  void AWindowFollowsThePalette_data() {
    QTest::addColumn<bool>("isDark");
    QTest::newRow("to dark") << true;
    QTest::newRow("to light") << false;
  }

  /// It looks as one that had the palette from the start.
  void AWindowFollowsThePalette() {
    QFETCH(bool, isDark);
    QApplication::setPalette(paletteOf(isDark));
    QList<QImage> wanted;
    {
      Scene scene;
      fill(scene);
      wanted = picturesOf(scene);
    }
    QApplication::setPalette(paletteOf(!isDark));
    Scene scene;
    fill(scene);
    const QList<QImage> before = picturesOf(scene);
    QApplication::setPalette(paletteOf(isDark));
    QCoreApplication::processEvents();
    const QList<QImage> after = picturesOf(scene);
    QCOMPARE(after.size(), wanted.size());
    for (qsizetype i = 0; i < wanted.size(); ++i) {
      QCOMPARE(after[i].size(), wanted[i].size());
      QVERIFY(before[i] != wanted[i]);
      if (after[i] == wanted[i])
        continue;
      after[i].save(QStringLiteral("looks.after.png"));
      wanted[i].save(QStringLiteral("looks.wanted.png"));
      QCOMPARE(differences(after[i], wanted[i]), 0);
    }
  }

  void NothingIsClipped_data() {
    QTest::addColumn<QString>("processor");
    QTest::newRow("soft processor") << "lumacore_0";
    QTest::newRow("hard processor") << "ppc405_0";
    QTest::newRow("with everything") << "";
  }

  void NothingIsClipped() {
    QFETCH(QString, processor);
    Scene scene;
    if (processor.isEmpty())
      fill(scene);
    else
      QVERIFY(scene.board().choose(processor.toStdString()));
    QCoreApplication::processEvents();
    QCOMPARE(clippedIn(scene), QStringList());
    // What is clipped is seen.
    QPushButton narrow("A text that is far too long", &scene.window());
    narrow.resize(30, 30);
    narrow.show();
    QCOMPARE(clippedIn(scene).size(), 1);
  }

  /// Of a laptop whose screen is scaled by two.
  void ItFitsOnASmallScreen() {
    Scene scene;
    const QSize least = scene.window().minimumSizeHint();
    QVERIFY2(
        least.width() <= 960 && least.height() <= 540,
        qPrintable(
            QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
  }
};

QTEST_MAIN(LooksTest)
#include "LooksTest.moc"
