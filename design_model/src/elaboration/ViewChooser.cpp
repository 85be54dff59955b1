#include "elaboration/ViewChooser.h"

#include <utility>

#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

const std::string &fileOf(const ComponentRecord &component) {
  return component.interfaces.origin.file;
}

} // namespace

const ViewRecord *ViewChooser::choose(const ComponentRecord &component,
                                      const ConfigurationRecord *around,
                                      const std::string &instance) {
  const auto named = wanted.empty() ? component.viewByName.end()
                                    : component.viewByName.find(wanted);
  isWantedKnown = isWantedKnown || named != component.viewByName.end();
  if (around != nullptr) {
    const auto selected = around->views.find(instance);
    if (selected != around->views.end()) {
      const ViewSelection &selection = selected->second;
      const auto found = component.viewByName.find(selection.view);
      if (found != component.viewByName.end())
        return &component.views[found->second];
      report(Severity::warning, around->file, selection.line,
             "instance " + quote(instance) + " is to have the view " +
                 quote(selection.view) + ", which component " +
                 quote(toText(component.identity)) + " does not have");
    }
  }
  return named != component.viewByName.end() ? &component.views[named->second]
                                             : component.firstViewWithDesign;
}

void ViewChooser::reportUnused(const std::string &file) {
  if (!wanted.empty() && !isWantedKnown)
    report(Severity::warning, file, 0,
           "no component of the design has the view " + quote(wanted));
}

InnerDesign ViewChooser::follow(const ComponentRecord &component,
                                const ViewRecord &view) {
  InnerDesign inner;
  if (view.design) {
    inner.design = findDesign(fileOf(component), *view.design);
    inner.reference = &*view.design;
  }
  if (view.configuration)
    followConfiguration(component, *view.configuration, inner);
  if (view.hierarchy)
    followHierarchy(component, *view.hierarchy, inner);
  return inner;
}

void ViewChooser::followConfiguration(const ComponentRecord &component,
                                      const ReferenceRecord &reference,
                                      InnerDesign &inner) {
  const ConfigurationRecord *const configuration =
      store.findConfiguration(*reference.identity);
  if (configuration == nullptr)
    miss(DocumentType::designConfiguration, reference);
  if (configuration == nullptr)
    return report(Severity::error, fileOf(component), reference.line,
                  "design configuration " + quote(toText(*reference.identity)) +
                      " is not found");
  const auto &design = configuration->design;
  if (inner.reference == nullptr)
    inner.design = findDesignOf(*configuration);
  if (inner.reference != nullptr && design &&
      !(*design->identity == *inner.reference->identity))
    return report(Severity::warning, configuration->file, design->line,
                  "the configuration is for " +
                      quote(toText(*design->identity)) +
                      "; it is not used with " +
                      quote(toText(*inner.reference->identity)));
  inner.configuration = configuration;
}

/// The form of 2009: the reference is to a design or to a configuration, and
/// gives no values.
void ViewChooser::followHierarchy(const ComponentRecord &component,
                                  const ReferenceRecord &reference,
                                  InnerDesign &inner) {
  inner.design = store.findDesign(*reference.identity);
  if (inner.design != nullptr)
    return;
  inner.configuration = store.findConfiguration(*reference.identity);
  if (inner.configuration == nullptr)
    miss(DocumentType::design, reference);
  if (inner.configuration == nullptr)
    return report(Severity::error, fileOf(component), reference.line,
                  "there is neither a design nor a design configuration " +
                      quote(toText(*reference.identity)));
  inner.design = findDesignOf(*inner.configuration);
}

const DesignRecord *
ViewChooser::findDesignOf(const ConfigurationRecord &configuration) {
  if (configuration.design)
    return findDesign(configuration.file, *configuration.design);
  report(Severity::error, configuration.file, configuration.line,
         "design configuration " + quote(toText(configuration.identity)) +
             " names no design");
  return nullptr;
}

const DesignRecord *ViewChooser::findDesign(const std::string &file,
                                            const ReferenceRecord &reference) {
  const DesignRecord *const design = store.findDesign(*reference.identity);
  if (design != nullptr)
    return design;
  miss(DocumentType::design, reference);
  report(Severity::error, file, reference.line,
         "design " + quote(toText(*reference.identity)) + " is not found");
  return design;
}

void ViewChooser::miss(DocumentType type, const ReferenceRecord &reference) {
  missing.add({std::string(toText(type)), toText(*reference.identity)});
}

void ViewChooser::report(Severity severity, const std::string &file, int line,
                         std::string message) {
  diagnostics.add({severity, file, line, std::move(message)});
}

} // namespace ZelDebugDialog
