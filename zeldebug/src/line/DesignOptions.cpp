#include "line/DesignOptions.h"

#include <algorithm>

#include <fmt/format.h>

#include "line/Number.h"
#include "line/TextOption.h"
#include "output/Output.h"
#include "output/Place.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignDiagnostic;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;
using ZelDebugDialog::LibrarySearch;
using ZelDebugDialog::MissingDocument;

using Severity = DesignDiagnostic::Severity;

constexpr const char *group = "The design";

const char *shownSeverity(Severity severity) {
  switch (severity) {
  case Severity::error:
    return "error";
  case Severity::warning:
    return "warning";
  case Severity::note:
    return "note";
  }
  return "";
}

constexpr Range instanceCount{1, 100000000, false};

/// The debug modules and controllers that a processor is connected to.
std::vector<std::string> modulesOf(DesignModel &design,
                                   const std::string &processor) {
  std::vector<std::string> modules;
  std::vector<std::string> found;
  design.getIpInstances(modules, HW_IP_DEBUG);
  for (const std::string &module : modules) {
    std::vector<std::string> connected;
    design.getHduConnectedProcessorList(connected, module);
    if (std::find(connected.begin(), connected.end(), processor) !=
        connected.end())
      found.push_back(module);
  }
  return found;
}

void say(const DesignDiagnostic &diagnostic, const Output &output) {
  const std::string text = shownDiagnostic(diagnostic);
  switch (diagnostic.severity) {
  case Severity::error:
    return output.error(text);
  case Severity::warning:
    return output.warn(text);
  case Severity::note:
    return output.note(text);
  }
}

/// One a line.
std::string errorsOf(const DesignModel &design) {
  std::string text;
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    if (diagnostic.severity == Severity::error)
      text += (text.empty() ? "" : "\n") + shownDiagnostic(diagnostic);
  return text;
}

constexpr std::size_t mostNamed = 5;

/// "component a:b:c:1, design a:b:d:1 and 3 more"
std::string shownDocuments(const std::vector<MissingDocument> &documents) {
  std::vector<std::string> shown;
  for (const MissingDocument &document : documents)
    if (shown.size() < mostNamed)
      shown.push_back(fmt::format("{} {}", document.type, document.identity));
  std::string text = fmt::format("{}", fmt::join(shown, ", "));
  if (documents.size() > mostNamed)
    text += fmt::format(" and {} more", documents.size() - mostNamed);
  return text;
}

std::vector<std::string>
wordsFor(const std::string &subcommand, const DesignSources &sources,
         const std::vector<std::string> &libraryFolders) {
  std::vector<std::string> words = {"zeldebug", subcommand, sources.designFile};
  const auto add = [&words](const char *option, const std::string &value) {
    words.insert(words.end(), {option, value});
  };
  for (const std::string &folder : libraryFolders)
    add("--library", folder);
  if (!sources.view.empty())
    add("--view", sources.view);
  if (!sources.kindsFile.empty())
    add("--kinds", sources.kindsFile);
  return words;
}

} // namespace

void DesignOptions::addTo(CommandLine &line, CLI::App &app,
                          bool designRequired) {
  CLI::Option *design =
      addTextOption(app, "DESIGN", designFile,
                    "IP-XACT design file, or the component file on top of a "
                    "hierarchy")
          ->type_name("")
          ->required(designRequired);
  line.completeWith(design, ValueKind::file);
  addSourcesTo(line, app);
}

void DesignOptions::addAsOptionTo(CommandLine &line, CLI::App &app) {
  line.completeWith(addTextOption(app, "--design", designFile,
                                  "IP-XACT design file, or the component file "
                                  "on top of a hierarchy")
                        ->type_name("DESIGN")
                        ->group(group),
                    ValueKind::file);
  addSourcesTo(line, app);
}

void DesignOptions::addSourcesTo(CommandLine &line, CLI::App &app) {
  line.completeWith(app.add_option("--library", libraryFolders,
                                   "folder to look for components in, once for "
                                   "each (default: below the folder of DESIGN)")
                        ->type_name("DIR")
                        ->allow_extra_args(false)
                        ->group(group),
                    ValueKind::folder);
  line.completeWith(
      addTextOption(app, "--view", view, "view of a hierarchical component")
          ->type_name("NAME")
          ->group(group),
      ValueKind::text);
  line.completeWith(addTextOption(app, "--kinds", kindsFile,
                                  "one more table of component kinds")
                        ->type_name("FILE")
                        ->group(group),
                    ValueKind::file);
  line.completeWith(addTextOption(app, "--max-instances", maxInstances,
                                  "leave out what comes after so many instances"
                                  " (default: 1000000)")
                        ->type_name("N")
                        ->group(group),
                    ValueKind::text);
}

/// What is empty here means to the model that nothing was given.
DesignSources DesignOptions::expectSources() const {
  if (view && view->empty())
    throw Failure(ExitStatus::wrongUse, "--view: '' is no name of a view");
  if (kindsFile && kindsFile->empty())
    throw Failure(ExitStatus::unreadable,
                  fmt::format("{}: {}", shownName(*kindsFile), noSuchFile));
  DesignSources sources{designFile.value_or(""), libraryFolders,
                        view.value_or(""), kindsFile.value_or("")};
  if (maxInstances)
    sources.maxInstances =
        expectNumber("--max-instances", *maxInstances, instanceCount);
  return sources;
}

std::unique_ptr<DesignModel> DesignOptions::read(const Output &output) const {
  auto design = std::make_unique<DesignModel>();
  const bool isRead = ReadDesign(expectSources(), *design);
  expectRead(isRead, *design, output);
  return design;
}

Json diagnosticsJson(const DesignModel &design) {
  Json list = Json::array();
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    list.push_back({{"file", diagnostic.file},
                    {"line", diagnostic.line},
                    {"severity", shownSeverity(diagnostic.severity)},
                    {"message", diagnostic.message}});
  return list;
}

std::unique_ptr<DesignModel>
DesignOptions::proposeKinds(ZelDebugDialog::KindProposal &proposal,
                            const Output &output) const {
  auto design = std::make_unique<DesignModel>();
  const bool isRead = ProposeKinds(expectSources(), proposal, *design);
  expectRead(isRead, *design, output);
  return design;
}

/// A name that no component has would be passed over in silence. One that is
/// not there may have it.
void DesignOptions::expectView(const DesignModel &design) const {
  const std::vector<std::string> views = design.Views();
  if (!view || !design.Missing().empty() ||
      std::find(views.begin(), views.end(), *view) != views.end())
    return;
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("--view: '{}' is the view of no component; there {}{}",
                  printable(*view),
                  views.empty() ? std::string("are no views in this design")
                                : "are " + quotedList(views),
                  didYouMean(*view, views)));
}

void DesignOptions::expectRead(bool isRead, const DesignModel &design,
                               const Output &output) const {
  if (!isRead) {
    std::string text = errorsOf(design);
    if (!design.Missing().empty()) {
      const MissingAdvice advice = adviseOnMissing(design, "list");
      text += "\n" + advice.message;
      if (!advice.command.empty())
        text += "\n  " + shellLine(advice.command);
    }
    throw Failure(ExitStatus::unreadable, text);
  }
  expectView(design);
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    say(diagnostic, output);
}

MissingAdvice
DesignOptions::adviseOnMissing(const DesignModel &design,
                               const std::string &subcommand) const {
  const DesignSources sources = expectSources();
  const LibrarySearch search = FindLibraries(sources, design);
  MissingAdvice advice;
  advice.message =
      fmt::format("Not found: {}.", shownDocuments(design.Missing()));
  if (!search.folders.empty()) {
    advice.message += fmt::format(
        " {} in the libraries of this line:",
        search.missing.empty()
            ? std::string("What is missing is")
            : fmt::format("All but {} is", shownDocuments(search.missing)));
    advice.command = wordsFor(subcommand, sources, search.folders);
    return advice;
  }
  const std::string where =
      search.documents == 0
          ? fmt::format("There are no other documents below {}",
                        search.outermost)
          : fmt::format("Nothing of it is in the {} below {}",
                        counted(search.documents, "document"),
                        search.outermost);
  advice.message += fmt::format(
      " {}{}; '--library DIR' names the folder that holds it.", where,
      search.isCut ? ", where the search ended at its limit" : "");
  return advice;
}

std::vector<std::string>
DesignOptions::commandLine(const std::string &subcommand) const {
  const DesignSources sources = expectSources();
  return wordsFor(subcommand, sources, sources.libraryFolders);
}

std::string shellLine(const std::vector<std::string> &words) {
  std::string line;
  for (const std::string &word : words) {
    const bool isPlain =
        !word.empty() &&
        word.find_first_not_of("abcdefghijklmnopqrstuvwxyz"
                               "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                               "0123456789-_./:=+,%@") == std::string::npos;
    if (!line.empty())
      line += ' ';
    if (isPlain) {
      line += word;
      continue;
    }
    line += '\'';
    for (const char c : word)
      line += c == '\'' ? std::string("'\\''") : std::string(1, c);
    line += '\'';
  }
  return line;
}

std::string shownDiagnostic(const DesignDiagnostic &diagnostic) {
  const std::string file = shownName(diagnostic.file);
  return diagnostic.line > 0 ? fmt::format("{}:{}: {}", file, diagnostic.line,
                                           diagnostic.message)
                             : fmt::format("{}: {}", file, diagnostic.message);
}

std::string whyNotDebuggable(DesignModel &design,
                             const std::string &processor) {
  const std::string type = design.getIpName(processor);
  const std::vector<std::string> modules = modulesOf(design, processor);
  if (modules.empty())
    return fmt::format("no debug module or controller is connected to it, and "
                       "processors of type '{}' need one",
                       printable(type));
  std::vector<std::string> shown;
  shown.reserve(modules.size());
  for (const std::string &module : modules)
    shown.push_back(fmt::format("{} of type '{}'", printable(module),
                                printable(design.getIpName(module))));
  return fmt::format(
      "it is connected to {}, and only modules of type 'hdu' or "
      "'hdu_cedar' and controllers of type 'ppc_jtag_link' lead to "
      "a processor",
      fmt::join(shown, ", "));
}

void expectDebuggable(DesignModel &design,
                      const std::vector<std::string> &debuggable,
                      const std::string &processor) {
  const auto holds = [&processor](const std::vector<std::string> &names) {
    return std::find(names.begin(), names.end(), processor) != names.end();
  };
  if (holds(debuggable))
    return;
  std::vector<std::string> names;
  design.getProcessorInstances(names, false);
  if (holds(names))
    throw Failure(ExitStatus::refused,
                  fmt::format("'{}' cannot be debugged: {}",
                              printable(processor),
                              whyNotDebuggable(design, processor)));
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("'{}' is no processor of the design; there are {}{}",
                  printable(processor), quotedList(names),
                  didYouMean(processor, names)));
}

} // namespace zeldebug
