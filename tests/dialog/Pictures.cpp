// The pictures of the documents: made with a pinned style, font and scale, and
// compared with those that are there.
//
//   dialog_pictures DIR         compares with the pictures in DIR
//   dialog_pictures DIR --make  makes them
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QLocale>
#include <QMainWindow>
#include <QPixmap>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include "dialog/Scene.h"
#include "pages/CommandEdit.h"

namespace {

using scene::Scene;
using Operation = ZelDebugDialog::BoardPage::Operation;

/// What may differ: fonts are drawn a little otherwise from one version of
/// their library to the next. A picture differs where the mean difference of
/// its pixels is greater, or more of them than a share are clearly another
/// colour.
constexpr double mostMeanDifference = 2.0; // of 255
constexpr double mostOther = 0.02;
constexpr int clearlyOther = 48; // of 255

/// Not the folder of this run.
void tidy(QWidget &window) {
  if (auto *const main = qobject_cast<QMainWindow *>(&window))
    main->statusBar()->clearMessage();
}

QImage grab(QWidget &window) {
  tidy(window);
  QCoreApplication::processEvents();
  return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Settings as a person leaves them half way through.
void configure(Scene &scene) {
  scene.type("debugDevice", QStringLiteral("2"));
  scene.field("cable.esn");
  scene.choose("cable.cableType", "quorla_podusb");
}

QImage firstSight() {
  Scene scene;
  scene.field("connection");
  return grab(scene.window());
}

QImage addressMap() {
  Scene scene;
  scene.board().choose("ppc405_0");
  scene.type("icacheStartAdr", QStringLiteral("0x40000000"));
  scene.type("dcacheStartAdr", QStringLiteral("0x40010000"));
  scene.type("romemStartAdr", QStringLiteral("0xfff00000"));
  scene.type("romemSize", QStringLiteral("65536"));
  scene.type("tlbStartAdr", QStringLiteral("0x40020123"));
  return grab(scene.window());
}

QImage faultyCommand() {
  Scene scene;
  auto *const line =
      scene.page().findChild<ZelDebugDialog::dialog::CommandEdit *>();
  line->setFocus();
  QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
  QGuiApplication::clipboard()->setText(QStringLiteral(
      "connect lc hdu -cable type quorla_usb -debugdevice devicenr 200 -foo"));
  line->paste();
  return grab(scene.window());
}

/// What the first dialog that appears looks like; it is closed again.
QImage grabDialog(const std::function<void()> &operation) {
  QImage picture;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    auto *const dialog =
        qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr)
      return;
    timer.stop();
    picture = grab(*dialog);
    dialog->reject();
  });
  timer.start(20);
  operation();
  return picture;
}

QImage losses() {
  Scene scene;
  scene.choose("cable.cableType", "quorla_podusb");
  scene.type("cable.frequency", QStringLiteral("3 MHz"));
  scene.type("cable.esn", QStringLiteral("0042"));
  return grabDialog([&] { scene.action(Operation::save)->trigger(); });
}

QImage dark() {
  QApplication::setPalette(scene::darkPalette());
  Scene scene;
  configure(scene);
  QImage picture = grab(scene.window());
  QApplication::setPalette(QApplication::style()->standardPalette());
  return picture;
}

QImage configured() {
  Scene scene;
  configure(scene);
  return grab(scene.window());
}

/// A team's file, a desk's, and a change that is to go to one of them.
QImage project() {
  const QTemporaryDir folder;
  const auto write = [&folder](const char *name, const QByteArray &text) {
    QFile file(folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
      qFatal("a file of the project cannot be written");
  };
  write("zeldebug.toml", "design = \"" TEST_BOARD "\"\n"
                         "[settings]\n"
                         "cable.cableType = \"quorla_podusb\"\n"
                         "[processor.lumacore_2]\n"
                         "connection = \"sim\"\n"
                         "[profile.slow.settings]\n"
                         "cable.frequency = \"750 kHz\"\n");
  write("zeldebug.local.toml", "use.profile = \"slow\"\n"
                               "[settings]\n"
                               "cable.port = \"USB23\"\n");
  Scene scene(folder.filePath(QStringLiteral("zeldebug.toml")).toStdString());
  scene.type("debugDevice", QStringLiteral("2"));
  auto *const box = scene::named<QComboBox>(scene.window(),
                                            QStringLiteral("Where changes go"));
  box->setFocus();
  QTest::keyClick(box, Qt::Key_Down);
  scene.field("cable.port");
  return grab(scene.window());
}

QImage german() {
  ZelDebugDialog::InstallDialogTexts(QLocale(QLocale::German));
  Scene scene;
  configure(scene);
  return grab(scene.window());
}

struct Picture {
  const char *name;
  QImage (*make)();
};

/// German last: its texts stay.
const std::vector<Picture> pictures = {
    {"first-sight", firstSight}, {"configured", configured},
    {"address-map", addressMap}, {"faulty-command", faultyCommand},
    {"losses", losses},          {"dark", dark},
    {"project", project},        {"german", german},
};

/// How two pictures differ; empty for well enough alike.
std::string difference(const QImage &made, const QImage &known) {
  if (known.isNull())
    return "there is no such picture";
  if (made.size() != known.size())
    return "it has another size";
  double sum = 0;
  double other = 0;
  for (int y = 0; y < made.height(); ++y)
    for (int x = 0; x < made.width(); ++x) {
      const QRgb left = made.pixel(x, y);
      const QRgb right = known.pixel(x, y);
      const int most = std::max({std::abs(qRed(left) - qRed(right)),
                                 std::abs(qGreen(left) - qGreen(right)),
                                 std::abs(qBlue(left) - qBlue(right))});
      sum += most;
      other += most >= clearlyOther ? 1 : 0;
    }
  const double pixels = static_cast<double>(made.width()) * made.height();
  if (sum / pixels <= mostMeanDifference && other / pixels <= mostOther)
    return {};
  return "mean difference " + std::to_string(sum / pixels) + ", other pixels " +
         std::to_string(100 * other / pixels) + " %";
}

} // namespace

int main(int count, char **arguments) {
  qputenv("QT_SCALE_FACTOR", "1");
  qputenv("QT_FONT_DPI", "96");
  const QApplication application(count, arguments);
  scene::prepare();
  const QStringList words = QApplication::arguments();
  if (words.size() < 2)
    return 2;
  const bool makes = words.contains(QStringLiteral("--make"));
  int failures = 0;
  for (const Picture &picture : pictures) {
    const QString path =
        words[1] + u'/' + QLatin1String(picture.name) + QLatin1String(".png");
    const QImage made = picture.make();
    if (makes) {
      made.save(path, "PNG", 0);
      continue;
    }
    const QImage known = QImage(path).convertToFormat(QImage::Format_RGB32);
    const std::string problem = difference(made, known);
    if (problem.empty())
      continue;
    ++failures;
    std::printf("%s: %s\n", picture.name, problem.c_str());
    made.save(QLatin1String(picture.name) + QLatin1String(".made.png"));
  }
  return failures == 0 ? 0 : 1;
}
