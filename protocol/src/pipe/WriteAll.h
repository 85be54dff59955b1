// Writing to a descriptor that somebody else has set up.
#ifndef ZELDEBUGDIALOG_PROTOCOL_PIPE_WRITEALL_H
#define ZELDEBUGDIALOG_PROTOCOL_PIPE_WRITEALL_H

#include <string_view>

namespace ZelDebugDialog::protocol {

/// Waits for room also where the descriptor itself does not wait: whether it
/// does is a property of the open file, which is shared with other programs.
/// @return 0, or the error number; then a part may have been written
int writeAll(int descriptor, std::string_view text);

} // namespace ZelDebugDialog::protocol

#endif
