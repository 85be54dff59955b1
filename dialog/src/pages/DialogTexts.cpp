#include "ZelDebugDialog/Dialog.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

// Out of any namespace, as the macro needs it.
static void makeResources() { Q_INIT_RESOURCE(zeldebug_dialog); }

namespace ZelDebugDialog {

bool InstallDialogTexts(const QLocale &locale) {
  makeResources();
  const auto install = [&locale](const QString &file, const QString &folder) {
    // In the person's order. The texts as they are need no file: who wants
    // English first does not want what comes behind it.
    for (const QString &name : locale.uiLanguages()) {
      const QLocale language(name);
      if (language.language() == QLocale::English ||
          language.language() == QLocale::C)
        return false;
      auto *const texts = new QTranslator(qApp);
      if (texts->load(language, file, QStringLiteral("_"), folder))
        return QCoreApplication::installTranslator(texts);
      delete texts;
    }
    return false;
  };
  // Those of the widgets themselves, where they are installed.
  install(QStringLiteral("qtbase"),
          QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  return install(QStringLiteral("zeldebug-dialog"),
                 QStringLiteral(":/zeldebug-dialog"));
}

} // namespace ZelDebugDialog
