#include "subcommands/ProcessorList.h"

#include <unordered_map>

#include <fmt/format.h>

#include "output/Table.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::DesignModel;

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

constexpr std::size_t mostInterfaces = 8;
constexpr std::size_t mostEnds = 3;

std::vector<std::string> wiresOf(const DesignModel &design,
                                 std::size_t processor) {
  const auto interfacesOf = [&design](std::size_t instance) -> const auto & {
    return design.Component(design.Instances()[instance].component).interfaces;
  };
  std::vector<std::string> wires;
  const auto &interfaces = interfacesOf(processor);
  for (std::size_t at = 0;
       at < interfaces.size() && wires.size() < mostInterfaces; ++at)
    for (const ZelDebugDialog::DesignPort &far :
         design.WiredTo({processor, at}, mostEnds))
      wires.push_back(
          fmt::format("{}: {}.{}", interfaces[at].name,
                      design.Instances()[far.instance].name,
                      interfacesOf(far.instance)[far.interface].name));
  return wires;
}

} // namespace

// The folder of the option files does not matter: none is looked at.
ProcessorList::ProcessorList(DesignModel &design) : board(design, "etc") {
  std::unordered_map<std::string, std::size_t> byName;
  for (std::size_t at = 0; at < design.Instances().size(); ++at)
    byName.emplace(design.Instances()[at].name, at);
  for (const ZelDebugDialog::UndebuggableProcessor &other :
       board.Undebuggable())
    others.push_back({other.name, other.type, other.reason,
                      wiresOf(design, byName.at(other.name))});
}

Json ProcessorList::json() const {
  Json members{{"names", board.Names()},
               {"processors", Json::array()},
               {"undebuggable", Json::array()}};
  for (const BoardProcessor &processor : board.Processors())
    members["processors"].push_back(toJson(processor));
  for (const Undebuggable &other : others)
    members["undebuggable"].push_back({{"instanceName", other.name},
                                       {"type", other.type},
                                       {"reason", other.reason},
                                       {"wiredTo", other.wiredTo}});
  return members;
}

void ProcessorList::print(Output &output) const {
  Table table({"PROCESSOR", "TYPE", "NUMBER", "FPU", "CONNECTIONS"});
  for (const BoardProcessor &processor : board.Processors())
    table.addRow({processor.name, processor.type,
                  fmt::format("{}", processor.number), processor.fpuText,
                  fmt::format("{}", fmt::join(processor.connections, " "))});
  if (table.empty())
    output.printLine("No processor of this design can be debugged.");
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
