// check: every fault of a command, with its place and what would be accepted.
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Diagnose.h"
#include "line/CommandLine.h"
#include "line/CommandLines.h"
#include "line/TextOption.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

struct CheckOptions {
  std::vector<std::string> commands;
  std::optional<std::string> file;
};

std::size_t columnsOf(const std::string &text) {
  std::size_t columns = 0;
  for (const char c : printable(text))
    columns += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1U : 0U;
  return columns;
}

/// A longer command is shown around the word: thousands of warnings about one
/// of 100 KB would take gigabytes.
constexpr std::size_t longestShown = 4096;
constexpr std::size_t shownAround = 80;

struct Excerpt {
  std::string before;
  std::string word;
  std::string behind;
};

Excerpt excerptOf(const std::string &text, const Diagnostic &diagnostic) {
  const std::size_t start = diagnostic.offset;
  const std::size_t end = start + diagnostic.length;
  Excerpt shown{text.substr(0, start), text.substr(start, end - start),
                text.substr(end)};
  if (text.size() <= longestShown)
    return shown;
  if (shown.before.size() > shownAround)
    shown.before = "..." + shown.before.substr(start - shownAround);
  if (shown.word.size() > longestShown)
    shown.word = shown.word.substr(0, longestShown) + "...";
  if (shown.behind.size() > shownAround)
    shown.behind = shown.behind.substr(0, shownAround) + "...";
  return shown;
}

/// The command, and carets under the word.
std::string pictureOf(const std::string &text, const Diagnostic &diagnostic) {
  const Excerpt shown = excerptOf(text, diagnostic);
  const std::size_t before = columnsOf(shown.before);
  const std::size_t width = columnsOf(shown.word);
  return "  " + printable(shown.before + shown.word + shown.behind) + "\n  " +
         std::string(before, ' ') + std::string(width == 0 ? 1 : width, '^') +
         "\n";
}

void print(Output &output, const std::string &place, const std::string &text,
           const Diagnostic &diagnostic) {
  output.printLine(fmt::format("{}{}: {}: {} [{}]", place,
                               diagnostic.offset + 1,
                               shownSeverity(diagnostic.severity),
                               diagnostic.summary, diagnostic.code->code));
  output.print(pictureOf(text, diagnostic));
  if (!diagnostic.engineMessage.empty())
    output.printLine("  engine: " +
                     printable(reasonOf({1, diagnostic.engineMessage})));
  if (!diagnostic.accepted.empty())
    output.printLine("  accepted: " + quotedList(diagnostic.accepted));
  if (!diagnostic.suggestion.empty())
    output.printLine(
        fmt::format("  did you mean '{}'?", diagnostic.suggestion));
}

Json diagnosticJson(const Diagnostic &diagnostic) {
  const bool isSilent = diagnostic.engineMessage.empty();
  return {{"offset", diagnostic.offset},
          {"length", diagnostic.length},
          {"severity", shownSeverity(diagnostic.severity)},
          {"code", diagnostic.code->code},
          {"message", isSilent ? diagnostic.summary : diagnostic.engineMessage},
          {"summary", diagnostic.summary},
          {"accepted", diagnostic.accepted},
          {"suggestion", diagnostic.suggestion.empty()
                             ? Json()
                             : Json(diagnostic.suggestion)}};
}

Json diagnosisJson(const Diagnosis &diagnosis, int line) {
  Json list = Json::array();
  for (const Diagnostic &diagnostic : diagnosis.diagnostics)
    list.push_back(diagnosticJson(diagnostic));
  return {{"text", diagnosis.text},
          {"line", line == 0 ? Json() : Json(line)},
          {"result", diagnosis.reading.result},
          {"error", diagnosis.reading.message},
          {"diagnostics", list}};
}

ExitStatus run(const CheckOptions &options, Output &output) {
  const bool fromFile = options.file.has_value();
  if (fromFile == !options.commands.empty())
    throw Failure(ExitStatus::wrongUse,
                  "check: give either commands or --file");
  std::vector<CommandLineOfFile> lines;
  if (fromFile)
    lines = expectCommandLines(*options.file);
  for (const std::string &command : options.commands)
    lines.push_back({0, command});
  Json list = Json::array();
  std::size_t faulty = 0;
  for (const CommandLineOfFile &line : lines) {
    const Diagnosis diagnosis = diagnose(line.text, fromFile);
    faulty += diagnosis.hasError() ? 1 : 0;
    if (output.json()) {
      list.push_back(diagnosisJson(diagnosis, line.number));
      continue;
    }
    const std::string place =
        fromFile ? fmt::format("{}:{}:", *options.file, line.number) : "";
    for (const Diagnostic &diagnostic : diagnosis.diagnostics)
      print(output, place, line.text, diagnostic);
  }
  if (output.json())
    output.document({{"commands", list}});
  else
    output.printLine(fmt::format("{} checked, {} refused",
                                 counted(lines.size(), "command"), faulty));
  return faulty == 0 ? ExitStatus::done : ExitStatus::refused;
}

} // namespace

void addCheckCommand(CommandLine &line) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App &app = line.addSubcommand(
      "check", "Check connect commands: every fault with its place",
      "zeldebug check 'connect lc hdu -cable type quorla_usb'",
      [options](Output &output) { return run(*options, output); });
  line.completeWith(app.add_option("COMMAND", options->commands,
                                   "a connect command, in quotes")
                        ->type_name(""),
                    ValueKind::text);
  line.completeWith(
      addTextOption(app, "--file", options->file,
                    "check each line of this file; '-' for standard input")
          ->type_name("FILE"),
      ValueKind::file);
}

} // namespace zeldebug
