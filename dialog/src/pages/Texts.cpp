#include "pages/Texts.h"

#include <array>

#include <QCoreApplication>

namespace ZelDebugDialog::dialog {

namespace {

/// The words of the library have a context of their own in the translations.
QString translated(const std::string &text) {
  return QCoreApplication::translate("Settings", text.c_str());
}

/// A front of what `SettingState::origin` says.
struct Origin {
  const char *word;
  const char *shown;
};

constexpr std::array<Origin, 6> origins{{
    {"default", QT_TRANSLATE_NOOP("Origins", "default")},
    {"design", QT_TRANSLATE_NOOP("Origins", "design")},
    {"project", QT_TRANSLATE_NOOP("Origins", "project")},
    {"changed", QT_TRANSLATE_NOOP("Origins", "changed")},
    {"file:", QT_TRANSLATE_NOOP("Origins", "file, column %1")},
    {"command:", QT_TRANSLATE_NOOP("Origins", "typed, column %1")},
}};

constexpr std::size_t longestCharacter = 4; // bytes

/// Of the character there; a byte that is none is shown as one.
std::size_t lengthAt(const std::string &text, std::size_t offset) {
  // What stands in front is kept as it is, a byte order mark is not.
  const std::string front = ".";
  for (std::size_t length = 1; length <= longestCharacter; ++length) {
    const std::string one = front + text.substr(offset, length);
    if (bytesOf(shown(one)) == one)
      return length;
  }
  return 1;
}

} // namespace

QString shown(const std::string &text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string bytesOf(const QString &text) { return text.toStdString(); }

int positionOf(const std::string &text, std::size_t offset) {
  return static_cast<int>(shown(text.substr(0, offset)).size());
}

std::size_t offsetOf(const std::string &text, int position) {
  std::size_t offset = 0;
  for (int passed = 0; passed < position && offset < text.size();) {
    const std::size_t length = lengthAt(text, offset);
    passed += length == longestCharacter ? 2 : 1;
    offset += length;
  }
  return offset;
}

QString labelOf(const SettingInfo &setting) {
  return translated(setting.label);
}

QString groupOf(const SettingInfo &setting) {
  return translated(setting.group);
}

QString helpOf(const SettingInfo &setting) { return translated(setting.help); }

QString labelOf(const Choice &choice) { return translated(choice.label); }

QString unitOf(const SettingInfo &setting) { return translated(setting.unit); }

QString wordOf(const std::string &word) { return translated(word); }

QString listWord(const char *text) {
  return QCoreApplication::translate("Lists", text);
}

QString reasonOf(const std::string &reason) { return translated(reason); }

QString nameOf(const std::string &setting) {
  const SettingInfo *const info = FindSetting(setting);
  if (info == nullptr)
    return shown(setting);
  const QString group = groupOf(*info);
  const QString label = labelOf(*info);
  return group == label ? label : QStringLiteral("%1: %2").arg(group, label);
}

QString valueOf(const std::string &setting, const Value &value) {
  const SettingInfo *const info = FindSetting(setting);
  if (value.IsText() && value.Text().empty())
    return QCoreApplication::translate("Values", "(empty)");
  if (value.IsNothing())
    return QStringLiteral("–");
  if (value.IsText())
    return shown(info != nullptr ? ShowValue(*info, value) : value.Text());
  // "not set", "yes"; a person's own texts are no words of ours.
  return info != nullptr ? translated(ShowValue(*info, value))
                         : QStringLiteral("–");
}

QString originOf(const std::string &origin) {
  QString text = shown(origin);
  for (const Origin &row : origins) {
    const QString word = QLatin1String(row.word);
    if (!text.startsWith(word))
      continue;
    const QString shownWord = QCoreApplication::translate("Origins", row.shown);
    return word.endsWith(u':') ? shownWord.arg(text.mid(word.size()))
                               : shownWord;
  }
  return text;
}

std::string rowOf(const std::string &setting) {
  return setting.substr(0, setting.find('['));
}

} // namespace ZelDebugDialog::dialog
