// Texts whose bytes are no UTF-8, for which JSON has no place.
#ifndef ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_BYTES_H
#define ZELDEBUGDIALOG_PROTOCOL_DOCUMENTS_BYTES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ZelDebugDialog::documents {

bool isUtf8(std::string_view text);

/// Where a byte of `text` stands once U+FFFD, of three bytes, is shown for what
/// is no UTF-8.
/// @param offset  where a character begins, or the end
std::size_t shownOffset(std::string_view text, std::size_t offset);

/// Base64 with its padding.
std::string encodeBytes(std::string_view bytes);
/// Nothing for what is no such text, to the last bit.
std::optional<std::string> decodeBytes(std::string_view text);

} // namespace ZelDebugDialog::documents

#endif
