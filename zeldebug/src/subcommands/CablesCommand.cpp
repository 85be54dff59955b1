// cables: what is known about every JTAG cable.
#include <ZelDebugDialog/ConfigurationModel/Language.h>
#include <fmt/format.h>

#include "line/Options.h"
#include "output/CableText.h"
#include "output/Json.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CableInfo;
using ZelDebugDialog::GetCables;

ExitStatus printCatalogue(Output &output) {
  if (output.json()) {
    Json list = Json::array();
    for (const CableInfo &cable : GetCables())
      list.push_back(cableJson(cable));
    output.document({{"cables", list}});
    return ExitStatus::done;
  }
  Table table(cableHeadings());
  for (const CableInfo &cable : GetCables())
    table.addRow(cableCells(cable));
  table.print(output);
  return ExitStatus::done;
}

CommandLine::Runner cablesOptions(Options &) { return printCatalogue; }

} // namespace

void addCablesCommand(CommandLine &line) {
  line.addSubcommand(
      "cables",
      "List the JTAG cables with their keywords, frequencies and "
      "defaults",
      "zeldebug cables", cablesOptions);
}

} // namespace zeldebug
