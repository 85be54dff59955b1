// Edits of a TOML text that leave everything else byte for byte: comments,
// order, blank lines, line ends.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EDITING_EDITTEXT_H
#define ZELDEBUGDIALOG_PROJECTFILE_EDITING_EDITTEXT_H

#include <functional>
#include <string>

#include "toml/Statements.h"

namespace ZelDebugDialog::project {

/// The line end of a text: that of its first line.
std::string lineEndOf(const std::string &text);

/// What is written for a value: of the bytes that are there, or of none.
using Write = std::function<std::string(const std::string &before)>;

/// Gives a key a value. What is there is replaced; else a line comes to the end
/// of its table's own lines, and a missing table to the end of the text.
/// @param text   valid TOML
/// @param path   of the key, that of its table included
/// @param table  how many parts of it are the table's
/// @throws std::logic_error if the result would not say what is meant
std::string withKey(const std::string &text, const Path &path,
                    std::size_t table, const Write &write);

/// Takes a key away, with its line. What is not there makes no difference.
/// @throws std::logic_error if the result would not say what is meant
std::string withoutKey(const std::string &text, const Path &path);

/// The value of a key; null for none.
const TomlNode *findNode(const TomlNode &root, const Path &path);

} // namespace ZelDebugDialog::project

#endif
