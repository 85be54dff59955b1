#include "subcommands/ListAdvice.h"

#include <fmt/format.h>

#include "output/Json.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;

/// Whether a debug module would help.
bool lacksModule(const DesignModel &design, const ProcessorList &list) {
  return design.DebugModules().empty() &&
         (!list.undebuggable().empty() || list.isEmpty());
}

} // namespace

std::vector<Advice> adviceFor(const DesignOptions &options,
                              const DesignModel &design,
                              const ProcessorList &list) {
  std::vector<Advice> advice;
  if (!design.Missing().empty()) {
    const MissingAdvice missing = options.adviseOnMissing(design, "list");
    advice.push_back({missing.command.empty() ? "not-found" : "library",
                      missing.message, missing.command});
    // With what is missing there may be more to be said, or less.
    if (!missing.command.empty())
      return advice;
  }
  if (lacksModule(design, list))
    advice.push_back(
        {"kinds",
         list.names().empty()
             ? "No component of the design is known as a processor. 'kinds' "
               "shows what could play one, and what could be its debug module."
             : "No debug module of the design is known. 'kinds' shows what "
               "could play one.",
         options.commandLine("kinds")});
  return advice;
}

Json adviceJson(const DesignModel &design, const std::vector<Advice> &advice) {
  Json members{{"missing", Json::array()}, {"advice", Json::array()}};
  for (const auto &document : design.Missing())
    members["missing"].push_back(
        {{"type", document.type}, {"identity", document.identity}});
  for (const Advice &each : advice)
    members["advice"].push_back({{"code", each.code},
                                 {"message", each.message},
                                 {"command", each.command}});
  return members;
}

void printAdvice(const std::vector<Advice> &advice, Output &output) {
  for (const Advice &each : advice) {
    output.print("\n");
    output.printSentence(printable(each.message));
    if (!each.command.empty())
      output.printLine("  " + printable(shellLine(each.command)));
  }
}

} // namespace zeldebug
