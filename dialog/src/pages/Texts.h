// Texts between the configuration model, whose texts are bytes of UTF-8, and
// widgets; and how settings and values are called in sentences.
#ifndef ZELDEBUGDIALOG_DIALOG_TEXTS_H
#define ZELDEBUGDIALOG_DIALOG_TEXTS_H

#include <cstddef>
#include <string>

#include <QString>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace ZelDebugDialog::dialog {

QString shown(const std::string &text);
std::string bytesOf(const QString &text);

/// Where a byte of `text` stands in `shown(text)`.
int positionOf(const std::string &text, std::size_t offset);
/// Where a character of `shown(text)` stands in `text`, which may have bytes
/// that are no UTF-8.
std::size_t offsetOf(const std::string &text, int position);

// What the table of settings says, in the person's language.
QString labelOf(const SettingInfo &setting);
QString groupOf(const SettingInfo &setting);
QString helpOf(const SettingInfo &setting);
QString labelOf(const Choice &choice);
QString unitOf(const SettingInfo &setting);
/// A word that the table has as well: "Processor".
QString wordOf(const std::string &word);
/// What lists of several kinds say: "Severity", "error".
QString listWord(const char *text);
/// A reason, or what a change was for; in English where it is no whole sentence
/// of a table.
QString reasonOf(const std::string &reason);

/// "Cable: Frequency"; the name itself for what is no setting.
QString nameOf(const std::string &setting);
/// The value for people; a dash for none.
QString valueOf(const std::string &setting, const Value &value);
/// "file, column 28" of "file:28".
QString originOf(const std::string &origin);
/// The setting that stands in the form for this one: of a device's field, the
/// chain.
std::string rowOf(const std::string &setting);

} // namespace ZelDebugDialog::dialog

#endif
