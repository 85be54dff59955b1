// check: every fault of a command, with its place and what would be accepted.
#include <algorithm>
#include <memory>
#include <optional>

#include <ZelDebugDialog/ConfigurationModel/Commands.h>
#include <ZelDebugDialog/ConfigurationModel/Text.h>
#include <fmt/format.h>

#include "documents/Commands.h"
#include "documents/Designs.h"
#include "line/CommandLine.h"
#include "line/CommandsInFile.h"
#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "output/Json.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::CheckedCommand;
using ZelDebugDialog::CodeSeverity;
using ZelDebugDialog::CommandDiagnostic;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::ShowOnOneLine;
using ZelDebugDialog::ShowSeverity;

namespace documents = ZelDebugDialog::documents;

struct CheckLine {
  std::vector<std::string> commands;
  std::optional<std::string> file;
  DesignOptions design;
  ProjectOptions project;
  std::optional<std::string> processor;
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

Excerpt excerptOf(const std::string &text,
                  const CommandDiagnostic &diagnostic) {
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
std::string pictureOf(const std::string &text,
                      const CommandDiagnostic &diagnostic) {
  const Excerpt shown = excerptOf(text, diagnostic);
  const std::size_t before = columnsOf(shown.before);
  const std::size_t width = columnsOf(shown.word);
  return "  " + printable(shown.before + shown.word + shown.behind) + "\n  " +
         std::string(before, ' ') + std::string(width == 0 ? 1 : width, '^') +
         "\n";
}

void print(Output &output, const std::string &place, const std::string &text,
           const CommandDiagnostic &diagnostic) {
  output.printSentence(fmt::format(
      "{}{}: {}: {} [{}]", place, diagnostic.offset + 1,
      ShowSeverity(diagnostic.severity), diagnostic.message, diagnostic.code));
  output.print(pictureOf(text, diagnostic));
  if (!diagnostic.engineMessage.empty())
    output.printSentence("  engine: " +
                         ShowOnOneLine(diagnostic.engineMessage));
  if (!diagnostic.accepted.empty())
    output.printSentence("  accepted: " + quotedList(diagnostic.accepted));
  if (!diagnostic.suggestion.empty())
    output.printSentence(
        fmt::format("  did you mean '{}'?", diagnostic.suggestion));
}

/// The processor that the commands are checked for, if the line names one.
class CheckedFor {
public:
  CheckedFor(const CheckLine &line, const CommandLine &commandLine,
             Output &output) {
    if (!line.processor) {
      line.project.expectUnused("it goes together with --processor");
      if (line.design.named())
        throw Failure(ExitStatus::wrongUse,
                      "check: --design and --processor go together");
      return;
    }
    design = line.project
                 .sourcesFor(line.design, commandLine.workingFolder(), output)
                 .read(output);
    board.emplace(*design, commandLine.workingFolder());
    options.board = &*board;
    options.processor = *line.processor;
  }

  CheckedCommand check(const std::string &text, bool ofFile) {
    options.ofFile = ofFile;
    return CheckCommand(text, options);
  }
  const DesignModel *designOrNull() const { return design.get(); }

private:
  std::unique_ptr<DesignModel> design;
  std::optional<Board> board;
  ZelDebugDialog::CheckOptions options;
};

std::vector<CommandInFile> expectCommands(const CheckLine &line) {
  const bool fromFile = line.file.has_value();
  if (fromFile == !line.commands.empty())
    throw Failure(ExitStatus::wrongUse,
                  "check: give either commands or --file");
  if (fromFile)
    return expectCommandsIn(*line.file);
  std::vector<CommandInFile> commands;
  for (const std::string &command : line.commands)
    commands.push_back({0, command});
  return commands;
}

ExitStatus run(const CheckLine &line, const CommandLine &commandLine,
               Output &output) {
  const bool fromFile = line.file.has_value();
  const std::vector<CommandInFile> commands = expectCommands(line);
  CheckedFor checker(line, commandLine, output);
  Json list = Json::array();
  std::size_t faulty = 0;
  for (const CommandInFile &command : commands) {
    const CheckedCommand checked = checker.check(command.text, fromFile);
    faulty += checked.accepted ? 0 : 1;
    output.countWarnings(
        std::any_of(checked.diagnostics.begin(), checked.diagnostics.end(),
                    [](const CommandDiagnostic &diagnostic) {
                      return diagnostic.severity == CodeSeverity::warning;
                    }));
    if (output.json()) {
      list.push_back(documents::checkedJson(checked, command.number));
      continue;
    }
    const std::string place =
        fromFile ? fmt::format("{}:{}:", printable(*line.file), command.number)
                 : "";
    for (const CommandDiagnostic &diagnostic : checked.diagnostics)
      print(output, place, command.text, diagnostic);
  }
  if (output.json())
    output.document({{"commands", list},
                     {"diagnostics", checker.designOrNull() == nullptr
                                         ? Json::array()
                                         : documents::diagnosticsJson(
                                               *checker.designOrNull())}});
  else
    output.printSentence(fmt::format(
        "{} checked, {} refused", counted(commands.size(), "command"), faulty));
  return faulty == 0 ? ExitStatus::done : ExitStatus::refused;
}

CommandLine::Runner checkOptions(Options &app) {
  const auto options = std::make_shared<CheckLine>();
  app.addArguments("COMMAND", options->commands, "a connect command, in quotes",
                   ValueKind::text);
  app.addOption("--file", "FILE", options->file,
                "check each line of this file; '-' for standard input",
                ValueKind::file);
  options->design.addAsOptionTo(app);
  app.addOption("--processor", "NAME", options->processor,
                "check what this processor of the design, or of the project, "
                "allows, too",
                ValueKind::processor, "The design");
  options->project.addTo(app);
  return [options, &line = app.line()](Output &output) {
    return run(*options, line, output);
  };
}

} // namespace

void addCheckCommand(CommandLine &line) {
  line.addSubcommand(
      "check", "Check connect commands: every fault with its place",
      "zeldebug check 'connect lc hdu -cable type quorla_usb'", checkOptions);
}

} // namespace zeldebug
