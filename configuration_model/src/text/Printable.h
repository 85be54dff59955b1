// Texts of files and command lines, made fit to be shown.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_PRINTABLE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_PRINTABLE_H

#include <string>
#include <string_view>

namespace ZelDebugDialog::model {

/// `text` with every control character (those of C1 included) and every byte
/// that belongs to no UTF-8 written as \xNN: neither a terminal nor a table is
/// upset by the bytes of a damaged file.
std::string printable(std::string_view text);

/// `text` as UTF-8: in the place of bytes that are none stands U+FFFD, one for
/// as many as begin a character. Everything else is as it was.
std::string wellFormed(std::string_view text);

/// Blanks, tabs and newlines become one blank inside the text and nothing
/// around it.
std::string onOneLine(std::string_view text);

} // namespace ZelDebugDialog::model

#endif
