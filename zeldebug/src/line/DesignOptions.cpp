#include "line/DesignOptions.h"

#include <algorithm>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "documents/Designs.h"
#include "line/Number.h"
#include "line/TextOption.h"
#include "output/Output.h"
#include "output/Place.h"
#include "output/ProjectFaults.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignDiagnostic;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;
using ZelDebugDialog::LibrarySearch;
using ZelDebugDialog::MissingDocument;
using ZelDebugDialog::Project;
using ZelDebugDialog::ProjectFault;
using ZelDebugDialog::ProjectSeverity;
using ZelDebugDialog::documents::shownSeverity;

using Severity = DesignDiagnostic::Severity;

constexpr Range instanceCount{1, 100000000, false};

constexpr const char *designGroup = "The design";

DesignRemark remarkOf(const DesignDiagnostic &diagnostic) {
  return {diagnostic.file, diagnostic.line, shownSeverity(diagnostic.severity),
          diagnostic.message};
}

/// One a line.
std::string errorsOf(const DesignModel &design) {
  std::string text;
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    if (diagnostic.severity == Severity::error)
      text += (text.empty() ? "" : "\n") + shownRemark(remarkOf(diagnostic));
  return text;
}

/// "2 errors, 1 warning"
std::string countsOf(const std::vector<DesignDiagnostic> &diagnostics) {
  std::vector<std::string> counts;
  for (const Severity severity :
       {Severity::error, Severity::warning, Severity::note}) {
    const auto number = std::count_if(diagnostics.begin(), diagnostics.end(),
                                      [severity](const DesignDiagnostic &one) {
                                        return one.severity == severity;
                                      });
    if (number != 0)
      counts.push_back(
          counted(static_cast<std::size_t>(number), shownSeverity(severity)));
  }
  return fmt::format("{}", fmt::join(counts, ", "));
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
  if (sources.maxInstances != DesignSources().maxInstances)
    add("--max-instances", std::to_string(sources.maxInstances));
  return words;
}

} // namespace

void DesignOptions::addTo(Options &options, bool designRequired) {
  CommandLine &line = options.line();
  CLI::App &app = options.app();
  CLI::Option *design =
      addTextOption(app, "DESIGN", designFile,
                    "IP-XACT design file, or the component file on top of a "
                    "hierarchy")
          ->type_name("")
          ->required(designRequired);
  line.completeWith(design, ValueKind::file);
  addSourcesTo(line, app);
}

void DesignOptions::addAsOptionTo(Options &options) {
  CommandLine &line = options.line();
  CLI::App &app = options.app();
  line.completeWith(addTextOption(app, "--design", designFile,
                                  "IP-XACT design file, or the component file "
                                  "on top of a hierarchy")
                        ->type_name("DESIGN")
                        ->group(designGroup),
                    ValueKind::file);
  addSourcesTo(line, app);
}

void DesignOptions::addSourcesTo(CommandLine &line, CLI::App &app) {
  line.completeWith(app.add_option("--library", libraryFolders,
                                   "folder to look for components in, once for "
                                   "each (default: below the folder of DESIGN)")
                        ->type_name("DIR")
                        ->allow_extra_args(false)
                        ->group(designGroup),
                    ValueKind::folder);
  line.completeWith(
      addTextOption(app, "--view", view, "view of a hierarchical component")
          ->type_name("NAME")
          ->group(designGroup),
      ValueKind::text);
  line.completeWith(addTextOption(app, "--kinds", kindsFile,
                                  "one more table of component kinds")
                        ->type_name("FILE")
                        ->group(designGroup),
                    ValueKind::file);
  line.completeWith(addTextOption(app, "--max-instances", maxInstances,
                                  "leave out what comes after so many instances"
                                  " (default: 1000000)")
                        ->type_name("N")
                        ->group(designGroup),
                    ValueKind::text);
}

std::optional<std::string> DesignOptions::takeName() {
  std::optional<std::string> name;
  name.swap(designFile);
  return name;
}

void DesignOptions::standOn(const Project &project) {
  if (!designFile) {
    designFile = project.Design();
    if (project.project.design)
      designPlace = project.project.design->place;
  }
  if (libraryFolders.empty()) {
    libraryFolders = project.Libraries();
    const auto &list =
        project.local.library ? project.local.library : project.project.library;
    for (std::size_t at = 0; at < libraryFolders.size(); ++at)
      namedFiles.push_back(
          {libraryFolders[at], list->at(at).place, "a library"});
  }
  if (!view && project.project.view) {
    view = project.View();
    viewPlace = project.project.view->place;
  }
  if (!kindsFile && project.project.kinds) {
    kindsFile = project.Kinds();
    namedFiles.push_back(
        {*kindsFile, project.project.kinds->place, "the kind table"});
  }
}

/// What is empty here means to the model that nothing was given.
DesignSources DesignOptions::expectSources() const {
  if (view && view->empty())
    throw Failure(ExitStatus::wrongUse, "--view: '' is no name of a view",
                  {"bad-value", "--view", ""});
  if (kindsFile && kindsFile->empty())
    throw Failure(ExitStatus::unreadable,
                  fmt::format("{}: {}", shownName(*kindsFile), noSuchFile),
                  {"", "--kinds", *kindsFile});
  DesignSources sources{designFile.value_or(""), libraryFolders,
                        view.value_or(""), kindsFile.value_or("")};
  if (maxInstances)
    sources.maxInstances =
        expectNumber("--max-instances", *maxInstances, instanceCount);
  return sources;
}

std::unique_ptr<DesignModel> DesignOptions::read(Output &output,
                                                 Telling telling) const {
  output.useRemarks();
  auto design = std::make_unique<DesignModel>();
  const bool isRead = ReadDesign(expectSources(), *design);
  expectRead(isRead, *design, output);
  tell(*design, telling, output);
  return design;
}

std::unique_ptr<DesignModel> DesignOptions::find() const {
  auto design = std::make_unique<DesignModel>();
  return ReadDesign(expectSources(), *design) ? std::move(design) : nullptr;
}

std::unique_ptr<DesignModel>
DesignOptions::proposeKinds(ZelDebugDialog::KindProposal &proposal,
                            Output &output) const {
  output.useRemarks();
  auto design = std::make_unique<DesignModel>();
  const bool isRead = ProposeKinds(expectSources(), proposal, *design);
  expectRead(isRead, *design, output);
  tell(*design, Telling::counted, output);
  return design;
}

/// A name that no component has would be passed over in silence. One that is
/// not there may have it.
void DesignOptions::expectView(const DesignModel &design,
                               Output &output) const {
  const std::vector<std::string> views = design.Views();
  if (!view || !design.Missing().empty() ||
      std::find(views.begin(), views.end(), *view) != views.end())
    return;
  const std::string problem = fmt::format(
      "'{}' is the view of no component; there {}{}", printable(*view),
      views.empty() ? std::string("are no views in this design")
                    : "are " + quotedList(views),
      didYouMean(*view, views));
  const std::string nearest = nearestMatch(*view, views);
  if (viewPlace.line != 0)
    expectNoFaults({ProjectFault{viewPlace, ProjectSeverity::error, "bad-value",
                                 problem, views, nearest, ""}},
                   output);
  throw Failure(ExitStatus::wrongUse, "--view: " + problem,
                {"bad-value", "--view", *view, views, nearest});
}

/// A line behind what is wrong with a file, on the place of the project that
/// leads to it; none where the line names it.
std::string DesignOptions::shownNamer(const std::string &file) const {
  for (const NamedFile &one : namedFiles)
    if (one.file == file)
      return fmt::format("\n{} names {}", shownPlace(one.place), one.what);
  const bool isOfLine = kindsFile == file ||
                        std::find(libraryFolders.begin(), libraryFolders.end(),
                                  file) != libraryFolders.end();
  return isOfLine || designPlace.line == 0
             ? ""
             : fmt::format("\n{} names the design", shownPlace(designPlace));
}

void DesignOptions::expectRead(bool isRead, const DesignModel &design,
                               Output &output) const {
  if (isRead) {
    expectView(design, output);
    return;
  }
  const std::vector<DesignDiagnostic> &all = design.Diagnostics();
  const auto first =
      std::find_if(all.begin(), all.end(), [](const DesignDiagnostic &one) {
        return one.severity == Severity::error;
      });
  FailureDetails about;
  if (first != all.end()) {
    about.file = first->file;
    about.line = first->line;
  }
  std::string text = errorsOf(design);
  if (!design.Missing().empty()) {
    const MissingAdvice advice = adviseOnMissing(design, "list");
    text += "\n" + advice.message;
    if (!advice.command.empty())
      text += "\n  " + shellLine(advice.command);
  }
  throw Failure(ExitStatus::unreadable, text + shownNamer(about.file), about);
}

/// There can be much to say of a library, which nobody wants to read again with
/// every command.
void DesignOptions::tell(const DesignModel &design, Telling telling,
                         Output &output) const {
  const std::vector<DesignDiagnostic> &all = design.Diagnostics();
  for (const DesignDiagnostic &diagnostic : all)
    if (telling == Telling::whole)
      output.remark(remarkOf(diagnostic));
    else
      output.keepRemark(remarkOf(diagnostic));
  if (telling == Telling::whole || all.empty())
    return;
  const std::string text = fmt::format(
      "reading the design left {}; '{}' shows {}", countsOf(all),
      shellLine(commandLine("design")), all.size() == 1 ? "it" : "them");
  const bool areNotes =
      std::all_of(all.begin(), all.end(), [](const DesignDiagnostic &one) {
        return one.severity == Severity::note;
      });
  if (areNotes)
    output.note(text);
  else
    output.warn(text);
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
  for (const std::string &word : words)
    line += (line.empty() ? "" : " ") + ZelDebugDialog::ShellWord(word);
  return line;
}

} // namespace zeldebug
