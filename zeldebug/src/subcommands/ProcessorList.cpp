#include "subcommands/ProcessorList.h"

#include <fmt/format.h>

#include "output/Json.h"
#include "output/Table.h"

namespace zeldebug {

using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::DesignModel;

// The folder of the option files does not matter: none is looked at.
ProcessorList::ProcessorList(DesignModel &design)
    : board(design, "etc"),
      others(ZelDebugDialog::documents::findUndebuggable(board, design)) {}

Json ProcessorList::json() const {
  using ZelDebugDialog::documents::toJson;
  return {{"names", board.Names()},
          {"processors", toJson(board.Processors())},
          {"undebuggable", toJson(others)}};
}

void ProcessorList::print(Output &output) const {
  Table table({"PROCESSOR", "TYPE", "NUMBER", "FPU", "CONNECTIONS"});
  for (const BoardProcessor &processor : board.Processors())
    table.addRow({processor.name, processor.type,
                  fmt::format("{}", processor.number), processor.fpuText,
                  fmt::format("{}", fmt::join(processor.connections, " "))});
  if (table.empty())
    output.printSentence("No processor of this design can be debugged.");
  else
    table.print(output);
  for (const Undebuggable &other : others) {
    output.printSentence(fmt::format(
        "\n'{}' ({}) cannot be debugged: {}.", printable(other.name),
        printable(other.type), printable(other.reason)));
    if (!other.wiredTo.empty())
      output.printSentence(printable(
          fmt::format("It is wired by {}.", fmt::join(other.wiredTo, ", "))));
  }
}

} // namespace zeldebug
