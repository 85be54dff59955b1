// One request of JSON-RPC 2.0, read from its text.
//
//   {"jsonrpc": "2.0", "id": ID, "method": TEXT, "params": {NAME: VALUE, ...}}
//
// ID is a text, a number or null; without one it is a notification, which gets
// no answer. "params" may be left out. Other members are passed over.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_REQUEST_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_REQUEST_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "server/Fault.h"

namespace ZelDebugDialog::protocol {

/// What others send: finding a member stays fast however many there are.
using Given = nlohmann::json;

/// Longer texts, and those with more brackets open at once, are not read.
constexpr std::size_t longestRequest = 64UL * 1024 * 1024;
constexpr std::size_t deepestNesting = 100;

/// A name that stands twice in one object of `params`: which of the two is
/// meant cannot be told.
struct Twin {
  std::string parameter; ///< in whose value it is; or its own name
  std::string name;
};

struct Request {
  /// None for a notification.
  std::optional<Given> id;
  std::string method;
  Given params = Given::object(); ///< an object, or an array that none takes
  std::optional<Twin> twin;       ///< what is wrong with `params`, if anything
  /// What is wrong, if anything: the answer then has `id`, or null where it
  /// could not be told.
  std::optional<Fault> fault;
};

Request readRequest(std::string_view text);

} // namespace ZelDebugDialog::protocol

#endif
