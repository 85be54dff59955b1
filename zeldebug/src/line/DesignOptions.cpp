#include "line/DesignOptions.h"

#include <algorithm>

#include <fmt/format.h>

#include "line/TextOption.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignDiagnostic;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;

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

/// One a line.
std::string errorsOf(const DesignModel &design) {
  std::string text;
  for (const DesignDiagnostic &diagnostic : design.Diagnostics())
    if (diagnostic.severity == Severity::error)
      text += (text.empty() ? "" : "\n") + shownDiagnostic(diagnostic);
  return text;
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
}

/// What is empty here means to the model that nothing was given.
DesignSources DesignOptions::expectSources() const {
  if (view && view->empty())
    throw Failure(ExitStatus::wrongUse, "--view: '' is no name of a view",
                  {"bad-value", "--view", ""});
  if (kindsFile && kindsFile->empty())
    throw Failure(
        ExitStatus::unreadable,
        fmt::format("{}: {}", shownName(*kindsFile), "there is no such file"),
        {"", "--kinds", *kindsFile});
  return {designFile.value_or(""), libraryFolders, view.value_or(""),
          kindsFile.value_or("")};
}

std::unique_ptr<DesignModel> DesignOptions::read(Output &output) const {
  auto design = std::make_unique<DesignModel>();
  output.useRemarks();
  const bool isRead = ReadDesign(expectSources(), *design);
  const DesignDiagnostic *firstError = nullptr;
  for (const DesignDiagnostic &diagnostic : design->Diagnostics()) {
    if (firstError == nullptr && diagnostic.severity == Severity::error)
      firstError = &diagnostic;
    // The errors of a design that cannot be read are what the run ends with.
    if (isRead)
      output.remark({diagnostic.file, diagnostic.line,
                     shownSeverity(diagnostic.severity), diagnostic.message});
  }
  if (!isRead)
    throw Failure(
        ExitStatus::unreadable, errorsOf(*design),
        firstError == nullptr
            ? FailureDetails()
            : FailureDetails{
                  "", "", "", {}, "", firstError->file, firstError->line});
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

std::string shownDiagnostic(const DesignDiagnostic &diagnostic) {
  return shownRemark({diagnostic.file, diagnostic.line,
                      shownSeverity(diagnostic.severity), diagnostic.message});
}

} // namespace zeldebug
