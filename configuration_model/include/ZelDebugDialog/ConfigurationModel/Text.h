// Texts for people: bytes from anywhere made fit to be shown, and the nearest
// of several words.
//
// Functions without a state; usable from any thread.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// `text` with every byte that is no part of a printable character of UTF-8
/// written as \xNN: neither a terminal nor a table is upset by it.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
ShowBytes(std::string_view text);

/// The candidate with the fewest edits (letters put in, left out, replaced or
/// swapped, case not counted), the first of several.
/// @return empty if none is near enough: at most one edit for each three
/// letters of
///   `word`, and one for shorter words
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API std::string
FindNearest(std::string_view word, const std::vector<std::string> &candidates);

} // namespace ZelDebugDialog

#endif
