// Texts for people: made fit to be shown or to be typed into a shell, and the
// nearest match of a word that was mistyped.
//
// Functions without a state; usable from any thread.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// `text` with every control character and every byte that belongs to no UTF-8
/// written as `\xNN`: fit for a terminal and for a table.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShowText(std::string_view text);

/// The same on one line: blanks, tabs and newlines become one blank inside the
/// text and nothing around it. For the messages of the engine, which end lines.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShowOnOneLine(std::string_view text);

/// `word` as it is typed on a command line: a POSIX shell makes the same word
/// of it again. One of letters, digits and `-_./:=+,%@` stays as it is; any
/// other, and an empty one, stands in single quotes.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShellWord(const std::string &word);

/// The candidate with the fewest edits (letters put in, left out, replaced or
/// swapped, case not counted), the first of several; empty if none is near
/// enough: at most one edit for each three letters of `word`.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
FindNearest(std::string_view word, const std::vector<std::string> &candidates);

} // namespace ZelDebugDialog

#endif
