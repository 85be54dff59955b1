// list: the processors of a design that can be debugged, and why others cannot.
#include <memory>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Board.h>

#include "line/DesignOptions.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::UndebuggableProcessor;

Json toJson(const BoardProcessor &processor) {
  return {{"instanceName", processor.name},
          {"type", processor.type},
          {"procFamily", processor.family},
          {"procType", processor.procType},
          {"connectionMask", processor.mask},
          {"cpuNr", processor.number},
          {"fpuType", processor.fpu},
          {"connections", processor.connections}};
}

Json toJson(const UndebuggableProcessor &processor) {
  return {{"instanceName", processor.name},
          {"type", processor.type},
          {"reason", processor.reason}};
}

Json documentOf(const Board &board) {
  Json members{{"names", board.Names()},
               {"processors", Json::array()},
               {"undebuggable", Json::array()}};
  for (const BoardProcessor &processor : board.Processors())
    members["processors"].push_back(toJson(processor));
  for (const UndebuggableProcessor &processor : board.Undebuggable())
    members["undebuggable"].push_back(toJson(processor));
  return members;
}

void printTables(const Board &board, Output &output) {
  Table table({"PROCESSOR", "TYPE", "NUMBER", "FPU", "CONNECTIONS"});
  for (const BoardProcessor &processor : board.Processors())
    table.addRow({processor.name, processor.type,
                  fmt::format("{}", processor.number), processor.fpuText,
                  fmt::format("{}", fmt::join(processor.connections, " "))});
  if (table.empty())
    output.printLine("No processor of this design can be debugged.");
  else
    table.print(output);
  for (const UndebuggableProcessor &other : board.Undebuggable())
    output.printSentence(fmt::format(
        "\n'{}' ({}) cannot be debugged: {}.", printable(other.name),
        printable(other.type), printable(other.reason)));
}

ExitStatus run(const DesignOptions &options, Output &output) {
  const auto design = options.read(output);
  const Board board(*design, "etc");
  if (output.json())
    output.document(documentOf(board));
  else
    printTables(board, output);
  return ExitStatus::done;
}

} // namespace

void addListCommand(CommandLine &line) {
  const auto options = std::make_shared<DesignOptions>();
  CLI::App &app = line.addSubcommand(
      "list", "List the processors of a design that can be debugged",
      "zeldebug list board.xml",
      [options](Output &output) { return run(*options, output); });
  options->addTo(line, app);
}

} // namespace zeldebug
