// Numbers of requests. JSON has one kind: 3, 3.0 and 3e0 are the same.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_NUMBERS_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_NUMBERS_H

#include <cstdint>
#include <optional>

#include "server/Request.h"

namespace ZelDebugDialog::protocol {

/// Every whole number up to here is one of floating point as well.
constexpr double mostExact = 9007199254740992.0; // 2^53

/// Nothing for what is no number, not whole, or too large to be told from the
/// next one.
std::optional<std::int64_t> wholeNumber(const Given &value);

} // namespace ZelDebugDialog::protocol

#endif
