// explain-code: what the words in brackets mean.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/AllCodes.h"
#include "output/Json.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

std::vector<const CodeRow *>
expectCodes(const std::optional<std::string> &code) {
  std::vector<const CodeRow *> rows;
  for (const CodeRow &row : allCodes())
    if (!code || *code == row.code)
      rows.push_back(&row);
  if (rows.empty())
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("explain-code: '{}' is unknown; there are {}{}",
                              printable(*code), quotedList(codeNames()),
                              didYouMean(*code, codeNames())),
                  {"bad-value", "CODE", *code, codeNames(),
                   nearestMatch(*code, codeNames())});
  return rows;
}

/// Each line behind the first as far to the right.
std::string indented(std::string text) {
  for (std::size_t at = text.find('\n'); at != std::string::npos;
       at = text.find('\n', at + 1))
    text.insert(at + 1, "  ");
  return text;
}

Json codeJson(const CodeRow &row) {
  return {{"code", row.code},           {"severity", row.severity},
          {"meaning", row.meaning},     {"example", orNull(row.example)},
          {"where", orNull(row.where)}, {"advice", row.advice}};
}

ExitStatus explainCode(const std::optional<std::string> &code, Output &output) {
  const std::vector<const CodeRow *> rows = expectCodes(code);
  if (output.json()) {
    Json list = Json::array();
    for (const CodeRow *row : rows)
      list.push_back(codeJson(*row));
    output.document({{"codes", list}});
    return ExitStatus::done;
  }
  if (!code) {
    Table table({"CODE", "SEVERITY", "MEANING"});
    for (const CodeRow *row : rows)
      table.addRow({row->code, row->severity, row->meaning});
    table.print(output);
    return ExitStatus::done;
  }
  const CodeRow &row = *rows.front();
  output.printLine(fmt::format("{} ({})\n", row.code, row.severity));
  output.printSentence(row.meaning);
  const std::string where = row.where.empty() ? "" : ", " + row.where;
  if (!row.example.empty())
    output.printLine(
        fmt::format("\nExample{}:\n  {}", where, indented(row.example)));
  output.printLine("");
  output.printSentence("What to do: " + row.advice);
  return ExitStatus::done;
}

CommandLine::Runner explainCodeOptions(Options &app) {
  const auto code = std::make_shared<std::optional<std::string>>();
  app.addArgument("CODE", *code, "a code, as it stands in brackets",
                  ValueKind::diagnosticCode);
  return [code](Output &output) { return explainCode(*code, output); };
}

} // namespace

void addExplainCodeCommand(CommandLine &line) {
  line.addSubcommand("explain-code",
                     "Explain a code in brackets, or list them all",
                     "zeldebug explain-code refused-value", explainCodeOptions);
}

} // namespace zeldebug
