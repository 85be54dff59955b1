// explain-code: what the words in brackets mean.
#include <memory>
#include <optional>

#include <ZelDebugDialog/ConfigurationModel/Codes.h>
#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Code;
using ZelDebugDialog::GetCodes;
using ZelDebugDialog::ShowSeverity;

std::vector<std::string> knownCodes() {
  std::vector<std::string> codes;
  for (const Code &row : GetCodes())
    codes.emplace_back(row.code);
  return codes;
}

std::vector<const Code *> expectCodes(const std::optional<std::string> &code) {
  std::vector<const Code *> rows;
  for (const Code &row : GetCodes())
    if (!code || *code == row.code)
      rows.push_back(&row);
  if (rows.empty())
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("explain-code: '{}' is unknown; there are {}{}",
                              printable(*code), quotedList(knownCodes()),
                              didYouMean(*code, knownCodes())),
                  {"bad-value", "CODE", *code, knownCodes(),
                   nearestMatch(*code, knownCodes())});
  return rows;
}

Json codeJson(const Code &row) {
  return {{"code", row.code},
          {"severity", ShowSeverity(row.severity)},
          {"meaning", row.meaning},
          {"example", row.example.empty() ? Json() : Json(row.example)},
          {"where", row.where.empty() ? Json() : Json(row.where)},
          {"advice", row.advice}};
}

ExitStatus run(const std::optional<std::string> &code, Output &output) {
  const std::vector<const Code *> rows = expectCodes(code);
  if (output.json()) {
    Json list = Json::array();
    for (const Code *row : rows)
      list.push_back(codeJson(*row));
    output.document({{"codes", list}});
    return ExitStatus::done;
  }
  if (!code) {
    Table table({"CODE", "SEVERITY", "MEANING"});
    for (const Code *row : rows)
      table.addRow({row->code, ShowSeverity(row->severity), row->meaning});
    table.print(output);
    return ExitStatus::done;
  }
  const Code &row = *rows.front();
  output.printLine(
      fmt::format("{} ({})\n", row.code, ShowSeverity(row.severity)));
  output.printSentence(row.meaning);
  const std::string where = row.where.empty() ? "" : ", " + row.where;
  if (!row.example.empty())
    output.printLine(fmt::format("\nExample{}:\n  {}", where, row.example));
  output.printLine("");
  output.printSentence("What to do: " + row.advice);
  return ExitStatus::done;
}

} // namespace

void addExplainCodeCommand(CommandLine &line) {
  const auto code = std::make_shared<std::optional<std::string>>();
  Options app = line.addSubcommand(
      "explain-code", "Explain a code in brackets, or list them all",
      "zeldebug explain-code refused-value",
      [code](Output &output) { return run(*code, output); });
  app.addArgument("CODE", *code, "a code, as it stands in brackets",
                  ValueKind::diagnosticCode);
}

} // namespace zeldebug
