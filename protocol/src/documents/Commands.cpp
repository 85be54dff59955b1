#include "documents/Commands.h"

#include "documents/Json.h"
#include "documents/Values.h"

namespace ZelDebugDialog::documents {

namespace {

Json wordJson(const ExplainedWord &word) {
  Json list = Json::array();
  for (const WordChange &change : word.changes)
    list.push_back({{"name", change.setting},
                    {"before", fieldJson(change.setting, change.before)},
                    {"value", fieldJson(change.setting, change.after)}});
  const bool isPlain = list.empty();
  return {{"offset", word.offset},
          {"length", word.length},
          {"text", word.text},
          {"role", word.role},
          {"field", isPlain ? Json() : list[0]["name"]},
          {"value", isPlain ? Json() : list[0]["value"]},
          {"changes", list}};
}

} // namespace

Json diagnosticJson(const CommandDiagnostic &diagnostic) {
  const bool isSilent = diagnostic.engineMessage.empty();
  return {{"offset", diagnostic.offset},
          {"length", diagnostic.length},
          {"severity", ShowSeverity(diagnostic.severity)},
          {"code", diagnostic.code},
          {"message", isSilent ? diagnostic.message : diagnostic.engineMessage},
          {"summary", diagnostic.message},
          {"accepted", diagnostic.accepted},
          {"suggestion", diagnostic.suggestion.empty()
                             ? Json()
                             : Json(diagnostic.suggestion)}};
}

Json checkedJson(const CheckedCommand &checked, int line) {
  Json list = Json::array();
  for (const CommandDiagnostic &diagnostic : checked.diagnostics)
    list.push_back(diagnosticJson(diagnostic));
  return {{"text", checked.text},
          {"line", line == 0 ? Json() : Json(line)},
          {"result", checked.result},
          {"error", checked.error},
          {"diagnostics", list}};
}

Json explainedJson(const ExplainedCommand &command) {
  Json list = Json::array();
  for (const ExplainedWord &word : command.words)
    list.push_back(wordJson(word));
  return {{"text", command.text},
          {"result", command.result},
          {"error", command.error},
          {"words", list}};
}

Json differencesJson(const std::vector<CommandDifference> &differences) {
  Json list = Json::array();
  for (const CommandDifference &one : differences)
    list.push_back(
        {{"name", one.setting},
         {"before", fieldJson(one.setting, one.first)},
         {"after", fieldJson(one.setting, one.second)},
         {"reason", one.reason.empty() ? Json() : Json(one.reason)}});
  return {{"equal", differences.empty()}, {"differences", list}};
}

} // namespace ZelDebugDialog::documents
