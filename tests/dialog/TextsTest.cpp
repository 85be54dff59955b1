// The words of the dialog in its second language, and what it makes of texts.
#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTest>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/Dialog.h"
#include "dialog/Scene.h"
#include "pages/Palette.h"
#include "pages/Texts.h"

using namespace ZelDebugDialog;

namespace {

/// Of the brighter to the darker of two colours, as WCAG 2 has it.
double contrast(const QColor &one, const QColor &other) {
  const auto luminance = [](const QColor &colour) {
    const auto part = [](double value) {
      return value <= 0.03928 ? value / 12.92
                              : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
  };
  const double left = luminance(one);
  const double right = luminance(other);
  return (std::max(left, right) + 0.05) / (std::min(left, right) + 0.05);
}

QPalette paletteOn(const QColor &base, const QColor &text) {
  QPalette palette;
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::Text, text);
  return palette;
}

} // namespace

class TextsTest : public QObject {
  Q_OBJECT

private slots:
  void BytesAndLettersAreCountedApart() {
    const std::string text = "a\xc3\xa9z";
    QCOMPARE(dialog::positionOf(text, 0), 0);
    QCOMPARE(dialog::positionOf(text, 3), 2);
    QCOMPARE(dialog::positionOf(text, 4), 3);
    QCOMPARE(dialog::offsetOf(text, 2), std::size_t(3));
    QCOMPARE(dialog::offsetOf(text, 3), std::size_t(4));
    QCOMPARE(dialog::offsetOf(text, 4), std::size_t(4));
  }

  /// Also of what is no UTF-8: each end of a character is found again.
  void PlacesAreTheSameInBytesAndInWhatIsShown() {
    const std::vector<std::string> characters = {
        "a",        "\xc3\xa9",         "\xfc",         "\xe2",         "\x82",
        "\xc2\xa0", "\xf0\x9f\x98\x80", "\xef\xbb\xbf", "\xef\xbf\xbd", "z"};
    std::string text = "x";
    for (const std::string &one : characters) {
      const std::string sofar = text;
      text += one;
      QCOMPARE(dialog::offsetOf(text, dialog::positionOf(text, sofar.size())),
               sofar.size());
      QCOMPARE(
          dialog::offsetOf(text, static_cast<int>(dialog::shown(text).size())),
          text.size());
    }
  }

  void OriginsAreWords() {
    QCOMPARE(dialog::originOf("default"), QString("default"));
    QCOMPARE(dialog::originOf("file:28"), QString("file, column 28"));
    QCOMPARE(dialog::originOf("command:5"), QString("typed, column 5"));
    QCOMPARE(dialog::originOf("elsewhere"), QString("elsewhere"));
  }

  void SettingsHaveNames() {
    QCOMPARE(dialog::nameOf("cable.frequency"), QString("Cable: Frequency"));
    QCOMPARE(dialog::nameOf("debugDevice"), QString("Debug device"));
    QCOMPARE(dialog::nameOf("no such"), QString("no such"));
    QCOMPARE(dialog::valueOf("cable.frequency", Value(3000000)),
             QString("3 MHz"));
    QCOMPARE(dialog::valueOf("cable.port", Value("")), QString("(empty)"));
    QCOMPARE(dialog::valueOf("cable.port", Value()), QString("–"));
    QCOMPARE(dialog::rowOf("chain[2].idcode"), std::string("chain"));
  }

  void ColoursOfRolesCanBeReadAndToldApart_data() {
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(0x1e, 0x1f, 0x22)
                          << QColor(0xe6, 0xe6, 0xe6);
  }

  void ColoursOfRolesCanBeReadAndToldApart() {
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    const QPalette palette = paletteOn(base, text);
    const std::vector<std::string> roles = {
        "head", "target", "connection", "option", "name", "value", "lost"};
    for (const std::string &role : roles) {
      const QColor colour = dialog::roleColour(role, palette);
      QVERIFY2(contrast(colour, base) >= 4.5, role.c_str());
      for (const std::string &other : roles) {
        const QColor next = dialog::roleColour(other, palette);
        const int distance = std::abs(colour.red() - next.red()) +
                             std::abs(colour.green() - next.green()) +
                             std::abs(colour.blue() - next.blue());
        QVERIFY2(role == other || distance >= 40,
                 (role + " and " + other).c_str());
      }
    }
    QVERIFY(contrast(dialog::faultColour(palette), base) >= 4.5);
    QVERIFY(contrast(dialog::doubtColour(palette), base) >= 4.5);
    QVERIFY(contrast(dialog::quietColour(palette), base) >= 4.5);
  }

  /// Last: the texts stay.
  void TheWholeTableIsThereInGerman() {
    QVERIFY(!InstallDialogTexts(QLocale(QLocale::Icelandic)));
    QVERIFY(!InstallDialogTexts(QLocale(QLocale::English)));
    QCOMPARE(dialog::nameOf("cable.frequency"), QString("Cable: Frequency"));
    QVERIFY(InstallDialogTexts(QLocale(QLocale::German)));
    QFile file(QStringLiteral(TEST_TRANSLATIONS "/settings_de.ts"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString texts = QString::fromUtf8(file.readAll());
    const auto isThere = [&texts](const std::string &text) {
      const QString escaped = QString::fromStdString(text)
                                  .replace(u'&', QLatin1String("&amp;"))
                                  .replace(u'<', QLatin1String("&lt;"))
                                  .replace(u'>', QLatin1String("&gt;"));
      return texts.contains(QStringLiteral("<source>%1</source>").arg(escaped));
    };
    for (const SettingInfo &setting : GetSettings()) {
      QVERIFY2(isThere(setting.group), setting.group.c_str());
      QVERIFY2(isThere(setting.label), setting.label.c_str());
      QVERIFY2(isThere(setting.help), setting.help.c_str());
      QVERIFY2(setting.unit.empty() || setting.kind == SettingKind::frequency ||
                   isThere(setting.unit),
               setting.unit.c_str());
      // A label that is a word of the command stays as it is.
      for (const Choice &choice : setting.choices)
        QVERIFY2(choice.label == choice.text || isThere(choice.label) ||
                     choice.label.find("which no command names") !=
                         std::string::npos,
                 choice.label.c_str());
    }
    QCOMPARE(dialog::nameOf("cable.frequency"), QString("Kabel: Frequenz"));
    QCOMPARE(dialog::originOf("file:28"), QString("Datei, Spalte 28"));
    // What a value is called, but not what a person has typed.
    QCOMPARE(dialog::valueOf("cpuJtag", Value(true)), QString("ja"));
    QCOMPARE(dialog::valueOf("cpuJtag", Value(false)), QString("nein"));
    QCOMPARE(dialog::valueOf("chain", Value(Value::Chain())),
             QString("keine Geräte"));
    QCOMPARE(dialog::valueOf("romemStartAdr", Value(4294967295)),
             QString("nicht gesetzt"));
    QCOMPARE(dialog::valueOf("cable.port", Value("yes")), QString("yes"));
    QCOMPARE(dialog::valueOf("cable.frequency", Value(3000000)),
             QString("3 MHz"));
    QCOMPARE(dialog::unitOf(*FindSetting("romemSize")), QString("Byte"));
    scene::prepare();
    scene::Scene scene;
    QCOMPARE(scene::clashingKeys(scene.window()), QStringList());
  }
};

QTEST_MAIN(TextsTest)
#include "TextsTest.moc"
