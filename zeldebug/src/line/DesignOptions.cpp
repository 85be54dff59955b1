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

const char *shownSeverity(Severity severity) {
  switch (severity) {
  case Severity::error:
    return "error";
  case Severity::warning:
    return "warning";
  case Severity::note:
    break;
  }
  return "note";
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
  const std::string group = "The design";
  CLI::Option *design =
      addTextOption(app, "DESIGN", designFile,
                    "IP-XACT design file, or the component file on top of a "
                    "hierarchy")
          ->type_name("")
          ->required(designRequired);
  line.completeWith(design, ValueKind::file);
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

std::string shownDiagnostic(const DesignDiagnostic &diagnostic) {
  return shownRemark({diagnostic.file, diagnostic.line,
                      shownSeverity(diagnostic.severity), diagnostic.message});
}

std::string whyNotDebuggable(DesignModel &design,
                             const std::string &processor) {
  const std::string type = design.getIpName(processor);
  const std::vector<std::string> modules = modulesOf(design, processor);
  if (modules.empty())
    return fmt::format("no debug module or controller is connected to it, and "
                       "processors of type '{}' need one",
                       type);
  std::vector<std::string> shown;
  shown.reserve(modules.size());
  for (const std::string &module : modules)
    shown.push_back(
        fmt::format("{} of type '{}'", module, design.getIpName(module)));
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
                  fmt::format("'{}' cannot be debugged: {}", processor,
                              whyNotDebuggable(design, processor)));
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("'{}' is no processor of the design; there are {}{}",
                  processor, quotedList(names), didYouMean(processor, names)));
}

} // namespace zeldebug
