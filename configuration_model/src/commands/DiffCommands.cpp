#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "commands/TracedCommand.h"
#include "commands/WhyRefused.h"
#include "text/Printable.h"

namespace ZelDebugDialog {

namespace {

constexpr const char *frequencyField = "cable.frequency";
constexpr const char *portField = "cable.port";

/// What one command is read as.
struct Side {
  std::string text;
  model::Snapshot snapshot;
  CommandTrace trace;

  bool hasWordFor(const std::string &field) const {
    return std::any_of(trace.words.begin(), trace.words.end(),
                       [&field](const CommandWord &word) {
                         return std::find(word.fields.begin(),
                                          word.fields.end(),
                                          field) != word.fields.end();
                       });
  }
  /// Whether a port was named in front of the type that brings another.
  bool losesPort() const {
    bool isNamed = false;
    for (const CommandWord &word : trace.words) {
      const auto sets = [&word](const char *field) {
        return std::find(word.fields.begin(), word.fields.end(), field) !=
               word.fields.end();
      };
      if (!sets(portField))
        continue;
      if (sets("cable.cableType") && isNamed)
        return true;
      isNamed = !sets("cable.cableType");
    }
    return false;
  }
};

/// What it is refused for goes to `refusals`, a line each.
Side readSide(const std::string &text, std::string &refusals) {
  Side side{text, {}, {}};
  model::Desk desk;
  const model::Reading reading = desk.readCommand(text);
  side.snapshot = desk.snapshot();
  desk.traceCommand(text, AfterFault::stop, side.trace);
  if (!reading.accepted())
    refusals += fmt::format(
        "{}'{}' is refused: {}", refusals.empty() ? "" : "\n",
        model::printable(text), model::whyRefused(desk, reading, text));
  return side;
}

/// Where the words are the same, and only their order makes a difference.
std::string reasonFor(const std::string &field, const Side &first,
                      const Side &second) {
  if (field == frequencyField && !first.hasWordFor(field) &&
      !second.hasWordFor(field) &&
      first.snapshot.cable.cableType == second.snapshot.cable.cableType)
    return "the cable's default is taken only where the cable clause ends the "
           "command";
  if (field == portField && first.losesPort() != second.losesPort())
    return "the type of a cable brings its port, and displaces one that stands "
           "in front of it";
  return {};
}

} // namespace

std::vector<CommandDifference> DiffCommands(const std::string &first,
                                            const std::string &second) {
  std::string refusals;
  const Side left = readSide(first, refusals);
  const Side right = readSide(second, refusals);
  if (!refusals.empty())
    throw Refusal(RefusalKind::badCommand, "", refusals);
  std::vector<CommandDifference> differences;
  for (const model::FieldDifference &field :
       model::fieldsThatDiffer(left.snapshot, right.snapshot))
    differences.push_back({field.name, field.before, field.after,
                           reasonFor(field.name, left, right)});
  return differences;
}

} // namespace ZelDebugDialog
