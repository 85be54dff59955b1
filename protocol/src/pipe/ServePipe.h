// A server at the end of two pipes: requests come in as frames, answers go out
// as frames, in the order of the requests.
//
// One thread reads, so that a request can be cancelled while others are waiting
// or being done; the calling thread does them. Who sends much faster than it is
// answered waits.
#ifndef ZELDEBUGDIALOG_PROTOCOL_PIPE_SERVEPIPE_H
#define ZELDEBUGDIALOG_PROTOCOL_PIPE_SERVEPIPE_H

#include <functional>
#include <string>

#include "server/Server.h"

namespace ZelDebugDialog::protocol {

/// Told a line of each request that was done; may be empty.
using Log = std::function<void(const std::string &)>;

/// Serves until the input ends, `exit` comes, or nobody reads the answers any
/// more. What came in before is done. SIGPIPE has to be ignored.
/// @return why it ended early; empty for any of these
std::string servePipe(Server &server, int input, int output, const Log &log);

} // namespace ZelDebugDialog::protocol

#endif
