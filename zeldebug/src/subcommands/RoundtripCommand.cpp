// roundtrip: what becomes of commands that are read, written and read again.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Loss.h"
#include "Refusal.h"
#include "Session.h"
#include "line/CommandLine.h"
#include "line/CommandLines.h"
#include "line/TextOption.h"
#include "output/Table.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

/// What became of one command.
struct Trip {
  std::string text;
  std::string outcome; ///< "same", "changed", "refused"
  std::string written; ///< empty when nothing could be written
  std::string message; ///< for "refused"
  std::vector<Difference> fields;
  std::vector<Loss> losses;
};

Trip travel(const std::string &text) {
  Trip trip{text, "refused", "", "", {}, {}};
  Session session(nullptr);
  const Reading first = session.readCommand(text);
  if (!first.accepted()) {
    trip.message = "reading: " + refusalOf(first, text);
    return trip;
  }
  Configuration before = configurationOf(*session.state);
  if (session.engine.GenerateCmdString(trip.written) != 0) {
    trip.message = "writing: " + reasonOf({1, session.message()});
    return trip;
  }
  before.record.connectCommand = trip.written;
  const Reading second = session.readCommand(trip.written);
  const Configuration after = configurationOf(*session.state);
  trip.losses = lossesOf(before, trip.written,
                         {second.accepted(), reasonOf(second), after}, false);
  if (!second.accepted()) {
    trip.message = "reading again: " + refusalOf(second, trip.written);
    return trip;
  }
  trip.fields = differencesBetween(before, after);
  trip.outcome = trip.fields.empty() ? "same" : "changed";
  return trip;
}

void print(Output &output, const Trip &trip) {
  output.printLine(fmt::format("{:<8} {}", trip.outcome, printable(trip.text)));
  if (!trip.message.empty())
    output.printLine(fmt::format("         {}", printable(trip.message)));
  for (const Loss &loss : trip.losses)
    output.printLine(fmt::format("         {}", printable(shownLoss(loss))));
}

Json tripJson(const Trip &trip) {
  return {{"text", trip.text},
          {"outcome", trip.outcome},
          {"written", trip.written.empty() ? Json() : Json(trip.written)},
          {"message", trip.message.empty() ? Json() : Json(trip.message)},
          {"fields", toJson(trip.fields)},
          {"lost", toJson(trip.losses)}};
}

ExitStatus run(const std::optional<std::string> &file, Output &output) {
  std::size_t same = 0;
  std::size_t changed = 0;
  std::size_t total = 0;
  Json list = Json::array();
  for (const CommandLineOfFile &line : expectCommandLines(file.value_or("-"))) {
    const Trip trip = travel(line.text);
    ++total;
    same += trip.outcome == "same" ? 1 : 0;
    changed += trip.outcome == "changed" ? 1 : 0;
    if (output.json())
      list.push_back(tripJson(trip));
    else
      print(output, trip);
  }
  const std::size_t refused = total - same - changed;
  if (output.json())
    output.document({{"lines", list},
                     {"total", total},
                     {"same", same},
                     {"changed", changed},
                     {"refused", refused}});
  else
    output.printLine(fmt::format("{}: {} same, {} changed, {} refused",
                                 counted(total, "command"), same, changed,
                                 refused));
  return same == total ? ExitStatus::done : ExitStatus::refused;
}

} // namespace

void addRoundtripCommand(CommandLine &line) {
  const auto file = std::make_shared<std::optional<std::string>>();
  CLI::App &app = line.addSubcommand(
      "roundtrip", "Read, write and read again each command of a file",
      "zeldebug roundtrip commands.txt",
      [file](Output &output) { return run(*file, output); });
  line.completeWith(addTextOption(app, "FILE", *file,
                                  "a connect command a line; standard input "
                                  "without it, or for '-'")
                        ->type_name(""),
                    ValueKind::file);
}

} // namespace zeldebug
