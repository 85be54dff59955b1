#include "program/DesignMessages.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

#include "pages/Columns.h"
#include "pages/Palette.h"
#include "pages/Texts.h"
#include "pages/ToneDelegate.h"

namespace ZelDebugDialog::dialog {

namespace {

enum Column { severityColumn, fileColumn, lineColumn, messageColumn };

constexpr int pathRole = Qt::UserRole;
constexpr qint64 mostShown = 4 * 1024 * 1024; // bytes

} // namespace

DesignMessages::DesignMessages(QWidget *parent) : QTreeWidget(parent) {
  setAccessibleName(tr("Messages about the design"));
  setHeaderLabels({listWord(QT_TRANSLATE_NOOP("Lists", "Severity")), tr("File"),
                   tr("Line"), tr("Message")});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setItemDelegate(new ToneDelegate(this));
  columns = new Columns(this, QStringLiteral("messages"));
  setAllColumnsShowFocus(true);
  connect(this, &QTreeWidget::itemActivated, this,
          [this](const QTreeWidgetItem *item) { showSource(*item); });
}

void DesignMessages::display(const std::vector<DesignDiagnostic> &diagnostics) {
  const auto severityOf = [](DesignDiagnostic::Severity severity) {
    switch (severity) {
    case DesignDiagnostic::Severity::error:
      return listWord(QT_TRANSLATE_NOOP("Lists", "error"));
    case DesignDiagnostic::Severity::warning:
      return listWord(QT_TRANSLATE_NOOP("Lists", "warning"));
    case DesignDiagnostic::Severity::note:
      break;
    }
    return tr("note");
  };
  clear();
  for (const DesignDiagnostic &one : diagnostics) {
    const QString path = shown(one.file);
    auto *const item = new QTreeWidgetItem(
        this, {severityOf(one.severity), QFileInfo(path).fileName(),
               one.line > 0 ? QString::number(one.line) : QString(),
               shown(one.message)});
    item->setData(severityColumn, pathRole, path);
    item->setToolTip(fileColumn, path);
    item->setToolTip(
        messageColumn,
        QStringLiteral("<p>%1</p>").arg(shown(one.message).toHtmlEscaped()));
    if (one.severity == DesignDiagnostic::Severity::error)
      setTone(*item, severityColumn, Tone::fault);
  }
  columns->fit();
}

void DesignMessages::showSource(const QTreeWidgetItem &item) {
  const QString path = item.data(severityColumn, pathRole).toString();
  if (path.isEmpty())
    return;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    QMessageBox::warning(this, path, file.errorString());
    return;
  }
  constexpr int width = 800;
  constexpr int height = 500;
  QDialog window(this);
  window.setWindowTitle(path);
  window.resize(width, height);
  auto *const layout = new QVBoxLayout(&window);
  auto *const text =
      new QPlainTextEdit(QString::fromUtf8(file.read(mostShown)), &window);
  text->setAccessibleName(path);
  text->setReadOnly(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                Qt::TextSelectableByKeyboard);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  layout->addWidget(text);
  auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &window);
  connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  layout->addWidget(buttons);
  const int line = item.text(lineColumn).toInt();
  if (line > 0) {
    QTextEdit::ExtraSelection selection;
    selection.cursor =
        QTextCursor(text->document()->findBlockByNumber(line - 1));
    selection.format.setBackground(markColour(palette()));
    selection.format.setProperty(QTextFormat::FullWidthSelection, true);
    text->setExtraSelections({selection});
    text->setTextCursor(selection.cursor);
    text->centerCursor();
  }
  window.exec();
}

} // namespace ZelDebugDialog::dialog
