// explain: what every word of a command is, and what it changes.
#include <memory>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/Table.h"
#include "output/ValueJson.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ExplainedCommand;
using ZelDebugDialog::ExplainedWord;
using ZelDebugDialog::WordChange;

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

void printWords(const ExplainedCommand &command, Output &output) {
  Table table({"COLUMN", "WORD", "ROLE", "CHANGES"});
  for (const ExplainedWord &word : command.words) {
    std::vector<std::string> changes;
    for (const WordChange &change : word.changes)
      changes.push_back(change.setting + " = " +
                        shownField(change.setting, change.after));
    table.addRow({fmt::format("{}", word.offset + 1), word.text, word.role,
                  fmt::format("{}", fmt::join(changes, ", "))});
  }
  table.print(output);
}

ExitStatus run(const std::string &text, Output &output) {
  const ExplainedCommand command = ZelDebugDialog::ExplainCommand(text);
  if (output.json()) {
    Json list = Json::array();
    for (const ExplainedWord &word : command.words)
      list.push_back(wordJson(word));
    output.document({{"text", text},
                     {"result", command.result},
                     {"error", command.error},
                     {"words", list}});
  } else {
    printWords(command, output);
  }
  if (command.accepted)
    return ExitStatus::done;
  const Failure failure(
      ExitStatus::refused,
      fmt::format("the command is refused: {} ('zeldebug check' tells more)",
                  command.refusal),
      {"bad-command", "COMMAND", text});
  output.fail(failure);
  return failure.status();
}

} // namespace

void addExplainCommand(CommandLine &line) {
  const auto text = std::make_shared<std::string>();
  Options app = line.addSubcommand(
      "explain", "Explain every word of a connect command",
      "zeldebug explain 'connect lc hdu -debugdevice devicenr 1'",
      [text](Output &output) { return run(*text, output); });
  app.addRequired("COMMAND", *text, "a connect command, in quotes",
                  ValueKind::text);
}

} // namespace zeldebug
