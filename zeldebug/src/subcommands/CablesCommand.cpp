// cables: what is known about every JTAG cable.
#include <fmt/format.h>

#include "CableKeyword.h"
#include "line/CommandLine.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CommandCable;

std::string dashIfEmpty(const std::string &text) {
  return text.empty() ? "-" : text;
}

template <class List> std::string joined(const List &list) {
  return dashIfEmpty(fmt::format("{}", fmt::join(list, " ")));
}

bool isWritable(const CommandCable &cable) { return !cable.written.empty(); }

Json cableJson(const CommandCable &cable) {
  return {{"type", static_cast<std::uint32_t>(cable.type)},
          {"keywords", cable.keywords},
          {"written", isWritable(cable) ? Json(cable.written) : Json()},
          {"writable", isWritable(cable)},
          {"frequencies", cable.acceptedFrequencies},
          {"offeredFrequencies", cable.offeredFrequencies},
          {"defaultFrequency", cable.defaultFrequency},
          {"defaultPort", cable.defaultPort}};
}

ExitStatus run(Output &output) {
  if (output.json()) {
    Json list = Json::array();
    for (const CommandCable &cable : cables())
      list.push_back(cableJson(cable));
    output.document({{"cables", list}});
    return ExitStatus::done;
  }
  Table table({"TYPE", "KEYWORD READ", "TEXT WRITTEN", "WRITABLE", "DEFAULT HZ",
               "DEFAULT PORT", "FREQUENCIES IN HZ"});
  for (const CommandCable &cable : cables())
    table.addRow({fmt::format("{}", static_cast<std::uint32_t>(cable.type)),
                  joined(cable.keywords), dashIfEmpty(cable.written),
                  isWritable(cable) ? "yes" : "no",
                  fmt::format("{}", cable.defaultFrequency),
                  dashIfEmpty(cable.defaultPort),
                  joined(cable.acceptedFrequencies)});
  table.print(output);
  return ExitStatus::done;
}

} // namespace

void addCablesCommand(CommandLine &line) {
  line.addSubcommand(
      "cables",
      "List the JTAG cables with their keywords, frequencies and "
      "defaults",
      "zeldebug cables", run);
}

} // namespace zeldebug
