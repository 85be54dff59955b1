// What is said where a file is no TOML.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_SYNTAXFAULT_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_SYNTAXFAULT_H

#include <string>

#include "reading/Faults.h"
#include "toml/Document.h"

namespace ZelDebugDialog::project {

/// A text that lacks its quotes is told at its first byte, with the quotes.
void addSyntaxFault(const std::string &text, const TomlError &error,
                    Faults &faults);

} // namespace ZelDebugDialog::project

#endif
