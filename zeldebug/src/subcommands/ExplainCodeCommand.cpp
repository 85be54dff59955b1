// explain-code: what the codes of `check` mean.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "DiagnosticCode.h"
#include "line/CommandLine.h"
#include "line/TextOption.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

std::vector<std::string> knownCodes() {
  std::vector<std::string> codes;
  for (const DiagnosticCode &row : diagnosticCodes())
    codes.emplace_back(row.code);
  return codes;
}

std::vector<const DiagnosticCode *>
expectCodes(const std::optional<std::string> &code) {
  std::vector<const DiagnosticCode *> rows;
  for (const DiagnosticCode &row : diagnosticCodes())
    if (!code || *code == row.code)
      rows.push_back(&row);
  if (rows.empty())
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("explain-code: '{}' is unknown; there are {}{}",
                              printable(*code), quotedList(knownCodes()),
                              didYouMean(*code, knownCodes())));
  return rows;
}

Json codeJson(const DiagnosticCode &row) {
  const std::string where = row.where;
  return {{"code", row.code},
          {"severity", shownSeverity(row.severity)},
          {"meaning", row.meaning},
          {"example", row.example},
          {"where", where.empty() ? Json() : Json(where)},
          {"advice", row.advice}};
}

ExitStatus run(const std::optional<std::string> &code, Output &output) {
  const std::vector<const DiagnosticCode *> rows = expectCodes(code);
  if (output.json()) {
    Json list = Json::array();
    for (const DiagnosticCode *row : rows)
      list.push_back(codeJson(*row));
    output.document({{"codes", list}});
    return ExitStatus::done;
  }
  if (!code) {
    Table table({"CODE", "SEVERITY", "MEANING"});
    for (const DiagnosticCode *row : rows)
      table.addRow({row->code, shownSeverity(row->severity), row->meaning});
    table.print(output);
    return ExitStatus::done;
  }
  const DiagnosticCode &row = *rows.front();
  output.printLine(fmt::format("{} ({})\n\n{}", row.code,
                               shownSeverity(row.severity), row.meaning));
  const std::string where = row.where;
  output.printLine(fmt::format(
      "\nExample{}:\n  {}", where.empty() ? where : ", " + where, row.example));
  output.printLine(fmt::format("\nWhat to do: {}", row.advice));
  return ExitStatus::done;
}

} // namespace

void addExplainCodeCommand(CommandLine &line) {
  const auto code = std::make_shared<std::optional<std::string>>();
  CLI::App &app = line.addSubcommand(
      "explain-code", "Explain a code of 'check', or list them all",
      "zeldebug explain-code refused-value",
      [code](Output &output) { return run(*code, output); });
  line.completeWith(
      addTextOption(app, "CODE", *code, "a code, as 'check' prints it")
          ->type_name(""),
      ValueKind::diagnosticCode);
}

} // namespace zeldebug
