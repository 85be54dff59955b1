// Names in messages.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_QUOTE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_QUOTE_H

#include <string>
#include <string_view>

namespace ZelDebugDialog {

/// The text in quotation marks, and cut when it is so long that the message
/// would no longer be one for people. What is no printable UTF-8 is written as
/// \xNN: a message is one line, and does nothing to a terminal.
std::string quote(std::string_view text);

} // namespace ZelDebugDialog

#endif
