// Why a request is not done, as its answer says it.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_FAULT_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_FAULT_H

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>

#include "documents/Json.h"

namespace ZelDebugDialog::protocol {

using documents::Json;

/// Those of JSON-RPC 2.0, that of a cancelled request, and ours.
enum class FaultCode {
  noJson = -32700,
  noRequest = -32600,
  unknownMethod = -32601,
  badParameters = -32602,
  internal = -32603,
  cancelled = -32800,
  refused = 1, ///< by the model: what was asked for is understood
};

/// What a fault is about, as far as it applies.
struct FaultDetails {
  std::string setting = {};
  std::string value = {}; ///< what was given
  std::vector<std::string> accepted = {};
  std::string suggestion = {}; ///< the nearest of them
  std::string file = {};
  int line = 0; ///< in the file, from 1
  std::string parameter = {};
};

class Fault : public std::runtime_error {
public:
  /// Of any code but `refused`, which says what kind of thing it is.
  Fault(FaultCode faultCode, const std::string &message,
        const FaultDetails &details = {});
  /// `refused`, for what the model would refuse.
  Fault(RefusalKind kind, const std::string &message,
        const FaultDetails &details = {});
  /// @param more  members of its data beside those of the refusal
  explicit Fault(const Refusal &refusal, const Json &more = Json::object());

  /// {"code", "message", "data"}
  Json json() const;

private:
  FaultCode code;
  Json data;
};

/// A text of a request as messages quote it: as much of it as can be read.
std::string quote(const std::string &text);

} // namespace ZelDebugDialog::protocol

#endif
