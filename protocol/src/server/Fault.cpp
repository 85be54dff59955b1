#include "server/Fault.h"

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "documents/Json.h"

namespace ZelDebugDialog::protocol {

namespace {

constexpr std::size_t longestQuoted = 200;

/// A stable word for what is wrong, beside those of the model's refusals.
const char *kindOf(FaultCode code) {
  switch (code) {
  case FaultCode::noJson:
    return "no-json";
  case FaultCode::noRequest:
    return "no-request";
  case FaultCode::unknownMethod:
    return "unknown-method";
  case FaultCode::badParameters:
    return "bad-parameters";
  case FaultCode::cancelled:
    return "cancelled";
  case FaultCode::internal:
  case FaultCode::refused:
    break;
  }
  return "internal";
}

Json dataOf(const char *kind, const std::string &message,
            const FaultDetails &details) {
  Json data{{"kind", kind}};
  const auto add = [&data](const char *name, const auto &value) {
    if (!value.empty())
      data[name] = value;
  };
  add("parameter", details.parameter);
  add("setting", details.setting);
  add("value", details.value);
  data["message"] = message;
  add("accepted", details.accepted);
  add("suggestion", details.suggestion);
  add("file", details.file);
  if (details.line > 0)
    data["line"] = details.line;
  return data;
}

} // namespace

Fault::Fault(FaultCode faultCode, const std::string &message,
             const FaultDetails &details)
    : std::runtime_error(message), code(faultCode),
      data(dataOf(kindOf(faultCode), message, details)) {}

Fault::Fault(RefusalKind kind, const std::string &message,
             const FaultDetails &details)
    : std::runtime_error(message), code(FaultCode::refused),
      data(dataOf(ShowKind(kind), message, details)) {}

Fault::Fault(const Refusal &refusal, const Json &more)
    : std::runtime_error(refusal.what()), code(FaultCode::refused),
      data(dataOf(ShowKind(refusal.kind), refusal.problem,
                  {refusal.setting, refusal.value, refusal.accepted,
                   refusal.suggestion, refusal.file, refusal.line})) {
  // An empty value can be what is wrong.
  if (refusal.kind == RefusalKind::badValue)
    data["value"] = refusal.value;
  data.update(more);
}

Json Fault::json() const {
  return {
      {"code", static_cast<int>(code)}, {"message", what()}, {"data", data}};
}

std::string quote(const std::string &text) {
  const bool isLong = text.size() > longestQuoted;
  return "'" + ShowText(text.substr(0, longestQuoted)) +
         (isLong ? "...'" : "'");
}

} // namespace ZelDebugDialog::protocol
