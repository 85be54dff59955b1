// Whether text is UTF-8.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_UTF8_H
#define ZELDEBUGDIALOG_DESIGNMODEL_UTF8_H

#include <cstddef>
#include <string_view>

namespace ZelDebugDialog {

/// The length of the character there, 0 if there is none.
std::size_t characterLength(std::string_view text, std::size_t at);

/// The offset of the first byte that belongs to no character, or `npos`.
std::size_t findNonUtf8(std::string_view text);

} // namespace ZelDebugDialog

#endif
