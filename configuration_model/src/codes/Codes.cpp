#include "ZelDebugDialog/ConfigurationModel/Codes.h"

#include <array>
#include <iterator>
#include <stdexcept>
#include <string>

#include "codes/CodeRows.h"
#include "codes/RowOf.h"

namespace ZelDebugDialog {

namespace {

struct FaultCode {
  CommandFaultKind kind;
  std::string_view code;
};

// clang-format off
constexpr std::array<FaultCode, 16> faultCodes{{
    {CommandFaultKind::missingHead, "missing-head"},
    {CommandFaultKind::unknownHead, "unknown-head"},
    {CommandFaultKind::missingTarget, "missing-target"},
    {CommandFaultKind::unknownTarget, "unknown-target"},
    {CommandFaultKind::missingConnection, "missing-connection"},
    {CommandFaultKind::unknownConnection, "unknown-connection"},
    {CommandFaultKind::connectionNotAllowed, "connection-not-allowed"},
    {CommandFaultKind::unknownOption, "unknown-option"},
    {CommandFaultKind::notAnOption, "not-an-option"},
    {CommandFaultKind::unknownParameter, "unknown-parameter"},
    {CommandFaultKind::missingValue, "missing-value"},
    {CommandFaultKind::refusedValue, "refused-value"},
    {CommandFaultKind::missingSvfFile, "missing-svf-file"},
    {CommandFaultKind::missingModule, "missing-module"},
    {CommandFaultKind::refusedFrequency, "refused-frequency"},
    {CommandFaultKind::loneDash, "lone-dash"},
}};
// clang-format on
static_assert(model::isInOrder(faultCodes, &FaultCode::kind));

} // namespace

const char *ShowSeverity(CodeSeverity severity) {
  switch (severity) {
  case CodeSeverity::error:
    return "error";
  case CodeSeverity::warning:
    return "warning";
  case CodeSeverity::loss:
    return "loss";
  }
  return "";
}

const std::vector<Code> &GetCodes() {
  static const std::vector<Code> codes = [] {
    std::vector<Code> rows = model::makeDiagnosticCodes();
    std::vector<Code> losses = model::makeLossCodes();
    rows.insert(rows.end(), std::make_move_iterator(losses.begin()),
                std::make_move_iterator(losses.end()));
    return rows;
  }();
  return codes;
}

const Code *FindCode(std::string_view code) {
  for (const Code &row : GetCodes())
    if (row.code == code)
      return &row;
  return nullptr;
}

namespace model {

const Code &expectCode(std::string_view code) {
  const Code *row = FindCode(code);
  if (row == nullptr)
    throw std::logic_error("no such code: " + std::string(code));
  return *row;
}

std::string Why::text() const {
  return words == nullptr ? expectCode(code).summary : words;
}

const Code &codeOf(CommandFaultKind kind) {
  return expectCode(rowOf(faultCodes, kind)->code);
}

} // namespace model

} // namespace ZelDebugDialog
