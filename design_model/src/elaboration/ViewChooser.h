// Which view of a component is taken, and the design that it leads to.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_VIEWCHOOSER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_VIEWCHOOSER_H

#include <string>

#include "elaboration/DocumentStore.h"
#include "messages/DiagnosticList.h"
#include "messages/MissingList.h"
#include "records/Records.h"

namespace ZelDebugDialog {

/// What is inside an instance.
struct InnerDesign {
  const DesignRecord *design = nullptr; ///< Null: nothing.
  const ConfigurationRecord *configuration = nullptr;
  /// The reference to the design, with the values that it gives; null when the
  /// design was reached by the configuration.
  const ReferenceRecord *reference = nullptr;
};

class ViewChooser {
public:
  /// `name` is the user's choice, or empty.
  ViewChooser(DocumentStore &documents, const std::string &name,
              DiagnosticList &list, MissingList &absent)
      : store(documents), wanted(name), diagnostics(list), missing(absent) {}

  /// The view that the configuration around an instance selects for it, if it
  /// does and the component has it; else the user's choice, if the component
  /// has it; else the first that leads to a design. Null: none.
  const ViewRecord *choose(const ComponentRecord &component,
                           const ConfigurationRecord *around,
                           const std::string &instance);

  /// What a view of the component leads to. References that lead nowhere are
  /// reported.
  InnerDesign follow(const ComponentRecord &component, const ViewRecord &view);

  /// Reports that no component which was asked for a view has the user's
  /// choice. `file` is that of the whole design.
  void reportUnused(const std::string &file);

private:
  void followConfiguration(const ComponentRecord &component,
                           const ReferenceRecord &reference,
                           InnerDesign &inner);
  void followHierarchy(const ComponentRecord &component,
                       const ReferenceRecord &reference, InnerDesign &inner);
  const DesignRecord *findDesignOf(const ConfigurationRecord &configuration);
  const DesignRecord *findDesign(const std::string &file,
                                 const ReferenceRecord &reference);
  void miss(DocumentType type, const ReferenceRecord &reference);
  void report(DesignDiagnostic::Severity severity, const std::string &file,
              int line, std::string message);

  DocumentStore &store;
  const std::string &wanted;
  bool isWantedKnown = false; ///< To some component.
  DiagnosticList &diagnostics;
  MissingList &missing;
};

} // namespace ZelDebugDialog

#endif
