// explain: what every word of a command is, and what it changes.
#include <memory>

#include <fmt/format.h>

#include "Refusal.h"
#include "TracedCommand.h"
#include "line/CommandLine.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AfterFault;
using ZelDebugDialog::CommandWord;

Json wordJson(const TracedCommand &command, std::size_t index) {
  const CommandWord &word = command.trace().words[index];
  const std::vector<Setting> changes = command.changesOf(index);
  Json list = Json::array();
  for (const Setting &setting : changes)
    list.push_back({{"name", setting.name}, {"value", setting.value}});
  const bool isPlain = changes.empty();
  return {{"offset", word.offset},
          {"length", word.length},
          {"text", command.wordText(index)},
          {"role", shownRole(word.role)},
          {"field", isPlain ? Json() : Json(changes.front().name)},
          {"value", isPlain ? Json() : changes.front().value},
          {"changes", list}};
}

void printWords(const TracedCommand &command, Output &output) {
  Table table({"COLUMN", "WORD", "ROLE", "CHANGES"});
  for (std::size_t i = 0; i < command.trace().words.size(); ++i) {
    const CommandWord &word = command.trace().words[i];
    std::vector<std::string> changes;
    for (const Setting &setting : command.changesOf(i))
      changes.push_back(setting.name + " = " +
                        shownSide(setting.value, setting.kind));
    table.addRow({fmt::format("{}", word.offset + 1), command.wordText(i),
                  shownRole(word.role),
                  fmt::format("{}", fmt::join(changes, ", "))});
  }
  table.print(output);
}

ExitStatus run(const std::string &text, Output &output) {
  const TracedCommand command(text, AfterFault::stop);
  const Reading &reading = command.reading();
  if (output.json()) {
    Json list = Json::array();
    for (std::size_t i = 0; i < command.trace().words.size(); ++i)
      list.push_back(wordJson(command, i));
    output.document({{"text", text},
                     {"result", reading.result},
                     {"error", reading.message},
                     {"words", list}});
  } else {
    printWords(command, output);
  }
  if (reading.accepted())
    return ExitStatus::done;
  output.error(
      fmt::format("the command is refused: {} ('zeldebug check' tells more)",
                  refusalOf(reading, text)));
  return ExitStatus::refused;
}

} // namespace

void addExplainCommand(CommandLine &line) {
  const auto text = std::make_shared<std::string>();
  CLI::App &app = line.addSubcommand(
      "explain", "Explain every word of a connect command",
      "zeldebug explain 'connect lc hdu -debugdevice devicenr 1'",
      [text](Output &output) { return run(*text, output); });
  app.add_option("COMMAND", *text, "a connect command, in quotes")
      ->type_name("")
      ->required();
}

} // namespace zeldebug
