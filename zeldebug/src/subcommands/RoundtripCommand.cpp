// roundtrip: what becomes of commands that are read, written and read again.
#include <array>
#include <memory>
#include <optional>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/CommandsInFile.h"
#include "line/Options.h"
#include "output/Json.h"
#include "output/Values.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::RoundtripField;
using ZelDebugDialog::RoundtripOutcome;
using ZelDebugDialog::RoundtripResult;
using ZelDebugDialog::ShowOutcome;

/// "debugDevice 3 (comes back as 0): reason [code]"
std::string shownChange(const RoundtripField &field) {
  const std::string reason = fmt::format("{} [{}]", field.reason, field.code);
  if (field.name == "connectCommand")
    return "the command: " + reason;
  const std::string value = shownField(field.name, field.before);
  return field.after.IsNothing()
             ? fmt::format("{} {}: {}", field.name, value, reason)
             : fmt::format("{} {} (comes back as {}): {}", field.name, value,
                           shownField(field.name, field.after), reason);
}

void print(Output &output, const std::string &text,
           const RoundtripResult &trip) {
  output.printLine(
      fmt::format("{:<8} {}", ShowOutcome(trip.outcome), printable(text)));
  if (!trip.message.empty())
    output.printSentence(fmt::format("         {}", printable(trip.message)));
  for (const RoundtripField &field : trip.fields)
    output.printSentence(
        fmt::format("         {}", printable(shownChange(field))));
}

Json fieldsJson(const RoundtripResult &trip) {
  Json list = Json::array();
  if (trip.outcome != RoundtripOutcome::changed)
    return list;
  for (const RoundtripField &field : trip.fields)
    list.push_back({{"name", field.name},
                    {"before", fieldJson(field.name, field.before)},
                    {"after", fieldJson(field.name, field.after)}});
  return list;
}

Json lossesJson(const RoundtripResult &trip) {
  Json list = Json::array();
  for (const RoundtripField &field : trip.fields)
    list.push_back({{"field", field.name},
                    {"value", fieldJson(field.name, field.before)},
                    {"readBack", fieldJson(field.name, field.after)},
                    {"reason", field.reason},
                    {"anchor", field.code}});
  return list;
}

Json tripJson(const CommandInFile &line, const RoundtripResult &trip) {
  return {{"line", line.number},
          {"text", line.text},
          {"outcome", ShowOutcome(trip.outcome)},
          {"written", orNull(trip.written)},
          {"message", orNull(trip.message)},
          {"fields", fieldsJson(trip)},
          {"lost", lossesJson(trip)}};
}

ExitStatus tryRoundtrip(const std::optional<std::string> &file,
                        Output &output) {
  std::array<std::size_t, 3> counts{};
  const auto countOf = [&counts](RoundtripOutcome outcome) -> std::size_t & {
    return counts.at(static_cast<std::size_t>(outcome));
  };
  Json list = Json::array();
  const auto lines = expectCommandsIn(file.value_or("-"));
  for (const CommandInFile &line : lines) {
    const RoundtripResult trip = ZelDebugDialog::RoundtripCommand(line.text);
    ++countOf(trip.outcome);
    if (output.json())
      list.push_back(tripJson(line, trip));
    else
      print(output, line.text, trip);
  }
  const std::size_t same = countOf(RoundtripOutcome::same);
  const std::size_t changed = countOf(RoundtripOutcome::changed);
  const std::size_t refused = countOf(RoundtripOutcome::refused);
  if (output.json())
    output.document({{"lines", list},
                     {"total", lines.size()},
                     {"same", same},
                     {"changed", changed},
                     {"refused", refused}});
  else
    output.printSentence(fmt::format("{}: {} same, {} changed, {} refused",
                                     counted(lines.size(), "command"), same,
                                     changed, refused));
  return same == lines.size() ? ExitStatus::done : ExitStatus::refused;
}

CommandLine::Runner roundtripOptions(Options &app) {
  const auto file = std::make_shared<std::optional<std::string>>();
  app.addArgument("FILE", *file,
                  "a connect command a line; standard input "
                  "without it, or for '-'",
                  ValueKind::file);
  return [file](Output &output) { return tryRoundtrip(*file, output); };
}

} // namespace

void addRoundtripCommand(CommandLine &line) {
  line.addSubcommand("roundtrip",
                     "Read, write and read again each command of a file",
                     "zeldebug roundtrip commands.txt", roundtripOptions);
}

} // namespace zeldebug
