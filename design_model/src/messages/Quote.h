// Names in messages.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_QUOTE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_QUOTE_H

#include <string>
#include <string_view>

namespace ZelDebugDialog {

/// The text in quotation marks, on one line, and cut when it is so long that
/// the message would no longer be one for people.
std::string quote(std::string_view text);

} // namespace ZelDebugDialog

#endif
