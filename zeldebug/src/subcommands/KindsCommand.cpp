// kinds: what a kind table for a design could say, and what the debugger would
// find with it.
#include <array>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Files.h>
#include <ZelDebugDialog/DesignModel/Kinds.h>

#include "line/DesignOptions.h"
#include "line/Options.h"
#include "line/ProjectOptions.h"
#include "output/Json.h"
#include "output/Output.h"
#include "output/Place.h"
#include "output/Table.h"
#include "subcommands/ProcessorList.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;
using ZelDebugDialog::ExistingFile;
using ZelDebugDialog::KindCandidate;
using ZelDebugDialog::KindConnection;
using ZelDebugDialog::KindPart;
using ZelDebugDialog::KindProposal;
using ZelDebugDialog::KindVerdict;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::RefusalKind;

struct PartRow {
  KindPart part;
  const char *word;
  const char *heading;
  const char *none;
};

constexpr std::array<PartRow, 4> parts{{
    {KindPart::processor, "processor", "PROCESSORS",
     "nothing looks like a processor"},
    {KindPart::debugModule, "debug-module", "DEBUG MODULES",
     "nothing looks like a debug module"},
    {KindPart::uart, "uart", "SERIAL PORTS", ""},
    {KindPart::memory, "memory", "MEMORIES", ""},
}};

const char *wordOf(KindPart part) {
  for (const PartRow &row : parts)
    if (row.part == part)
      return row.word;
  return "";
}

const char *wordOf(KindVerdict verdict) {
  switch (verdict) {
  case KindVerdict::known:
    return "known";
  case KindVerdict::proposed:
    return "proposed";
  case KindVerdict::undecided:
    return "undecided";
  case KindVerdict::rejected:
    break;
  }
  return "rejected";
}

struct KindsOptions {
  DesignOptions design;
  ProjectOptions project;
  std::optional<std::string> file;
  bool force = false;
};

Json candidateJson(const KindCandidate &candidate) {
  return {{"part", wordOf(candidate.part)},
          {"verdict", wordOf(candidate.verdict)},
          {"identity", candidate.identity},
          {"types", candidate.typeNames},
          {"instances", candidate.instances},
          {"otherInstances", candidate.otherInstances},
          {"evidence", candidate.evidence},
          {"wiredTo", candidate.wiredTo},
          {"question", orNull(candidate.question)}};
}

Json proposalJson(const KindProposal &proposal) {
  Json members{{"candidates", Json::array()},
               {"connections", Json::array()},
               {"questions", proposal.questions},
               {"table", proposal.table}};
  for (const KindCandidate &candidate : proposal.candidates)
    members["candidates"].push_back(candidateJson(candidate));
  for (const KindConnection &connection : proposal.connections)
    members["connections"].push_back({{"processor", connection.processor},
                                      {"debugModule", connection.debugModule},
                                      {"proposed", connection.isProposed},
                                      {"reason", connection.reason}});
  return members;
}

/// "plays 'lumacore'", "could play 'a' or 'b'", ...
std::string shownVerdict(const KindCandidate &candidate) {
  const std::string types =
      fmt::format("'{}'", fmt::join(candidate.typeNames, "' or '"));
  switch (candidate.verdict) {
  case KindVerdict::known:
    return fmt::format("is known as {}", types);
  case KindVerdict::proposed:
    return fmt::format("plays {}", types);
  case KindVerdict::undecided:
    return fmt::format("could play {}", types);
  case KindVerdict::rejected:
    break;
  }
  return "is none";
}

void printCandidate(const KindCandidate &candidate, Output &output) {
  output.printSentence(printable(fmt::format(
      "  {} {}", dashIfEmpty(candidate.identity), shownVerdict(candidate))));
  std::string instances =
      fmt::format("{}", fmt::join(candidate.instances, " "));
  if (candidate.otherInstances > 0)
    instances += fmt::format(" and {} more", candidate.otherInstances);
  const auto line = [&output](const char *what, const std::string &text) {
    output.printSentence(printable(fmt::format("    {:<10}{}", what, text)),
                         10);
  };
  line("instances", instances);
  for (const std::string &evidence : candidate.evidence)
    line("why", evidence);
  for (const std::string &wire : candidate.wiredTo)
    line("wired", wire);
  if (!candidate.question.empty())
    line(candidate.verdict == KindVerdict::undecided ? "open" : "but",
         candidate.question);
}

void printProposal(const KindProposal &proposal, Output &output) {
  for (const PartRow &row : parts) {
    bool isEmpty = true;
    for (const KindCandidate &candidate : proposal.candidates) {
      if (candidate.part != row.part)
        continue;
      if (isEmpty)
        output.printLine(output.heading(row.heading));
      isEmpty = false;
      printCandidate(candidate, output);
    }
    if (isEmpty && *row.none != '\0')
      output.printLine(
          fmt::format("{}\n  {}", output.heading(row.heading), row.none));
    if (!isEmpty || *row.none != '\0')
      output.print("\n");
  }
  for (const KindConnection &connection : proposal.connections)
    output.printSentence(printable(fmt::format(
        "{}connect {} {}: {}", connection.isProposed ? "" : "perhaps ",
        connection.processor, connection.debugModule, connection.reason)));
  for (const std::string &question : proposal.questions)
    output.printSentence(printable(fmt::format("Open: {}.", question)));
  if (!proposal.connections.empty() || !proposal.questions.empty())
    output.print("\n");
}

/// @return whether the file did not hold it already.
bool writeTable(const KindsOptions &options, const std::string &table) {
  try {
    return ZelDebugDialog::WriteWholeFile(*options.file, table,
                                          options.force ? ExistingFile::replace
                                                        : ExistingFile::refuse);
  } catch (const Refusal &refusal) {
    const bool mayForce = refusal.kind == RefusalKind::fileExists;
    throw Failure(ExitStatus::refused,
                  fmt::format("{}: {}{}", printable(shownPath(refusal.file)),
                              refusal.problem,
                              mayForce ? " (--force replaces it)" : ""),
                  {ZelDebugDialog::ShowKind(refusal.kind),
                   "--write",
                   *options.file,
                   {},
                   "",
                   refusal.file});
  }
}

ExitStatus run(const KindsOptions &options, const std::string &folder,
               Output &output) {
  if (options.force && !options.file)
    throw Failure(ExitStatus::wrongUse,
                  "--force is for the file of --write: give that as well");
  KindProposal proposal;
  const std::unique_ptr<DesignModel> design =
      options.project.sourcesFor(options.design, folder, output)
          .proposeKinds(proposal, output);
  if (options.file) {
    output.expectNoWarnings();
    const bool isNew = writeTable(options, proposal.table);
    output.note(fmt::format("{} {}: read it, mend it, and give it to --kinds",
                            isNew ? "written to" : "already in",
                            *options.file));
  }
  const ProcessorList list(*design);
  if (output.json()) {
    Json members = proposalJson(proposal);
    members["written"] = options.file ? Json(*options.file) : Json(nullptr);
    members["list"] = list.json();
    output.document(members);
    return ExitStatus::done;
  }
  printProposal(proposal, output);
  output.printSentence(
      "With the table of what plays a part, 'list' answers:\n");
  list.print(output);
  return ExitStatus::done;
}

CommandLine::Runner kindsOptions(Options &app) {
  const auto options = std::make_shared<KindsOptions>();
  options->design.addTo(app, false);
  options->project.addTo(app);
  app.addOption("--write", "FILE", options->file,
                "write the table that is proposed, with its "
                "evidence as comments",
                ValueKind::file, "The table");
  app.addFlag("--force", options->force,
              "replace the file of --write if there is one", "The table");
  return [options, &line = app.line()](Output &output) {
    return run(*options, line.workingFolder(), output);
  };
}

} // namespace

void addKindsCommand(CommandLine &line) {
  line.addSubcommand(
      "kinds",
      "Propose a kind table: what could be the processors, debug modules, "
      "serial ports and memories of a design",
      "zeldebug kinds soc.xml --library ip --write soc.kinds", kindsOptions);
}

} // namespace zeldebug
